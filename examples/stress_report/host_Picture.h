#ifndef ORV_STRESS_REPORT_HOST_PICTURE_H
#define ORV_STRESS_REPORT_HOST_PICTURE_H

#include "frd_Model.h"

#include <string>

class g3d_Camera;

/// A parallel camera that looks at the model from (1, 1, 1), z upwards, and shows all of it in a picture of that many
/// pixels.
[[nodiscard]] g3d_Camera host_FittedCamera(const frd_Model& model, int width, int height);

/// The skin of the model as the camera sees it, as the bytes of a PNG: the free faces of the solid elements, shells and
/// lines, far ones first. The colour of a face is that of the mean length of the displacements at its corners, by a
/// rainbow legend that is drawn beside it; grey without displacements (null) or where one is not given. Throws
/// std::runtime_error when the picture cannot be made.
[[nodiscard]] std::string host_Picture(const frd_Model& model, const frd_Result* displacements,
                                       const g3d_Camera& camera, int width, int height);

#endif
