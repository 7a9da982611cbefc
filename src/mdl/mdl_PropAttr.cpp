#include <base/cls_ClassRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <base/nex_PrimException.h>
#include <base/nex_Throw.h>
#include <mdl/mdl_PropAttr.h>

template <class T>
mdl_PropAttr<T>::mdl_PropAttr() = default;

template <class T>
mdl_PropAttr<T>::mdl_PropAttr(const T& value) : _value(value) {}

template <class T>
mdl_PropAttr<T>::mdl_PropAttr(const mdl_PropAttr& other) : _value(other._value), _state(other._state) {}

// ---- Assignment

template <class T>
mdl_PropAttr<T>& mdl_PropAttr<T>::operator=(const mdl_PropAttr& other) {
    _value = other._value;
    _state = other._state;
    return *this;
}

template <class T>
mdl_PropAttr<T>& mdl_PropAttr<T>::operator=(const T& value) {
    Get() = value;
    return *this;
}

template <class T>
mdl_PropAttr<T>& mdl_PropAttr<T>::operator=(const State& state) {
    _state = state;
    if (IsFree()) Zero();
    return *this;
}

// ---- State

template <class T>
void mdl_PropAttr<T>::Propagate() noexcept {
    if (_state == State::SET)
        _state = State::UNCHANGED;
    else if (_state == State::FREED)
        _state = State::UNSET;
}

template <class T>
void mdl_PropAttr<T>::SetStatus(const char* attributeName, const omu_PrimEnum<mdl_PropAttributeStateEnm, 1>& status,
                                bool allowUnset) {
    const State state = status.Value();
    if (state == State::UNCHANGED) return;
    if (state != State::SET && state != (allowUnset ? State::UNSET : State::FREED))
        nex_Throw(nex_PrimException(
            atr("Invalid propagation status for '%s' attribute.", attributeName != nullptr ? attributeName : "")
                .Text()));
    Zero();
    _state = state;
}

// ---- Persistence

template <class T>
void mdl_PropAttr<T>::InitializeMetadata(cls_ClassRegistrar& registrar) {
    registrar.Class<mdl_PropAttr>(mdl_PropAttrRecordOf<T>.name, mdl_MetadataNumber)
        .template Add<T>("value")
        .template Add<State>("state");
}

template <class T>
void mdl_PropAttr<T>::DBWrite(const cls_WriteVisitor& visitor) const {
    visitor.Write("value", _value);
    visitor.Write("state", _state);
}

template <class T>
mdl_PropAttr<T>::mdl_PropAttr(const cls_ReadVisitor& visitor)
    : _value(visitor.Read("value", T())), _state(visitor.Read("state", State::UNSET)) {}

template class mdl_PropAttr<double>;
template class mdl_PropAttr<int>;
template class mdl_PropAttr<bool>;
template class mdl_PropAttr<cow_List<float>>;
template class mdl_PropAttr<cow_List<cow_String>>;
template class mdl_PropAttr<cow_List<int>>;
