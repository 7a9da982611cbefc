#include "host_ModelPainter.h"

#include "host_FacePatch.h"
#include "host_Page.h"

#include <g3d/g3d_Viewport.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <span>
#include <tuple>
#include <utility>

namespace {

using Triple = std::array<double, 3>;

Triple Minus(const Triple& a, const Triple& b) { return {a[0] - b[0], a[1] - b[1], a[2] - b[2]}; }
double Dot(const Triple& a, const Triple& b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }
Triple Cross(const Triple& a, const Triple& b) {
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}
/// (0, 0, 0) or not finite where the triangle has no area.
Triple UnitNormal(const Triple& a, const Triple& b, const Triple& c) {
    Triple normal = Cross(Minus(b, a), Minus(c, a));
    const double length = std::sqrt(Dot(normal, normal));
    if (length > 0.0)
        for (double& x : normal) x /= length;
    return normal;
}

/// A place on the model before it is projected.
struct Spot {
    Triple position;
    double value;
    double distance;  // from the eye, along the view
};

/// The camera's matrices and what else follows from it.
class Projection {
public:
    Projection(const g3d_Camera& camera, int width, int height) : _camera(camera), _viewport(0.0, 0.0, width, height) {
        float nearPlane = 0.0F, farPlane = 0.0F, windowWidth = 0.0F, windowHeight = 0.0F;
        camera.GetNearFar(nearPlane, farPlane);
        camera.GetWindow(windowWidth, windowHeight);
        _near = nearPlane;
        const double range = static_cast<double>(farPlane) - _near;
        depthPerPixel = static_cast<double>(windowWidth) / width / range * (camera.IsPerspective() ? farPlane : 1.0);
        const g3d_XForm& view = camera.GetVOM();
        const auto row = [&view](int i) { return Triple{view.M(i, 0), view.M(i, 1), view.M(i, 2)}; };
        _backward = row(2);
        _eyeHeight = view.M(2, 3);
        for (std::size_t i = 0; i < 3; ++i) _light[i] = _backward[i] + 0.45 * row(1)[i] - 0.3 * row(0)[i];
    }

    /// What a pixel's width in depth is there, times the inverse distance (1 in parallel views).
    double depthPerPixel = 0.0;

    [[nodiscard]] double Distance(const Triple& position) const { return -(Dot(_backward, position) + _eyeHeight); }
    [[nodiscard]] bool IsBeforeNearPlane(const Spot& spot) const { return spot.distance >= _near; }

    [[nodiscard]] std::optional<host_RasterPoint> Seen(const Spot& spot) const {
        const auto pixel = _viewport.ToPixel(_camera, spot.position);
        if (!pixel) return std::nullopt;
        // Places that two faces compute by their own sums come to be the same.
        const auto snapped = [](double x) { return std::floor(x * 65536.0 + 0.5) / 65536.0; };
        return host_RasterPoint{snapped((*pixel)[0]), snapped((*pixel)[1]), (*pixel)[2],
                                _camera.IsPerspective() ? 1.0 / spot.distance : 1.0, spot.value};
    }

    /// The part of a polygon, or of a line of two points, before the near plane.
    [[nodiscard]] std::vector<Spot> Clipped(std::span<const Spot> outline) const {
        std::vector<Spot> kept;
        for (std::size_t i = 0; i < outline.size(); ++i) {
            const Spot& from = outline[i];
            const Spot& to = outline[(i + 1) % outline.size()];
            if (IsBeforeNearPlane(from)) kept.push_back(from);
            if (IsBeforeNearPlane(from) == IsBeforeNearPlane(to)) continue;
            const double part = (_near - from.distance) / (to.distance - from.distance);
            Spot cut{from.position, from.value + part * (to.value - from.value), _near};
            for (std::size_t axis = 0; axis < 3; ++axis)
                cut.position[axis] += part * (to.position[axis] - from.position[axis]);
            kept.push_back(cut);
        }
        return kept;
    }

