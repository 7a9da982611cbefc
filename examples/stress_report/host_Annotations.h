#ifndef ORV_STRESS_REPORT_HOST_ANNOTATIONS_H
#define ORV_STRESS_REPORT_HOST_ANNOTATIONS_H

#include "frd_Model.h"

#include <annC/annC_AnnotationContainer.h>
#include <g3d/g3d_ContourScale.h>

#include <vector>

/// The length of the displacement at each node; NaN where there is none, and everywhere without displacements (null).
[[nodiscard]] std::vector<double> host_DisplacementLengths(const frd_Model& model, const frd_Result* displacements);

/// Twelve bands over the lengths that are finite; grey for the others.
[[nodiscard]] g3d_ContourScale host_Legend(const std::vector<double>& lengths);

/// Where the legend's boxes are: in millimetres from the lower left corner of the picture to that of the lowest box.
struct host_LegendPlace {
    static constexpr double left = 3.0;
    static constexpr double bottom = 4.5;
    static constexpr double boxWidth = 5.0;
    static constexpr double boxHeight = 4.0;
};

/// A title, the limits of the legend, and an arrow with a label at the node with the greatest displacement; the title
/// alone where there is no displacement.
[[nodiscard]] annC_AnnotationContainer host_Annotations(const frd_Model& model, const frd_Result* displacements,
                                                        const std::vector<double>& lengths,
                                                        const g3d_ContourScale& legend);

#endif
