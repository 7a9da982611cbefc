#ifndef ORV_GSL_DETAIL_GSL_DIRFRAME_H
#define ORV_GSL_DETAIL_GSL_DIRFRAME_H

#include <gsl/gsl_Point.h>
#include <gsl/gsl_Vector.h>

#include <array>
#include <optional>

/// A point in a frame along a direction: two coordinates across it, then the one along it.
using gsl_DirPoint = std::array<double, 3>;

/// Right-handed orthonormal frame whose third axis is a direction of travel. A set that travels only changes its third
/// coordinates.
class gsl_DirFrame {
public:
    /// Nothing when the direction is shorter than LinTol (strict) or not finite. Along a coordinate axis the
    /// coordinates merely change places and signs, so they stay exact; otherwise they are taken relative to `centre`,
    /// which should be near the points, so that turning them costs few digits.
    [[nodiscard]] static std::optional<gsl_DirFrame> Along(const gsl_Vector& direction, const gsl_Point& centre);

    [[nodiscard]] gsl_DirPoint ToFrame(const gsl_Point& point) const noexcept;
    [[nodiscard]] gsl_Point FromFrame(const gsl_DirPoint& point) const noexcept;

    /// The third axis.
    [[nodiscard]] const gsl_DirPoint& Direction() const noexcept { return _axes[2]; }

private:
    std::array<gsl_DirPoint, 3> _axes{};
    gsl_DirPoint _origin{};
};

#endif
