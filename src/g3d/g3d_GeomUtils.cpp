#include <g3d/detail/g3d_PolygonSweep.h>
#include <g3d/g3d_GeomUtils.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <span>
#include <utility>
#include <vector>

double g3d_GeomUtils::m_tolerance = 1e-5;

int g3d_GeomUtils_compare(const double* a, const double* b) noexcept {
    if (*b > *a) return -1;
    return *a > *b ? 1 : 0;
}

namespace {

/// Squares of lengths below this are those of no direction.
constexpr double kLeastSquare = std::numeric_limits<float>::min();

/// How far the values of u from different axes may be apart in `PointInPlane`; not the tolerance.
constexpr double kAxesAgree = 1e-5;

bool IsZero(double value) noexcept { return g3d_GeomUtils::getTolerance() > std::abs(value); }

std::array<double, 3> Components(const g3d_Storage& a) noexcept { return {a.GetX(), a.GetY(), a.GetZ()}; }

g3d_Storage Triple(const g3d_Point& point) noexcept {
    const g3d_Point p = point.Cartesian();
    return {p.X(), p.Y(), p.Z()};
}

/// Whether the cosine (or sine) of two directions is at least the tolerance: `product` over the lengths, all squared.
bool IsOblique(double productSquared, double squareA, double squareB) noexcept {
    const double tolerance = g3d_GeomUtils::getTolerance();
    return squareA >= kLeastSquare && squareB >= kLeastSquare &&
           productSquared / (squareA * squareB) >= tolerance * tolerance;
}

template <class Points, class Convert>
int Closest(const Points& points, const g3d_Storage& p, Convert convert) noexcept {
    int closest = -1, index = 0;
    double least = 0.0;
    for (const auto& point : points) {
        const g3d_Storage offset(convert(point), p);
        const double square = g3d_Dot(offset, offset);
        if (square < least || (closest < 0 && !std::isnan(square))) {
            closest = index;
            least = square;
        }
        ++index;
    }
    return closest;
}

}  // namespace

// ---- Points in space

bool g3d_GeomUtils::EqualValue(double a, double b, double tol) noexcept { return tol > std::abs(a - b); }

bool g3d_GeomUtils::EqualPoint(const g3d_Storage& p, const g3d_Storage& q, double tol) noexcept {
    return EqualValue(p.GetX(), q.GetX(), tol) && EqualValue(p.GetY(), q.GetY(), tol) &&
           EqualValue(p.GetZ(), q.GetZ(), tol);
}

bool g3d_GeomUtils::PointsCollinear(const g3d_Storage& p0, const g3d_Storage& p1, const g3d_Storage& p2) noexcept {
    return IsZero(g3d_VectorNorm(g3d_Cross(g3d_Storage(p1, p0), g3d_Storage(p2, p0))));
}

int g3d_GeomUtils::FindClosestPt(const cow_List<g3d_Storage>& points, const g3d_Storage& p) noexcept {
    return Closest(points, p, [](const g3d_Storage& point) { return point; });
}

int g3d_GeomUtils::FindClosestPt(const cow_List<g3d_Point>& points, const g3d_Point& p) noexcept {
    return Closest(points, Triple(p), Triple);
}

double g3d_GeomUtils::g3d_VectorNorm(const g3d_Storage& a) noexcept { return std::sqrt(g3d_Dot(a, a)); }

double g3d_GeomUtils::g3d_NormalizeVector(g3d_Storage& a) noexcept {
    const double length = g3d_VectorNorm(a);
    if (!IsZero(length)) a /= length;
    return length;
}

// ---- Lines and planes in space

