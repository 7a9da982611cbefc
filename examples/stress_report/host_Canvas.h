#ifndef ORV_STRESS_REPORT_HOST_CANVAS_H
#define ORV_STRESS_REPORT_HOST_CANVAS_H

#include "host_ModelPainter.h"
#include "host_Page.h"
#include "host_PictureFormat.h"

#include <annC/annC_AnnotationClient.h>
#include <annC/annC_DrawList.h>

#include <cairo/cairo.h>

#include <memory>
#include <string>

/// A picture under way on white, in pixels to the right and down. Failures of cairo's come out of `Finish`.
class host_Canvas : public annC_AnnotationClient {
public:
    host_Canvas(int width, int height, host_PictureFormat format);

    /// Over the whole canvas, whatever the image's own size.
    void Draw(const host_ModelImage& image);
    void Draw(const annC_DrawList& list);

    /// The file; then the canvas is used up. The same drawing makes the same bytes. Throws std::runtime_error.
    [[nodiscard]] std::string Finish();

    // ---- What drawing annotations asks

    [[nodiscard]] double GetWidth(const cow_String& line, const cow_String& font) const override;
    [[nodiscard]] double GetAscent(const cow_String& font) const override;
    [[nodiscard]] double GetDescent(const cow_String& font) const override;
    [[nodiscard]] g3d_Color GetBackgroundColor() const override;
    [[nodiscard]] double GetPixelsPerMillimeter() const override { return _page.pixelsPerMillimeter; }

private:
    void DrawItem(const annC_DrawSegment& segment);
    void DrawItem(const annC_DrawPolygon& polygon);
    void DrawItem(const annC_DrawText& text);
    void SetColor(const g3d_Color& color);
    void SelectFont(const cow_String& font) const;
    [[nodiscard]] cairo_font_extents_t ExtentsOf(const cow_String& font) const;

    struct Destroy {
        void operator()(cairo_surface_t* surface) const noexcept { cairo_surface_destroy(surface); }
        void operator()(cairo_t* context) const noexcept { cairo_destroy(context); }
    };
    int _width;
    int _height;
    host_Page _page;
    host_PictureFormat _format;
    std::string _bytes;  // outlives the surface, which writes there
    std::unique_ptr<cairo_surface_t, Destroy> _surface;
    std::unique_ptr<cairo_t, Destroy> _context;
};

#endif
