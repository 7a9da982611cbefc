#ifndef ORV_STRESS_REPORT_HOST_SCENE_H
#define ORV_STRESS_REPORT_HOST_SCENE_H

#include <annC/annC_AnnotationContainer.h>
#include <g3d/g3d_Camera.h>

#include <array>
#include <cstddef>
#include <string>
#include <vector>

/// A face of the skin, or a shell's face, or a line of two or three nodes: indices into the nodes of its scene, round
/// the outline, midside nodes between their corners.
struct host_Face {
    std::vector<std::size_t> nodes;
    bool quadratic = false;  ///< every second node is a midside node
};

/// Everything that a picture shows, and all that it needs: what is kept in a model file draws the same picture again.
struct host_Scene {
    std::vector<std::array<double, 3>> positions;  ///< of the nodes, as drawn (deformed or not)
    std::vector<double> values;                    ///< by node; NaN where there is none
    std::vector<host_Face> faces;
    double low = 0.0;  ///< range of the legend
    double high = 1.0;
    int bands = 12;
    bool edges = true;  ///< outlines of the elements' faces are drawn
    g3d_Camera camera;
    annC_AnnotationContainer annotations;  ///< title, legend texts, arrow
};

#endif
