#include "host_Picture.h"

#include "host_Annotations.h"
#include "host_Canvas.h"
#include "host_ModelPainter.h"
#include "host_Page.h"

#include <annC/annC_Draw.h>
#include <g3d/g3d_Viewport.h>

#include <algorithm>
#include <stdexcept>

namespace {

/// One box a band, the greatest on top.
annC_DrawList LegendBoxes(const host_Scene& scene, double pixelsPerMillimeter) {
    const g3d_ContourScale scale = host_ContourScale(scene);
    const host_LegendPlace place(scale.BandCount());
    const double left = host_LegendPlace::left * pixelsPerMillimeter;
    const double right = left + host_LegendPlace::boxWidth * pixelsPerMillimeter;
    annC_DrawList boxes;
    for (int band = 0; band < scale.BandCount(); ++band) {
        const int boxesAbove = scale.BandCount() - 1 - band;
        const double top = (host_LegendPlace::top + boxesAbove * place.boxHeight) * pixelsPerMillimeter;
        const double bottom = top + place.boxHeight * pixelsPerMillimeter;
        boxes.Add(annC_DrawPolygon{{{left, bottom}, {right, bottom}, {right, top}, {left, top}},
                                   scale.BandColor(band),
                                   g3d_Color(g3d_Grey20),
                                   0.2 * pixelsPerMillimeter});
    }
    return boxes;
}

/// What keeps a model that is shown large away from title, legend and axes.
annC_DrawList Margins(int width, int height, const host_Canvas& canvas) {
    const double left = host_Page::leftColumn * canvas.GetPixelsPerMillimeter();
    const double top = host_Page::topStrip * canvas.GetPixelsPerMillimeter();
    const double right = width, bottom = height;
    annC_DrawList margins;
    margins.Add(annC_DrawPolygon{{{0.0, 0.0}, {right, 0.0}, {right, top}, {left, top}, {left, bottom}, {0.0, bottom}},
                                 canvas.GetBackgroundColor(),
                                 {},
                                 0.0});
    return margins;
}

}  // namespace

std::string host_Draw(const host_Scene& scene, int width, int height, host_PictureFormat format,
                      const std::function<void()>& atEachStrip) {
    constexpr int mostPixels = 10000;
    if (width < 1 || height < 1 || width > mostPixels || height > mostPixels)
        throw std::invalid_argument("a picture of " + std::to_string(width) + " x " + std::to_string(height) +
                                    " pixels cannot be drawn: each side has 1 to " + std::to_string(mostPixels));
    host_Canvas canvas(width, height, format);
    const bool isFine = format != host_PictureFormat::Png && std::max(width, height) <= mostPixels / 2;
    const int finer = isFine ? 2 : 1;
    canvas.Draw(host_PaintModel(scene, width * finer, height * finer, atEachStrip));
    canvas.Draw(Margins(width, height, canvas));
    if (host_HasLegend(scene)) canvas.Draw(LegendBoxes(scene, canvas.GetPixelsPerMillimeter()));
    const g3d_Viewport viewport(0.0, 0.0, width, height);
    for (const auto& [name, annotation] : scene.annotations)
        canvas.Draw(annC_Draw(*annotation, scene.camera, viewport, canvas));
    return canvas.Finish();
}
