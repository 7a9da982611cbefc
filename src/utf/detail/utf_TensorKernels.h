#ifndef ORV_UTF_DETAIL_UTF_TENSORKERNELS_H
#define ORV_UTF_DETAIL_UTF_TENSORKERNELS_H

#include <base/res_DataTypeEnm.h>
#include <utf/detail/utf_PrincipalRoots.h>

#include <array>
#include <cmath>
#include <type_traits>

// The arithmetic of tensors, one at a time: utf_Tensor, its batches and the views call the same functions on the same
// doubles, whatever the stored type, and so agree to the last bit.

/// Which components a kind stores: Full 11 22 33 12 13 23, Planar 11 22 33 12, Surface 11 22 12; Unknown none.
enum class utf_TensorLayout { Unknown, Full, Planar, Surface };

[[nodiscard]] constexpr utf_TensorLayout utf_LayoutOf(res_DataTypeEnm kind) noexcept {
    switch (kind) {
        case res_TENSOR_3D_FULL:
            return utf_TensorLayout::Full;
        case res_TENSOR_3D_PLANAR:
        case res_TENSOR_2D_PLANAR:
            return utf_TensorLayout::Planar;
        case res_TENSOR_3D_SURFACE:
        case res_TENSOR_2D_SURFACE:
            return utf_TensorLayout::Surface;
        default:
            return utf_TensorLayout::Unknown;
    }
}

[[nodiscard]] constexpr int utf_DirectCount(utf_TensorLayout layout) noexcept {
    return layout == utf_TensorLayout::Unknown ? 0 : layout == utf_TensorLayout::Surface ? 2 : 3;
}
[[nodiscard]] constexpr int utf_ShearCount(utf_TensorLayout layout) noexcept {
    return layout == utf_TensorLayout::Unknown ? 0 : layout == utf_TensorLayout::Full ? 3 : 1;
}

/// 11 22 33 12 13 23, the shears as tensor shears; what a layout lacks is 0.
using utf_SixComponents = std::array<double, 6>;

/// Row-major 3x3.
using utf_NineCosines = std::array<double, 9>;

template <utf_TensorLayout Layout>
using utf_LayoutConstant = std::integral_constant<utf_TensorLayout, Layout>;

/// Calls `act` with the layout as a constant, so that what follows has no branches on it; Unknown goes as Full.
template <class Act>
decltype(auto) utf_WithLayout(utf_TensorLayout layout, const Act& act) {
    switch (layout) {
        case utf_TensorLayout::Planar:
            return act(utf_LayoutConstant<utf_TensorLayout::Planar>());
        case utf_TensorLayout::Surface:
            return act(utf_LayoutConstant<utf_TensorLayout::Surface>());
        default:
            return act(utf_LayoutConstant<utf_TensorLayout::Full>());
    }
}

template <utf_TensorLayout Layout, class T>
[[nodiscard]] inline utf_SixComponents utf_Load(const T* t, double shearFactor) noexcept {
    constexpr bool Surface = Layout == utf_TensorLayout::Surface;
    utf_SixComponents six = {t[0], t[1], Surface ? 0.0 : t[2], t[Surface ? 2 : 3] * shearFactor, 0.0, 0.0};
    if constexpr (Layout == utf_TensorLayout::Full) {
        six[4] = t[4] * shearFactor;
        six[5] = t[5] * shearFactor;
    }
    return six;
}

template <utf_TensorLayout Layout, class T>
inline void utf_Store(const utf_SixComponents& six, double shearFactor, T* t) noexcept {
    constexpr std::size_t Direct = utf_DirectCount(Layout), Shear = utf_ShearCount(Layout);
    for (std::size_t i = 0; i < Direct; ++i) t[i] = static_cast<T>(six[i]);
    for (std::size_t i = 0; i < Shear; ++i) t[Direct + i] = static_cast<T>(six[3 + i] * shearFactor);
}

/// The same for a layout not known before; an Unknown one is read as Full, and none of it is stored.
template <class T>
[[nodiscard]] inline utf_SixComponents utf_LoadTensor(utf_TensorLayout layout, const T* t, bool engineeringShear) {
    return utf_WithLayout(layout, [&](auto l) { return utf_Load<l()>(t, engineeringShear ? 0.5 : 1.0); });
}
template <class T>
inline void utf_StoreTensor(utf_TensorLayout layout, const utf_SixComponents& six, T* t) {
    if (layout != utf_TensorLayout::Unknown) utf_WithLayout(layout, [&](auto l) { utf_Store<l()>(six, 1.0, t); });
}

[[nodiscard]] inline utf_Deviator utf_DeviatorOf(const utf_SixComponents& t) noexcept {
    return utf_DeviatorOf(t[0], t[1], t[2], t[3], t[4], t[5]);
}

[[nodiscard]] inline double utf_Pressure(const utf_SixComponents& t) noexcept { return -(t[0] + t[1] + t[2]) / 3.0; }

[[nodiscard]] inline double utf_Mises(const utf_SixComponents& t) noexcept {
    const utf_Deviator d = utf_DeviatorOf(t);
    const double direct = d.d1 * d.d1 + d.d2 * d.d2 + d.d3 * d.d3;
    const double shear = d.s12 * d.s12 + d.s13 * d.s13 + d.s23 * d.s23;
    return std::sqrt(1.5 * (direct + 2.0 * shear));
}

