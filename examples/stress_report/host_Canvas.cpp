#include "host_Canvas.h"

#include <cairo/cairo-pdf.h>
#include <cairo/cairo-svg.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <numbers>
#include <sstream>
#include <stdexcept>
#include <string_view>
#include <utility>
#include <variant>

namespace {

constexpr double pointsPerPixel = 72.0 / 96.0;

cairo_status_t Append(void* bytes, const unsigned char* data, unsigned length) {
    static_cast<std::string*>(bytes)->append(reinterpret_cast<const char*>(data), length);
    return CAIRO_STATUS_SUCCESS;
}

/// Takes the numbers off the names of the one image and the one group: they go on from picture to picture.
void Unnumber(std::string& svg) {
    for (const std::string_view name : {"\"image", "#image", "\"surface", "#surface", "\"source-", "#source-"}) {
        for (std::size_t at = svg.find(name); at != std::string::npos; at = svg.find(name, at)) {
            at += name.size();
            svg.erase(at, svg.find_first_not_of("0123456789", at) - at);
        }
    }
}

cairo_surface_t* SurfaceOf(host_PictureFormat format, int width, int height, std::string& bytes) {
    const double pointsWide = width * pointsPerPixel, pointsHigh = height * pointsPerPixel;
    switch (format) {
        case host_PictureFormat::Svg:
            return cairo_svg_surface_create_for_stream(Append, &bytes, pointsWide, pointsHigh);
        case host_PictureFormat::Pdf: {
            cairo_surface_t* const pdf = cairo_pdf_surface_create_for_stream(Append, &bytes, pointsWide, pointsHigh);
            cairo_pdf_surface_set_metadata(pdf, CAIRO_PDF_METADATA_CREATE_DATE, "2000-01-01T00:00:00Z");
            return pdf;
        }
        case host_PictureFormat::Png:
            break;
    }
    return cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height);
}

}  // namespace

host_Canvas::host_Canvas(int width, int height, host_PictureFormat format)
    : _width(width),
      _height(height),
      _page(width, height),
      _format(format),
      _surface(SurfaceOf(format, width, height, _bytes)),
      _context(cairo_create(_surface.get())) {
    cairo_t* const context = _context.get();
    if (format != host_PictureFormat::Png) cairo_scale(context, pointsPerPixel, pointsPerPixel);
    SetColor(GetBackgroundColor());
    cairo_paint(context);
    cairo_set_line_join(context, CAIRO_LINE_JOIN_ROUND);
    cairo_set_line_cap(context, CAIRO_LINE_CAP_ROUND);
    // The same on every screen, and texts as wide in a small picture as in a large one.
    const std::unique_ptr<cairo_font_options_t, void (*)(cairo_font_options_t*)> options(cairo_font_options_create(),
                                                                                         cairo_font_options_destroy);
    cairo_font_options_set_antialias(options.get(), CAIRO_ANTIALIAS_GRAY);
    cairo_font_options_set_hint_style(options.get(), CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options.get(), CAIRO_HINT_METRICS_OFF);
    cairo_set_font_options(context, options.get());
}

void host_Canvas::Draw(const host_ModelImage& image) {
    const std::unique_ptr<cairo_surface_t, Destroy> surface(
        cairo_image_surface_create(CAIRO_FORMAT_RGB24, image.width, image.height));
    unsigned char* const data = cairo_image_surface_get_data(surface.get());
    if (data == nullptr) throw std::runtime_error("the picture could not be drawn");
    cairo_surface_flush(surface.get());
    const int stride = cairo_image_surface_get_stride(surface.get());
    const std::size_t rowBytes = static_cast<std::size_t>(image.width) * sizeof(std::uint32_t);
    for (int row = 0; row < image.height; ++row)
        std::memcpy(data + static_cast<std::ptrdiff_t>(row) * stride,
                    image.pixels.data() + static_cast<std::size_t>(row) * static_cast<std::size_t>(image.width),
                    rowBytes);
    cairo_surface_mark_dirty(surface.get());
    cairo_t* const context = _context.get();
    cairo_save(context);
    cairo_scale(context, static_cast<double>(_width) / image.width, static_cast<double>(_height) / image.height);
    cairo_set_source_surface(context, surface.get(), 0.0, 0.0);
    cairo_paint(context);
    cairo_restore(context);
}

