// Reads a solver's result file, tells what is in it, where it moves most and where the stress is greatest, merges
// coincident nodes, finds the nodes nearest to given points and the gaps between bodies, turns the model, and keeps
// points and matrix in a model stream that it reads back and compares. Fits a camera to the model, and draws a picture
// if asked to.

#include "../support/host_ReadFile.h"
#include "../support/host_Session.h"
#include "frd_Reader.h"
#include "host_Annotations.h"
#include "host_Bodies.h"
#include "host_Picture.h"
#include "host_WriteFile.h"

#include <base/bio_Ifilter.h>
#include <base/bio_Ofilter.h>
#include <base/cls_MetadataRegistrar.h>
#include <g3d/g3d_Camera.h>
#include <gsl/gsl_BBox.h>
#include <gsl/gsl_CoordTree.h>
#include <gsl/gsl_DirectionalContact.h>
#include <gsl/gsl_Matrix.h>
#include <gsl/gsl_MergeCoincidentPoints.h>
#include <gsl/gsl_PersistentMatrix.h>
#include <gsl/gsl_Point.h>
#include <gsl/gsl_Util.h>
#include <gsl/gsl_Vector.h>
#include <idb/idb_Dump.h>
#include <idb/idb_ReadObject.h>
#include <idb/idb_WriteObject.h>
#include <utf/utf_ComponentOrder.h>
#include <utf/utf_TensorBatch.h>
#include <wip/wip_ConsoleReporter.h>
#include <wip/wip_ProgressObj.h>
#include <wip/wip_ScopedReporter.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <filesystem>
#include <iomanip>
#include <iostream>
#include <map>
#include <numbers>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

