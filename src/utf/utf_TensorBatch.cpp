#include <base/nex_PrimException.h>
#include <base/nex_Throw.h>
#include <utf/detail/utf_PrincipalQuaternion.h>
#include <utf/detail/utf_QuaternionCosines.h>
#include <utf/detail/utf_TensorKernels.h>
#include <utf/utf_Tensor.h>
#include <utf/utf_TensorBatch.h>

namespace {

void Require(bool holds, const char* condition) {
    if (!holds) nex_Throw(nex_PrimException(condition));
}

template <class T>
void RequireSize(std::span<T> out, std::size_t size) {
    Require(out.size() == size, "The output has not the size of the tensors");
}

}  // namespace

template <class T>
utf_TensorBatch<T>::utf_TensorBatch(res_DataTypeEnm kind, std::span<const T> packed, bool engineeringShear)
    : _kind(kind),
      _packed(packed),
      _stride(static_cast<std::size_t>(utf_Tensor<T>::numComponents(kind))),
      _engineeringShear(engineeringShear) {
    Require(_stride != 0, "The kind is no tensor's");
    Require(packed.size() % _stride == 0, "The components are not those of whole tensors");
}

/// One value each, of the components as utf_SixComponents; the layout is a constant inside of the loop.
template <class T>
template <class Measure>
void utf_TensorBatch<T>::Measured(std::span<T> out, const Measure& measure) const {
    RequireSize(out, count());
    utf_WithLayout(utf_LayoutOf(_kind), [&](auto layout) {
        constexpr std::size_t Stride = utf_DirectCount(layout()) + utf_ShearCount(layout());
        const double shearFactor = _engineeringShear ? 0.5 : 1.0;
        const T* const packed = _packed.data();
        for (std::size_t i = 0; i < out.size(); ++i)
            out[i] = static_cast<T>(measure(layout, utf_Load<layout()>(packed + Stride * i, shearFactor)));
    });
}

template <class T>
void utf_TensorBatch<T>::pressure(std::span<T> out) const {
    Measured(out, [](auto, const utf_SixComponents& t) { return utf_Pressure(t); });
}

template <class T>
void utf_TensorBatch<T>::mises(std::span<T> out) const {
    Measured(out, [](auto, const utf_SixComponents& t) { return utf_Mises(t); });
}

template <class T>
void utf_TensorBatch<T>::tresca(std::span<T> out) const {
    Measured(out, [](auto layout, const utf_SixComponents& t) { return utf_Tresca(utf_PrincipalValues<layout()>(t)); });
}

template <class T>
void utf_TensorBatch<T>::inv3(std::span<T> out) const {
    Measured(out, [](auto, const utf_SixComponents& t) { return utf_Inv3(t); });
}

template <class T>
void utf_TensorBatch<T>::principleValues(std::span<T> out) const {
    RequireSize(out, 3 * count());
    utf_WithLayout(utf_LayoutOf(_kind), [&](auto layout) {
        const double shearFactor = _engineeringShear ? 0.5 : 1.0;
        const T* in = _packed.data();
        for (T* p = out.data(); p != out.data() + out.size(); p += 3, in += _stride) {
            const auto values = utf_PrincipalValues<layout()>(utf_Load<layout()>(in, shearFactor));
            for (std::size_t k = 0; k < 3; ++k) p[k] = static_cast<T>(values[k]);
        }
    });
}

template <class T>
void utf_TensorBatch<T>::tensorAsPrincipalAndQuaternions(std::span<T> principal, std::span<T> quaternions) const {
    RequireSize(principal, 3 * count());
    RequireSize(quaternions, 4 * count());
    for (std::size_t i = 0; i < count(); ++i)
        utf_PrincipalQuaternion(_kind, _packed.data() + _stride * i, _engineeringShear, principal.data() + 3 * i,
                                quaternions.data() + 4 * i);
}

template <class T>
void utf_TensorBatch<T>::transform(const utf_Quaternion<T>& q, bool engineeringShear, std::span<T> out) const {
    RequireSize(out, _packed.size());
    const utf_NineCosines turn = utf_TensorTurn(_kind, q);
    for (std::size_t i = 0; i < out.size(); i += _stride)
        utf_Rotate(_kind, _packed.data() + i, turn, engineeringShear, out.data() + i);
}

template class utf_TensorBatch<float>;
template class utf_TensorBatch<double>;
