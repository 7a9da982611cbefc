#ifndef ORV_STRESS_REPORT_HOST_PICTURE_H
#define ORV_STRESS_REPORT_HOST_PICTURE_H

#include "host_PictureFormat.h"
#include "host_Scene.h"

#include <functional>
#include <string>

/// The bytes of a picture file: the model as host_ModelPainter draws it, the legend's boxes if any value is finite, and
/// the scene's annotations over them. SVG and PDF have the model as an image of twice that size (up to 5000 pixels; of
/// that size beyond), and all else as lines and letters; their pages have 96 pixels an inch. The same scene makes the
/// same bytes. `atEachStrip` is called every now and then, and what it throws ends the drawing. The camera's window
/// should be of the picture's shape, else the model is stretched.
///
/// Throws std::invalid_argument unless width and height are 1 to 10000, std::runtime_error when cairo fails.
[[nodiscard]] std::string host_Draw(const host_Scene& scene, int width, int height, host_PictureFormat format,
                                    const std::function<void()>& atEachStrip = {});

#endif
