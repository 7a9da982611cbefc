#ifndef ORV_STRESS_REPORT_FRD_SKIN_H
#define ORV_STRESS_REPORT_FRD_SKIN_H

#include "frd_Model.h"

#include <cstddef>
#include <vector>

/// A side of a solid element, a shell, or a line.
struct frd_Face {
    std::size_t element = 0;         ///< index into frd_Model::elements
    std::vector<std::size_t> nodes;  ///< corners, around the face: indices into frd_Model::nodes
};

/// The faces that no second element has, in the order of the elements.
[[nodiscard]] std::vector<frd_Face> frd_Skin(const frd_Model& model);

#endif