    /// 1 for a face that the light meets as well as one that looks at the camera, down to 0.8 for one turned away.
    [[nodiscard]] double Shade(const Spot& a, const Spot& b, const Spot& c) const {
        const Triple normal = UnitNormal(a.position, b.position, c.position);
        const g3d_Point& eye = _camera.GetLocation();
        const Triple toEye = _camera.IsPerspective() ? Minus({eye.X(), eye.Y(), eye.Z()}, a.position) : _backward;
        const double lit = Dot(normal, _light) * (Dot(normal, toEye) < 0.0 ? -1.0 : 1.0);
        return 0.8 + 0.2 * std::clamp(std::isnan(lit) ? 1.0 : lit, 0.0, 1.0);
    }

private:
    const g3d_Camera& _camera;
    g3d_Viewport _viewport;
    double _near = 0.0;
    Triple _backward{};
    double _eyeHeight = 0.0;  // of the origin along `_backward`
    Triple _light{};
};

/// As cairo packs the colours of the legend's boxes.
std::uint32_t Packed(const g3d_Color& color, double shade) {
    const auto byte = [shade](float part) {
        return static_cast<std::uint32_t>(std::clamp(static_cast<double>(part) * shade * 256.0, 0.0, 255.0));
    };
    return 0xFF000000U | byte(color.R()) << 16U | byte(color.G()) << 8U | byte(color.B());
}

/// The colours of values, for many of the same band in a row.
class BandColors {
public:
    explicit BandColors(const g3d_ContourScale& scale) : _scale(scale) {}

    void SetShade(double shade) {
        _shade = shade;
        _low = _high = 0.0;
    }

    std::uint32_t operator()(double value) {
        if (value >= _low && value < _high) return _packed;
        const int band = _scale.Band(value);
        const bool isBand = band >= 0 && band < _scale.BandCount();
        _low = isBand ? _scale.Limit(band) : 0.0;
        _high = isBand ? _scale.Limit(band + 1) : 0.0;
        _packed = Packed(_scale.Color(value), _shade);
        return _packed;
    }

private:
    const g3d_ContourScale& _scale;
    double _shade = 1.0;
    double _low = 0.0, _high = 0.0;  // of the band whose colour `_packed` is; empty if there is none
    std::uint32_t _packed = 0;
};

/// A face of the scene cut up, with the places of its grid. Kept from face to face.
class CutFace {
public:
    explicit CutFace(const host_Scene& scene, const Projection& projection) : _scene(scene), _projection(projection) {}

    /// False when the face cannot be drawn.
    bool Cut(const host_Face& face) {
        patch = host_PatchOf(face.nodes.size(), face.quadratic);
        if (patch == nullptr) return false;
        double least = std::numeric_limits<double>::infinity(), greatest = -least;
        for (const std::size_t node : face.nodes) {
            if (node >= _scene.positions.size() || node >= _scene.values.size()) return false;
            if (!std::ranges::all_of(_scene.positions[node], [](double x) { return std::isfinite(x); })) return false;
            least = std::min(least, _scene.values[node]);
            greatest = std::max(greatest, _scene.values[node]);
        }
        spots.clear();
        seen.clear();
        for (const std::vector<double>& weights : patch->weights) {
            Spot spot{};
            for (std::size_t i = 0; i < weights.size(); ++i) {
                for (std::size_t axis = 0; axis < 3; ++axis)
                    spot.position[axis] += weights[i] * _scene.positions[face.nodes[i]][axis];
                spot.value += weights[i] * _scene.values[face.nodes[i]];
            }
            if (spot.value < least) spot.value = least;
            if (spot.value > greatest) spot.value = greatest;
            spot.distance = _projection.Distance(spot.position);
            spots.push_back(spot);
            seen.push_back(_projection.IsBeforeNearPlane(spot) ? _projection.Seen(spot) : std::nullopt);
        }
        return true;
    }

    /// The places of some of the grid, before the near plane and on the screen; empty if there are none.
    [[nodiscard]] std::vector<host_RasterPoint> Outline(std::span<const std::size_t> places) const {
        std::vector<host_RasterPoint> outline;
        std::vector<Spot> whole;
        for (const std::size_t place : places) {
            whole.push_back(spots[place]);
            if (seen[place]) outline.push_back(*seen[place]);
        }
        if (outline.size() == places.size()) return outline;
        outline.clear();
        for (const Spot& spot : _projection.Clipped(whole)) {
            const auto pixel = _projection.Seen(spot);
            if (!pixel) return {};
            outline.push_back(*pixel);
        }
        return outline;
    }

