#ifndef ORV_GSL_GSL_TRIANGLE_H
#define ORV_GSL_GSL_TRIANGLE_H

#include <base/orv_Export.h>
#include <gsl/gsl_BBox.h>
#include <gsl/gsl_Point.h>
#include <gsl/gsl_Vector.h>

#include <array>

class gsl_Plane;

/// Three corners and a unit normal, right-handed; the normal is (0, 0, 0) for collinear corners. Side i runs from
/// corner i to corner i + 1, side 2 from corner 2 to corner 0. Corner and side numbers are 0, 1, 2; any other counts
/// as 2.
///
/// Nothing throws. The tolerance is LinTol of `gsl_Util`, inclusive. From sides of about 1e77 on squares of areas
/// overflow, and the normal is (0, 0, 0).
class ORV_EXPORT gsl_Triangle {
public:
    /// Three times the origin, normal (0, 0, 0).
    gsl_Triangle() noexcept = default;
    /// Of three corners, with their normal.
    gsl_Triangle(const gsl_Point& p1, const gsl_Point& p2, const gsl_Point& p3) noexcept {
        SetPoints(p1, p2, p3, true);
    }

    // ---- Queries

    /// Corners are 0, 1, 2 (any other number is 2).
    [[nodiscard]] const gsl_Point& GetPoint(int corner) const noexcept { return _points[Number(corner)]; }
    [[nodiscard]] const gsl_Vector& GetNormal() const noexcept { return _normal; }

    /// Least and greatest coordinates, three each.
    void GetExtent(double* low, double* high) const noexcept;
    /// The same as a box.
    [[nodiscard]] gsl_BBox GetBBox() const;

    // ---- Change in place

    /// `computeNormal` false keeps the normal held so far, for a caller who knows that it still holds.
    void SetPoints(const gsl_Point& p1, const gsl_Point& p2, const gsl_Point& p3, bool computeNormal) noexcept;

    /// Swaps the second and the third corner and negates the normal.
    void Reverse() noexcept;

    // ---- Projections and points

    /// This triangle moved corner by corner along `direction`, either way, onto the plane. False, and `projected`
    /// untouched, when a corner off the plane finds no way by `gsl_Point::RayIntersect`: the direction is parallel to
    /// the plane or too short.
    [[nodiscard]] bool Project(const gsl_Plane& plane, const gsl_Vector& direction, gsl_Triangle& projected) const;

    /// Foot of the perpendicular on the triangle's plane, inside the triangle or not. False, and `foot` untouched, when
    /// the normal is zero.
    [[nodiscard]] bool ProjectPoint(const gsl_Point& point, gsl_Point& foot) const noexcept;

    /// Closest point on the side, ends included, always stored. True when it is the foot of the perpendicular, false
    /// when the foot would lie beyond an end. A side of length 0 is its first end, false.
    bool ComputeClosestPointOnSide(int side, const gsl_Point& point, gsl_Point& closest) const noexcept;

    /// Distance of the point's projection on the triangle's plane from the line of the side, positive towards the
    /// inside. True when it is at least -LinTol. False with a distance of 0 when side or normal is zero.
    bool TestProjectedPointAgainstSide(int side, const gsl_Point& point, double& distance) const noexcept;

    /// The projection of the point passes the test against all three sides.
    [[nodiscard]] bool ContainsProjectedPoint(const gsl_Point& point) const noexcept;

    /// The point is within LinTol of the triangle. A zero-area triangle is its sides.
    [[nodiscard]] bool Contains(const gsl_Point& point) const noexcept;

private:
    [[nodiscard]] static unsigned Number(int number) noexcept { return number == 0 ? 0U : number == 1 ? 1U : 2U; }

    std::array<gsl_Point, 3> _points;
    gsl_Vector _normal{0.0, 0.0, 0.0};
};

#endif