bool g3d_GeomUtils::PointInPlane(const g3d_Storage& p, const g3d_Storage& origin, g3d_Storage a, g3d_Storage b,
                                 double& u, double& v) noexcept {
    const double lengthA = g3d_NormalizeVector(a);
    const double lengthB = g3d_NormalizeVector(b);
    const g3d_Storage normal = g3d_Cross(b, a);
    const std::array<double, 3> n = Components(normal);
    if (std::all_of(n.begin(), n.end(), IsZero)) return false;

    g3d_Storage offset(p, origin);
    const double distance = g3d_NormalizeVector(offset);
    g3d_Storage unitNormal = normal;
    g3d_Normalize(unitNormal);
    if (!IsZero(g3d_Dot(unitNormal, offset))) return false;

    const std::array<double, 3> alongA = Components(g3d_Cross(b, offset));
    const std::array<double, 3> alongB = Components(g3d_Cross(a, offset));
    std::array<double, 3> us{};
    std::array<std::size_t, 3> usable{};
    std::size_t count = 0;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        if (IsZero(n[axis])) continue;
        us[axis] = alongA[axis] / n[axis];
        for (std::size_t k = 0; k < count; ++k)
            if (std::abs(us[usable[k]] - us[axis]) >= kAxesAgree) return false;
        usable[count++] = axis;
    }
    if (count == 0) return EqualPoint(p, origin, m_tolerance);  // not reached: the normal was not zero

    const std::size_t first = usable[0];
    u = us[first] * distance / lengthA;
    v = -alongB[first] / n[first] * distance / lengthB;
    return true;
}

bool g3d_GeomUtils::LinePlaneIntersection(const g3d_Storage& p0, const g3d_Storage& p1, const g3d_Storage& origin,
                                          g3d_Storage a, g3d_Storage b, double* t, double* u, double* v,
                                          int& count) noexcept {
    count = 0;
    const g3d_Storage n = g3d_Cross(a, b);
    const g3d_Storage d(p1, p0);
    const g3d_Storage w(origin, p0);
    const double nd = g3d_Dot(n, d);
    if (IsOblique(nd * nd, g3d_Dot(n, n), g3d_Dot(d, d))) {
        const g3d_Storage bd = g3d_Cross(b, d);
        const g3d_Storage ad = g3d_Cross(a, d);
        t[0] = g3d_Dot(w, n) / nd;
        u[0] = -g3d_Dot(bd, w) / g3d_Dot(bd, a);
        v[0] = -g3d_Dot(ad, w) / g3d_Dot(ad, b);
        count = 1;
        return true;
    }
    if (!PointInPlane(p0, origin, a, b, u[0], v[0]) || !PointInPlane(p1, origin, a, b, u[1], v[1])) return false;
    t[0] = 0.0;
    t[1] = 1.0;
    count = 2;
    return true;
}

bool g3d_GeomUtils::LineTriIntersection(const g3d_Storage& p0, const g3d_Storage& p1, const g3d_Storage& v0,
                                        const g3d_Storage& v1, const g3d_Storage& v2, double* t, double* u, double* v,
                                        int& count) noexcept {
    double ts[2]{}, us[2]{}, vs[2]{};
    int found = 0;
    count = 0;
    if (!LinePlaneIntersection(p0, p1, v0, g3d_Storage(v1, v0), g3d_Storage(v2, v0), ts, us, vs, found)) return false;

    // With one point both ends of the part are that point; with two it is cut at the three sides, each a linear
    // function of the parameter that is positive inside (Cyrus and Beck, IEEE Trans. Computers C-27, 1978).
    const int last = found - 1;
    double enter = 0.0, leave = 1.0;
    const double sides[3][2] = {{us[0], us[last]}, {vs[0], vs[last]}, {1.0 - us[0] - vs[0], 1.0 - us[last] - vs[last]}};
    for (const auto& side : sides) {
        const double start = side[0] + m_tolerance, end = side[1] + m_tolerance;
        if (!(start > 0.0 || end > 0.0)) return false;
        if (start <= 0.0) enter = std::max(enter, start / (start - end));
        if (end <= 0.0) leave = std::min(leave, start / (start - end));
    }
    if (!(enter <= leave)) return false;

    count = found;
    const double part[2] = {enter, leave};
    for (int k = 0; k < found; ++k) {
        t[k] = found == 1 ? ts[0] : part[k];
        u[k] = us[0] + part[k] * (us[last] - us[0]);
        v[k] = vs[0] + part[k] * (vs[last] - vs[0]);
    }
    return true;
}

