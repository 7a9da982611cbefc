#include <gsl/detail/gsl_DirSearchNode.h>

gsl_DirSearchNode gsl_HalveTriangles(std::span<gsl_DirTriangle> triangles) {
    constexpr std::size_t fewTriangles = 4;
    gsl_DirSearchNode node;
    for (const gsl_DirTriangle& triangle : triangles) node.extent.Update(triangle.extent.low, triangle.extent.high);
    const bool areCopies = std::all_of(triangles.begin(), triangles.end(), [&](const gsl_DirTriangle& triangle) {
        return triangle.corners == triangles.front().corners;
    });
    if (areCopies || triangles.size() <= fewTriangles) {
        node.triangles = areCopies && !triangles.empty() ? triangles.first(1) : triangles;
        return node;
    }
    std::size_t widest = 0;
    for (std::size_t axis = 1; axis < 3; ++axis)
        if (node.extent.Length(axis) > node.extent.Length(widest)) widest = axis;
    const auto centre = [widest](const gsl_DirTriangle& t) { return t.extent.low[widest] + t.extent.high[widest]; };
    const std::size_t half = triangles.size() / 2;
    std::nth_element(triangles.begin(), triangles.begin() + static_cast<std::ptrdiff_t>(half), triangles.end(),
                     [&](const gsl_DirTriangle& a, const gsl_DirTriangle& b) { return centre(a) < centre(b); });
    node.children.reserve(2);
    node.children.push_back(gsl_HalveTriangles(triangles.first(half)));
    node.children.push_back(gsl_HalveTriangles(triangles.subspan(half)));
    return node;
}
