#include "host_Report.h"

#include "host_Bodies.h"
#include "host_Results.h"
#include "host_Step.h"

#include <gsl/gsl_BBox.h>
#include <gsl/gsl_CoordTree.h>
#include <gsl/gsl_MergeCoincidentPoints.h>
#include <gsl/gsl_Util.h>

#include <algorithm>
#include <array>
#include <iomanip>
#include <map>
#include <ostream>
#include <utility>

namespace {

using Points = std::vector<gsl_Point>;

void PrintCounts(std::ostream& out, const frd_Model& model) {
    out << "  nodes     " << model.nodes.size() << "\n  elements  " << model.elements.size() << '\n';
    std::map<std::pair<int, int>, int> counts;  // by material and type
    for (const frd_Element& element : model.elements) ++counts[{element.material, element.type}];
    for (const auto& [kind, count] : counts) {
        const auto [material, type] = kind;
        const auto name = model.materials.find(material);
        out << "            " << count << ' ' << frd_ElementTypes.at(static_cast<std::size_t>(type)).name;
        if (material != 0) out << ", material " << material;
        if (name != model.materials.end()) out << ' ' << name->second;
        out << '\n';
    }
}

void PrintExtents(std::ostream& out, const Points& points) {
    gsl_BBox extents;
    for (const gsl_Point& point : points) extents.Add(point);
    out << "  extents   " << extents.Low() << " to " << extents.High() << "\n  centre    " << extents.Center() << '\n';
}

std::vector<host_Body> PrintBodies(std::ostream& out, const frd_Model& model, const std::vector<host_Face>& skin,
                                   const Points& points) {
    const cow_List<unsigned> kept = gsl_MergeCoincidentPoints(points, gsl_Util::LinTol());
    std::size_t merged = 0;
    for (std::size_t node = 0; node < points.size(); ++node)
        if (kept.ConstGet(static_cast<int>(node)) != node) ++merged;
    out << "  coincident nodes merged: " << merged << '\n';
    std::vector<host_Body> bodies = host_Bodies(model, skin, kept);
    for (std::size_t i = 0; i < bodies.size(); ++i) {
        gsl_BBox extents;
        for (const auto& triangle : bodies[i].triangles)
            for (const std::size_t node : triangle) extents.Add(points[node]);
        out << "  body " << i + 1 << ": " << bodies[i].triangles.size() << " triangles of skin, " << extents.Low()
            << " to " << extents.High() << '\n';
    }
    return bodies;
}

void PrintDisplacements(std::ostream& out, const frd_Model& model, const host_Set& set, const Points& points) {
    const std::vector<double> lengths = host_DisplacementLengths(*set.displacements);
    const auto greatest = host_Extreme(lengths, host_QuantityEnm::Displacement);
    if (!greatest) {
        out << "    no displacement that is a number\n";
        return;
    }
    const std::size_t node = set.displacements->nodes[*greatest];
    out << "    greatest " << lengths[*greatest] << " at node " << model.nodes[node].number << ' ' << points[node]
        << "\n    by       " << host_DisplacementAt(*set.displacements, *greatest) << '\n';
}

/// How many nodes are above it, and how far the worst one is.
void PrintLimit(std::ostream& out, const host_Limit& limit, const std::vector<double>& mises) {
    const auto greatest = host_Extreme(mises, host_QuantityEnm::Mises);
    if (!limit.IsActive() || !greatest) return;
    const double allowed = limit.ConstGet();
    out << "    allowable Mises stress " << allowed << " (" << host_StateName(limit) << "), nodes above "
        << std::ranges::count_if(mises, [allowed](double value) { return value > allowed; })
        << ", greatest utilisation " << mises[*greatest] / allowed << '\n';
}

/// The extremes, and for each node where one is all principal values with their directions.
void PrintStresses(std::ostream& out, const frd_Model& model, const host_Set& set, const Points& points,
                   const host_Limit& limit) {
    const host_Stresses stresses = host_StressesOf(*set.stresses);
    std::vector<std::size_t> rows;
    for (std::size_t i = 0; i < host_Quantities.size(); ++i) {
        if (!host_Quantities.at(i).stress) continue;
        const auto quantity = static_cast<host_QuantityEnm>(i);
        const std::vector<double> values = host_RowValues(stresses, quantity);
        const auto extreme = host_Extreme(values, quantity);
        if (!extreme) continue;
        const std::size_t node = set.stresses->nodes[*extreme];
        out << "    " << std::left << std::setw(14) << host_Quantities.at(i).name << values[*extreme] << " at node "
            << model.nodes[node].number << ' ' << points[node] << '\n';
        if (std::ranges::find(rows, *extreme) == rows.end()) rows.push_back(*extreme);
    }
    PrintLimit(out, limit, stresses.mises);
    for (const std::size_t row : rows) {
        out << "    principal values at node " << model.nodes[set.stresses->nodes[row]].number << '\n';
        const std::array<double, 9>& d = stresses.directions[row];
        for (std::size_t i = 0; i < 3; ++i)
            out << "      " << std::setw(16) << stresses.principal[row].at(i) << "along "
                << gsl_Vector(d.at(3 * i), d.at(3 * i + 1), d.at(3 * i + 2)) << '\n';
    }
}

/// Between each two of the first bodies: one of the two travels along the direction until it touches the other.
void PrintGaps(std::ostream& out, const std::vector<host_Body>& bodies, const Points& points,
               const gsl_Vector& direction) {
    constexpr std::size_t greatestCount = 6;
    for (std::size_t b = 1; b < std::min(bodies.size(), greatestCount); ++b) {
        for (std::size_t a = 0; a < b; ++a) {
            wip_WIP::Instance().InterruptedThrow();
            std::size_t movable = a;
            std::size_t fixed = b;
            auto gap = host_Gap(bodies[fixed], bodies[movable], points, direction);
            if (!gap) {
                std::swap(movable, fixed);
                gap = host_Gap(bodies[fixed], bodies[movable], points, direction);
            }
            if (gap)
                out << "    body " << movable + 1 << " to body " << fixed + 1 << ": " << gap->distance << ", at "
                    << gap->point << '\n';
            else
                out << "    body " << a + 1 << " to body " << b + 1 << ": none\n";
        }
    }
    if (bodies.size() > greatestCount) out << "    (only the first " << greatestCount << " bodies)\n";
}

/// The nearest node to each probe.
void PrintProbes(std::ostream& out, const frd_Model& model, const Points& points, const Points& probes) {
    out << "\nProbes\n";
    const gsl_CoordTree tree(cls_xo1DArrayList<gsl_Point>(points), 3);
    for (const gsl_Point& probe : probes) {
        double distance = 0.0;
        const int nearest = tree.FindClosest(probe, &distance);
        out << "  probe " << probe;
        if (nearest < 0)
            out << ": no node is near\n";
        else
            out << ": node " << model.nodes[static_cast<std::size_t>(nearest)].number << ", " << distance << " away\n";
    }
}

}  // namespace

