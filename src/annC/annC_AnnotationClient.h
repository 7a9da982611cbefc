#ifndef ORV_ANNC_ANNC_ANNOTATIONCLIENT_H
#define ORV_ANNC_ANNC_ANNOTATIONCLIENT_H

#include <base/cow_String.h>
#include <g3d/g3d_Color.h>

/// What drawing annotations asks of the toolkit that draws them. A host derives from it. Extents are in pixels,
/// unrotated; one that is not positive, NaN among it, counts as 0. What a callback throws comes out of the drawing.
class annC_AnnotationClient {
public:
    virtual ~annC_AnnotationClient() = default;

    /// Of one line of text, which is not empty.
    [[nodiscard]] virtual double GetWidth(const cow_String& line, const cow_String& font) const = 0;

    /// From the baseline up to the top of a line, and down to the top of the next one.
    [[nodiscard]] virtual double GetAscent(const cow_String& font) const = 0;
    [[nodiscard]] virtual double GetDescent(const cow_String& font) const = 0;

    /// Behind the annotations: what a text with the background style MATCH lies on.
    [[nodiscard]] virtual g3d_Color GetBackgroundColor() const = 0;

    /// Of the screen, by default one of 96 pixels an inch, which counts too for what is not within (0, 1000].
    [[nodiscard]] virtual double GetPixelsPerMillimeter() const { return defaultPixelsPerMillimeter; }
    static constexpr double defaultPixelsPerMillimeter = 96.0 / 25.4;
};

#endif
