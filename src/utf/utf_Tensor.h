#ifndef ORV_UTF_UTF_TENSOR_H
#define ORV_UTF_UTF_TENSOR_H

#include <base/cow_2DArray.h>
#include <base/cow_List.h>
#include <base/orv_Export.h>
#include <base/res_DataTypeEnm.h>
#include <utf/utf_EngineeringData.h>
#include <utf/utf_Quaternion.h>

/// A symmetric second-order tensor (stress, strain) of a model, in one of five kinds:
///
/// | kind | components, in order   | turned by               | typically                          |
/// |------|------------------------|-------------------------|------------------------------------|
/// | 9    | 11, 22, 33, 12, 13, 23 | 3D quaternion (kind 7)  | solids                             |
/// | 10   | 11, 22, 33, 12         | 3D quaternion           | plane strain, axisymmetric         |
/// | 11   | 11, 22, 12             | 3D quaternion           | shells, membranes                  |
/// | 12   | 11, 22, 33, 12         | 2D quaternion (kind 6)  | as 10, in a planar model           |
/// | 13   | 11, 22, 12             | 2D quaternion           | as 11, in a planar model           |
///
/// 33 of kinds 10 and 12 is the direct component out of plane; where a measure needs the 33 of kinds 11 and 13 it is 0.
/// Who owns the components: see utf_EngineeringData; a tensor that wraps a caller's array changes it when turned.
///
/// Measures read the tensor shears: half of those stored when the tensor is flagged to hold engineering shears. They
/// work in double for float too, allocate nothing and never iterate. Non-finite components give non-finite results.
///
/// A kind other than these five has no components and is not refused: max/mid/minPrincipal give the sentinels below,
/// the other measures 0, turning does nothing. `principleValues` and `tensorAsPrincipalAndQuaternions` alone take it as
/// kind 9: they read six values through a wrapped pointer, zeros when the tensor owns.
template <class T>
class utf_Tensor final : public utf_EngineeringData<T> {
public:
    /// What maxPrincipal (NoMaximum) and midPrincipal, minPrincipal (NoMinimum) give for an unknown kind: the extremes
    /// of *single* precision, in double too, so that a field means the same in either.
    static constexpr T NoMaximum = static_cast<T>(-3.4028234663852886e38);
    static constexpr T NoMinimum = static_cast<T>(3.4028234663852886e38);

    // ---- Construction. As utf_EngineeringData, the count being numComponents(kind).

    /// The first components of the list; zeros for those it lacks.
    utf_Tensor(res_DataTypeEnm kind, const cow_List<T>& components, bool engineeringShear = false);

    /// Copies the components.
    utf_Tensor(res_DataTypeEnm kind, const T* components, bool engineeringShear = false);

    /// Wraps the caller's array.
    utf_Tensor(res_DataTypeEnm kind, T* components, bool engineeringShear = false);

    /// All zero.
    explicit utf_Tensor(res_DataTypeEnm kind, bool engineeringShear = false);

    /// Numbers of another type would count as true.
    template <class U>
    utf_Tensor(res_DataTypeEnm kind, U* components, bool engineeringShear = false) = delete;

    [[nodiscard]] utf_Tensor* Copy() const override;

    // ---- Kind

    /// 6, 4, 3, 4, 3 for kinds 9 to 13; 0 for any other.
    [[nodiscard]] static int numComponents(res_DataTypeEnm kind) noexcept;

    /// False for kinds 11 and 13 only.
    [[nodiscard]] bool Is3DTensor() const noexcept;

    /// False for kinds 12 and 13 only.
    [[nodiscard]] bool Is3DQuaternion() const noexcept;

    /// The kind of quaternion that turns this tensor: 6 for kinds 12 and 13, else 7.
    [[nodiscard]] res_DataTypeEnm QuaternionType() const noexcept;

    // ---- Principal values

    /// Into p[0..2]. Kind 9: descending. Kinds 10 to 13: the in-plane pair, descending, then 33 as it is, even when it
    /// is the largest (kinds 10, 12), or 0 (kinds 11, 13). In closed form: near a double value half of the digits are
    /// lost. Kind 9 with all shears below 2.2e-20 of the largest direct deviator gives its diagonal.
    ///
    /// For norms up to 1e150, above which squares overflow and the values mean nothing. Kind 9: *a deviator below some
    /// 1e-15, in the units stored, has no shape*: its values are of the right size and no more.
    void principleValues(T* p) const noexcept;