    const host_FacePatch* patch = nullptr;
    std::vector<Spot> spots;
    std::vector<std::optional<host_RasterPoint>> seen;

private:
    const host_Scene& _scene;
    const Projection& _projection;
};

constexpr double thinLine = 0.2, bodyLine = 0.45, strip = 1.2;  // millimetres
constexpr std::uint32_t thinColor = 0xFF404040U, bodyColor = 0xFF202020U;

/// Sides where the body has an edge: those that not exactly two faces share, and bends.
std::vector<std::array<bool, 4>> BodyEdgesOf(const host_Scene& scene, CutFace& cut) {
    struct Side {
        std::size_t low, high;  // nodes at the ends
        std::size_t face, side;
        Triple normal;
    };
    std::vector<Side> sides;
    for (std::size_t i = 0; i < scene.faces.size(); ++i) {
        const host_Face& face = scene.faces[i];
        if (!cut.Cut(face)) continue;
        const std::size_t step = face.quadratic ? 2 : 1, count = cut.patch->sides.size();
        for (std::size_t side = 0; side < count && !cut.patch->triangles.empty(); ++side) {
            const auto [low, high] = std::minmax(face.nodes[side * step], face.nodes[(side + 1) % count * step]);
            const auto& [a, b, c] = cut.patch->triangles[cut.patch->triangleAtSide[side]];
            sides.push_back(
                {low, high, i, side, UnitNormal(cut.spots[a].position, cut.spots[b].position, cut.spots[c].position)});
        }
    }
    std::ranges::sort(sides, {}, [](const Side& s) { return std::tie(s.low, s.high, s.face, s.side); });
    std::vector<std::array<bool, 4>> edges(scene.faces.size());
    constexpr double cosineOfBend = 0.866;
    for (std::size_t begin = 0, end = 0; begin < sides.size(); begin = end) {
        while (end < sides.size() && sides[end].low == sides[begin].low && sides[end].high == sides[begin].high) ++end;
        // Faces may be numbered round either way.
        const bool isEdge =
            end - begin != 2 || !(std::abs(Dot(sides[begin].normal, sides[begin + 1].normal)) > cosineOfBend);
        for (std::size_t i = begin; i < end; ++i) edges[sides[i].face][sides[i].side] = isEdge;
    }
    return edges;
}

constexpr int samples = 3;  // along each side of a pixel

/// Of the colours from a column on.
std::uint32_t MeanOf(const std::array<const std::uint32_t*, samples>& lines, int column) {
    std::array<std::uint32_t, 3> sums{};
    for (const std::uint32_t* const line : lines)
        for (int i = column; i < column + samples; ++i)
            for (unsigned part = 0; part < 3; ++part) sums[part] += line[i] >> 8U * part & 0xFFU;
    constexpr unsigned count = samples * samples;
    std::uint32_t mean = 0;
    for (unsigned part = 0; part < 3; ++part) mean |= (sums[part] + count / 2) / count << 8U * part;
    return mean;
}

}  // namespace

g3d_ContourScale host_ContourScale(const host_Scene& scene) {
    g3d_ContourScale scale(scene.low, scene.high, scene.low < scene.high ? scene.bands : 1);
    scale.SetNaNColor(g3d_Color(g3d_Grey60));
    return scale;
}

host_ModelPainter::host_ModelPainter(const host_Scene& scene, int width, int height)
    : _scene(scene), _width(width), _height(height) {
    const Projection projection(scene.camera, width, height);
    CutFace cut(scene, projection);
    _bodyEdges = BodyEdgesOf(scene, cut);
    const double around = 1.0 + host_Page(width, height).pixelsPerMillimeter * strip;
    for (const host_Face& face : scene.faces) {
        constexpr double infinite = std::numeric_limits<double>::infinity();
        Rows rows{infinite, -infinite};
        if (cut.Cut(face)) {
            for (const auto& point : cut.seen) {
                rows.first = std::min(rows.first, point ? point->y - around : -infinite);
                rows.last = std::max(rows.last, point ? point->y + around : infinite);
            }
        }
        _rows.push_back(rows);
    }
}

