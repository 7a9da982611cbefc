#ifndef ORV_MDL_DETAIL_MDL_PROPARGUMENT_H
#define ORV_MDL_DETAIL_MDL_PROPARGUMENT_H

#include <mdl/mdl_PropAttr.h>
#include <omu/omu_Argument.h>
#include <omu/omu_PrimNone.h>

#include <utility>

/// What one argument says about a property: a value, a state or None. It is a target of `Get` of its own, so that one
/// read tries all three, counts once, and fails, where it does, as a read of the value's type would. It stays at
/// NOTHING when there was nothing to read: no such argument, it was read already, or an error came before.
template <class T>
struct mdl_PropArgument {
    enum { NOTHING, VALUE, STATE, NONE } content = NOTHING;
    T value{};
    mdl_PropAttributeStateEnm state = mdl_PropAttributeStateEnm::UNCHANGED;
    bool allowNone;

    explicit mdl_PropArgument(bool none) : allowNone(none) {}

    /// Hands the content to the attribute. Throws nex_PrimException for a state that is not permitted.
    void Store(mdl_PropAttr<T>& attribute, const char* attributeName, bool allowUnset) {
        if (content == VALUE) attribute.Get() = std::move(value);
        if (content == STATE)
            attribute.SetStatus(attributeName, omu_PrimEnum<mdl_PropAttributeStateEnm>(state), allowUnset);
        if (content == NONE) attribute.Zero();
    }
};

/// The value is tried first: it is the usual case, and nothing can be read in two of the ways.
template <class T>
[[nodiscard]] bool omu_TakeArgument(const omu_Primitive& found, mdl_PropArgument<T>& target) {
    if (omu_TakeArgument(found, target.value)) {
        target.content = target.VALUE;
        return true;
    }
    if (omu_PrimNone none; target.allowNone && omu_TakeArgument(found, none)) {
        target.content = target.NONE;
        return true;
    }
    omu_PrimEnum<mdl_PropAttributeStateEnm> state(target.state);
    if (!omu_TakeArgument(found, state)) return false;
    target.content = target.STATE;
    target.state = state.Value();
    return true;
}

template <class T>
inline constexpr const char* omu_ExpectedName<mdl_PropArgument<T>> = omu_ExpectedName<T>;

#endif
