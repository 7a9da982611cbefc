#ifndef ORV_STRESS_REPORT_HOST_PAGE_H
#define ORV_STRESS_REPORT_HOST_PAGE_H

#include <algorithm>

/// The page on which pictures are laid out, in millimetres. It is the least one of the picture's shape that holds 1200
/// x 900 dots of a screen of 96 dots an inch: so a picture looks the same whatever its size.
struct host_Page {
    host_Page(double widthPixels, double heightPixels)
        : pixelsPerMillimeter(std::min(widthPixels / (1200.0 * dot), heightPixels / (900.0 * dot))),
          width(widthPixels / pixelsPerMillimeter),
          height(heightPixels / pixelsPerMillimeter) {}

    static constexpr double dot = 25.4 / 96.0;
    double pixelsPerMillimeter;
    double width;
    double height;

    /// What a fitted model leaves free on each side: for the legend and the axes, the title, and the eye.
    static constexpr double leftMargin = 62.0, topMargin = 32.0, rightMargin = 14.0, bottomMargin = 14.0;
    /// A model that is shown larger stays out of this much of the left and upper margin.
    static constexpr double leftColumn = 57.0, topStrip = 27.0;

    /// Whether the model may show there, millimetres to the right and down.
    [[nodiscard]] bool IsForModel(double x, double y) const {
        return leftColumn <= x && x <= width && topStrip <= y && y <= height;
    }
};

/// The legend's boxes, in millimetres from the upper left corner of the page: the first stands for the greatest values.
struct host_LegendPlace {
    explicit host_LegendPlace(int bands) : boxHeight(std::min(9.0, 108.0 / bands)) {}

    static constexpr double left = 9.0, top = 50.0, boxWidth = 8.0;
    double boxHeight;
};

#endif
