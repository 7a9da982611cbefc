#include "host_Array.h"
#include "host_Bridge.h"
#include "host_Commands.h"

#include <gsl/gsl_BBox.h>
#include <gsl/gsl_CoordTree.h>
#include <gsl/gsl_GetPoint.h>
#include <omu/omu_PrimTuple.h>
#include <omu/omu_RangeChecker.h>

#include <cmath>
#include <limits>
#include <vector>

/// An array of points: n rows of x, y, z.
struct host_PointsArgument {
    host_Array value;

    [[nodiscard]] std::vector<gsl_Point> Points() const {
        std::vector<gsl_Point> points;
        points.reserve(static_cast<std::size_t>(value.view.shape[0]));
        for (py::ssize_t i = 0; i < value.view.shape[0]; ++i)
            points.emplace_back(value.At(i, 0), value.At(i, 1), value.At(i, 2));
        return points;
    }
};
static bool omu_TakeArgument(const omu_Primitive& found, host_PointsArgument& target) {
    host_Array array;
    if (!omu_TakeArgument(found, array) || array.view.shape.size() != 2 || array.view.shape[1] != 3) return false;
    target.value = std::move(array);
    return true;
}
template <>
inline constexpr const char* omu_ExpectedName<host_PointsArgument> = "array of n x 3 numbers";

namespace {

/// A tuple of three numbers of any kind.
gsl_Point PointOf(omu_PrimTuple& tuple, const char* command) {
    tuple.SetCommand(command);
    return gsl_GetPoint(tuple, true);
}

/// An array of the library with these numbers.
template <class T>
host_Array ArrayOf(const std::vector<T>& numbers) {
    return host_Array::Of(omu_PrimArray(1, {static_cast<int>(numbers.size())}, numbers.data()));
}

using Tree = gsl_CoordTree;

Tree MakeTree(omu_Arguments& arguments) {
    host_PointsArgument nodes;
    arguments.Begin();
    arguments.Get(nodes, "nodes");
    arguments.End("NodeTree");
    // The memory of another is read here, where it lies; the exporter cannot let it go meanwhile.
    const py::gil_scoped_release others;
    return Tree(cls_xo1DArrayList<gsl_Point>(nodes.Points()), 3);
}

/// The nearest node of each point, -1 for a point with a NaN, and how far it is.
py::tuple Nearest(const Tree& tree, omu_Arguments& arguments) {
    host_PointsArgument argument;
    arguments.Begin();
    arguments.Get(argument, "points");
    arguments.End("nearest");
    std::vector<int> indices;
    std::vector<double> distances;
    {
        const py::gil_scoped_release others;
        const std::vector<gsl_Point> points = argument.Points();
        indices.resize(points.size());
        distances.assign(points.size(), std::numeric_limits<double>::infinity());
        tree.FindClosestMany(points, indices, distances);
    }
    return py::make_tuple(ArrayOf(indices), ArrayOf(distances));
}

/// The nodes less than `radius` from the point, nearest first.
host_Array Within(const Tree& tree, omu_Arguments& arguments) {
    omu_PrimTuple point;
    double radius = 0.0;
    arguments.Begin();
    arguments.Get(point, "point");
    arguments.Get(radius, "radius");
    arguments.End("within");
    omu_RangeChecker::CheckGreaterThan("radius", 0.0, false, std::isnan(radius) ? 0.0 : radius);
    const gsl_Point at = PointOf(point, "within['point']");
    cow_List<unsigned> found;
    {
        const py::gil_scoped_release others;
        found = tree.FindInRadius(at, radius);
    }
    return ArrayOf(std::vector<int>(found.begin(), found.end()));
}

double Distance(omu_Arguments& arguments) {
    omu_PrimTuple from;
    omu_PrimTuple to;
    arguments.Begin();
    arguments.Get(from, "point1");
    arguments.Get(to, "point2");
    arguments.End("distance");
    return PointOf(from, "distance['point1']").GetDistance(PointOf(to, "distance['point2']"));
}

/// The corners of the box, None for no nodes.
py::object BoundingBox(omu_Arguments& arguments) {
    host_PointsArgument nodes;
    arguments.Begin();
    arguments.Get(nodes, "nodes");
    arguments.End("boundingBox");
    gsl_BBox box;
    for (const gsl_Point& node : nodes.Points()) box.Add(node);
    if (box.IsEmpty()) return py::none();
    const auto tupleOf = [](const gsl_Point& point) { return py::make_tuple(point.X(), point.Y(), point.Z()); };
    return py::make_tuple(tupleOf(box.Low()), tupleOf(box.High()));
}

}  // namespace

void host_AddNodes(py::module_& module) {
    host_Class<Tree>(module, "NodeTree", "NodeTree(nodes): finds nodes, rows of an n x 3 array, by their coordinates")
        .def(py::init(host_Command(MakeTree)))
        .def("__len__", &Tree::Size)
        .def("nearest", host_Method<const Tree>(Nearest), "nearest(points): indices and distances, a row each")
        .def("within", host_Method<const Tree>(Within), "within(point, radius): indices, nearest first");
    module.def("distance", host_Command(Distance), "distance(point1, point2)");
    module.def("boundingBox", host_Command(BoundingBox),
               "boundingBox(nodes): ((x, y, z), (x, y, z)), None of no nodes");
}
