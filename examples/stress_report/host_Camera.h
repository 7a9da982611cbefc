#ifndef ORV_STRESS_REPORT_HOST_CAMERA_H
#define ORV_STRESS_REPORT_HOST_CAMERA_H

#include <g3d/g3d_Camera.h>

#include <array>
#include <string>
#include <vector>

struct host_View {
    std::string name = "iso";  ///< one of host_ViewNames
    bool perspective = false;
    double zoom = 1.0;  ///< 2 shows half as much; what is not positive and finite counts as 1
};

/// z is up, and x to the right in front, top and bottom views. The front is seen along +y; iso looks from (1, 1, 1).
[[nodiscard]] const std::vector<std::string>& host_ViewNames();

/// A camera that shows the points as large as a picture of that many pixels has room for beside its annotations.
/// Points that are not finite count for nothing. Throws std::invalid_argument for a view without that name.
[[nodiscard]] g3d_Camera host_FittedCamera(const std::vector<std::array<double, 3>>& positions, const host_View& view,
                                           int width, int height);

#endif
