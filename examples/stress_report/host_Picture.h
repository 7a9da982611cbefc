#ifndef ORV_STRESS_REPORT_HOST_PICTURE_H
#define ORV_STRESS_REPORT_HOST_PICTURE_H

#include "frd_Model.h"

#include <string>
#include <vector>

class annC_AnnotationContainer;
class g3d_Camera;
class g3d_ContourScale;

/// A parallel camera that looks at the model from (1, 1, 1), z upwards, and shows all of it in a picture of that many
/// pixels.
[[nodiscard]] g3d_Camera host_FittedCamera(const frd_Model& model, int width, int height);

/// The skin of the model as the camera sees it, as the bytes of a PNG: the free faces of the solid elements, shells and
/// lines, far ones first. The colour of a face is that of the mean value at its corners; the legend's boxes stand in
/// the lower left unless all values are NaN; the annotations lie over it. Throws std::runtime_error when the picture
/// cannot be made.
[[nodiscard]] std::string host_Picture(const frd_Model& model, const std::vector<double>& valueOfNode,
                                       const g3d_ContourScale& legend, const annC_AnnotationContainer& annotations,
                                       const g3d_Camera& camera, int width, int height);

#endif
