#ifndef ORV_STRESS_REPORT_HOST_BODIES_H
#define ORV_STRESS_REPORT_HOST_BODIES_H

#include "frd_Model.h"

#include <base/cow_List.h>
#include <gsl/gsl_Point.h>
#include <gsl/gsl_Triangle.h>

#include <array>
#include <cstddef>
#include <vector>

/// Elements that hang together, by their skin. Lines have no skin.
struct host_Body {
    /// Corner nodes, around the triangle: indices into frd_Model::nodes. A quadrilateral 1-2-3-4 is 1-2-3 and 1-3-4.
    std::vector<std::array<std::size_t, 3>> triangles;
};

/// In the order of their first elements. `kept` tells which node each node counts as, so that parts whose nodes
/// coincide are one body.
[[nodiscard]] std::vector<host_Body> host_Bodies(const frd_Model& model, const cow_List<unsigned>& kept);

/// The triangles of a body with its nodes at `positions`, one for each node of the model.
[[nodiscard]] cow_List<gsl_Triangle> host_Triangles(const host_Body& body, const std::vector<gsl_Point>& positions);

#endif