void host_Report(std::ostream& out, const frd_Model& model, const std::vector<host_Face>& skin,
                 const host_Questions& questions) {
    wip_ProgressObj progress;
    out << std::setprecision(9);
    PrintCounts(out, model);
    const Points points = host_Positions(model);
    PrintExtents(out, points);
    std::vector<host_Body> bodies;
    const auto printGaps = [&](const Points& positions) { PrintGaps(out, bodies, positions, questions.direction); };
    host_Step(progress, 0.3F, "Finding bodies", [&] {
        out << "\nBodies\n";
        bodies = PrintBodies(out, model, skin, points);
        if (bodies.size() < 2) return;
        out << "  gaps along " << questions.direction << ", undeformed\n";
        printGaps(points);
    });
    if (!questions.probes.empty()) PrintProbes(out, model, points, questions.probes);

    const std::vector<host_Set> sets = host_Sets(model);
    if (sets.empty()) out << "\nNo results\n";
    const float part = 0.7F / static_cast<float>(std::max<std::size_t>(sets.size(), 1));
    for (const host_Set& set : sets) {
        host_Step(progress, part, "Set " + std::to_string(set.number), [&] {
            wip_ProgressObj within;
            out << "\nSet " << set.number << ", time " << set.time << '\n';
            if (set.displacements == nullptr && set.stresses == nullptr) out << "  no displacements, no stresses\n";
            if (set.displacements != nullptr) {
                host_Step(within, 0.1F, "Displacements", [&] {
                    out << "  displacements\n";
                    PrintDisplacements(out, model, set, points);
                });
            }
            if (set.stresses != nullptr) {
                host_Step(within, 0.5F, "Stresses", [&] {
                    out << "  stresses\n";
                    PrintStresses(out, model, set, points, questions.limit);
                });
            }
            if (set.displacements != nullptr && bodies.size() > 1) {
                host_Step(within, 0.4F, "Gaps", [&] {
                    out << "  gaps along " << questions.direction << ", deformed\n";
                    printGaps(host_Deformed(points, set.displacements, 1.0));
                });
            }
        });
    }
}