/// The signed cube root of 4.5 tr(S^3), S the deviator.
[[nodiscard]] inline double utf_Inv3(const utf_SixComponents& t) noexcept {
    const utf_Deviator d = utf_DeviatorOf(t);
    const double trace =
        d.d1 * d.d1 * d.d1 + d.d2 * d.d2 * d.d2 + d.d3 * d.d3 * d.d3 +
        3.0 * ((d.d1 + d.d2) * (d.s12 * d.s12) + (d.d1 + d.d3) * (d.s13 * d.s13) + (d.d2 + d.d3) * (d.s23 * d.s23)) +
        6.0 * d.s12 * d.s13 * d.s23;
    const double root = std::pow(std::abs(4.5 * trace), 1.0 / 3.0);
    return trace < 0.0 ? -root : root;
}

/// Full: descending. The others: the in-plane pair, descending, then 33 (0 for Surface), not sorted with them.
template <utf_TensorLayout Layout>
[[nodiscard]] inline std::array<double, 3> utf_PrincipalValues(const utf_SixComponents& t) noexcept {
    if constexpr (Layout == utf_TensorLayout::Full) return utf_FullPrincipalValues(utf_DeviatorOf(t));
    const utf_InPlanePair pair = utf_InPlanePrincipal(t[0], t[1], 2.0 * t[3]);
    return {pair.p1 > pair.p0 ? pair.p1 : pair.p0, pair.p1 > pair.p0 ? pair.p0 : pair.p1, t[2]};
}

template <class T>
[[nodiscard]] inline std::array<double, 3> utf_PrincipalValuesOf(utf_TensorLayout layout, const T* t,
                                                                 bool engineeringShear) {
    return utf_WithLayout(
        layout, [&](auto l) { return utf_PrincipalValues<l()>(utf_Load<l()>(t, engineeringShear ? 0.5 : 1.0)); });
}

/// NaN when either is, unlike std::max and std::min.
[[nodiscard]] inline double utf_Greater(double a, double b) noexcept { return a > b || std::isnan(a) ? a : b; }
[[nodiscard]] inline double utf_Lesser(double a, double b) noexcept { return a < b || std::isnan(a) ? a : b; }

// Of principal values: right for the sorted three of Full as for a pair and a third. Surface has its own rules.

[[nodiscard]] inline double utf_MaxPrincipal(const std::array<double, 3>& p) noexcept {
    return utf_Greater(p[0], p[2]);
}
[[nodiscard]] inline double utf_MidPrincipal(const std::array<double, 3>& p) noexcept {
    return utf_Greater(p[1], utf_Lesser(p[0], p[2]));
}
[[nodiscard]] inline double utf_MinPrincipal(const std::array<double, 3>& p) noexcept { return utf_Lesser(p[1], p[2]); }
[[nodiscard]] inline double utf_Tresca(const std::array<double, 3>& p) noexcept {
    return utf_MaxPrincipal(p) - utf_MinPrincipal(p);
}

/// A T A^T with A by rows.
[[nodiscard]] inline utf_SixComponents utf_RotatedFull(const utf_SixComponents& t, const utf_NineCosines& a) noexcept {
    const double full[3][3] = {{t[0], t[3], t[4]}, {t[3], t[1], t[5]}, {t[4], t[5], t[2]}};
    double m[3][3];
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t j = 0; j < 3; ++j)
            m[i][j] = a[3 * i] * full[0][j] + a[3 * i + 1] * full[1][j] + a[3 * i + 2] * full[2][j];
    const auto component = [&](std::size_t i, std::size_t j) {
        return m[i][0] * a[3 * j] + m[i][1] * a[3 * j + 1] + m[i][2] * a[3 * j + 2];
    };
    return {component(0, 0), component(1, 1), component(2, 2), component(0, 1), component(0, 2), component(1, 2)};
}

/// The upper left 2x2 block only: 11, 22 and 12 turned, 33 as it was.
[[nodiscard]] inline utf_SixComponents utf_RotatedBlock(const utf_SixComponents& t, const utf_NineCosines& a) noexcept {
    const auto component = [&](std::size_t i, std::size_t j) {
        const double m0 = a[i] * t[0] + a[i + 1] * t[3];
        const double m1 = a[i] * t[3] + a[i + 1] * t[1];
        return m0 * a[j] + m1 * a[j + 1];
    };
    return {component(0, 0), component(3, 3), t[2], component(0, 3), 0.0, 0.0};
}

/// True for the kinds that turn in their plane only: the 2D kinds and the 3D surface.
[[nodiscard]] constexpr bool utf_TurnsInPlane(res_DataTypeEnm kind) noexcept {
    return kind == res_TENSOR_3D_SURFACE || kind == res_TENSOR_2D_PLANAR || kind == res_TENSOR_2D_SURFACE;
}

/// `out` = A `in` A^T for one tensor of the kind, keeping the components it has; `out` may be `in`. Shears are halved
/// before and doubled after when they are engineering shears. Nothing for an unknown kind.
template <class T>
inline void utf_Rotate(res_DataTypeEnm kind, const T* in, const utf_NineCosines& a, bool engineeringShear,
                       T* out) noexcept {
    const utf_TensorLayout layout = utf_LayoutOf(kind);
    if (layout == utf_TensorLayout::Unknown) return;
    utf_WithLayout(layout, [&](auto l) {
        const utf_SixComponents six = utf_Load<l()>(in, engineeringShear ? 0.5 : 1.0);
        utf_Store<l()>(utf_TurnsInPlane(kind) ? utf_RotatedBlock(six, a) : utf_RotatedFull(six, a),
                       engineeringShear ? 2.0 : 1.0, out);
    });
}

#endif
