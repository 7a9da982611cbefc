#ifndef ORV_STRESS_REPORT_HOST_MAKESCENE_H
#define ORV_STRESS_REPORT_HOST_MAKESCENE_H

#include "frd_Model.h"
#include "host_Options.h"
#include "host_Results.h"
#include "host_Scene.h"

#include <vector>

/// The picture of the chosen quantity on the skin, as the options want it. Throws std::runtime_error when the
/// deformed model is too large for a camera or has places that are not numbers.
[[nodiscard]] host_Scene host_MakeScene(const frd_Model& model, std::vector<host_Face> skin, const host_Choice& choice,
                                        const host_Options& options);

#endif
