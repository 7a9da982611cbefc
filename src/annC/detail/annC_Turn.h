#ifndef ORV_ANNC_DETAIL_ANNC_TURN_H
#define ORV_ANNC_DETAIL_ANNC_TURN_H

#include <annC/annC_DrawList.h>

#include <cmath>
#include <numbers>

/// Coordinates about a pixel, x to the right and y up, turned counterclockwise on the screen.
class annC_Turn {
public:
    annC_Turn(const annC_DrawPoint& origin, double angleDegrees) noexcept
        : _origin(origin),
          _cosine(std::cos(angleDegrees * std::numbers::pi / 180.0)),
          _sine(std::sin(angleDegrees * std::numbers::pi / 180.0)) {}

    [[nodiscard]] annC_DrawPoint ToPixel(double x, double y) const noexcept {
        return {_origin.x + x * _cosine - y * _sine, _origin.y - x * _sine - y * _cosine};
    }

private:
    annC_DrawPoint _origin;
    double _cosine;
    double _sine;
};

#endif
