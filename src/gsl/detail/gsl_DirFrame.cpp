#include <gsl/detail/gsl_DirFrame.h>

#include <algorithm>
#include <cmath>

std::optional<gsl_DirFrame> gsl_DirFrame::Along(const gsl_Vector& direction, const gsl_Point& centre) {
    const double greatest = std::max({std::abs(direction.X()), std::abs(direction.Y()), std::abs(direction.Z())});
    if (direction.Length() < gsl_Util::LinTol() || !std::isfinite(greatest)) return std::nullopt;
    // Scaled first: the squares of large components overflow. Divided, not multiplied: (0, 0, 49) gives exactly 1.
    const gsl_Vector scaled(direction.X() / greatest, direction.Y() / greatest, direction.Z() / greatest);
    const double x = scaled.UnitX(), y = scaled.UnitY(), z = scaled.UnitZ();
    if (!std::isfinite(x + y + z)) return std::nullopt;

    // Duff et al., "Building an orthonormal basis, revisited", 2017.
    const double sign = std::copysign(1.0, z);
    const double a = -1.0 / (sign + z);
    const double b = x * y * a;
    gsl_DirFrame frame;
    frame._axes = {gsl_DirPoint{1.0 + sign * x * x * a, sign * b, -sign * x}, gsl_DirPoint{b, sign + y * y * a, -y},
                   gsl_DirPoint{x, y, z}};
    const bool alongAxis = std::max({std::abs(x), std::abs(y), std::abs(z)}) == 1.0;
    if (!alongAxis) frame._origin = centre.AsArray();
    return frame;
}

gsl_DirPoint gsl_DirFrame::ToFrame(const gsl_Point& point) const noexcept {
    const double x = point.X() - _origin[0], y = point.Y() - _origin[1], z = point.Z() - _origin[2];
    gsl_DirPoint result;
    for (std::size_t i = 0; i < 3; ++i) result[i] = _axes[i][0] * x + _axes[i][1] * y + _axes[i][2] * z;
    return result;
}

gsl_Point gsl_DirFrame::FromFrame(const gsl_DirPoint& point) const noexcept {
    gsl_DirPoint xyz{};
    for (std::size_t k = 0; k < 3; ++k)
        xyz[k] = _origin[k] + (_axes[0][k] * point[0] + _axes[1][k] * point[1] + _axes[2][k] * point[2]);
    return gsl_Point(xyz);
}
