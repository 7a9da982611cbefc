#ifndef ORV_STRESS_REPORT_HOST_ANNOTATIONS_H
#define ORV_STRESS_REPORT_HOST_ANNOTATIONS_H

#include "host_Scene.h"

#include <annC/annC_AnnotationContainer.h>

#include <cstddef>
#include <string>

struct host_Captions {
    std::string title;
    std::string subtitle;
    std::string quantity;  ///< over the legend
    std::string unit;      ///< after it, if not empty
};

/// Whether there is any finite value to tell the colour of.
[[nodiscard]] bool host_HasLegend(const host_Scene& scene);

/// The title, the texts of the legend, the axes as the scene's camera sees them, and an arrow with a label at a node: a
/// model point, so that it follows the model. The label is put where it covers little of the model and nothing else;
/// the arrow is dashed when the node is hidden. Neither when there is no such node or it is out of the picture.
///
/// Only positions, values, faces, range and camera of the scene count; the camera's window has the picture's shape.
[[nodiscard]] annC_AnnotationContainer host_Annotations(const host_Scene& scene, const host_Captions& captions,
                                                        std::size_t greatestNode, const std::string& greatestLabel);

#endif