void host_ModelPainter::Paint(host_Raster& raster) const {
    const Projection projection(_scene.camera, _width, _height);
    const double millimeter = host_Page(_width, _height).pixelsPerMillimeter;
    const g3d_ContourScale scale = host_ContourScale(_scene);
    BandColors colors(scale);
    CutFace cut(_scene, projection);
    const auto forEachFace = [&](const auto& draw) {
        for (std::size_t i = 0; i < _scene.faces.size(); ++i)
            if (_rows[i].first < raster.FirstRow() + raster.RowCount() && _rows[i].last > raster.FirstRow() &&
                cut.Cut(_scene.faces[i]))
                draw(i);
    };
    // Nearer than the face by its own width, so that the face does not hide it; never so thin that it breaks up.
    const auto drawSide = [&](const std::vector<std::size_t>& side, double millimeters, auto&& colorOf) {
        const double width = std::max(1.0, millimeters * millimeter);
        for (std::size_t i = 1; i < side.size(); ++i) {
            std::vector<host_RasterPoint> ends = cut.Outline(std::array{side[i - 1], side[i]});
            if (ends.size() < 2) continue;
            for (host_RasterPoint& end : ends)
                end.depth = std::max(0.0, end.depth - width * projection.depthPerPixel * end.inverse);
            raster.Stroke(ends[0], ends[1], width, colorOf);
        }
    };
    forEachFace([&](std::size_t) {
        for (const auto& triangle : cut.patch->triangles) {
            const auto& [a, b, c] = triangle;
            colors.SetShade(projection.Shade(cut.spots[a], cut.spots[b], cut.spots[c]));
            if (cut.seen[a] && cut.seen[b] && cut.seen[c]) {
                raster.Fill({*cut.seen[a], *cut.seen[b], *cut.seen[c]}, colors);
                continue;
            }
            const std::vector<host_RasterPoint> outline = cut.Outline(triangle);
            for (std::size_t i = 2; i < outline.size(); ++i)
                raster.Fill({outline[0], outline[i - 1], outline[i]}, colors);
        }
        if (!cut.patch->triangles.empty()) return;
        colors.SetShade(1.0);
        for (const auto& side : cut.patch->sides) drawSide(side, strip, colors);
    });
    forEachFace([&](std::size_t face) {
        if (cut.patch->triangles.empty()) return;
        for (std::size_t i = 0; i < cut.patch->sides.size(); ++i) {
            const bool isBody = _bodyEdges[face][i];
            if (isBody)
                drawSide(cut.patch->sides[i], bodyLine, [](double) { return bodyColor; });
            else if (_scene.edges)
                drawSide(cut.patch->sides[i], thinLine, [](double) { return thinColor; });
        }
    });
}

host_ModelImage host_PaintModel(const host_Scene& scene, int width, int height,
                                const std::function<void()>& atEachStrip) {
    constexpr int samplesInStrip = 1 << 21;
    const host_ModelPainter painter(scene, width * samples, height * samples);
    host_ModelImage image{width, height, {}};
    image.pixels.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    const int stripRows = std::max(1, samplesInStrip / (width * samples * samples));
    for (int first = 0; first < height; first += stripRows) {
        if (atEachStrip) atEachStrip();
        const int last = std::min(first + stripRows, height);
        host_Raster raster(width * samples, first * samples, (last - first) * samples);
        painter.Paint(raster);
        for (int row = first; row < last; ++row) {
            std::array<const std::uint32_t*, samples> lines{};
            for (int i = 0; i < samples; ++i) lines[static_cast<std::size_t>(i)] = raster.Colors(row * samples + i);
            for (int column = 0; column < width; ++column) image.pixels.push_back(MeanOf(lines, column * samples));
        }
    }
    return image;
}
