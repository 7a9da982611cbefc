#ifndef ORV_GSL_GSL_SEGMENT_H
#define ORV_GSL_GSL_SEGMENT_H

#include <base/orv_Export.h>
#include <gsl/gsl_Point.h>
#include <gsl/gsl_TypeId.h>
#include <gsl/gsl_Vector.h>

class cls_ClassRegistrar;
class cls_ReadVisitor;
class cls_WriteVisitor;
class gsl_StLine;

/// A straight segment between two points. What points do with a segment is at `gsl_Point`.
///
/// Whether something lies within a segment is asked of the two-point `gsl_Point::Bary`: at most LinTol beyond an end
/// (inclusive). Nothing but reading throws. Tolerances are those of `gsl_Util`.
class ORV_EXPORT gsl_Segment {
public:
    /// From the origin to the origin.
    gsl_Segment() noexcept = default;

    /// From end to end.
    gsl_Segment(const gsl_Point& point1, const gsl_Point& point2) noexcept : _point1(point1), _point2(point2) {}

    /// The ends.
    [[nodiscard]] const gsl_Point& Point1() const noexcept { return _point1; }
    [[nodiscard]] const gsl_Point& Point2() const noexcept { return _point2; }

    /// The second point minus the first.
    [[nodiscard]] gsl_Vector Direction() const noexcept { return _point2 - _point1; }
    /// Of the direction.
    [[nodiscard]] double Length() const noexcept { return _point1.GetDistance(_point2); }

    /// The line that carries the segment, from its first point towards its second.
    [[nodiscard]] gsl_StLine Line() const noexcept;

    /// Whether the lines intersect (`gsl_StLine::Intersect`, so never when they are parallel to its coarse eye) with a
    /// gap of at most LinTol (inclusive), at a place within this segment. That place on this segment is stored in
    /// `point`; after false nothing is.
    [[nodiscard]] bool Intersect(const gsl_StLine& line, gsl_Point& point) const noexcept;

    /// The same, and the place lies within the other segment too.
    [[nodiscard]] bool Intersect(const gsl_Segment& other, gsl_Point& point) const noexcept;

    /// The shortest connection, from a point of this segment to a point of `other`; its length is returned. In this
    /// order:
    /// - where the two intersect, a segment of length 0 there;
    /// - for skew lines (`gsl_StLine::IsSkewed`), the common perpendicular if it meets both segments;
    /// - the first shortest of: this Point1 to `other`, this Point2 to `other`, the other's Point1 to this, the other's
    ///   Point2 to this. Parallel segments always end here, overlapping or not.
    /// The last counts distances below 1e10, so no end with a NaN: where none counts, Point1 is connected to Point1.
    /// `result` may be either segment.
    double GetDistance(const gsl_Segment& other, gsl_Segment& result) const noexcept;

    // ---- Persistence

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return gsl_TypeId(8); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    void DBWrite(const cls_WriteVisitor& visitor) const;
    explicit gsl_Segment(const cls_ReadVisitor& visitor);

private:
    [[nodiscard]] gsl_Segment Connection(const gsl_Segment& other) const noexcept;

    gsl_Point _point1;
    gsl_Point _point2;
};

#endif