bool g3d_GeomUtils::LinePointIntersection(const g3d_Storage& p0, const g3d_Storage& p1, const g3d_Storage& p,
                                          double& t) noexcept {
    const g3d_Storage offset(p, p0);
    g3d_Storage direction(p1, p0);
    const double length = g3d_NormalizeVector(direction);
    const bool isPoint = IsZero(length);
    if (!IsZero(g3d_VectorNorm(isPoint ? offset : g3d_Cross(direction, offset)))) return false;
    t = isPoint ? 0.0 : g3d_Dot(direction, offset) / length;
    return true;
}

bool g3d_GeomUtils::LineLineIntersection(const g3d_Storage& a0, const g3d_Storage& a1, const g3d_Storage& b0,
                                         const g3d_Storage& b1, double* s, double* t, int& count) noexcept {
    const g3d_Storage a(a1, a0);
    const g3d_Storage b(b1, b0);
    const g3d_Storage n = g3d_Cross(a, b);
    const double square = g3d_Dot(n, n);
    if (!IsOblique(square, g3d_Dot(a, a), g3d_Dot(b, b))) return ParallelLineIntersection(a0, a1, b0, b1, s, t, count);

    count = 0;
    const g3d_Storage w(b0, a0);
    if (!IsZero(g3d_Dot(w, n) / std::sqrt(square))) return false;
    s[0] = g3d_TripleProduct(w, b, n) / square;
    t[0] = g3d_TripleProduct(w, a, n) / square;
    count = 1;
    return true;
}

bool g3d_GeomUtils::LineLineIntersection(const g3d_Point& a0, const g3d_Point& a1, const g3d_Point& b0,
                                         const g3d_Point& b1, double* s, double* t, int& count) noexcept {
    return LineLineIntersection(Triple(a0), Triple(a1), Triple(b0), Triple(b1), s, t, count);
}

bool g3d_GeomUtils::ParallelLineIntersection(const g3d_Storage& a0, const g3d_Storage& a1, const g3d_Storage& b0,
                                             const g3d_Storage& b1, double* s, double* t, int& count) noexcept {
    count = 0;
    double first = 0.0, second = 0.0;
    if (IsZero(g3d_VectorNorm(g3d_Storage(b1, b0)))) {
        if (!LinePointIntersection(a0, a1, b0, first)) return false;
        s[0] = first;
        t[0] = 0.0;
        count = 1;
        return true;
    }
    const bool aIsPoint = IsZero(g3d_VectorNorm(g3d_Storage(a1, a0)));
    if (!LinePointIntersection(b0, b1, a0, first)) return false;
    if (!aIsPoint && !LinePointIntersection(b0, b1, a1, second)) return false;
    s[0] = 0.0;
    t[0] = first;
    count = 1;
    if (aIsPoint) return true;
    s[1] = 1.0;
    t[1] = second;
    count = 2;
    return true;
}

// ---- Segments and polygons in the plane

namespace {

using Polygon = std::span<const g3d_Point>;

/// A direction in the plane. Differences of floats and their products are exact in double precision, but for
/// coordinates of very different size.
struct Planar {
    double x, y;
};

Planar From(const g3d_Point& a, const g3d_Point& b) noexcept {
    return {static_cast<double>(b.X()) - a.X(), static_cast<double>(b.Y()) - a.Y()};
}

double Cross(const Planar& a, const Planar& b) noexcept { return a.x * b.y - a.y * b.x; }
double Length(const Planar& a) noexcept { return std::sqrt(a.x * a.x + a.y * a.y); }

/// All four components; s = 0 and s = 1 give the ends themselves.
g3d_Point Between(const g3d_Point& a, const g3d_Point& b, double s) noexcept {
    if (s == 0.0) return a;
    if (s == 1.0) return b;
    const auto mix = [s](double from, double to) { return from + s * (to - from); };
    return {mix(a.X(), b.X()), mix(a.Y(), b.Y()), mix(a.Z(), b.Z()), mix(a.W(), b.W())};
}

/// The edges of a polygon in order, the closing one first.
template <class Visit>
void ForEachEdge(Polygon polygon, Visit visit) {
    for (std::size_t k = 0; k < polygon.size(); ++k) visit(polygon[k == 0 ? polygon.size() - 1 : k - 1], polygon[k]);
}

/// The even-odd rule, in the precision of the point asked for.
template <class Real>
bool IsInside(Polygon polygon, Real x, Real y) noexcept {
    bool inside = false;
    ForEachEdge(polygon, [&](const g3d_Point& prev, const g3d_Point& cur) {
        const bool curAbove = cur.Y() >= y;
        if (curAbove == (prev.Y() >= y)) return;
        const Real left = (static_cast<Real>(prev.X()) - cur.X()) * (cur.Y() - y);
        const Real right = (static_cast<Real>(prev.Y()) - cur.Y()) * (cur.X() - x);
        if ((left >= right) == curAbove) inside = !inside;
    });
    return inside;
}

/// The corners of a rectangle and its bounds, inclusive.
struct Rect {
    g3d_Point upperLeft, lowerRight;