namespace {

constexpr int badCall = 1;
constexpr int badFile = 2;

struct Options {
    std::filesystem::path results;
    std::filesystem::path stream = "stress_report.stream";
    std::filesystem::path picture;  // none when empty
    std::vector<gsl_Point> probes;
};

/// What of the model is kept in the stream.
struct Kept {
    gsl_PersistentMatrix matrix;
    annC_AnnotationContainer annotations;
    std::vector<gsl_Point> points;
};

std::vector<gsl_Point> PointsOf(const frd_Model& model) {
    std::vector<gsl_Point> points;
    points.reserve(model.nodes.size());
    for (const frd_Node& node : model.nodes) points.emplace_back(node.position);
    return points;
}

gsl_BBox ExtentsOf(const std::vector<gsl_Point>& points) {
    gsl_BBox extents;
    for (const gsl_Point& point : points) extents.Add(point);
    return extents;
}

void PrintCounts(const frd_Model& model) {
    std::cout << "  nodes     " << model.nodes.size() << "\n  elements  " << model.elements.size() << '\n';
    std::map<std::pair<int, int>, int> counts;  // by material and type
    for (const frd_Element& element : model.elements) ++counts[{element.material, element.type}];
    for (const auto& [kind, count] : counts) {
        const auto [material, type] = kind;
        const auto name = model.materials.find(material);
        std::cout << "            " << count << ' ' << frd_ElementTypes[static_cast<std::size_t>(type)].name;
        if (material != 0) std::cout << ", material " << material;
        if (name != model.materials.end()) std::cout << ' ' << name->second;
        std::cout << '\n';
    }
}

void PrintExtents(const std::vector<gsl_Point>& points) {
    const gsl_BBox extents = ExtentsOf(points);
    std::cout << "  extents   " << extents.Low() << " to " << extents.High() << "\n  centre    " << extents.Center()
              << '\n';
}

/// The row of a displacement result with the greatest length, NaN left out, and that length.
struct Greatest {
    std::size_t row = 0;
    double length = -1.0;
};

gsl_Vector DisplacementAt(const frd_Result& result, std::size_t row) {
    return {result.Value(row, 0), result.Value(row, 1), result.Value(row, 2)};
}

Greatest GreatestDisplacement(const frd_Result& result) {
    Greatest greatest;
    for (std::size_t row = 0; row < result.nodes.size(); ++row) {
        const double length = DisplacementAt(result, row).Length();
        if (length > greatest.length) greatest = {row, length};
    }
    return greatest;
}

bool IsDisplacement(const frd_Result& result) { return result.name == "DISP" && result.components.size() == 3; }

void PrintDisplacements(const frd_Model& model, const std::vector<gsl_Point>& points) {
    bool any = false;
    for (const frd_Result& result : model.results) {
        if (!IsDisplacement(result)) continue;
        any = true;
        std::cout << "  set " << result.set << ", time " << result.time << '\n';
        const Greatest greatest = GreatestDisplacement(result);
        if (greatest.length < 0.0) {
            std::cout << "    no displacement that is a number\n";
            continue;
        }
        const std::size_t node = result.nodes[greatest.row];
        std::cout << "    greatest " << greatest.length << " at node " << model.nodes[node].number << ' '
                  << points[node] << "\n    by       " << DisplacementAt(result, greatest.row) << '\n';
    }
    if (!any) std::cout << "  no displacements\n";
}

/// A stress result whose components stand in the order xx yy zz xy yz zx.
bool IsStress(const frd_Result& result) { return result.name == "STRESS" && result.components.size() == 6; }

/// A quantity that a tensor has, for each node of a result.
struct Measure {
    const char* name;
    std::vector<double> values;
};

std::vector<Measure> MeasuresOf(const frd_Result& stress) {
    std::vector<double> tensors(stress.values.size());
    utf_Reorder(utf_ComponentOrderEnm::XyYzZx, utf_ComponentOrderEnm::Kind9, stress.values, tensors);
    const utf_TensorBatch<double> batch(res_TENSOR_3D_FULL, tensors);
    const std::size_t count = batch.count();
    std::vector<Measure> measures;
    for (const char* name : {"Mises", "Tresca", "max principal", "min principal"})
        measures.push_back({name, std::vector<double>(count)});
    batch.mises(measures[0].values);
    batch.tresca(measures[1].values);
    std::vector<double> principal(3 * count);
    batch.principleValues(principal);
    for (std::size_t i = 0; i < count; ++i) {
        measures[2].values[i] = principal[3 * i];
        measures[3].values[i] = principal[3 * i + 2];
    }
    return measures;
}

/// The greatest of each measure, the least of the last, and where; NaN left out.
void PrintStresses(const frd_Model& model, const std::vector<gsl_Point>& points) {
    bool any = false;
    for (const frd_Result& result : model.results) {
        if (!IsStress(result)) continue;
        any = true;
        std::cout << "  set " << result.set << '\n';
        const std::vector<Measure> measures = MeasuresOf(result);
        for (const Measure& measure : measures) {
            const double sign = &measure == &measures.back() ? -1.0 : 1.0;
            std::optional<std::size_t> extreme;
            for (std::size_t row = 0; row < measure.values.size(); ++row)
                if (!std::isnan(measure.values[row]) &&
                    (!extreme || sign * measure.values[row] > sign * measure.values[*extreme]))
                    extreme = row;
            if (!extreme) continue;
            const std::size_t node = result.nodes[*extreme];
            std::cout << "    " << std::left << std::setw(14) << measure.name << measure.values[*extreme] << " at node "
                      << model.nodes[node].number << ' ' << points[node] << '\n';
        }
    }
    if (!any) std::cout << "  no stresses\n";
}

/// The nearest node to each probe.
void PrintProbes(const frd_Model& model, const std::vector<gsl_Point>& points, const std::vector<gsl_Point>& probes) {
    const gsl_CoordTree tree(cls_xo1DArrayList<gsl_Point>(points), 3);
    for (const gsl_Point& probe : probes) {
        double distance = 0.0;
        const int nearest = tree.FindClosest(probe, &distance);
        std::cout << "  probe " << probe;
        if (nearest < 0)
            std::cout << ": no node is near\n";
        else
            std::cout << ": node " << model.nodes[static_cast<std::size_t>(nearest)].number << ", " << distance
                      << " away\n";
    }
}

/// How far the first body can travel downwards until it touches each other one.
void PrintGaps(const std::vector<host_Body>& bodies, const std::vector<gsl_Point>& positions) {
    const gsl_Vector down(0.0, 0.0, -1.0);
    const cow_List<gsl_Triangle> movable = host_Triangles(bodies.front(), positions);
    for (std::size_t other = 1; other < bodies.size(); ++other) {
        const auto contact = gsl_FindDirectionalContact(host_Triangles(bodies[other], positions), movable, down);
        std::cout << "    body 1 to body " << other + 1 << ": ";
        if (contact)
            std::cout << contact->distance << ", at " << contact->point << '\n';
        else
            std::cout << "none\n";
    }
}

std::vector<gsl_Point> Deformed(std::vector<gsl_Point> points, const frd_Result& displacements) {
    for (std::size_t row = 0; row < displacements.nodes.size(); ++row) {
        gsl_Point& point = points[displacements.nodes[row]];
        point.SetPos(point + DisplacementAt(displacements, row));
    }
    return points;
}

void PrintBodies(const frd_Model& model, const std::vector<gsl_Point>& points) {
    const cow_List<unsigned> kept = gsl_MergeCoincidentPoints(points, gsl_Util::LinTol());
    std::size_t merged = 0;
    for (std::size_t node = 0; node < points.size(); ++node)
        if (kept.ConstGet(static_cast<int>(node)) != node) ++merged;
    std::cout << "  coincident nodes merged: " << merged << '\n';

    const std::vector<host_Body> bodies = host_Bodies(model, kept);
    for (std::size_t i = 0; i < bodies.size(); ++i)
        std::cout << "  body " << i + 1 << ": " << bodies[i].triangles.size() << " triangles of skin\n";
    if (bodies.size() < 2) return;

    std::cout << "  gap along (0, 0, -1), undeformed\n";
    PrintGaps(bodies, points);
    wip_ProgressObj progress;  // within the step that calls, whatever that is
    const auto part = 1.0F / static_cast<float>(std::max<std::size_t>(model.results.size(), 1));
    for (const frd_Result& result : model.results) {
        progress.Push(part);
        if (IsDisplacement(result)) {
            std::cout << "  gap along (0, 0, -1), deformed by set " << result.set << '\n';
            PrintGaps(bodies, Deformed(points, result));
        }
        progress.Pop(1);
    }
}

/// Of the last set.
const frd_Result* LastDisplacements(const frd_Model& model) {
    const auto last = std::find_if(model.results.rbegin(), model.results.rend(), IsDisplacement);
    return last != model.results.rend() ? &*last : nullptr;
}

/// Prints the matrices of the camera that shows the model, and writes the picture when one is wanted. The annotations
/// of the picture, which are to be kept.
annC_AnnotationContainer View(const frd_Model& model, const std::filesystem::path& picture) {
    constexpr int width = 960, height = 720;
    const frd_Result* const displacements = LastDisplacements(model);
    const std::vector<double> lengths = host_DisplacementLengths(model, displacements);
    const g3d_ContourScale legend = host_Legend(lengths);
    annC_AnnotationContainer annotations = host_Annotations(model, displacements, lengths, legend);
    const g3d_Camera camera = host_FittedCamera(model, width, height);
    std::cout << "\nA camera from (1, 1, 1), fitted\n  view orientation\n"
              << camera.GetVOM() << "  projection\n"
              << camera.GetPM();
    if (picture.empty()) return annotations;
    try {
        host_WriteFile(picture, host_Picture(model, lengths, legend, annotations, camera, width, height));
    } catch (const std::runtime_error& failure) {
        throw std::runtime_error("picture " + picture.string() + ": " + failure.what());
    }
    std::cout << "  drawn to  " << picture.string() << '\n';
    return annotations;
}

/// Turns a copy of the points; the rest of the report shows that the turned model can be had again from the stream.
std::vector<gsl_Point> Transformed(std::vector<gsl_Point> points, const gsl_Matrix& matrix) {
    for (gsl_Point& point : points) point.Transform(matrix);
    return points;
}

std::string Stored(const Kept& kept, const cls_ClassRegistrar& registrar) {
    bio_Ofilter out;
    idb_WriteObject(out, registrar, kept.matrix);
    idb_WriteObject(out, registrar, kept.annotations);
    for (const gsl_Point& point : kept.points) idb_WriteObject(out, registrar, point);
    return out.Bytes();
}

Kept Restored(std::string bytes, const cls_ClassRegistrar& registrar) {
    bio_Ifilter in(std::move(bytes));
    Kept kept{idb_ReadObject<gsl_PersistentMatrix>(in, registrar),
              idb_ReadObject<annC_AnnotationContainer>(in, registrar),
              {}};
    while (in.Remaining() > 0) kept.points.push_back(idb_ReadObject<gsl_Point>(in, registrar));
    return kept;
}

/// To the last bit; `==` of points and matrices has a tolerance.
bool Identical(const std::vector<gsl_Point>& a, const std::vector<gsl_Point>& b) {
    return std::ranges::equal(a, b, {}, &gsl_Point::AsArray, &gsl_Point::AsArray);
}

bool Identical(const gsl_Matrix& a, const gsl_Matrix& b) {
    double left[4][4];
    double right[4][4];
    a.AsArray(left);
    b.AsArray(right);
    return std::equal(&left[0][0], &left[0][0] + 16, &right[0][0]);
}

/// Tells whether the file gave back what was kept.
bool KeepAndCompare(const Kept& kept, const std::filesystem::path& path, const std::vector<gsl_Point>& turned) {
    const cls_ClassRegistrar& registrar = cls_MetadataRegistrar::Instance().Registrar();
    host_WriteFile(path, Stored(kept, registrar));
    const std::string bytes = host_ReadFile(path);
    const Kept back = Restored(bytes, registrar);
    const bool same = Identical(back.matrix, kept.matrix) && Identical(back.points, kept.points) &&
                      back.annotations == kept.annotations && Identical(Transformed(back.points, back.matrix), turned);
    std::cout << "\nStream " << path.string() << ": " << bytes.size() << " bytes, 1 matrix, "
              << back.annotations.Length() << " annotations and " << back.points.size() << " points\n  read back "
              << (same ? "identical" : "DIFFERENT") << "; its first records:\n\n";
    bio_Ifilter in(bytes);
    constexpr int shownRecords = 3;
    idb_Dump(std::cout, in, registrar, shownRecords);
    return same;
}

/// One after the other the steps of the report, each a part of the whole progress.
bool Report(const frd_Model& model, const Options& options) {
    wip_ProgressObj progress("Stress report");
    progress.Push(0.2F, "Displacements and stresses");
    std::cout << std::setprecision(9) << "Model " << options.results.string() << '\n';
    PrintCounts(model);
    const std::vector<gsl_Point> points = PointsOf(model);
    PrintExtents(points);
    std::cout << "\nDisplacements\n";
    PrintDisplacements(model, points);
    std::cout << "\nStresses, extremes\n";
    PrintStresses(model, points);
    progress.Pop(1);
    progress.Push(0.4F, "Bodies and gaps");
    std::cout << "\nBodies\n";
    PrintBodies(model, points);
    if (!options.probes.empty()) std::cout << "\nProbes\n";
    PrintProbes(model, points, options.probes);

    const gsl_Point centre = ExtentsOf(points).Center();
    constexpr double angleDegrees = 30.0;
    gsl_Matrix turn;
    turn.AxisRotation(centre, gsl_Vector(0.0, 0.0, 1.0), angleDegrees * std::numbers::pi / 180.0);
    const std::vector<gsl_Point> turned = Transformed(points, turn);
    std::cout << "\nTurned by " << angleDegrees << " degrees about the vertical through the centre\n";
    PrintExtents(turned);

    progress.Pop(1);
    progress.Push(0.2F, "View");
    const annC_AnnotationContainer annotations = View(model, options.picture);
    progress.Pop(1);
    progress.Push(0.2F, "Stream");
    return KeepAndCompare({turn, annotations, points}, options.stream, turned);
}

/// Three numbers, and nothing else.
bool ReadPoint(char** texts, gsl_Point& point) {
    for (unsigned axis = 0; axis < 3; ++axis) {
        const std::string_view text = texts[axis];
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), point[axis]);
        if (error != std::errc() || end != text.data() + text.size()) return false;
    }
    return true;
}

