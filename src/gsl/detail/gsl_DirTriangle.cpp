#include <gsl/detail/gsl_DirTriangle.h>

#include <cmath>
#include <utility>

namespace {

constexpr double linTolSq = gsl_Util::LinTolSq();

constexpr std::size_t Next(std::size_t i) { return i == 2 ? 0 : i + 1; }

double DistanceAcrossSq(const gsl_DirPoint& a, const gsl_DirPoint& b) noexcept {
    const double du = a[0] - b[0], dv = a[1] - b[1];
    return du * du + dv * dv;
}

/// Twice the signed area across the direction of a, b, p: positive when p lies to the left of a b.
double Side(const gsl_DirPoint& a, const gsl_DirPoint& b, const gsl_DirPoint& p) noexcept {
    return (b[0] - a[0]) * (p[1] - a[1]) - (b[1] - a[1]) * (p[0] - a[0]);
}

/// Exact at both ends.
gsl_DirPoint Between(const gsl_DirPoint& a, const gsl_DirPoint& b, double part) noexcept {
    gsl_DirPoint result;
    for (std::size_t i = 0; i < 3; ++i)
        result[i] = part < 0.5 ? a[i] + (b[i] - a[i]) * part : b[i] - (b[i] - a[i]) * (1.0 - part);
    return result;
}

/// The point of a b closest to p across the direction.
gsl_DirPoint NearestOnEdge(const gsl_DirPoint& a, const gsl_DirPoint& b, const gsl_DirPoint& p) noexcept {
    const double lengthSq = DistanceAcrossSq(a, b);
    const double along = (p[0] - a[0]) * (b[0] - a[0]) + (p[1] - a[1]) * (b[1] - a[1]);
    return Between(a, b, lengthSq > 0.0 ? std::clamp(along / lengthSq, 0.0, 1.0) : 0.0);
}

/// Row i: on which side of edge i the corners of another triangle lie.
using Sides = std::array<std::array<double, 3>, 3>;

Sides SidesOf(const gsl_DirTriangle& triangle, const gsl_DirTriangle& other) noexcept {
    Sides sides;
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t j = 0; j < 3; ++j)
            sides[i][j] = Side(triangle.corners[i], triangle.corners[Next(i)], other.corners[j]);
    return sides;
}

/// All of the other triangle is beyond one edge by more than LinTol. Edges up to LinTol long do not tell: along the
/// direction nothing but rounding gives them a way across it.
bool Separates(const gsl_DirTriangle& triangle, const Sides& sides) noexcept {
    for (std::size_t i = 0; i < 3; ++i) {
        const double lengthSq = DistanceAcrossSq(triangle.corners[i], triangle.corners[Next(i)]);
        if (lengthSq <= linTolSq) continue;
        const auto [least, greatest] = std::minmax({sides[i][0], sides[i][1], sides[i][2]});
        const double outside = triangle.edgeOn ? std::max(-greatest, least) : -greatest;
        if (outside > 0.0 && outside * outside > linTolSq * lengthSq) return true;
    }
    return false;
}

/// The interval of touching travels as it grows, with the places on the fixed triangle at its ends.
struct Travels {
    double low = std::numeric_limits<double>::infinity();
    double high = -std::numeric_limits<double>::infinity();
    gsl_DirPoint atLow{}, atHigh{};

    void Add(const gsl_DirPoint& onFixed, double movableHeight) noexcept {
        const double travel = onFixed[2] - movableHeight;
        if (travel < low) low = travel, atLow = onFixed;
        if (travel > high) high = travel, atHigh = onFixed;
    }
};

/// Hands `touch` every place of the triangle where corner `j` of another touches it; `sides` are those of the triangle.
template <class Touch>
void CornerAgainst(const gsl_DirTriangle& triangle, const Sides& sides, std::size_t j, const gsl_DirPoint& corner,
                   Touch touch) {
    const auto& [c0, c1, c2] = triangle.corners;
    const double area = sides[0][j] + sides[1][j] + sides[2][j];
    if (!triangle.edgeOn && sides[0][j] >= 0.0 && sides[1][j] >= 0.0 && sides[2][j] >= 0.0 && area > 0.0) {
        const double above = (sides[2][j] * (c1[2] - c0[2]) + sides[0][j] * (c2[2] - c0[2])) / area;
        touch(gsl_DirPoint{corner[0], corner[1], c0[2] + above});
        return;
    }
    double nearestSq = linTolSq;
    gsl_DirPoint nearest{};
    bool found = false;
    for (std::size_t i = 0; i < 3; ++i) {
        const gsl_DirPoint place = NearestOnEdge(triangle.corners[i], triangle.corners[Next(i)], corner);
        const double distanceSq = DistanceAcrossSq(place, corner);
        if (!(distanceSq <= nearestSq)) continue;
        if (triangle.edgeOn) {
            touch(place);
        } else {
            nearestSq = distanceSq;
            nearest = place;
            found = true;
        }
    }
    if (found) touch(nearest);
}

