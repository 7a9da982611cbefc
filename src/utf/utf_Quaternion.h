#ifndef ORV_UTF_UTF_QUATERNION_H
#define ORV_UTF_UTF_QUATERNION_H

#include <base/cow_2DArray.h>
#include <base/orv_Export.h>
#include <utf/utf_EngineeringData.h>
#include <utf/utf_Quat2dBase.h>
#include <utf/utf_Quat3dBase.h>
#include <utf/utf_Vector.h>

#include <algorithm>
#include <array>

class gsl_Matrix;
class gsl_Vector;

/// The orientation of a material or result frame: a 3D quaternion (x, y, z, w), kind 7, or a 2D one (z, w), kind 6, a
/// turn about the 3-axis; scalar part last. What the numbers mean, and the arithmetic: utf_Quat3dBase, utf_Quat2dBase.
/// Who owns them: see utf_EngineeringData. Nothing normalises.
///
/// A 2D quaternion beside a 3D one counts as (0, 0, z, w), and a 3D one where a 2D one is wanted as its (z, w).
/// A quaternion of any other kind is empty: its components and cosines are 0.
template <class T>
class utf_Quaternion final : public utf_EngineeringData<T> {
public:
    // ---- Construction

    /// All zero, which is *not* the identity.
    explicit utf_Quaternion(res_DataTypeEnm kind);

    /// The first numComponents(kind) of the list; zeros for those it lacks.
    utf_Quaternion(res_DataTypeEnm kind, const cow_List<T>& components);

    /// numComponents(kind) numbers: copied; wrapped.
    utf_Quaternion(res_DataTypeEnm kind, const T* components);
    utf_Quaternion(res_DataTypeEnm kind, T* components);

    /// 3D: turns about the three axes, (about x) (about y) (about z), of which the last acts first.
    utf_Quaternion(T xRadians, T yRadians, T zRadians);

    /// 3D and 2D, from the axes of the frame: utf_Quat3dBase::set, utf_Quat2dBase::set.
    utf_Quaternion(const gsl_Vector& x, const gsl_Vector& y, const gsl_Vector& z);
    utf_Quaternion(const gsl_Vector& x, const gsl_Vector& y);

    /// From where the matrix sends the axes.
    utf_Quaternion(res_DataTypeEnm kind, const gsl_Matrix& matrix);

    /// From direction cosines whose *columns* are the axes, while `cosines` gives the axes as rows: deliberately,
    /// `utf_Quaternion(q.type(), q.cosines())` is the inverse of q. Kind 7 takes 3x3; kind 6 takes 2x2 or 3x3, of which
    /// it reads the upper left 2x2. Throws nex_PrimException for another shape, "c.Rows() == 3 && c.Cols() == 3",
    /// "c.Rows()==2 || c.Rows()==3", "c.Cols() == 2" or "c.Cols() == 3", and "!\"Unknown quaternion type\"" for another
    /// kind. A zero column gives no number.
    utf_Quaternion(res_DataTypeEnm kind, const cow_2DArray<T>& c);

    [[nodiscard]] utf_Quaternion* Copy() const override;

    // ---- Components

    /// 2 for kind 6, 4 for kind 7, 0 for any other.
    [[nodiscard]] static constexpr int numComponents(res_DataTypeEnm kind) noexcept {
        return kind == res_QUATERNION_3D ? 4 : kind == res_QUATERNION_2D ? 2 : 0;
    }

    /// By name, of either kind; x and y of a 2D quaternion are 0.
    [[nodiscard]] T X() const noexcept { return this->type() == res_QUATERNION_3D ? this->constGet(0) : T(0); }
    [[nodiscard]] T Y() const noexcept { return this->type() == res_QUATERNION_3D ? this->constGet(1) : T(0); }
    [[nodiscard]] T Z() const noexcept { return this->constGet(numComponents(this->type()) - 2); }
    [[nodiscard]] T W() const noexcept { return this->constGet(numComponents(this->type()) - 1); }