/// False when the arguments make no sense.
bool ReadArguments(int argc, char** argv, Options& options) {
    for (int i = 1; i < argc; ++i) {
        const std::string argument = argv[i];
        if (argument == "--stream" && i + 1 < argc)
            options.stream = argv[++i];
        else if (argument == "--picture" && i + 1 < argc)
            options.picture = argv[++i];
        else if (argument == "--probe" && i + 3 < argc && ReadPoint(argv + i + 1, options.probes.emplace_back()))
            i += 3;
        else if (options.results.empty() && !argument.starts_with("-"))
            options.results = argument;
        else
            return false;
    }
    return !options.results.empty() && !options.stream.empty();
}

}  // namespace

int main(int argc, char** argv) {
    Options options;
    if (!ReadArguments(argc, argv, options)) {
        std::cerr << "usage: stress_report RESULTS.frd [--stream FILE] [--picture FILE.png] [--probe X Y Z]...\n";
        return badCall;
    }
    frd_Model model;
    try {
        std::ostringstream notes;
        model = frd_Read(host_ReadFile(options.results), notes);
        if (model.nodes.empty()) throw frd_Error("the file has no nodes");
        std::cerr << notes.str();  // not before: a file that is refused gets one line
    } catch (const std::exception& failure) {
        std::cerr << "stress_report: " << options.results.string() << ": " << failure.what() << '\n';
        return badFile;
    }
    try {
        const host_Session session;
        wip_ConsoleReporter console;
        const wip_ScopedReporter attached(console);
        std::cout << "Library started: " << session.Started() << " parts\n\n";
        std::error_code ignored;
        for (const auto& written : {options.stream, options.picture})
            if (std::filesystem::equivalent(options.results, written, ignored))
                throw std::runtime_error("would overwrite the results");
        if (!Report(model, options)) throw std::runtime_error("did not give back what was written");
        if (!std::cout.flush()) throw std::runtime_error("the report could not be printed");
        return 0;
    } catch (const std::exception& failure) {
        std::cerr << "stress_report: " << options.stream.string() << ": " << failure.what() << '\n';
        return badCall;
    }
}
