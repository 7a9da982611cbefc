#include "host_Annotations.h"

#include <annC/annC_Arrow.h>
#include <annC/annC_NamedAnchor.h>
#include <annC/annC_Point3DAnchor.h>
#include <annC/annC_Text.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <limits>
#include <memory>
#include <string>

namespace {

using Place = annC_RelativePositionEnm;

std::string Number(double value) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.4g", value);
    return text.data();
}

annC_AnchorHld At(Place place) { return annC_AnchorHld(std::make_shared<annC_NamedAnchor>(place)); }

/// A black text whose point `reference` lies (x, y) millimetres from the anchor.
annC_Text Text(const std::string& text, const annC_AnchorHld& anchor, Place reference, double x, double y) {
    annC_Text result;
    result.SetText(text);
    result.SetColor("Black");
    result.SetAnchor(anchor);
    result.SetReferencePoint(At(reference));
    result.SetOffsetX(x);
    result.SetOffsetY(y);
    return result;
}

void Insert(annC_AnnotationContainer& container, const std::string& name, const annC_Annotation& annotation) {
    container.Insert(name, annC_AnnotationHld(annotation.Copy()));
}

}  // namespace

std::vector<double> host_DisplacementLengths(const frd_Model& model, const frd_Result* displacements) {
    std::vector<double> lengths(model.nodes.size(), std::numeric_limits<double>::quiet_NaN());
    for (std::size_t row = 0; displacements != nullptr && row < displacements->nodes.size(); ++row)
        lengths[displacements->nodes[row]] =
            std::hypot(displacements->Value(row, 0), displacements->Value(row, 1), displacements->Value(row, 2));
    return lengths;
}

g3d_ContourScale host_Legend(const std::vector<double>& lengths) {
    double low = std::numeric_limits<double>::infinity();
    double high = -low;
    for (const double length : lengths) {
        if (!std::isfinite(length)) continue;
        low = std::min(low, length);
        high = std::max(high, length);
    }
    constexpr int bandCount = 12;
    g3d_ContourScale legend(low, high, bandCount);
    legend.SetNaNColor(g3d_Color(g3d_Grey60));
    return legend;
}

annC_AnnotationContainer host_Annotations(const frd_Model& model, const frd_Result* displacements,
                                          const std::vector<double>& lengths, const g3d_ContourScale& legend) {
    annC_AnnotationContainer annotations;
    const std::string title =
        displacements != nullptr ? "Displacement, set " + std::to_string(displacements->set) : std::string("Model");
    Insert(annotations, "title", Text(title, At(Place::TOP_LEFT), Place::TOP_LEFT, 2.0, -2.0));

    std::size_t greatest = lengths.size();
    for (std::size_t node = 0; node < lengths.size(); ++node)
        if (std::isfinite(lengths[node]) && (greatest == lengths.size() || lengths[node] > lengths[greatest]))
            greatest = node;
    if (greatest == lengths.size()) return annotations;

    using Legend = host_LegendPlace;
    const annC_AnchorHld corner = At(Place::BOTTOM_LEFT);
    for (int limit = 0; limit <= legend.BandCount(); ++limit)
        Insert(annotations, "legend " + std::string(limit < 10 ? "0" : "") + std::to_string(limit),
               Text(Number(legend.Limit(limit)), corner, Place::CENTER_LEFT, Legend::left + Legend::boxWidth,
                    Legend::bottom + limit * Legend::boxHeight));

    const auto& [x, y, z] = model.nodes[greatest].position;
    const annC_AnchorHld node(std::make_shared<annC_Point3DAnchor>(x, y, z));
    constexpr double away = 15.0;
    annC_Arrow arrow;
    arrow.SetColor("Black");
    arrow.SetStartAnchor(node);
    arrow.SetEndAnchor(node);  // start and end hang on the node: the arrow follows it
    arrow.SetStartPointY(away);
    arrow.SetEndGap(1.0);
    Insert(annotations, "arrow", arrow);
    Insert(annotations, "arrow label",
           Text(Number(lengths[greatest]) + " at node " + std::to_string(model.nodes[greatest].number), node,
                Place::BOTTOM_CENTER, 0.0, away));
    return annotations;
}
