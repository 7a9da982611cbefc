#include <base/nex_Throw.h>
#include <omu/omu_VelNameErrorException.h>
#include <omu/omu_VelmorName.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace {

/// Classes of bytes; a set of them is the sum.
enum ByteClass : unsigned short {
    Digit = 1,
    Dash = 2,
    Underscore = 4,
    Blank = 8,
    Quote = 16,
    Dot = 32,
    Backslash = 64,
    Comma = 128,
    Control = 256,
    JobCharacter = 512,
    ModelCharacter = 1024,
    Quotable = 2048,  ///< makes QuoteIfNeeded quote a part
    UnsafeInFile = 4096
};

constexpr std::size_t Index(char byte) { return static_cast<unsigned char>(byte); }

/// For every byte the classes that it is in.
constexpr std::array<unsigned, 256> byteClasses = [] {
    std::array<unsigned, 256> classes{};
    const auto add = [&classes](std::string_view bytes, unsigned set) {
        for (const char byte : bytes) classes[Index(byte)] |= set;
    };
    constexpr std::string_view modelCharacters = R"($\&*~!()[]{}|;'`<>?/.)";
    add("0123456789", Digit);
    add("-", Dash);
    add("_", Underscore);
    add(" ", Blank);
    add("\"", Quote);
    add(".", Dot);
    add("\\", Backslash);
    add(",", Comma);
    add(modelCharacters, ModelCharacter | JobCharacter | Quotable);
    add(": ", JobCharacter | Quotable);
    add("=,", Quotable);
    add("!#$%&'()*,/:<=>?[]{}~", UnsafeInFile);
    for (std::size_t byte = 0; byte < 32; ++byte) classes[byte] |= Control;
    return classes;
}();

constexpr unsigned ClassesOf(char byte) { return byteClasses[Index(byte)]; }
constexpr bool IsIn(char byte, unsigned set) { return (ClassesOf(byte) & set) != 0; }

/// The union of the classes of all bytes.
unsigned ClassesOf(std::string_view bytes) {
    unsigned classes = 0;
    for (const char byte : bytes) classes |= ClassesOf(byte);
    return classes;
}

struct Rules {
    int maxLength;
    omu_VelNameErrorEnm error;
    unsigned nowhere;
    unsigned notFirst;
    unsigned notLast;
};

constexpr Rules guiRules = {omu_VelmorName::MaxGuiNameSize(), omu_VelNameInvalid, Quote | Dot | Backslash | Control,
                            Digit | Underscore | Blank, Underscore | Blank};

/// By kind. All faults of a kind but emptiness are one error, so they need no order.
constexpr Rules rulesByKind[] = {
    {omu_VelmorName::MaxKerNameSize(), omu_VelNameInvalid, Quote | Dot | Backslash, Digit, 0},
    {omu_VelmorName::MaxKerNameSize(), omu_VelNameInvalidJob, Quote | JobCharacter, Dash, 0},
    {omu_VelmorName::MaxKerNameSize(), omu_VelNameInvalidModel, Quote | ModelCharacter, 0, 0},
    guiRules,
    {omu_VelmorName::MaxGuiNameSize(), omu_VelNameInvalidJob, Quote | JobCharacter | Control, Dash | Underscore,
     Underscore},
    {omu_VelmorName::MaxGuiNameSize(), omu_VelNameInvalidModel, Quote | ModelCharacter | Control, Underscore | Blank,
     Underscore | Blank},
    guiRules,
    {omu_VelmorName::MaxXyNameSize(), omu_VelNameInvalid, Quote | Dot | Comma | Backslash | Control,
     Digit | Dash | Underscore | Blank, Underscore | Blank},
};

