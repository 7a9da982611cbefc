#include <g3d/detail/g3d_PolygonSweep.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

namespace {

struct Vertex {
    double x, y;
};

/// An edge that is not level, from its lower to its upper end.
struct Edge {
    Vertex low, high;
    bool ofSecond;
    double sine;  ///< of the angle to the level, positive

    /// Beyond an end, that end.
    [[nodiscard]] double X(double y) const noexcept {
        if (y <= low.y) return low.x;
        if (y >= high.y) return high.x;
        return low.x + (high.x - low.x) * ((y - low.y) / (high.y - low.y));
    }
};

/// A piece being built upwards: its two sides, and the edges they run on.
struct Piece {
    std::vector<Vertex> left, right;
    const Edge* onLeft = nullptr;
    const Edge* onRight = nullptr;
};

void AddEdges(std::span<const g3d_Point> polygon, bool ofSecond, std::vector<Edge>& edges) {
    for (std::size_t k = 0; k < polygon.size(); ++k) {
        const g3d_Point& from = polygon[k == 0 ? polygon.size() - 1 : k - 1];
        Vertex low{from.X(), from.Y()}, high{polygon[k].X(), polygon[k].Y()};
        if (low.y == high.y) continue;
        if (low.y > high.y) std::swap(low, high);
        const double dx = high.x - low.x, dy = high.y - low.y;
        edges.push_back({low, high, ofSecond, dy / std::sqrt(dx * dx + dy * dy)});
    }
}

/// The heights of all ends and crossings, ascending, at least `tolerance` apart.
std::vector<double> Levels(const std::vector<Edge>& edges, double tolerance) {
    std::vector<double> all;
    for (std::size_t i = 0; i < edges.size(); ++i) {
        const Edge& a = edges[i];
        const double ax = a.high.x - a.low.x, ay = a.high.y - a.low.y;
        all.push_back(a.low.y);
        all.push_back(a.high.y);
        for (std::size_t j = 0; j < i; ++j) {
            const Edge& b = edges[j];
            const double bx = b.high.x - b.low.x, by = b.high.y - b.low.y;
            const double cross = ax * by - ay * bx;
            if (cross == 0.0) continue;
            const double s = ((b.low.x - a.low.x) * by - (b.low.y - a.low.y) * bx) / cross;
            const double y = a.low.y + s * ay;
            if (s > 0.0 && s < 1.0 && y > b.low.y && y < b.high.y) all.push_back(y);
        }
    }
    std::sort(all.begin(), all.end());
    std::vector<double> levels;
    for (const double y : all)
        if (levels.empty() || (y > levels.back() && y - levels.back() >= tolerance)) levels.push_back(y);
    return levels;
}

/// The edges that pass the height, from left to right.
std::vector<const Edge*> EdgesAt(const std::vector<Edge>& edges, double y) {
    std::vector<std::pair<double, const Edge*>> passing;
    for (const Edge& edge : edges)
        if (edge.low.y < y && y < edge.high.y) passing.emplace_back(edge.X(y), &edge);
    std::stable_sort(passing.begin(), passing.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<const Edge*> ordered;
    ordered.reserve(passing.size());
    for (const auto& [x, edge] : passing) ordered.push_back(edge);
    return ordered;
}

/// Continues one side of a piece along `edge` from y0 to y1.
void Extend(std::vector<Vertex>& side, const Edge*& on, const Edge& edge, double y0, double y1) {
    if (on == &edge) side.pop_back();
    if (on == nullptr) side.push_back({edge.X(y0), y0});
    side.push_back({edge.X(y1), y1});
    on = &edge;
}

void Finish(const Piece& piece, cow_List<cow_List<g3d_Point>>& pieces) {
    std::vector<g3d_Point> outline;
    const auto add = [&outline](const Vertex& v) {
        const g3d_Point p(v.x, v.y, 0.0);
        if (outline.empty() || !(outline.back() == p)) outline.push_back(p);
    };
    std::for_each(piece.right.begin(), piece.right.end(), add);
    std::for_each(piece.left.rbegin(), piece.left.rend(), add);
    while (outline.size() > 1 && outline.front() == outline.back()) outline.pop_back();
    if (outline.size() >= 3) pieces.Append(cow_List<g3d_Point>(std::move(outline)));
}

}  // namespace

g3d_PolygonOverlap g3d_SweepPolygons(std::span<const g3d_Point> first, std::span<const g3d_Point> second,
                                     double tolerance) {
    std::vector<Edge> edges;
    AddEdges(first, false, edges);
    AddEdges(second, true, edges);
    const std::vector<double> levels = Levels(edges, tolerance);

    g3d_PolygonOverlap overlap;
    std::vector<Piece> below;  // the pieces that reach up to the current slab
    for (std::size_t k = 1; k < levels.size(); ++k) {
        const double y0 = levels[k - 1], y1 = levels[k];
        const std::vector<const Edge*> passing = EdgesAt(edges, y0 + 0.5 * (y1 - y0));
        std::vector<Piece> reaching;
        bool inFirst = false, inSecond = false;
        for (std::size_t i = 1; i < passing.size(); ++i) {
            const Edge* const left = passing[i - 1];
            const Edge* const right = passing[i];
            bool& side = left->ofSecond ? inSecond : inFirst;
            side = !side;
            const double width0 = right->X(y0) - left->X(y0), width1 = right->X(y1) - left->X(y1);
            const double across = std::max(width0, width1) * std::max(left->sine, right->sine);
            if (!(across > 0.0 && across >= tolerance) || !(inFirst || inSecond)) continue;
            (inFirst && inSecond ? overlap.both : inFirst ? overlap.onlyFirst : overlap.onlySecond) = true;
            if (!(inFirst && inSecond)) continue;

            const auto continues = [&](const Piece& piece) {
                return !piece.left.empty() && width0 > tolerance &&
                       std::abs(piece.left.back().x - left->X(y0)) <= tolerance &&
                       std::abs(piece.right.back().x - right->X(y0)) <= tolerance;
            };
            const auto found = std::find_if(below.begin(), below.end(), continues);
            Piece piece = found != below.end() ? std::exchange(*found, Piece()) : Piece();
            Extend(piece.left, piece.onLeft, *left, y0, y1);
            Extend(piece.right, piece.onRight, *right, y0, y1);
            reaching.push_back(std::move(piece));
        }
        for (const Piece& piece : std::exchange(below, std::move(reaching)))
            if (!piece.left.empty()) Finish(piece, overlap.pieces);
    }
    for (const Piece& piece : below) Finish(piece, overlap.pieces);
    return overlap;
}
