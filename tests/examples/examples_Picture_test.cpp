// Protects the pictures of the example host: what is hidden, the colour of each pixel, what each view shows, that
// nothing overlaps, that files are whole and the same each time.

#include "host_Annotations.h"
#include "host_Camera.h"
#include "host_Canvas.h"
#include "host_MakeScene.h"
#include "host_ModelPainter.h"
#include "host_Page.h"
#include "host_Picture.h"

#include <annC/annC_Arrow.h>
#include <annC/annC_Draw.h>
#include <annC/annC_Point3DAnchor.h>
#include <annC/annC_Text.h>
#include <g3d/g3d_Viewport.h>

#include <gmock/gmock.h>

#include <cmath>
#include <limits>
#include <optional>
#include <random>
#include <stdexcept>

namespace {

using Triple = std::array<double, 3>;
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

std::uint32_t Packed(const g3d_Color& color) {
    std::uint32_t packed = 0;
    for (const float part : {color.R(), color.G(), color.B()})
        packed = packed << 8U | static_cast<std::uint32_t>(std::min(255.0F, part * 256.0F));
    return packed;
}

/// Two unit squares side by side and one standing on them.
host_Scene Bench() {
    host_Scene scene;
    scene.positions = {{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {0, 1, 0}, {1, 1, 0}, {2, 1, 0}, {1, 1, 1}, {2, 1, 1}};
    scene.values = {0.0, 1.0, 2.0, 0.0, 1.0, 2.0, 1.0, 2.0};
    scene.faces = {{{0, 1, 4, 3}}, {{1, 2, 5, 4}}, {{4, 5, 7, 6}}};
    scene.high = 2.0;
    return scene;
}

// ---- Hidden surfaces, against rays

struct Hit {
    std::size_t face;
    int band;
    bool operator==(const Hit&) const = default;
};

/// What is hit first by the ray through a pixel: every triangle's plane is asked.
std::optional<Hit> FirstHit(const host_Scene& scene, const g3d_Viewport& viewport, double x, double y) {
    const Triple from = viewport.ToWorld(scene.camera, {x, y, 0.0}).value();  // on the near plane
    const Triple to = viewport.ToWorld(scene.camera, {x, y, 0.5}).value();
    const g3d_ContourScale scale = host_ContourScale(scene);
    std::optional<Hit> first;
    double nearest = std::numeric_limits<double>::infinity();
    for (std::size_t i = 0; i < scene.faces.size(); ++i) {
        const auto& nodes = scene.faces[i].nodes;
        const Triple &a = scene.positions[nodes[0]], &b = scene.positions[nodes[1]], &c = scene.positions[nodes[2]];
        // from + t (to - from) = a + u (b - a) + v (c - a), by Cramer's rule.
        const auto less = [](const Triple& p, const Triple& q) {
            return Triple{p[0] - q[0], p[1] - q[1], p[2] - q[2]};
        };
        const auto det = [](const Triple& p, const Triple& q, const Triple& r) {
            return p[0] * (q[1] * r[2] - q[2] * r[1]) - p[1] * (q[0] * r[2] - q[2] * r[0]) +
                   p[2] * (q[0] * r[1] - q[1] * r[0]);
        };
        const Triple along = less(from, to), ab = less(b, a), ac = less(c, a), start = less(from, a);
        const double whole = det(along, ab, ac), t = det(start, ab, ac) / whole;
        const double u = det(along, start, ac) / whole, v = det(along, ab, start) / whole;
        if (!(u >= 0.0 && v >= 0.0 && u + v <= 1.0 && t >= 0.0 && t < nearest)) continue;
        nearest = t;
        const auto value = [&](std::size_t k) { return scene.values[nodes[k]]; };
        first = Hit{i, scale.Band((1.0 - u - v) * value(0) + u * value(1) + v * value(2))};
    }
    return first;
}

/// Darker by the light, but no other hue.
bool IsShadeOf(std::uint32_t shown, const g3d_Color& color) {
    double least = 1.0, most = 0.0;
    for (unsigned shift : {0U, 8U, 16U}) {
        const double full = Packed(color) >> shift & 0xFFU, part = shown >> shift & 0xFFU;
        if (full == 0.0 && part != 0.0) return false;
        if (full == 0.0) continue;
        least = std::min(least, part / full);
        most = std::max(most, part / full);
    }
    return least >= 0.79 && most - least < 0.01;
}

TEST(Picture, ShowsWhatRaysMeetFirst) {
    enum Case { Parallel, Perspective, WithinTheModel };
    for (const Case which : {Parallel, Perspective, WithinTheModel}) {
        constexpr unsigned seed = 8;
        SCOPED_TRACE("case " + std::to_string(which) + ", seed " + std::to_string(seed));
        std::mt19937_64 random(seed);
        std::uniform_real_distribution<double> uniform(-1.0, 1.0);
        host_Scene scene;  // many triangles run through each other
        for (std::size_t node = 0; node < 30; ++node) {
            scene.positions.push_back({uniform(random), uniform(random), uniform(random)});
            scene.values.push_back(uniform(random));
            if (node % 3 == 2) scene.faces.push_back({{node - 2, node - 1, node}});
        }
        scene.low = -1.0;
        scene.bands = 5;  // blue, cyan, green, yellow, red
        constexpr int width = 240, height = 180;
        scene.camera = host_FittedCamera(scene.positions, {"iso", which != Parallel, 1.4}, width, height);
        if (which == WithinTheModel) {
            scene.camera.SetLocation(g3d_Point(0.1F, 0.2F, 0.0F), g3d_Point(-1.0F, -1.0F, 0.1F), {0.0F, 0.0F, 1.0F});
            scene.camera.SetNearFar(0.05F, 20.0F);
            scene.camera.SetViewOffset(0.0F, 0.0F);
            scene.camera.SetWindow(0.1F, 0.075F);
        }
        host_Raster raster(width, 0, height);
        host_ModelPainter(scene, width, height).Paint(raster);

        const g3d_Viewport viewport(0.0, 0.0, width, height);
        std::vector<std::array<std::optional<Hit>, width>> hits(height);  // too many for a small stack
        for (std::size_t row = 0; row < height; ++row)
            for (std::size_t column = 0; column < width; ++column)
                hits[row][column] =
                    FirstHit(scene, viewport, static_cast<double>(column) + 0.5, static_cast<double>(row) + 0.5);
        const g3d_ContourScale scale = host_ContourScale(scene);
        constexpr std::uint32_t line = 0xFF202020U;
        int compared = 0, wrong = 0, empty = 0, lines = 0;
        for (int row = 2; row < height - 2; ++row) {
            for (int column = 2; column < width - 2; ++column) {
                const auto hitAt = [&hits](int x, int y) {
                    return hits.at(static_cast<std::size_t>(y)).at(static_cast<std::size_t>(x));
                };
                const auto hit = hitAt(column, row);
                bool isBorder = false;  // lines are drawn there
                for (int i = 0; i < 25 && !isBorder; ++i) isBorder = hitAt(column + i % 5 - 2, row + i / 5 - 2) != hit;
                if (isBorder) continue;
                ++compared;
                const std::uint32_t shown = raster.Colors(row)[column];
                if (!hit) ++empty;
                if (shown == line) {  // of a triangle that is narrower than what the border test sees
                    ++lines;
                    continue;
                }
                if (hit ? !IsShadeOf(shown, scale.BandColor(hit->band)) : shown != host_Raster::nothing) ++wrong;
            }
        }
        EXPECT_EQ(wrong, 0) << "of " << compared;
        EXPECT_LT(lines, compared / 100);
        EXPECT_GT(compared - empty, 2000);
    }
}

// ---- Colours

TEST(Picture, GivesEachPixelTheColourOfItsValue) {
    host_Scene scene;  // an eight-node square whose side y = 0 bulges, and a triangle without values beside it
    scene.positions = {{0, 0, 0}, {1, -0.5, 0}, {2, 0, 0}, {2, 1, 0}, {2, 2, 0}, {1, 2, 0},
                       {0, 2, 0}, {0, 1, 0},    {3, 0, 0}, {4, 0, 0}, {3, 2, 0}, {nan, 0, 0}};
    for (const Triple& p : scene.positions) scene.values.push_back(p[0] <= 2.0 ? p[0] * p[0] : nan);
    scene.faces = {{{0, 1, 2, 3, 4, 5, 6, 7}, true}, {{8, 9, 10}}, {{0, 8, 11}}, {{0, 8, 99}}, {{0, 1, 2, 3, 4}}};
    scene.high = 4.0;
    scene.bands = 8;
    scene.edges = false;
    constexpr int width = 400, height = 300;
    scene.camera = host_FittedCamera({scene.positions.begin(), scene.positions.end() - 1}, {"top"}, width, height);
    const host_ModelImage image = host_PaintModel(scene, width, height);
    const auto at = [&](double x, double y) {
        const auto pixel = g3d_Viewport(0.0, 0.0, width, height).ToPixel(scene.camera, Triple{x, y, 0.0}).value();
        return image.pixels[static_cast<std::size_t>(pixel[1]) * width + static_cast<std::size_t>(pixel[0])];
    };
    const g3d_ContourScale scale = host_ContourScale(scene);
    for (int i = 1; i < 200; ++i) {
        const double x = i / 100.0, cell = std::floor(x * 2.0) / 2.0;
        const double value = cell * cell + (x - cell) * (2.0 * cell + 0.5);  // straight between the quarters
        if (x < 0.02 || x > 1.98 || scale.Band(value - 0.06) != scale.Band(value + 0.06)) continue;
        EXPECT_EQ(at(x, 1.7), Packed(scale.Color(value))) << x;
    }
    EXPECT_EQ(at(1.1, -0.45), Packed(scale.Color(1.25)));
    EXPECT_EQ(at(0.1, -0.45), 0xFFFFFFU);
    EXPECT_EQ(at(3.2, 0.5), Packed(g3d_Color(g3d_Grey60)));
}

// ---- Views

TEST(Picture, LooksFromTheSideThatTheViewNames) {
    struct View {
        const char* name;
        Triple right, up;
    };
    const double r = std::sqrt(0.5), s = std::sqrt(1.0 / 6.0);
    const View views[] = {{"iso", {-r, r, 0}, {-s, -s, 2 * s}}, {"front", {1, 0, 0}, {0, 0, 1}},
                          {"back", {-1, 0, 0}, {0, 0, 1}},      {"left", {0, -1, 0}, {0, 0, 1}},
                          {"right", {0, 1, 0}, {0, 0, 1}},      {"top", {1, 0, 0}, {0, 1, 0}},
                          {"bottom", {1, 0, 0}, {0, -1, 0}}};
    ASSERT_EQ(host_ViewNames().size(), std::size(views));
    const host_Scene scene = Bench();
    for (const View& view : views) {
        for (const bool perspective : {false, true}) {
            SCOPED_TRACE(view.name);
            const g3d_Camera camera = host_FittedCamera(scene.positions, {view.name, perspective}, 500, 700);
            for (int axis = 0; axis < 3; ++axis) {
                EXPECT_NEAR(camera.GetVOM().M(0, axis), view.right[static_cast<unsigned>(axis)], 1e-6);
                EXPECT_NEAR(camera.GetVOM().M(1, axis), view.up[static_cast<unsigned>(axis)], 1e-6);
            }
            const host_Page page(500, 700);
            double left = 1e9, right = -1e9, top = 1e9, bottom = -1e9;
            for (const Triple& position : scene.positions) {
                const auto seen = g3d_Viewport(0.0, 0.0, page.width, page.height).ToPixel(camera, position).value();
                left = std::min(left, seen[0] - host_Page::leftMargin);
                right = std::max(right, seen[0] - (page.width - host_Page::rightMargin));
                top = std::min(top, seen[1] - host_Page::topMargin);
                bottom = std::max(bottom, seen[1] - (page.height - host_Page::bottomMargin));
            }
            EXPECT_NEAR(left + right, 0.0, 0.01) << "in the middle of the room";
            EXPECT_NEAR(top + bottom, 0.0, 0.01);
            EXPECT_NEAR(std::min(left, top), 0.0, 0.01) << "and fills it";
        }
    }
    EXPECT_THROW((void)host_FittedCamera(scene.positions, {"Iso"}, 500, 700), std::invalid_argument);
}

// ---- Annotations

TEST(Picture, LeavesAnnotationsApart) {
    for (const std::string& view : host_ViewNames()) {
        for (const auto& [width, height] : {std::pair{1200, 900}, {600, 1000}}) {
            SCOPED_TRACE(view + " " + std::to_string(width));
            host_Scene scene = Bench();
            scene.bands = 24;
            scene.camera = host_FittedCamera(scene.positions, {view, true}, width, height);
            const auto annotate = [&scene] {
                scene.annotations =
                    host_Annotations(scene, {"Title", "below", "Quantity", "MPa"}, 7, "2 MPa at node 7");
            };
            annotate();
            const host_ModelImage image = host_PaintModel(scene, width, height);
            const host_Canvas canvas(width, height, host_PictureFormat::Png);
            const g3d_Viewport viewport(0.0, 0.0, width, height);
            std::vector<annC_DrawBounds> taken;
            for (const auto& [name, annotation] : scene.annotations) {
                SCOPED_TRACE(name.c_str());
                const auto bounds = annC_Draw(*annotation, scene.camera, viewport, canvas).Bounds();
                ASSERT_TRUE(bounds);
                if (dynamic_cast<const annC_Text*>(annotation.Get()) == nullptr) continue;
                const auto& [min, max] = *bounds;
                EXPECT_TRUE(min.x >= 0.0 && min.y >= 0.0 && max.x <= width && max.y <= height);
                for (const auto& other : taken)
                    EXPECT_FALSE(min.x < other.max.x && max.x > other.min.x && min.y < other.max.y &&
                                 max.y > other.min.y);
                taken.push_back(*bounds);
                for (int y = static_cast<int>(min.y); y < max.y; ++y)
                    for (int x = static_cast<int>(min.x); x < max.x; ++x)
                        ASSERT_EQ(image.pixels[static_cast<std::size_t>(y * width + x)], 0xFFFFFFU) << x << ' ' << y;
            }
            const auto* arrow = dynamic_cast<const annC_Arrow*>(scene.annotations.ConstGet("greatest").Get());
            ASSERT_NE(arrow, nullptr);
            EXPECT_EQ(*arrow->EndAnchor(), annC_Point3DAnchor(2.0, 1.0, 1.0));
            EXPECT_EQ(arrow->EndPointX(), 0.0);

            scene.camera = host_FittedCamera(scene.positions, {view, true, 8.0}, width, height);
            annotate();
            EXPECT_FALSE(scene.annotations.IsMember("greatest")) << "out of the picture";
        }
    }
}

TEST(Picture, TellsTheLimitsOfTheLegendApart) {
    for (const auto& [low, high] : {std::pair{0.0, 456.385},
                                    {88.8833, 88.8834},
                                    {-1.00001e8, -1e8},
                                    {1e-12, 3e-12},
                                    {-1e308, 1e308},
                                    {8.88888e-1, 8.88890e-1}}) {
        host_Scene scene = Bench();
        scene.low = low;
        scene.high = high;
        const annC_AnnotationContainer all = host_Annotations(scene, {"Title", "", "Quantity", ""}, 0, "");
        const g3d_ContourScale scale = host_ContourScale(scene);
        for (int limit = 0; limit <= scale.BandCount(); ++limit) {
            const char* name = limit < 10 ? "legend 00" : "legend 0";
            const auto* text =
                dynamic_cast<const annC_Text*>(all.ConstGet((name + std::to_string(limit)).c_str()).Get());
            ASSERT_NE(text, nullptr);
            const double told = std::stod(text->Text().c_str());
            EXPECT_LE(std::abs(told - scale.Limit(limit)), 0.05 * (high / scale.BandCount() - low / scale.BandCount()))
                << text->Text();
            EXPECT_LE(text->Text().Length(), 15) << text->Text();
        }
    }
}

TEST(Picture, HasALegendOfWhatDiffers) {
    const auto range = [](double first, double second) {
        frd_Model model;
        model.nodes = {{1, {0, 0, 0}}, {2, {1, 0, 0}}};
        model.results = {{"DISP", 1, 0.0, {"D1", "D2", "D3"}, {0, 1}, {first, 0, 0, second, 0, 0}}};
        const host_Scene scene = host_MakeScene(model, {}, host_Choose(model, {}, {}), host_Options());
        return std::pair{scene.low, scene.high};
    };
    EXPECT_EQ(range(0.25, 0.5), std::pair(0.25, 0.5));
    EXPECT_EQ(range(0.50001, 0.5), std::pair(0.5, 0.50001));
    EXPECT_EQ(range(0.5, 0.5 + 1e-9), std::pair(0.5, 1.0 + 1e-9)) << "rounding";
    EXPECT_EQ(range(0.0, 0.0), std::pair(0.0, 1.0));
    EXPECT_EQ(range(nan, 3e-20), std::pair(3e-20, 6e-20));
    EXPECT_EQ(range(nan, nan), std::pair(0.0, 1.0));
}

// ---- Files

TEST(Picture, IsTheSameWholeFileEachTime) {
    host_Scene scene = Bench();
    scene.camera = host_FittedCamera(scene.positions, {}, 300, 200);
    scene.annotations = host_Annotations(scene, {"T", "t", "Q", ""}, 7, "2");
    host_Scene other = Bench();
    other.camera = scene.camera;
    other.values[7] = 0.0;
    host_Scene empty;
    empty.annotations = host_Annotations(empty, {"Nothing", "", "", ""}, 0, "");
    EXPECT_EQ(empty.annotations.Length(), 2);
    struct Format {
        host_PictureFormat format;
        std::string start, end;
    };
    for (const auto& [format, start, end] :
         {Format{host_PictureFormat::Png, "\x89PNG\r\n\x1a\n", "IEND\xae\x42\x60\x82"},
          Format{host_PictureFormat::Svg, "<?xml ", "</svg>\n"}, Format{host_PictureFormat::Pdf, "%PDF-", "%%EOF\n"}}) {
        const std::string bytes = host_Draw(scene, 300, 200, format);
        EXPECT_THAT(bytes, testing::StartsWith(start));
        EXPECT_THAT(bytes, testing::EndsWith(end));
        EXPECT_TRUE(host_Draw(scene, 300, 200, format) == bytes);
        EXPECT_FALSE(host_Draw(other, 300, 200, format) == bytes);
        for (const auto& [width, height] : {std::pair{1, 1}, {1, 10000}, {10000, 1}})
            EXPECT_THAT(host_Draw(scene, width, height, format), testing::EndsWith(end)) << width << ' ' << height;
        EXPECT_THAT(host_Draw(empty, 300, 200, format), testing::EndsWith(end));
        EXPECT_THROW((void)host_Draw(scene, 300, 0, format), std::invalid_argument);
        EXPECT_THROW((void)host_Draw(scene, 10001, 300, format), std::invalid_argument);
    }
}

}  // namespace
