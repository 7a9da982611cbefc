#ifndef ORV_UTF_UTF_VECTOR_H
#define ORV_UTF_UTF_VECTOR_H

#include <base/orv_Export.h>
#include <utf/utf_EngineeringData.h>
#include <utf/utf_Quat2dBase.h>
#include <utf/utf_Quat3dBase.h>

template <class T>
class utf_Quaternion;

/// A vector result (displacement, force): three components x, y, z unless built with another count, such as two in a
/// planar model. Who owns them: see utf_EngineeringData; a vector that wraps a caller's array changes it when turned.
/// Arithmetic is in double for float too.
template <class T>
class utf_Vector final : public utf_EngineeringData<T> {
public:
    // ---- Construction

    /// As many components as the list has.
    utf_Vector(res_DataTypeEnm kind, const cow_List<T>& components, bool engineeringShear = false);

    /// Three components: copied; wrapped; zeros.
    utf_Vector(res_DataTypeEnm kind, const T* components, bool engineeringShear = false);
    utf_Vector(res_DataTypeEnm kind, T* components, bool engineeringShear = false);
    explicit utf_Vector(res_DataTypeEnm kind, bool engineeringShear = false);

    /// The same of `count` components. Only a count of type int comes here: true and false are the flag above.
    utf_Vector(res_DataTypeEnm kind, const T* components, int count, bool engineeringShear = false);
    utf_Vector(res_DataTypeEnm kind, T* components, int count, bool engineeringShear = false);
    utf_Vector(res_DataTypeEnm kind, int count, bool engineeringShear = false);

    /// Numbers of another type would count as true.
    template <class U>
    utf_Vector(res_DataTypeEnm kind, U* components, int count = 3, bool engineeringShear = false) = delete;

    [[nodiscard]] utf_Vector* Copy() const override;

    // ---- Queries

    /// The Euclidean length, over all components.
    [[nodiscard]] T magnitude() const noexcept;

    // ---- Rotation, in place, of two or three components; of any other count nothing happens. R are the direction
    // cosines, rows the local axes: R v are the components in the local frame.

    /// By the 2x2 block on (x, y), z stays.
    void transform(const utf_Quat2dBase<T>& q) noexcept;

    /// v' = R v, the sense opposite to `transform` of tensors; two components by the upper left 2x2 block.
    void transform(const utf_Quat3dBase<T>& q) noexcept;

    /// Three components: v' = R v as above. *Two components turn the other way, by the transposed block*: x' = R11 x +
    /// R21 y, y' = R12 x + R22 y; they need R33 > 0.99 (strict), else nex_PrimException
    /// "coss.ConstGet(2,2) > 0.99 || !\"Not a valid 2D transform\"" and nothing changes. Deliberate. A quaternion of
    /// another kind than 6 and 7 has no cosines: three components stay, two throw.
    void transform(const utf_Quaternion<T>& q);

private:
    [[nodiscard]] const char* Name() const noexcept override { return "Vector"; }
    void Turn(const T (&c)[3][3], int size) noexcept;
};

ORV_EXTERN_TEMPLATE(utf_Vector<float>);
ORV_EXTERN_TEMPLATE(utf_Vector<double>);

#endif