    [[nodiscard]] bool Contains(const g3d_Point& p) const noexcept {
        return upperLeft.X() <= p.X() && p.X() <= lowerRight.X() && lowerRight.Y() <= p.Y() && p.Y() <= upperLeft.Y();
    }

    /// Both strictly on the far side of one of the four sides.
    [[nodiscard]] bool BothBeyondOneSide(const g3d_Point& a, const g3d_Point& b) const noexcept {
        return (a.X() > lowerRight.X() && b.X() > lowerRight.X()) || (a.Y() > upperLeft.Y() && b.Y() > upperLeft.Y()) ||
               (a.X() < upperLeft.X() && b.X() < upperLeft.X()) || (a.Y() < lowerRight.Y() && b.Y() < lowerRight.Y());
    }

    [[nodiscard]] std::array<g3d_Point, 4> Corners() const noexcept {
        return {upperLeft, g3d_Point(lowerRight.X(), upperLeft.Y(), 0.0F), lowerRight,
                g3d_Point(upperLeft.X(), lowerRight.Y(), 0.0F)};
    }
};

/// A part of a segment that is left of clipping, and whether it reaches the segment's ends.
struct Part {
    g3d_Point first, last;
    bool fromStart, toEnd;
};

/// Clips the segments of a linestring by `clip` (start, end, parts to fill) and joins the parts.
template <class ClipSegment>
g3d_ClipResultEnum ClipLinestring(const cow_List<g3d_Point>& line, cow_List<cow_List<g3d_Point>>& pieces,
                                  ClipSegment clip) {
    // Which may be one of the pieces. NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
    const cow_List<g3d_Point> whole = line;
    const std::span<const g3d_Point> points = whole.Span();
    std::vector<std::vector<g3d_Point>> chains;
    const auto add = [&chains](const g3d_Point& p) {
        std::vector<g3d_Point>& chain = chains.back();
        if (chain.empty() || chain.back().X() != p.X() || chain.back().Y() != p.Y()) chain.push_back(p);
    };
    bool allInside = true, allTrivial = true, reachesEnd = false;
    std::vector<Part> parts;
    const std::size_t last = points.size() - 1;
    for (std::size_t k = 0; k < std::max<std::size_t>(last, 1); ++k) {
        parts.clear();
        const g3d_ClipResultEnum result = clip(points[k], points[std::min(k + 1, last)], parts);
        allInside = allInside && result == g3d_ClipInside;
        allTrivial = allTrivial && result == g3d_ClipTriviallyOutside;
        const bool continues = std::exchange(reachesEnd, !parts.empty() && parts.back().toEnd);
        for (const Part& part : parts) {
            if (!(continues && part.fromStart)) chains.emplace_back();
            add(part.first);
            add(part.last);
        }
    }
    pieces.Clear();
    if (allInside) {
        pieces.Append(whole);
        return g3d_ClipInside;
    }
    for (std::vector<g3d_Point>& chain : chains) pieces.Append(cow_List<g3d_Point>(std::move(chain)));
    if (allTrivial) return g3d_ClipTriviallyOutside;
    return chains.empty() ? g3d_ClipOutside : g3d_ClipClipped;
}

/// Whether p is nearer to the segment a b than the tolerance, with the parameter of the nearest point.
bool IsNear(const Planar& fromA, const Planar& segment, double& s) noexcept {
    const double square = segment.x * segment.x + segment.y * segment.y;
    s = square > 0.0 ? std::clamp((fromA.x * segment.x + fromA.y * segment.y) / square, 0.0, 1.0) : 0.0;
    return IsZero(Length({fromA.x - s * segment.x, fromA.y - s * segment.y}));
}

/// See `IntersectLinePolygon2D`. The distance of two segments that do not cross is that of an end of one from the
/// other, so ends are all there is to look at beside crossings.
std::vector<double> Contacts(Polygon polygon, const g3d_Point& a, const g3d_Point& b) {
    const double length = Length(From(a, b));
    std::vector<double> contacts;
    const auto add = [&](double s) {
        if (IsZero(s * length))
            s = 0.0;
        else if (IsZero((1.0 - s) * length))
            s = 1.0;
        contacts.push_back(s);
    };
    ForEachEdge(polygon, [&](const g3d_Point& prev, const g3d_Point& cur) {
        double s = 0.0, t = 0.0;
        if (g3d_GeomUtils::DoLinesCross2D(a, b, prev, cur, s, t)) add(s);
        if (IsNear(From(a, cur), From(a, b), s)) add(s);
        if (IsNear(From(prev, a), From(prev, cur), t)) add(0.0);
        if (IsNear(From(prev, b), From(prev, cur), t)) add(1.0);
    });
    std::sort(contacts.begin(), contacts.end(),
              [](double left, double right) { return g3d_GeomUtils_compare(&left, &right) < 0; });
    const auto same = [length](double left, double right) { return left == right || IsZero((right - left) * length); };
    contacts.erase(std::unique(contacts.begin(), contacts.end(), same), contacts.end());
    return contacts;
}

/// Inside, or nearer to the outline than the tolerance; not with a NaN.
bool IsInsideOrOn(Polygon polygon, const g3d_Point& a, const g3d_Point& b, double s) noexcept {
    const Planar d = From(a, b);
    const double x = a.X() + s * d.x, y = a.Y() + s * d.y;
    bool on = false;
    ForEachEdge(polygon, [&](const g3d_Point& prev, const g3d_Point& cur) {
        double t = 0.0;
        on = on || IsNear({x - prev.X(), y - prev.Y()}, From(prev, cur), t);
    });
    return on || (std::isfinite(x) && IsInside(polygon, x, y));
}

/// Between two contacts a segment stays on one side of the outline, so the middle decides.
void PartsInPolygon(Polygon polygon, const g3d_Point& a, const g3d_Point& b, std::vector<Part>& parts) {
    const std::vector<double> contacts = Contacts(polygon, a, b);
    std::vector<double> breaks = contacts;
    if (breaks.empty() || breaks.front() != 0.0) breaks.insert(breaks.begin(), 0.0);
    if (breaks.back() != 1.0) breaks.push_back(1.0);

    const auto add = [&](double from, double to) {
        parts.push_back({Between(a, b, from), Between(a, b, to), from == 0.0, to == 1.0});
    };
    std::size_t start = 0;  // of the part under way; none when it is the current break and `open` is false
    bool open = false;
    for (std::size_t k = 0; k < breaks.size(); ++k) {
        const bool goesOn =
            k + 1 < breaks.size() && IsInsideOrOn(polygon, a, b, breaks[k] + 0.5 * (breaks[k + 1] - breaks[k]));
        if (!open) start = k;
        const bool touches = std::binary_search(contacts.begin(), contacts.end(), breaks[k]);
        if (!goesOn && (open || touches)) add(breaks[start], breaks[k]);
        open = goesOn;
    }
}

/// See `ClipLinestringToPolygon2D`.
bool IsDegenerate(Polygon polygon) noexcept {
    if (polygon.size() < 3) return true;
    const auto finite = [](const g3d_Point& p) { return std::isfinite(p.X()) && std::isfinite(p.Y()); };
    if (!std::all_of(polygon.begin(), polygon.end(), finite)) return true;
    Planar longest{0.0, 0.0};
    for (const g3d_Point& p : polygon)
        if (Length(From(polygon[0], p)) > Length(longest)) longest = From(polygon[0], p);
    const double length = Length(longest);
    return length == 0.0 || std::all_of(polygon.begin(), polygon.end(), [&](const g3d_Point& p) {
               return IsZero(Cross(longest, From(polygon[0], p)) / length);
           });
}

/// No other bound than infinity when there is nothing.
Rect Range(Polygon polygon) noexcept {
    constexpr float infinity = std::numeric_limits<float>::infinity();
    float left = infinity, right = -infinity, lower = infinity, upper = -infinity;
    for (const g3d_Point& p : polygon) {  // a comparison with NaN is false, so the bound stays
        left = p.X() < left ? p.X() : left;
        right = p.X() > right ? p.X() : right;
        lower = p.Y() < lower ? p.Y() : lower;
        upper = p.Y() > upper ? p.Y() : upper;
    }
    return {g3d_Point(left, upper, 0.0F), g3d_Point(right, lower, 0.0F)};
}

}  // namespace

