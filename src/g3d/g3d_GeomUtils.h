#ifndef ORV_G3D_G3D_GEOMUTILS_H
#define ORV_G3D_G3D_GEOMUTILS_H

#include <base/cow_List.h>
#include <base/orv_Export.h>
#include <g3d/g3d_ClipResultEnum.h>
#include <g3d/g3d_Point.h>
#include <g3d/g3d_Storage.h>

/// The questions of picking and clipping: what coincides, where a line meets a plane or a triangle, what of a line or a
/// polygon lies inside a rectangle or polygon of the screen.
///
/// In space they are answered in double precision on `g3d_Storage`; lines are infinite, given by two points with the
/// parameters 0 and 1. In the plane they take the x and y of `g3d_Point` as they are, without regard to z and w; lines
/// are segments.
///
/// One tolerance for the process serves all of them, 1e-5 at the start and unlocked: setting it on one thread changes
/// every test on all threads. **Zero** means here: strictly below the tolerance in magnitude; the tolerance itself is
/// not zero any more, nor is NaN. A tolerance that is not positive lets only what is exact pass, or nothing;
/// *`LinePlaneIntersection` then takes every line for oblique*.
///
/// Even-odd rule: a point is inside a polygon when a ray from it crosses the outline an odd number of times. Polygons
/// need not be convex and may cross themselves; the last vertex is joined to the first. The outline belongs to the
/// polygon for the clipping operations (they regard what is within the tolerance of it as on it), not for
/// `PointInPolygon2D`, which decides by its comparisons alone.
///
/// Nothing throws but `PointInPolygon2D` on an empty list. Unless a declaration says otherwise, outputs stay as they
/// are when the result is false. Outputs may be the inputs.
class ORV_EXPORT g3d_GeomUtils {
public:
    g3d_GeomUtils() = delete;

    // ---- Tolerance

    /// 1e-5 at first; what is strictly below it counts as zero in all of picking.
    [[nodiscard]] static double getTolerance() noexcept { return m_tolerance; }
    static void setTolerance(double tolerance) noexcept { m_tolerance = tolerance; }

    // ---- Points in space

    /// tol > |a - b|: strict, so a difference of exactly `tol` is none of equal numbers.
    [[nodiscard]] static bool EqualValue(double a, double b, double tol) noexcept;

    /// `EqualValue` in x, y and z: a cube, not a ball.
    [[nodiscard]] static bool EqualPoint(const g3d_Storage& p, const g3d_Storage& q, double tol) noexcept;

    /// Whether |(p1 - p0) x (p2 - p0)| is zero. That is twice an *area*: close points are collinear whatever they do.
    [[nodiscard]] static bool PointsCollinear(const g3d_Storage& p0, const g3d_Storage& p1,
                                              const g3d_Storage& p2) noexcept;

    /// The index of the point nearest to `p`, the first of equals; -1 when there is none (points with a NaN are none).
    /// Squared distances are compared, without tolerance. `g3d_Point`s are divided by their w unless that is 0 or 1.
    [[nodiscard]] static int FindClosestPt(const cow_List<g3d_Storage>& points, const g3d_Storage& p) noexcept;
    [[nodiscard]] static int FindClosestPt(const cow_List<g3d_Point>& points, const g3d_Point& p) noexcept;

    // ---- Lines and planes in space

    /// u and v of p = origin + u a + v b. False when the directions are parallel (every component of the cross product
    /// of their units is zero) or p is off the plane.
    ///
    /// Off the plane is decided on the *unit* direction from `origin` to p: the distance allowed grows with the
    /// distance from the origin, it is an angle. The axes in which u can be computed must agree on it to less than
    /// 1e-5, a constant that does not follow the tolerance; v is taken from the first of them unchecked. A direction or
    /// an offset whose length is zero is not normalised; u and v are scaled as if it were.
    [[nodiscard]] static bool PointInPlane(const g3d_Storage& p, const g3d_Storage& origin, g3d_Storage a,
                                           g3d_Storage b, double& u, double& v) noexcept;

    /// Where the line p0 p1 meets the plane `origin` + u a + v b. The arrays take two numbers each.
    /// - count 1, true: one point, p0 + t[0] (p1 - p0), at u[0], v[0];
    /// - count 2, true: the line lies in the plane: t is 0 and 1, u and v are those of p0 and p1 (`PointInPlane`);
    /// - count 0, false: parallel, apart. Nothing is written, but *u[0] and v[0] are when p0 alone is in the plane*.
    ///
    /// Parallel: the sine of line and plane is below the tolerance (strict), or the squared length of the direction or
    /// of a x b is below the least normal `float`.
    static bool LinePlaneIntersection(const g3d_Storage& p0, const g3d_Storage& p1, const g3d_Storage& origin,
                                      g3d_Storage a, g3d_Storage b, double* t, double* u, double* v,
                                      int& count) noexcept;

