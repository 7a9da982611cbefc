#include <g3d/g3d_InterpolateCameras.h>

#include <array>
#include <cmath>
#include <tuple>

namespace {

using Quaternion = std::array<double, 4>;  // scalar last

/// Of the rotation in the upper left 3x3, divided by the greatest of its components (Shepperd, 1978).
Quaternion RotationOf(const g3d_XForm& xform) noexcept {
    const double trace = xform.M(0, 0) + xform.M(1, 1) + xform.M(2, 2);
    int i = 3;
    double greatest = trace;
    for (int axis = 0; axis < 3; ++axis) {
        if (xform.M(axis, axis) <= greatest) continue;
        i = axis;
        greatest = xform.M(axis, axis);
    }
    const auto difference = [&](int a) {
        const int b = (a + 1) % 3, c = (a + 2) % 3;
        return static_cast<double>(xform.M(c, b)) - xform.M(b, c);
    };
    Quaternion q;
    if (i == 3) {
        q = {difference(0), difference(1), difference(2), 1.0 + trace};
    } else {
        for (int j = 0; j < 3; ++j) {
            const double both = static_cast<double>(xform.M(i, j)) + xform.M(j, i);
            q[static_cast<unsigned>(j)] = i == j ? 1.0 + both - trace : both;
        }
        q[3] = difference(i);
    }
    const double length = std::hypot(std::hypot(q[0], q[1], q[2]), q[3]);
    for (double& component : q) component /= length;
    return q;
}

Quaternion Turned(double t, const Quaternion& from, const Quaternion& to) noexcept {
    double cosine = 0.0;
    for (unsigned i = 0; i < 4; ++i) cosine += from[i] * to[i];
    const double side = cosine < 0.0 ? -1.0 : 1.0;
    const double angle = std::acos(std::fmin(std::abs(cosine), 1.0));
    // Close to each other the sines vanish, and the chord is the arc.
    const bool close = angle < 1e-6;
    const double ofFrom = close ? 1.0 - t : std::sin((1.0 - t) * angle) / std::sin(angle);
    const double ofTo = side * (close ? t : std::sin(t * angle) / std::sin(angle));
    Quaternion result;
    for (unsigned i = 0; i < 4; ++i) result[i] = ofFrom * from[i] + ofTo * to[i];
    return result;
}

double Between(double t, double from, double to) noexcept { return from + t * (to - from); }

/// By equal ratios where there are ratios.
float Scaled(double t, double from, double to) noexcept {
    const bool positive = from > 0.0 && to > 0.0;
    return static_cast<float>(positive ? from * std::pow(to / from, t) : Between(t, from, to));
}

/// What the getter of several floats gives for each camera, blended one by one.
template <unsigned Count, class Get, class Blend>
std::array<float, Count> Blended(const g3d_Camera& from, const g3d_Camera& to, Get get, Blend blend) {
    std::array<float, Count> a{}, b{};
    std::apply([&](auto&... values) { (from.*get)(values...); }, a);
    std::apply([&](auto&... values) { (to.*get)(values...); }, b);
    for (unsigned i = 0; i < Count; ++i) a[i] = blend(a[i], b[i]);
    return a;
}

}  // namespace

g3d_Camera g3d_InterpolateCameras(float t, const g3d_Camera& from, const g3d_Camera& to) {
    if (!(t > 0.0F)) return from;
    if (t >= 1.0F) return to;
    if (((from.GetModeFlags() | to.GetModeFlags()) & g3d_Camera::SuppliedViewFlag) != 0) return t < 0.5F ? from : to;

    g3d_Camera end = to;
    if (from.IsPerspective()) {
        end.MakePerspective();
    } else {
        end.MakeParallel();
    }
    const auto scaled = [t](double a, double b) { return Scaled(t, a, b); };
    const auto linear = [t](double a, double b) { return static_cast<float>(Between(t, a, b)); };

    const Quaternion turned = Turned(t, RotationOf(from.GetVOM()), RotationOf(end.GetVOM()));
    const auto [x, y, z, w] = turned;
    const float quaternion[] = {static_cast<float>(x), static_cast<float>(y), static_cast<float>(z),
                                static_cast<float>(w)};
    const g3d_XForm axes = g3d_XForm().SetRotate3d(quaternion);
    const g3d_Vector up(axes.M(1, 0), axes.M(1, 1), axes.M(1, 2));
    const g3d_Vector backward(axes.M(2, 0), axes.M(2, 1), axes.M(2, 2));
    const g3d_Point a = from.GetTarget().Cartesian(), b = end.GetTarget().Cartesian();
    const g3d_Point target(linear(a.X(), b.X()), linear(a.Y(), b.Y()), linear(a.Z(), b.Z()));

    g3d_Camera result = from;
    result.SetLocation(target + backward * scaled(from.GetViewDistance(), end.GetViewDistance()), target, up);
    const auto planes = Blended<2>(from, end, &g3d_Camera::GetNearFar, scaled);
    const auto window = Blended<2>(from, end, &g3d_Camera::GetWindow, scaled);
    const auto offset = Blended<2>(from, end, &g3d_Camera::GetViewOffset, linear);
    const auto part = Blended<4>(from, end, &g3d_Camera::GetViewportFractions, linear);
    result.SetNearFar(planes[0], planes[1]);
    result.SetWindow(window[0], window[1]);
    result.SetViewOffset(offset[0], offset[1]);
    result.SetViewportFractions(part[0], part[1], part[2], part[3]);
    result.SetDistanceFactor(linear(from.GetDistanceFactor(), end.GetDistanceFactor()));
    return result;
}