    // ---- Arithmetic, by the view of this kind

    /// this other, of this kind: `other` turns first.
    [[nodiscard]] utf_Quaternion mult(const utf_Quaternion& other) const;

    /// The conjugate.
    [[nodiscard]] utf_Quaternion inverse() const;

    /// Rotation vector in radians, three components, of no kind (0).
    [[nodiscard]] utf_Vector<T> toVector() const;

    // ---- Direction cosines

    /// 3x3 with the local axes as *rows*, element (i, j) being R(i+1)(j+1); the array constructor takes them as columns
    /// (see there). Of a 2D quaternion (2, 2) is 1. Empty for another kind.
    [[nodiscard]] cow_2DArray<T> cosines() const;

    /// The same into an array of the caller's; all 0 for another kind.
    void cosines(T (*c)[3]) const noexcept;

    /// One of them.
    [[nodiscard]] T R11() const noexcept { return Cosine(0, 0); }
    [[nodiscard]] T R12() const noexcept { return Cosine(0, 1); }
    [[nodiscard]] T R13() const noexcept { return Cosine(0, 2); }
    [[nodiscard]] T R21() const noexcept { return Cosine(1, 0); }
    [[nodiscard]] T R22() const noexcept { return Cosine(1, 1); }
    [[nodiscard]] T R23() const noexcept { return Cosine(1, 2); }
    [[nodiscard]] T R31() const noexcept { return Cosine(2, 0); }
    [[nodiscard]] T R32() const noexcept { return Cosine(2, 1); }
    [[nodiscard]] T R33() const noexcept { return Cosine(2, 2); }

    /// Of the turn about the 3-axis, (z, w).
    [[nodiscard]] T R11_2d() const noexcept { return utf_Quat2dBase<T>(As(res_QUATERNION_2D).data()).R11_2d(); }
    [[nodiscard]] T R12_2d() const noexcept { return utf_Quat2dBase<T>(As(res_QUATERNION_2D).data()).R12_2d(); }
    [[nodiscard]] T R21_2d() const noexcept { return -R12_2d(); }

    // ---- Change

    /// `projectOn` of the view of this kind, in place. The normal is the third *column* of the cosines of `other`,
    /// unit: the global 3-axis as `other` sees it, not the third axis of `other`. True, and nothing changes, for a
    /// quaternion of another kind.
    bool projectOn(const utf_Quaternion& other, unsigned axis, double tolerance);

private:
    [[nodiscard]] const char* Name() const noexcept override { return "Quaternion"; }

    /// Calls act(view) with the view of the kind on `components`; does nothing for another kind.
    template <class Action>
    static void OnView(res_DataTypeEnm kind, T* components, const Action& act) {
        if (kind == res_QUATERNION_3D) act(utf_Quat3dBase<T>(components));
        if (kind == res_QUATERNION_2D) act(utf_Quat2dBase<T>(components));
    }

    /// A copy of the components in the order of `kind`.
    [[nodiscard]] std::array<T, 4> As(res_DataTypeEnm kind) const noexcept {
        if (kind == res_QUATERNION_2D) return {Z(), W(), T(0), T(0)};
        return {X(), Y(), Z(), W()};
    }
    /// See utf_Quat3dBase.
    [[nodiscard]] T Cosine(int i, int j) const noexcept {
        T c[3][3];
        cosines(c);
        return c[i][j];
    }
};

ORV_EXTERN_TEMPLATE(utf_Quaternion<float>);
ORV_EXTERN_TEMPLATE(utf_Quaternion<double>);

template <class T>
inline void utf_Quaternion<T>::cosines(T (*c)[3]) const noexcept {
    std::fill_n(c[0], 3, T(0));
    std::fill_n(c[1], 3, T(0));
    std::fill_n(c[2], 3, T(0));
    std::array<T, 4> own = As(this->type());
    OnView(this->type(), own.data(), [&](const auto& view) { view.cosines(c); });
}

#endif