    /// Greatest, middle and least. Kinds 10 and 12: of all three values. Kinds 11 and 13: the larger in-plane value, 0
    /// and the smaller in-plane value, in whatever order the three numbers are.
    [[nodiscard]] T maxPrincipal() const noexcept;
    [[nodiscard]] T midPrincipal() const noexcept;
    [[nodiscard]] T minPrincipal() const noexcept;

    /// Of the in-plane pair; 0 for kind 9.
    [[nodiscard]] T maxInplanePrincipal() const noexcept;
    [[nodiscard]] T minInplanePrincipal() const noexcept;

    /// 33 for kinds 10 and 12; 0 for kinds 9, 11 and 13.
    [[nodiscard]] T outOfPlanePrincipal() const noexcept;

    /// Principal values (three, as `principleValues`) and the quaternion of their directions (four; x, y, z, w with the
    /// directions as the turned axes). Kinds 12 and 13: (z, w, 0, 0), to be taken as a 2D quaternion.
    void tensorAsPrincipalAndQuaternions(T* principal, T* quaternion) const;

    /// The same, the directions told in the frame of `cosines`: of a copy with tensor shears, turned by
    /// transformControl(cosines). Kinds 10 to 13 lose what such a turn gives to the components that they lack.
    void tensorAsPrincipalAndQuaternions(const cow_2DArray<T>& cosines, T* principal, T* quaternion) const;

    // ---- Scalar measures

    /// -(11 + 22 + 33) / 3
    [[nodiscard]] T pressure() const noexcept;

    /// sqrt(3/2 S:S), S the deviator. Kinds 11 and 13: the deviator of a tensor with 33 = 0, S33 = -mean.
    [[nodiscard]] T mises() const noexcept;

    /// Greatest less least principal value, 33 = 0 among them for kinds 11 and 13.
    [[nodiscard]] T tresca() const noexcept;

    /// The third invariant as a stress: the signed cube root of 9/2 tr(S^3).
    [[nodiscard]] T inv3() const noexcept;

    // ---- Other kinds

    /// As kind 9, components that are missing 0. Shears are copied as stored but the result is *never* flagged as
    /// holding engineering shears, whatever this tensor is: deliberate, halve them yourself where it matters.
    [[nodiscard]] utf_Tensor As3DFullTensor() const;

    /// What `kind` keeps of As3DFullTensor; no components for a kind that is no tensor's. Never flagged, as above.
    [[nodiscard]] utf_Tensor AsTensorType(res_DataTypeEnm kind) const;

    // ---- Rotation

    /// T' = R^T T R with R the direction cosines of `q`; for a 2D turn T'11 = c^2 T11 - 2 c s T12 + s^2 T22.
    /// Deliberately the opposite sense to `transform` of the views (utf_Tens3dFullBase ...), which form R T R^T. Kind
    /// 10 turns with 13 = 23 = 0 and keeps its four components; kind 11 turns by the upper left 2x2 block of R.
    /// `engineeringShear` says how to take the shears, the tensor's own flag is not looked at. Throws nex_PrimException
    /// "q.type() == QuaternionType()" before anything is changed.
    void transform(const utf_Quaternion<T>& q, bool engineeringShear);

    /// T' = C^T T C on the full tensor, whatever the kind; then the components that the kind has are stored. Shears
    /// are used as they are stored, the flag stays. Kinds 10 to 13 need C(2,2) > 0.9 (strict), else nex_PrimException
    /// "coss.ConstGet(2,2) > 0.9 && \"Transformation not normal\""; kind 9 does not. An array smaller than 3x3 throws
    /// nex_RangeException. Nothing is changed when it throws.
    void transformControl(const cow_2DArray<T>& coss);

    /// The same with the cosines of `q`, of any kind of quaternion. The bool is *not* used: shears are taken as stored.
    void transformControl(const utf_Quaternion<T>& q, bool engineeringShear);

private:
    [[nodiscard]] const char* Name() const noexcept override { return "Tensor"; }
    template <class Measure>
    [[nodiscard]] T OfComponents(const Measure& measure) const noexcept;
    template <class Measure>
    [[nodiscard]] T OfPrincipal(T unknown, const Measure& measure) const noexcept;
};

ORV_EXTERN_TEMPLATE(utf_Tensor<float>);
ORV_EXTERN_TEMPLATE(utf_Tensor<double>);

#endif
