#include <utf/detail/utf_PrintComponents.h>
#include <utf/utf_EngineeringData.h>

#include <algorithm>
#include <utility>
#include <vector>

template <class T>
utf_EngineeringData<T>::utf_EngineeringData(res_DataTypeEnm kind, const cow_List<T>& values, bool engineeringShear)
    : utf_EngineeringData(kind, values, values.Length(), engineeringShear) {}

template <class T>
utf_EngineeringData<T>::utf_EngineeringData(res_DataTypeEnm kind, const cow_List<T>& values, int count,
                                            bool engineeringShear)
    : utf_EngineeringData(kind, count, engineeringShear) {
    std::copy_n(values.begin(), std::min(_count, values.Length()), _components);
}

template <class T>
utf_EngineeringData<T>::utf_EngineeringData(res_DataTypeEnm kind, const T* values, int count, bool engineeringShear)
    : utf_EngineeringData(kind, count, engineeringShear) {
    if (values != nullptr) std::copy_n(values, _count, _components);
}

template <class T>
utf_EngineeringData<T>::utf_EngineeringData(res_DataTypeEnm kind, T* values, int count, bool engineeringShear)
    : utf_EngineeringData(kind, values == nullptr ? count : 0, engineeringShear) {
    if (values == nullptr) return;
    _components = values;
    _count = std::max(count, 0);
    _ownsComponents = false;
}

template <class T>
utf_EngineeringData<T>::utf_EngineeringData(res_DataTypeEnm kind, int count, bool engineeringShear)
    : _kind(kind),
      _components(_inPlace),
      _count(std::max(count, 0)),
      _ownsComponents(true),
      _engineeringShear(engineeringShear) {
    if (_count <= InlineCount) return;
    _heap = std::make_unique<T[]>(static_cast<std::size_t>(_count));
    _components = _heap.get();
}

template <class T>
utf_EngineeringData<T>::utf_EngineeringData(const utf_EngineeringData& other)
    : utf_EngineeringData(other._kind, other.Components(), other._count, other._engineeringShear) {}

template <class T>
utf_EngineeringData<T>::utf_EngineeringData(utf_EngineeringData&& other) noexcept {
    Take(other);
}

template <class T>
utf_EngineeringData<T>& utf_EngineeringData<T>::operator=(const utf_EngineeringData& other) {
    if (this != &other || !_ownsComponents) *this = utf_EngineeringData(other);
    return *this;
}

template <class T>
utf_EngineeringData<T>& utf_EngineeringData<T>::operator=(utf_EngineeringData&& other) noexcept {
    if (!other._ownsComponents) return *this = std::as_const(other);
    if (this != &other) Take(other);
    return *this;
}

template <class T>
void utf_EngineeringData<T>::Take(utf_EngineeringData& other) noexcept {
    _kind = other._kind;
    _count = other._count;
    _ownsComponents = other._ownsComponents;
    _engineeringShear = other._engineeringShear;
    std::copy_n(other._inPlace, InlineCount, _inPlace);
    _heap = std::move(other._heap);
    _components = other._components == other._inPlace ? _inPlace : other._components;
    if (_heap == nullptr) return;
    std::fill_n(other._inPlace, InlineCount, T(0));
    other._components = other._inPlace;
    other._count = 0;
}

template <class T>
utf_EngineeringData<T>* utf_EngineeringData<T>::Copy() const {
    return new utf_EngineeringData(*this);
}

template <class T>
cow_List<T> utf_EngineeringData<T>::data() const {
    const std::span<const T> all = Span();
    return cow_List<T>(std::vector<T>(all.begin(), all.end()));
}

template <class T>
void utf_EngineeringData<T>::set(const T* values, int count) {
    utf_EngineeringData::operator=(utf_EngineeringData(_kind, values, count, _engineeringShear));
}

template <class T>
void utf_EngineeringData<T>::Print(aio_ostream& out, int indent) const {
    utf_PrintComponents(out, indent, Name(), Span());
}

template <class T>
const char* utf_EngineeringData<T>::Name() const noexcept {
    return "EngineeringData";
}

template class utf_EngineeringData<float>;
template class utf_EngineeringData<double>;