    /// Where the line p0 p1 meets the triangle v0 v1 v2, in whose plane v0 is the origin and u and v run to v1 and v2:
    /// as `LinePlaneIntersection` with u >= 0, v >= 0 and u + v <= 1, each within the tolerance (strict), so a pick on
    /// the common edge of two triangles hits both.
    /// - count 1, true: one point;
    /// - count 2, true: the line lies in the plane and its part between *p0 and p1* runs in the triangle from t[0] to
    ///   t[1], at (u[0], v[0]) and (u[1], v[1]); 0 and 1 when both points are inside;
    /// - count 0, false: nothing is written. Degenerate triangles are never met.
    static bool LineTriIntersection(const g3d_Storage& p0, const g3d_Storage& p1, const g3d_Storage& v0,
                                    const g3d_Storage& v1, const g3d_Storage& v2, double* t, double* u, double* v,
                                    int& count) noexcept;

    /// Whether `p` is on the line p0 p1: its distance from it is zero. Stores its parameter t. When p0 p1 is zero, it
    /// is the one point p0, with t = 0.
    static bool LinePointIntersection(const g3d_Storage& p0, const g3d_Storage& p1, const g3d_Storage& p,
                                      double& t) noexcept;

    /// Where two lines meet: the parameters s on a0 a1 and t on b0 b1, arrays of two numbers each.
    /// - count 1, true: one point; the lines come so near that their distance is zero;
    /// - count 2, true: one line: s is 0 and 1, t the parameters of a0 and a1 on b0 b1;
    /// - count 0, false: skew or parallel; nothing is written.
    ///
    /// Parallel as for `LinePlaneIntersection`. `g3d_Point`s are divided by their w unless that is 0 or 1.
    static bool LineLineIntersection(const g3d_Storage& a0, const g3d_Storage& a1, const g3d_Storage& b0,
                                     const g3d_Storage& b1, double* s, double* t, int& count) noexcept;
    static bool LineLineIntersection(const g3d_Point& a0, const g3d_Point& a1, const g3d_Point& b0, const g3d_Point& b1,
                                     double* s, double* t, int& count) noexcept;

    /// The same for lines known to be parallel, whatever they are: one line when a0 and a1 are on b0 b1
    /// (`LinePointIntersection`). A line whose length is zero is a point with the parameter 0: it gives count 1 when it
    /// is on the other.
    static bool ParallelLineIntersection(const g3d_Storage& a0, const g3d_Storage& a1, const g3d_Storage& b0,
                                         const g3d_Storage& b1, double* s, double* t, int& count) noexcept;

    // ---- Segments and polygons in the plane (x and y)

    /// Whether the segments a0 a1 and b0 b1 cross, with the parameters of the crossing along each, both in [0, 1]
    /// (*inclusive at both ends*, without tolerance). *Parallel segments do not cross*, even where they overlap:
    /// those that part by less than the tolerance (strict) over the length of the shorter, and so any segment shorter
    /// than that. Computed in double precision from the coordinates.
    [[nodiscard]] static bool DoLinesCross2D(const g3d_Point& a0, const g3d_Point& a1, const g3d_Point& b0,
                                             const g3d_Point& b1, double& s, double& t) noexcept;

    /// Even-odd rule in single precision, without tolerance: an edge counts when one of its ends is above or level
    /// (y >= p.y) and the other is not, and p lies to the left of it, or on it and it runs upwards. So a point exactly
    /// on the outline falls on *either side*: of an upright rectangle the bottom is out and the top is in; the left
    /// and the right are both in when the vertices run counter-clockwise (y up) and both out when clockwise. A NaN in
    /// p.x is not guarded against; one in p.y is outside. `hint` is ignored.
    ///
    /// Throws nex_RangeException (index -1) for an empty polygon: the closing edge is read first.
    ///
    /// Method: Shimrat, "Algorithm 112: Position of point relative to polygon", CACM 5 (1962), with a half-open rule.
    [[nodiscard]] static bool PointInPolygon2D(const cow_List<g3d_Point>& polygon, const g3d_Point& p,
                                               const g3d_Point* hint = nullptr);

    /// The bounds of a polygon in x and y, as the corners that the clipping by a rectangle takes: the greatest y is in
    /// `upperLeft`; z is 0, w is 1. NaN coordinates are passed over; false when nothing is left in x or in y.
    [[nodiscard]] static bool RangeOfPolygon(const cow_List<g3d_Point>& polygon, g3d_Point& upperLeft,
                                             g3d_Point& lowerRight) noexcept;