void Check(const cow_String& name, omu_VelmorNameEnum kind) {
    if (kind < 0 || static_cast<std::size_t>(kind) >= std::size(rulesByKind)) return;
    const Rules& rules = rulesByKind[kind];
    const std::string_view bytes = name.View();
    if (bytes.empty()) nex_Throw(omu_VelNameErrorException(omu_VelNameEmpty));
    // The length is the first to be looked at: no more bytes than a name may have are read.
    if (bytes.size() > static_cast<std::size_t>(rules.maxLength) || (ClassesOf(bytes) & rules.nowhere) != 0 ||
        IsIn(bytes.front(), rules.notFirst) || IsIn(bytes.back(), rules.notLast))
        nex_Throw(omu_VelNameErrorException(rules.error));
}

using Replacement = std::array<char, 6>;

Replacement Complete(const char* replacement) {
    Replacement characters;
    characters.fill('.');
    for (std::size_t i = 0; replacement != nullptr && i < characters.size() && replacement[i] != '\0'; ++i)
        characters[i] = replacement[i];
    return characters;
}

/// Repairs the first fault of a name that is not empty. Returns whether that changed the name.
bool RepairFirstFault(std::string& name, const Replacement& replacement) {
    const auto isRemoved = [&](std::size_t fault) { return replacement[fault] == '.'; };
    const auto repair = [&](std::size_t at, std::size_t fault) {
        if (isRemoved(fault))
            name.erase(at, 1);
        else if (name[at] == replacement[fault])
            return false;
        else
            name[at] = replacement[fault];
        return true;
    };

    if (IsIn(name.front(), Digit)) {
        if (isRemoved(0)) return repair(0, 0);
        name.insert(name.begin(), replacement[0]);
        return true;
    }
    constexpr char faulty[] = {'"', '.', '\\'};
    for (std::size_t i = 0; i < std::size(faulty); ++i)
        if (const std::size_t at = name.find(faulty[i]); at != std::string::npos) return repair(at, i + 1);
    if (IsIn(name.front(), Underscore | Blank)) return repair(0, 4);
    if (IsIn(name.back(), Underscore | Blank)) return repair(name.size() - 1, 5);
    return false;
}

bool NeedsQuotes(std::string_view part) {
    const bool isQuoted = part.size() >= 3 && part.front() == '"' && part.back() == '"';
    return !isQuoted && (ClassesOf(part) & Quotable) != 0;
}

}  // namespace

omu_VelmorName::omu_VelmorName(const cow_String& name, omu_VelmorNameEnum kind) : _name(name) { Check(_name, kind); }
omu_VelmorName::omu_VelmorName(const char* name, omu_VelmorNameEnum kind) : omu_VelmorName(cow_String(name), kind) {}

bool omu_VelmorName::MakeLegalGuiName(cow_String& name, const char* replacement) {
    const Replacement characters = Complete(replacement);
    std::string repaired(name.View().substr(0, MaxGuiNameSize()));
    const std::size_t passes = 16 + 4 * repaired.size();
    for (std::size_t pass = 0; pass < passes && !repaired.empty(); ++pass) {
        if (RepairFirstFault(repaired, characters)) continue;
        name = cow_String(std::move(repaired));
        return true;
    }
    return false;
}

cow_String omu_VelmorName::QuoteIfNeeded(const cow_String& name) {
    std::string quoted;
    std::string_view rest = name.View();
    quoted.reserve(rest.size() + 2);
    for (;;) {
        const std::size_t end = rest.find('.');
        const std::string_view part = rest.substr(0, end);
        const std::string_view quote = NeedsQuotes(part) ? "\"" : "";
        quoted.append(quote).append(part).append(quote);
        if (end == std::string_view::npos) return quoted;
        quoted += '.';
        rest.remove_prefix(end + 1);
    }
}

cow_String omu_VelmorName::MakeLegalFileName(const cow_String& name) {
    std::string legal(name.View());
    std::replace_if(
        legal.begin(), legal.end(), [](char byte) { return IsIn(byte, UnsafeInFile); }, '-');
    return legal;
}
