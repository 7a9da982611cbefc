#ifndef ORV_GSL_DETAIL_GSL_DIREXTENT_H
#define ORV_GSL_DETAIL_GSL_DIREXTENT_H

#include <gsl/detail/gsl_DirFrame.h>
#include <gsl/gsl_Util.h>

#include <algorithm>
#include <limits>

/// Extent of points in a frame along a direction: a rectangle across it and a range along it. Without points the range
/// is inverted.
struct gsl_DirExtent {
    gsl_DirPoint low = Filled(std::numeric_limits<double>::infinity());
    gsl_DirPoint high = Filled(-std::numeric_limits<double>::infinity());

    void Update(const gsl_DirPoint& pointLow, const gsl_DirPoint& pointHigh) noexcept {
        for (std::size_t i = 0; i < 3; ++i) {
            low[i] = std::min(low[i], pointLow[i]);
            high[i] = std::max(high[i], pointHigh[i]);
        }
    }

    [[nodiscard]] double Length(std::size_t axis) const noexcept { return high[axis] - low[axis]; }
    [[nodiscard]] double Size() const noexcept { return Length(0) + Length(1) + Length(2); }

    /// What lies in this can be met by what travels in `movable`: the rectangles overlap when widened by LinTol, and
    /// the movable range is not past this one by more than LinTol. No less than the touching of triangles demands.
    [[nodiscard]] bool CanMeet(const gsl_DirExtent& movable) const noexcept {
        constexpr double tol = gsl_Util::LinTol();
        return low[0] <= movable.high[0] + tol && movable.low[0] <= high[0] + tol && low[1] <= movable.high[1] + tol &&
               movable.low[1] <= high[1] + tol && high[2] >= movable.low[2] - tol;
    }

    /// No travel by which they touch is less.
    [[nodiscard]] double LeastTravel(const gsl_DirExtent& movable) const noexcept {
        return std::max(low[2] - movable.high[2], 0.0);
    }

private:
    static constexpr gsl_DirPoint Filled(double value) noexcept { return {value, value, value}; }
};

#endif
