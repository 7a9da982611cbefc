#include <base/detail/cow_Range.h>
#include <base/detail/orv_Immortal.h>
#include <omu/detail/omu_ForgetAtoms.h>
#include <omu/omu_Atom.h>

#include <algorithm>
#include <vector>

namespace {

/// The text at place i stands at i - 1.
std::vector<cow_String>& Texts() {
    static orv_Immortal<std::vector<cow_String>> texts;
    return texts.Value();
}

}  // namespace

void omu_ForgetAtoms() noexcept { std::vector<cow_String>().swap(Texts()); }

omu_Atom omu_Atom::CreateAtom(const cow_String& text) {
    const omu_Atom present(text);
    if (present.Index() != 0) return present;
    Texts().push_back(text);
    return omu_Atom(static_cast<std::uint32_t>(Texts().size()));
}

omu_Atom::omu_Atom(const cow_String& text) : _index(0) {
    const auto found = std::find(Texts().begin(), Texts().end(), text);
    if (found != Texts().end()) _index = static_cast<std::uint32_t>(found - Texts().begin()) + 1;
}

const char* omu_Atom::String() const {
    if (_index == 0) return nullptr;
    if (_index > Texts().size()) cow_ThrowIndex("omu_Atom", _index, Texts().size() + 1);
    return Texts()[_index - 1].c_str();
}
