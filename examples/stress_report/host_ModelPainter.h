#ifndef ORV_STRESS_REPORT_HOST_MODELPAINTER_H
#define ORV_STRESS_REPORT_HOST_MODELPAINTER_H

#include "host_Raster.h"
#include "host_Scene.h"

#include <g3d/g3d_ContourScale.h>

#include <array>
#include <cstdint>
#include <functional>
#include <vector>

/// The bands of a scene's legend: one where its range has no width. Grey for NaN, and what is beyond the range.
[[nodiscard]] g3d_ContourScale host_ContourScale(const host_Scene& scene);

/// Draws a scene's model through its camera: each face in the bands of the values on it, a little darker the more it
/// is turned from the light, then the edges of the elements, then stronger the edges of the body (bends over 30
/// degrees and borders). Quadratic faces are bent and cut into 16 triangles, values interpolated by the shape functions
/// but never beyond those of the face's nodes; a face with a NaN has none. Lines are strips in the colours of their
/// values.
///
/// Faces whose nodes are not all there, or not all at finite places, are left out; so is what is nearer than the
/// camera's near plane, to the pixel. Keeps the scene, which must stay.
class host_ModelPainter {
public:
    /// For a picture of that size.
    host_ModelPainter(const host_Scene& scene, int width, int height);

    /// Draws what is to be seen in the raster's rows.
    void Paint(host_Raster& raster) const;

private:
    struct Rows {
        double first, last;
    };

    const host_Scene& _scene;
    int _width;
    int _height;
    std::vector<Rows> _rows;                      // of each face, an empty range if it is not drawn
    std::vector<std::array<bool, 4>> _bodyEdges;  // of each face, by side
};

/// A picture of the model alone, in rows from the top: 0x00rrggbb, white where there is nothing.
struct host_ModelImage {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;
};

/// Nine points are asked for each pixel. In strips, so that a large picture needs no more memory than its pixels do;
/// `atEachStrip`, if any, is called before each one, and what it throws ends the painting.
[[nodiscard]] host_ModelImage host_PaintModel(const host_Scene& scene, int width, int height,
                                              const std::function<void()>& atEachStrip = {});

#endif
