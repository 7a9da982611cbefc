#ifndef ORV_UTF_UTF_TENSORBATCH_H
#define ORV_UTF_UTF_TENSORBATCH_H

#include <base/orv_Export.h>
#include <base/res_DataTypeEnm.h>
#include <utf/utf_Quaternion.h>

#include <cstddef>
#include <span>

/// A view of n packed tensors of one kind, tensor after tensor without gaps, as a field of results lies in memory.
///
/// What it computes is to the last bit what utf_Tensor says of each of them, without an object a tensor. The view holds
/// a span of the caller's array, which must stay; it allocates nothing and may be shared between threads as the
/// array may. Output i belongs to tensor i. An output is a caller's span of exactly the size told, apart from the
/// input unless said otherwise; another size throws nex_PrimException before anything is written.
template <class T>
class utf_TensorBatch {
public:
    /// Throws nex_PrimException for a kind that is no tensor's (9 to 13) and for a number of components that is not a
    /// multiple of numComponents(kind). No components are no tensors: nothing is written then.
    utf_TensorBatch(res_DataTypeEnm kind, std::span<const T> packed, bool engineeringShear = false);

    /// Number of tensors.
    [[nodiscard]] std::size_t count() const noexcept { return _packed.size() / _stride; }

    // ---- Measures: n values each; see utf_Tensor.

    /// One value a tensor. Throws nex_PrimException, before anything is written, when `out` is not of that size.
    void pressure(std::span<T> out) const;
    void mises(std::span<T> out) const;
    void tresca(std::span<T> out) const;
    void inv3(std::span<T> out) const;

    /// 3 n values, three a tensor, in the order of utf_Tensor::principleValues.
    void principleValues(std::span<T> out) const;

    /// 3 n principal values and 4 n quaternion components, as utf_Tensor::tensorAsPrincipalAndQuaternions.
    void tensorAsPrincipalAndQuaternions(std::span<T> principal, std::span<T> quaternions) const;

    // ---- Rotation

    /// All turned by `q`, in the sense of utf_Tensor::transform, with its exception, packed as the input. In place when
    /// `out` is the input itself; a partial overlap is not allowed. As there, `engineeringShear` decides, not the flag
    /// that the batch was given.
    void transform(const utf_Quaternion<T>& q, bool engineeringShear, std::span<T> out) const;

private:
    template <class Measure>
    void Measured(std::span<T> out, const Measure& measure) const;

    res_DataTypeEnm _kind;
    std::span<const T> _packed;
    std::size_t _stride;
    bool _engineeringShear;
};

ORV_EXTERN_TEMPLATE(utf_TensorBatch<float>);
ORV_EXTERN_TEMPLATE(utf_TensorBatch<double>);

#endif