    /// The part of the segment a b in the rectangle from upperLeft.x to lowerRight.x and from *lowerRight.y to
    /// upperLeft.y* (y points up), bounds inclusive. A rectangle with exchanged corners has nothing inside.
    /// - `g3d_ClipInside`: both ends inside; copied whole, z and w too;
    /// - `g3d_ClipTriviallyOutside`: both strictly beyond the same side; *outputs untouched*;
    /// - `g3d_ClipOutside`: crosses no side (`DoLinesCross2D`); *outputs untouched*;
    /// - `g3d_ClipClipped`: ends inside are copied, ends outside moved along the segment to its first crossing as seen
    ///   from them. All four components are interpolated, in double precision, and narrowed. A segment that only
    ///   touches a corner gives that point twice.
    static g3d_ClipResultEnum ClipLineToRect2D(const g3d_Point& upperLeft, const g3d_Point& lowerRight,
                                               const g3d_Point& a, const g3d_Point& b, g3d_Point& outA,
                                               g3d_Point& outB) noexcept;

    /// The same for a linestring: `pieces` becomes its parts in the rectangle, in its direction. It is the linestring
    /// itself when all is inside, and empty unless the result is inside or clipped. Trivially outside: each segment is.
    /// In clipped pieces points that repeat the one before in x and y are left out, so a touch is a piece of one point.
    /// A linestring of one point is that point.
    static g3d_ClipResultEnum ClipLinestringToRect2D(const g3d_Point& upperLeft, const g3d_Point& lowerRight,
                                                     const cow_List<g3d_Point>& line,
                                                     cow_List<cow_List<g3d_Point>>& pieces);

    /// The parameters in [0, 1] at which the segment a b meets the outline of the polygon, ascending: where it crosses
    /// or touches an edge, and both ends of a part that runs along an edge. Meeting is within the tolerance (strict),
    /// and parameters nearer to each other along the segment than the tolerance are one; so are those nearer to an end
    /// and that end. False, and none, when they do not meet. Any polygon, also of one or two vertices.
    static bool IntersectLinePolygon2D(const cow_List<g3d_Point>& polygon, const g3d_Point& a, const g3d_Point& b,
                                       cow_List<double>& parameters);

    /// The parts of the segment a b in the polygon, ends included, in its direction: a concave polygon may leave
    /// several. The outline belongs to the polygon, with everything nearer to it than the tolerance. As
    /// `ClipLinestringToPolygon2D` of the two points.
    static g3d_ClipResultEnum ClipLineToPolygon2D(const cow_List<g3d_Point>& polygon, const g3d_Point& a,
                                                  const g3d_Point& b, cow_List<cow_List<g3d_Point>>& pieces);

    /// The same for a linestring; `pieces` as `ClipLinestringToRect2D` makes it. Trivially outside: each segment is
    /// beyond one side of the polygon's bounds. Degenerate: an empty linestring; a polygon with fewer than three
    /// vertices, with one that is not finite, or with all of them nearer to one line than the tolerance.
    static g3d_ClipResultEnum ClipLinestringToPolygon2D(const cow_List<g3d_Point>& polygon,
                                                        const cow_List<g3d_Point>& line,
                                                        cow_List<cow_List<g3d_Point>>& pieces);

    /// What two polygons have in common, both by the even-odd rule.
    /// - `g3d_ClipInside`: the first lies in the second; `pieces` is the first itself (so for equal polygons);
    /// - `g3d_ClipCovers`: the first covers the second; `pieces` is the second itself;
    /// - `g3d_ClipClipped`: `pieces` are polygons without common area that make up the intersection, each monotone in
    ///   y and counter-clockwise (y up), z 0 and w 1; one, when both polygons are convex;
    /// - `g3d_ClipTriviallyOutside`: their bounds are apart; `g3d_ClipOutside`: no common area, touching counts as
    ///   none; `g3d_ClipDegenerate`: as above for either, or nothing is inside it. No pieces.
    ///
    /// Parts narrower than the tolerance, and differences of height below it, do not count. Work grows with the square
    /// of the number of edges, and with the number of crossings times it: meant for the outlines of a pick.
    static g3d_ClipResultEnum IntersectPolygonPolygon2D(const cow_List<g3d_Point>& first,
                                                        const cow_List<g3d_Point>& second,
                                                        cow_List<cow_List<g3d_Point>>& pieces);

protected:
    [[nodiscard]] static double g3d_UtilDot(const g3d_Storage& a, const g3d_Storage& b) noexcept {
        return g3d_Dot(a, b);
    }
    [[nodiscard]] static g3d_Storage g3d_UtilCross(const g3d_Storage& a, const g3d_Storage& b) noexcept {
        return g3d_Cross(a, b);
    }

    /// The length.
    [[nodiscard]] static double g3d_VectorNorm(const g3d_Storage& a) noexcept;

    /// Unlike the free `g3d_Normalize`: leaves `a` as it is when its length is zero *within the tolerance*. The length
    /// it had.
    static double g3d_NormalizeVector(g3d_Storage& a) noexcept;

    /// Process-wide; see the class.
    static double m_tolerance;
};

/// For sorting numbers upwards with the C library: -1 if b > a, 1 if a > b, else 0. A NaN is equal to everything,
/// which is no order: sort none with it.
[[nodiscard]] ORV_EXPORT int g3d_GeomUtils_compare(const double* a, const double* b) noexcept;

#endif