void host_Canvas::Draw(const annC_DrawList& list) {
    for (const annC_DrawList::Item& item : list.Items())
        std::visit([this](const auto& drawn) { DrawItem(drawn); }, item);
}

void host_Canvas::DrawItem(const annC_DrawSegment& segment) {
    cairo_t* const context = _context.get();
    cairo_set_line_width(context, segment.width);
    cairo_set_dash(context, segment.dashes.data(), static_cast<int>(segment.dashes.size()), 0.0);
    cairo_move_to(context, segment.from.x, segment.from.y);
    cairo_line_to(context, segment.to.x, segment.to.y);
    SetColor(segment.color);
    cairo_stroke(context);
    cairo_set_dash(context, nullptr, 0, 0.0);
}

void host_Canvas::DrawItem(const annC_DrawPolygon& polygon) {
    cairo_t* const context = _context.get();
    for (const annC_DrawPoint& corner : polygon.corners) cairo_line_to(context, corner.x, corner.y);
    cairo_close_path(context);
    if (polygon.fill) {
        SetColor(*polygon.fill);
        cairo_fill_preserve(context);
    }
    if (polygon.outline) {
        SetColor(*polygon.outline);
        cairo_set_line_width(context, polygon.width);
        cairo_stroke_preserve(context);
    }
    cairo_new_path(context);
}

void host_Canvas::DrawItem(const annC_DrawText& text) {
    cairo_t* const context = _context.get();
    SelectFont(text.font);
    SetColor(text.color);
    cairo_save(context);
    cairo_translate(context, text.baseline.x, text.baseline.y);
    cairo_rotate(context, -text.angleDegrees * std::numbers::pi / 180.0);
    cairo_move_to(context, 0.0, 0.0);
    cairo_show_text(context, text.text.c_str());
    cairo_restore(context);
}

void host_Canvas::SetColor(const g3d_Color& color) {
    cairo_set_source_rgb(_context.get(), static_cast<double>(color.R()), static_cast<double>(color.G()),
                         static_cast<double>(color.B()));
}

/// Of an X logical font description, which has the size in tenths of a point in its eighth field, what cairo has
/// without looking for fonts: a sans serif face of that size, 12 points if there is none.
void host_Canvas::SelectFont(const cow_String& font) const {
    std::istringstream fields(font.c_str());
    std::string field, weight;
    double points = 0.0;
    for (int i = 0; std::getline(fields, field, '-'); ++i) {
        if (i == 3) weight = field;
        if (i == 8) points = std::strtod(field.c_str(), nullptr) / 10.0;
    }
    if (!(points >= 1.0 && points <= 1000.0)) points = 12.0;
    cairo_select_font_face(_context.get(), "sans-serif", CAIRO_FONT_SLANT_NORMAL,
                           weight == "bold" ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
    constexpr double millimetersPerPoint = 25.4 / 72.0;
    cairo_set_font_size(_context.get(), points * millimetersPerPoint * _page.pixelsPerMillimeter);
}

cairo_font_extents_t host_Canvas::ExtentsOf(const cow_String& font) const {
    SelectFont(font);
    cairo_font_extents_t extents;
    cairo_font_extents(_context.get(), &extents);
    return extents;
}

double host_Canvas::GetWidth(const cow_String& line, const cow_String& font) const {
    SelectFont(font);
    cairo_text_extents_t extents;
    cairo_text_extents(_context.get(), line.c_str(), &extents);
    return extents.x_advance;
}
double host_Canvas::GetAscent(const cow_String& font) const { return ExtentsOf(font).ascent; }
double host_Canvas::GetDescent(const cow_String& font) const { return ExtentsOf(font).descent; }
g3d_Color host_Canvas::GetBackgroundColor() const { return g3d_Color(g3d_White); }

std::string host_Canvas::Finish() {
    if (_format == host_PictureFormat::Png) cairo_surface_write_to_png_stream(_surface.get(), Append, &_bytes);
    const cairo_status_t drawn = cairo_status(_context.get());
    cairo_surface_finish(_surface.get());
    const cairo_status_t written = cairo_surface_status(_surface.get());
    for (const cairo_status_t status : {drawn, written})
        if (status != CAIRO_STATUS_SUCCESS)
            throw std::runtime_error(std::string("the picture could not be drawn: ") + cairo_status_to_string(status));
    if (_format == host_PictureFormat::Svg) Unnumber(_bytes);
    return std::move(_bytes);
}