/// Edges that cross across the direction, inside both. Where they are nearly parallel the place of the crossing is
/// uncertain along them; both heights are therefore taken at one place.
void CrossEdges(const gsl_DirTriangle& fixed, const Sides& fixedSides, const gsl_DirTriangle& movable,
                const Sides& movableSides, Travels& travels) noexcept {
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t j = 0; j < 3; ++j) {
            const double from = movableSides[j][i], to = movableSides[j][Next(i)];
            if (!((from < 0.0 && to > 0.0) || (from > 0.0 && to < 0.0))) continue;
            const double a = fixedSides[i][j], b = fixedSides[i][Next(j)];
            if (!((a < 0.0 && b > 0.0) || (a > 0.0 && b < 0.0))) continue;
            const gsl_DirPoint place = Between(fixed.corners[i], fixed.corners[Next(i)], from / (from - to));
            travels.Add(place, NearestOnEdge(movable.corners[j], movable.corners[Next(j)], place)[2]);
        }
    }
}

/// Edges along the direction are points across it: their ends meet, which no place along them stands for.
void CornersAgainstCorners(const gsl_DirTriangle& fixed, const gsl_DirTriangle& movable, Travels& travels) noexcept {
    for (const gsl_DirPoint& onFixed : fixed.corners)
        for (const gsl_DirPoint& onMovable : movable.corners)
            if (DistanceAcrossSq(onFixed, onMovable) <= linTolSq) travels.Add(onFixed, onMovable[2]);
}

}  // namespace

gsl_DirTriangle::gsl_DirTriangle(const gsl_DirPoint& p1, const gsl_DirPoint& p2, const gsl_DirPoint& p3,
                                 int indexInList) noexcept
    : corners{p1, p2, p3}, index(indexInList) {
    for (const gsl_DirPoint& corner : corners) extent.Update(corner, corner);
    const gsl_Vector a(p2[0] - p1[0], p2[1] - p1[1], p2[2] - p1[2]), b(p3[0] - p2[0], p3[1] - p2[1], p3[2] - p2[2]);
    const gsl_Vector normal = a.CrossProduct(b);
    const double length = normal.Length();
    edgeOn =
        length <= a.Length() * gsl_Util::AngTol() * b.Length() || std::abs(normal.Z()) < length * gsl_Util::AngTol();
    std::rotate(corners.begin(), std::min_element(corners.begin(), corners.end()), corners.end());
    if (edgeOn ? corners[2] < corners[1] : normal.Z() < 0.0) std::swap(corners[1], corners[2]);
}

bool gsl_DirTriangle::IsFinite() const noexcept {
    for (const gsl_DirPoint& corner : corners)
        for (const double coordinate : corner)
            if (!std::isfinite(coordinate)) return false;
    return true;
}

bool gsl_LeastTravel(const gsl_DirTriangle& fixed, const gsl_DirTriangle& movable, double& travel,
                     gsl_DirPoint& contact) noexcept {
    const Sides fixedSides = SidesOf(fixed, movable);
    if (Separates(fixed, fixedSides)) return false;
    const Sides movableSides = SidesOf(movable, fixed);
    if (Separates(movable, movableSides)) return false;

    Travels travels;
    for (std::size_t k = 0; k < 3; ++k) {
        const gsl_DirPoint& onFixed = fixed.corners[k];
        const gsl_DirPoint& onMovable = movable.corners[k];
        CornerAgainst(fixed, fixedSides, k, onMovable,
                      [&](const gsl_DirPoint& place) { travels.Add(place, onMovable[2]); });
        CornerAgainst(movable, movableSides, k, onFixed,
                      [&](const gsl_DirPoint& place) { travels.Add(onFixed, place[2]); });
    }
    CrossEdges(fixed, fixedSides, movable, movableSides, travels);
    if (fixed.edgeOn && movable.edgeOn) CornersAgainstCorners(fixed, movable, travels);

    if (!(travels.low <= travels.high) || travels.high < -gsl_Util::LinTol()) return false;
    travel = std::max(travels.low, 0.0);
    // At travel 0 triangles that pass through each other touch between the places of the two ends.
    const double span = travels.high - travels.low;
    contact = travels.low >= 0.0 || !(span > 0.0)
                  ? travels.atLow
                  : Between(travels.atLow, travels.atHigh, std::min(-travels.low / span, 1.0));
    return true;
}
