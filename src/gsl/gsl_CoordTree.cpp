#include <base/nex_RangeException.h>
#include <base/nex_Throw.h>
#include <gsl/gsl_CoordTree.h>
#include <gsl/gsl_CoordTreeImpl.h>

#include <limits>
#include <utility>
#include <vector>

namespace {

constexpr unsigned movedFromDim = 3;

const gsl_CoordTreeImpl& ForQuery(const std::unique_ptr<gsl_CoordTreeImpl>& impl) noexcept {
    if (impl) return *impl;
    static const gsl_CoordTreeImpl empty(movedFromDim);
    return empty;
}

gsl_CoordTreeImpl& ForChange(std::unique_ptr<gsl_CoordTreeImpl>& impl) {
    if (!impl) impl = std::make_unique<gsl_CoordTreeImpl>(movedFromDim);
    return *impl;
}

void RequireRoom(std::size_t results, std::size_t points) {
    if (results < points) nex_Throw(nex_RangeException("gsl_CoordTree: fewer results than points"));
}

}  // namespace

gsl_CoordTree::gsl_CoordTree(unsigned dim) : _impl(std::make_unique<gsl_CoordTreeImpl>(dim)) {}

gsl_CoordTree::gsl_CoordTree(const cls_xo1DArrayList<gsl_Point>& points, unsigned dim) : gsl_CoordTree(dim) {
    Insert(points);
}

gsl_CoordTree::gsl_CoordTree(const cls_xo1DArrayList<gsl_Point>& points, unsigned dim,
                             const cow_List<unsigned>& indices)
    : gsl_CoordTree(dim) {
    Insert(points, indices);
}

gsl_CoordTree::gsl_CoordTree(const gsl_CoordTree& other)
    : _impl(std::make_unique<gsl_CoordTreeImpl>(ForQuery(other._impl))) {}
gsl_CoordTree::gsl_CoordTree(gsl_CoordTree&& other) noexcept = default;

gsl_CoordTree& gsl_CoordTree::operator=(const gsl_CoordTree& other) {
    ForChange(_impl).DeepCopy(ForQuery(other._impl));
    return *this;
}

gsl_CoordTree& gsl_CoordTree::operator=(gsl_CoordTree&& other) noexcept = default;
gsl_CoordTree::~gsl_CoordTree() = default;

unsigned gsl_CoordTree::Size() const noexcept { return ForQuery(_impl).Size(); }

void gsl_CoordTree::Clear() noexcept {
    if (_impl) _impl->Clear();
}

void gsl_CoordTree::Insert(const gsl_Point& point, unsigned index) { ForChange(_impl).Insert(point, index); }

void gsl_CoordTree::Insert(const cls_xo1DArrayList<gsl_Point>& points) {
    ForChange(_impl).Insert(points.Span(), nullptr);
}

void gsl_CoordTree::Insert(const cls_xo1DArrayList<gsl_Point>& points, const cow_List<unsigned>& indices) {
    ForChange(_impl).Insert(points.Span(), &indices);
}

int gsl_CoordTree::Remove(const gsl_Point& point, double tol, int index) {
    return ForChange(_impl).Remove(point, tol, index);
}

int gsl_CoordTree::Find(const gsl_Point& point, double tol) const { return ForQuery(_impl).Find(point, tol); }

cow_List<unsigned> gsl_CoordTree::FindAll(const gsl_Point& point, double tol) const {
    std::vector<unsigned> found;
    ForQuery(_impl).FindAll(point, tol, found);
    return cow_List<unsigned>(std::move(found));
}

int gsl_CoordTree::FindClosest(const gsl_Point& point, double* dist) const {
    return ForQuery(_impl).FindClosest(point, dist);
}

cow_List<unsigned> gsl_CoordTree::FindClosest(const gsl_Point& point, unsigned k, cow_List<double>* distances) const {
    return ForQuery(_impl).FindClosest(point, k, distances);
}

cow_List<unsigned> gsl_CoordTree::FindInRadius(const gsl_Point& point, double radius,
                                               cow_List<double>* distances) const {
    return ForQuery(_impl).FindInRadius(point, radius, std::numeric_limits<unsigned>::max(), distances);
}

cow_List<unsigned> gsl_CoordTree::FindInRadius(const gsl_Point& point, double radius, unsigned k,
                                               cow_List<double>* distances) const {
    return ForQuery(_impl).FindInRadius(point, radius, k, distances);
}

cow_List<unsigned> gsl_CoordTree::FindInBox(const gsl_BBox& box) const { return ForQuery(_impl).FindInBox(box); }

void gsl_CoordTree::FindMany(std::span<const gsl_Point> points, double tol, std::span<int> indices) const {
    RequireRoom(indices.size(), points.size());
    const gsl_CoordTreeImpl& impl = ForQuery(_impl);
    for (std::size_t i = 0; i < points.size(); ++i) indices[i] = impl.Find(points[i], tol);
}

void gsl_CoordTree::FindClosestMany(std::span<const gsl_Point> points, std::span<int> indices,
                                    std::span<double> distances) const {
    RequireRoom(distances.size(), points.size());
    RequireRoom(indices.size(), points.size());
    const gsl_CoordTreeImpl& impl = ForQuery(_impl);
    for (std::size_t i = 0; i < points.size(); ++i) indices[i] = impl.FindClosest(points[i], &distances[i]);
}

void gsl_CoordTree::FindClosestMany(std::span<const gsl_Point> points, std::span<int> indices) const {
    RequireRoom(indices.size(), points.size());
    const gsl_CoordTreeImpl& impl = ForQuery(_impl);
    for (std::size_t i = 0; i < points.size(); ++i) indices[i] = impl.FindClosest(points[i], nullptr);
}

void gsl_CoordTree::DebugTree(bool print) const {
    ForQuery(_impl).CheckTree();
    if (print) ForQuery(_impl).PrintTree();
}
