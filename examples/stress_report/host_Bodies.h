#ifndef ORV_STRESS_REPORT_HOST_BODIES_H
#define ORV_STRESS_REPORT_HOST_BODIES_H

#include "frd_Model.h"
#include "host_Scene.h"

#include <base/cow_List.h>
#include <gsl/gsl_DirectionalContact.h>
#include <gsl/gsl_Point.h>
#include <gsl/gsl_Vector.h>

#include <array>
#include <cstddef>
#include <optional>
#include <vector>

/// Elements that hang together, by their skin. Lines have no skin.
struct host_Body {
    /// Corner nodes, around the triangle: indices into frd_Model::nodes. A quadrilateral 1-2-3-4 is 1-2-3 and 1-3-4.
    std::vector<std::array<std::size_t, 3>> triangles;
};

/// In the order of their first elements. `kept` tells which node each node counts as, so that parts whose nodes
/// coincide are one body.
[[nodiscard]] std::vector<host_Body> host_Bodies(const frd_Model& model, const std::vector<host_Face>& skin,
                                                 const cow_List<unsigned>& kept);

/// How far `movable` can travel along the direction until it touches `fixed`, its nodes at `positions`, one for each
/// node of the model.
[[nodiscard]] std::optional<gsl_DirectionalContact> host_Gap(const host_Body& fixed, const host_Body& movable,
                                                             const std::vector<gsl_Point>& positions,
                                                             const gsl_Vector& direction);

#endif