bool g3d_GeomUtils::DoLinesCross2D(const g3d_Point& a0, const g3d_Point& a1, const g3d_Point& b0, const g3d_Point& b1,
                                   double& s, double& t) noexcept {
    const Planar a = From(a0, a1), b = From(b0, b1), w = From(a0, b0);
    const double cross = Cross(a, b);
    const double longer = std::max(Length(a), Length(b));
    if (cross == 0.0 || !(std::abs(cross) >= m_tolerance * longer)) return false;
    const double alongA = Cross(w, b) / cross;
    const double alongB = Cross(w, a) / cross;
    if (!(0.0 <= alongA && alongA <= 1.0 && 0.0 <= alongB && alongB <= 1.0)) return false;
    s = alongA;
    t = alongB;
    return true;
}

bool g3d_GeomUtils::PointInPolygon2D(const cow_List<g3d_Point>& polygon, const g3d_Point& p, const g3d_Point*) {
    (void)polygon.ConstGet(polygon.Length() - 1);
    return IsInside(polygon.Span(), p.X(), p.Y());
}

bool g3d_GeomUtils::RangeOfPolygon(const cow_List<g3d_Point>& polygon, g3d_Point& upperLeft,
                                   g3d_Point& lowerRight) noexcept {
    const Rect range = Range(polygon.Span());
    if (!(range.upperLeft.X() <= range.lowerRight.X() && range.lowerRight.Y() <= range.upperLeft.Y())) return false;
    upperLeft = range.upperLeft;
    lowerRight = range.lowerRight;
    return true;
}

