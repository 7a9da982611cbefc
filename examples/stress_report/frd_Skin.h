#ifndef ORV_STRESS_REPORT_FRD_SKIN_H
#define ORV_STRESS_REPORT_FRD_SKIN_H

#include "frd_Model.h"
#include "host_Scene.h"

#include <vector>

/// What is seen of the elements, in their order: the faces of solids that no second solid has, all shells, all lines.
/// Faces of solids run counter-clockwise as seen from outside. Nodes that coincide are not merged here: where parts
/// meet, the faces of both are skin, so that the edge of each is seen and parts may separate when they are deformed.
[[nodiscard]] std::vector<host_Face> frd_Skin(const frd_Model& model);

#endif
