#ifndef ORV_GSL_DETAIL_GSL_DIRTRIANGLE_H
#define ORV_GSL_DETAIL_GSL_DIRTRIANGLE_H

#include <gsl/detail/gsl_DirExtent.h>

#include <array>

/// A triangle in a frame along a direction, made ready for the question how far another has to travel to touch it.
/// Outside the library's own sources nobody needs it.
struct gsl_DirTriangle {
    gsl_DirTriangle(const gsl_DirPoint& p1, const gsl_DirPoint& p2, const gsl_DirPoint& p3, int indexInList) noexcept;

    /// All corners are.
    [[nodiscard]] bool IsFinite() const noexcept;

    /// The least first, anticlockwise seen against the direction or, edge-on, ascending: copies of a triangle have the
    /// same corners in the same order, whichever theirs is.
    std::array<gsl_DirPoint, 3> corners;
    gsl_DirExtent extent;
    int index;

    /// The normal is orthogonal to the direction within AngTol, or the area is zero (sine of the corner at p2 at most
    /// AngTol): across the direction the triangle is a segment, so it is met at its edges.
    bool edgeOn;
};

/// Least travel, at least 0, along the third axis by which `movable` touches `fixed`, and where it then touches. False,
/// and nothing written, when they never touch.
///
/// The travels at which two triangles touch form one closed interval: over the common part of their projections across
/// the direction the height of one above the other is affine, so its ends are found at the corners of that part. These
/// are corners of one triangle within the other and crossings of edges. A corner up to LinTol outside the other's
/// outline counts where the outline is nearest (on a steep face its own place would change the travel by any amount).
/// An edge-on triangle has no inside: corners are taken against each of its edges. The result is the lower end, or 0
/// when that is negative; nothing when the upper end is below -LinTol.
[[nodiscard]] bool gsl_LeastTravel(const gsl_DirTriangle& fixed, const gsl_DirTriangle& movable, double& travel,
                                   gsl_DirPoint& contact) noexcept;

#endif