g3d_ClipResultEnum g3d_GeomUtils::ClipLineToRect2D(const g3d_Point& upperLeft, const g3d_Point& lowerRight,
                                                   const g3d_Point& a, const g3d_Point& b, g3d_Point& outA,
                                                   g3d_Point& outB) noexcept {
    const Rect rect{upperLeft, lowerRight};
    const g3d_Point start = a, end = b;
    const bool startInside = rect.Contains(start), endInside = rect.Contains(end);
    if (startInside && endInside) {
        outA = start;
        outB = end;
        return g3d_ClipInside;
    }
    if (rect.BothBeyondOneSide(start, end)) return g3d_ClipTriviallyOutside;

    constexpr double none = 1.1;
    double fromStart = none, fromEnd = none;
    const std::array<g3d_Point, 4> corners = rect.Corners();
    ForEachEdge(corners, [&](const g3d_Point& from, const g3d_Point& to) {
        double s = 0.0, t = 0.0;
        if (!DoLinesCross2D(start, end, from, to, s, t)) return;
        fromStart = std::min(fromStart, s);
        fromEnd = std::min(fromEnd, 1.0 - s);
    });
    if (fromStart == none) return g3d_ClipOutside;
    outA = startInside ? start : Between(start, end, fromStart);
    outB = endInside ? end : Between(end, start, fromEnd);
    return g3d_ClipClipped;
}

