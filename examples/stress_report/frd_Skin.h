#ifndef ORV_STRESS_REPORT_FRD_SKIN_H
#define ORV_STRESS_REPORT_FRD_SKIN_H

#include "frd_Model.h"
#include "host_Scene.h"

#include <vector>

/// What is seen of the elements, in their order: the faces of solids that no second solid has, all shells, all lines.
/// Faces of solids run counter-clockwise as seen from outside.
[[nodiscard]] std::vector<host_Face> frd_Skin(const frd_Model& model);

#endif