g3d_ClipResultEnum g3d_GeomUtils::ClipLinestringToRect2D(const g3d_Point& upperLeft, const g3d_Point& lowerRight,
                                                         const cow_List<g3d_Point>& line,
                                                         cow_List<cow_List<g3d_Point>>& pieces) {
    if (line.Length() == 0) {
        pieces.Clear();
        return g3d_ClipDegenerate;
    }
    const Rect rect{upperLeft, lowerRight};
    return ClipLinestring(line, pieces, [&](const g3d_Point& a, const g3d_Point& b, std::vector<Part>& parts) {
        Part part{a, b, rect.Contains(a), rect.Contains(b)};
        const g3d_ClipResultEnum result = ClipLineToRect2D(upperLeft, lowerRight, a, b, part.first, part.last);
        if (result == g3d_ClipInside || result == g3d_ClipClipped) parts.push_back(part);
        return result;
    });
}

bool g3d_GeomUtils::IntersectLinePolygon2D(const cow_List<g3d_Point>& polygon, const g3d_Point& a, const g3d_Point& b,
                                           cow_List<double>& parameters) {
    parameters = cow_List<double>(Contacts(polygon.Span(), a, b));
    return parameters.Length() != 0;
}

g3d_ClipResultEnum g3d_GeomUtils::ClipLineToPolygon2D(const cow_List<g3d_Point>& polygon, const g3d_Point& a,
                                                      const g3d_Point& b, cow_List<cow_List<g3d_Point>>& pieces) {
    return ClipLinestringToPolygon2D(polygon, {a, b}, pieces);
}

g3d_ClipResultEnum g3d_GeomUtils::ClipLinestringToPolygon2D(const cow_List<g3d_Point>& polygon,
                                                            const cow_List<g3d_Point>& line,
                                                            cow_List<cow_List<g3d_Point>>& pieces) {
    const Polygon outline = polygon.Span();
    if (line.Length() == 0 || IsDegenerate(outline)) {
        pieces.Clear();
        return g3d_ClipDegenerate;
    }
    const Rect range = Range(outline);
    return ClipLinestring(line, pieces, [&](const g3d_Point& a, const g3d_Point& b, std::vector<Part>& parts) {
        PartsInPolygon(outline, a, b, parts);
        if (parts.size() == 1 && parts[0].fromStart && parts[0].toEnd) return g3d_ClipInside;
        if (!parts.empty()) return g3d_ClipClipped;
        return range.BothBeyondOneSide(a, b) ? g3d_ClipTriviallyOutside : g3d_ClipOutside;
    });
}

g3d_ClipResultEnum g3d_GeomUtils::IntersectPolygonPolygon2D(const cow_List<g3d_Point>& first,
                                                            const cow_List<g3d_Point>& second,
                                                            cow_List<cow_List<g3d_Point>>& pieces) {
    const cow_List<g3d_Point> one = first, other = second;  // either may be one of the pieces
    pieces.Clear();
    if (IsDegenerate(one.Span()) || IsDegenerate(other.Span())) return g3d_ClipDegenerate;
    const Rect a = Range(one.Span()), b = Range(other.Span());
    if (a.BothBeyondOneSide(b.upperLeft, b.lowerRight)) return g3d_ClipTriviallyOutside;

    const g3d_PolygonOverlap overlap = g3d_SweepPolygons(one.Span(), other.Span(), m_tolerance);
    if (!(overlap.both || (overlap.onlyFirst && overlap.onlySecond))) return g3d_ClipDegenerate;
    if (overlap.onlyFirst && overlap.onlySecond) {
        pieces = overlap.pieces;
        return pieces.Length() == 0 ? g3d_ClipOutside : g3d_ClipClipped;
    }
    pieces.Append(overlap.onlyFirst ? other : one);
    return overlap.onlyFirst ? g3d_ClipCovers : g3d_ClipInside;
}
