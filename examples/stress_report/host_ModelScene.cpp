#include "host_ModelScene.h"

#include "host_Limits.h"
#include "host_Lists.h"

#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>

#include <algorithm>
#include <cmath>
#include <tuple>

namespace {

/// Beyond eye, target and up, in the order in which they are kept and set again.
struct Lens {
    float nearPlane = 0.0F, farPlane = 0.0F;
    float width = 0.0F, height = 0.0F;
    float offsetX = 0.0F, offsetY = 0.0F;
    float xMin = 0.0F, xMax = 0.0F, yMin = 0.0F, yMax = 0.0F;
    float distanceFactor = 0.0F;
};

struct LensField {
    const char* name;
    float Lens::*value;
};
constexpr LensField lensFields[] = {
    {"_near", &Lens::nearPlane},
    {"_far", &Lens::farPlane},
    {"_width", &Lens::width},
    {"_height", &Lens::height},
    {"_offsetX", &Lens::offsetX},
    {"_offsetY", &Lens::offsetY},
    {"_xMin", &Lens::xMin},
    {"_xMax", &Lens::xMax},
    {"_yMin", &Lens::yMin},
    {"_yMax", &Lens::yMax},
    {"_distanceFactor", &Lens::distanceFactor},
};

Lens LensOf(const g3d_Camera& camera) {
    Lens lens;
    camera.GetNearFar(lens.nearPlane, lens.farPlane);
    camera.GetWindow(lens.width, lens.height);
    camera.GetViewOffset(lens.offsetX, lens.offsetY);
    camera.GetViewportFractions(lens.xMin, lens.xMax, lens.yMin, lens.yMax);
    lens.distanceFactor = camera.GetDistanceFactor();
    return lens;
}

/// After mode and place, by which the camera judges near, far and window.
void Put(g3d_Camera& camera, const Lens& lens) {
    camera.SetNearFar(lens.nearPlane, lens.farPlane);
    camera.SetWindow(lens.width, lens.height);
    camera.SetViewOffset(lens.offsetX, lens.offsetY);
    camera.SetViewportFractions(lens.xMin, lens.xMax, lens.yMin, lens.yMax);
    camera.SetDistanceFactor(lens.distanceFactor);
}

std::vector<host_Face> RestoredFaces(const cow_List<int>& sizes, const cow_List<int>& quadratic,
                                     const cow_List<int>& nodes, std::size_t nodeCount) {
    host_Require(sizes.Length() == quadratic.Length(), "faces without a size or an order");
    std::span<const int> rest = nodes.Span();
    std::vector<host_Face> faces;
    for (int i = 0; i < sizes.Length(); ++i) {
        const int size = sizes.ConstGet(i);
        const bool isQuadratic = quadratic.ConstGet(i) != 0;
        const bool known = isQuadratic ? size == 3 || size == 6 || size == 8 : size >= 2 && size <= 4;
        host_Require(known, "a face of no known shape");
        faces.push_back({host_TakeIndices(rest, static_cast<std::size_t>(size), nodeCount), isQuadratic});
    }
    host_Require(rest.empty(), "nodes of no face");
    return faces;
}

}  // namespace

// ---- Camera

void host_SavedCamera::InitializeMetadata(cls_ClassRegistrar& registrar) {
    cls_ClassMetadata& metadata = registrar.Class<host_SavedCamera>("host_SavedCamera", 1);
    metadata.Add<bool>("_perspective").Add<g3d_Point>("_eye").Add<g3d_Point>("_target").Add<g3d_Vector>("_up");
    for (const LensField& field : lensFields) metadata.Add<float>(field.name);
}

void host_SavedCamera::DBWrite(const cls_WriteVisitor& visitor) const {
    visitor.Write("_perspective", _camera.IsPerspective());
    visitor.Write("_eye", _camera.GetLocation());
    visitor.Write("_target", _camera.GetTarget());
    visitor.Write("_up", _camera.GetUp());
    const Lens lens = LensOf(_camera);
    for (const LensField& field : lensFields) visitor.Write(field.name, lens.*field.value);
}

host_SavedCamera::host_SavedCamera(const cls_ReadVisitor& visitor) {
    const bool perspective = visitor.Read("_perspective", true);
    _camera.SetProjection(perspective ? g3d_Camera::Perspective : g3d_Camera::Parallel);
    const auto eye = visitor.Read("_eye", g3d_Point());
    const auto target = visitor.Read("_target", g3d_Point());
    const auto up = visitor.Read("_up", g3d_Vector());
    _camera.SetLocation(eye, target, up);
    Lens lens;
    for (const LensField& field : lensFields) lens.*field.value = visitor.Read(field.name, 0.0F);
    Put(_camera, lens);
}

// ---- Scene

void host_SavedScene::InitializeMetadata(cls_ClassRegistrar& registrar) {
    registrar.Class<host_SavedScene>("host_SavedScene", 1)
        .Add<cow_List<double>>("_positions")
        .Add<cow_List<double>>("_values")
        .Add<cow_List<int>>("_faceSizes")
        .Add<cow_List<int>>("_faceQuadratic")
        .Add<cow_List<int>>("_faceNodes")
        .Add<double>("_low")
        .Add<double>("_high")
        .Add<int>("_bands")
        .Add<bool>("_edges")
        .Add<int>("_widthPixels")
        .Add<int>("_heightPixels")
        .Add<host_SavedCamera>("_camera")
        .Add<annC_AnnotationContainer>("_annotations");
}

void host_SavedScene::DBWrite(const cls_WriteVisitor& visitor) const {
    std::vector<std::size_t> nodes;
    for (const host_Face& face : _scene.faces) nodes.insert(nodes.end(), face.nodes.begin(), face.nodes.end());
    visitor.Write("_positions", host_StoredPlaces(_scene.positions));
    visitor.Write("_values", cow_List<double>(_scene.values));
    visitor.Write("_faceSizes", host_ListOf<int>(_scene.faces, [](const host_Face& face) {
                      return static_cast<int>(face.nodes.size());
                  }));
    visitor.Write("_faceQuadratic",
                  host_ListOf<int>(_scene.faces, [](const host_Face& face) { return face.quadratic ? 1 : 0; }));
    visitor.Write("_faceNodes", host_StoredIndices(nodes));
    visitor.Write("_low", _scene.low);
    visitor.Write("_high", _scene.high);
    visitor.Write("_bands", _scene.bands);
    visitor.Write("_edges", _scene.edges);
    visitor.Write("_widthPixels", _size[0]);
    visitor.Write("_heightPixels", _size[1]);
    visitor.Write("_camera", host_SavedCamera(_scene.camera));
    visitor.Write("_annotations", _scene.annotations);
}

host_SavedScene::host_SavedScene(const cls_ReadVisitor& visitor) {
    const auto read = [&visitor](const char* field) { return visitor.Read(field, cow_List<int>()); };
    _scene.positions = host_RestoredPlaces(visitor.Read("_positions", cow_List<double>()));
    const auto values = visitor.Read("_values", cow_List<double>());
    _scene.values.assign(values.begin(), values.end());
    _scene.faces =
        RestoredFaces(read("_faceSizes"), read("_faceQuadratic"), read("_faceNodes"), _scene.positions.size());
    _scene.low = visitor.Read("_low", 0.0);
    _scene.high = visitor.Read("_high", 0.0);
    _scene.bands = visitor.Read("_bands", 0);
    _scene.edges = visitor.Read("_edges", true);
    _size = {visitor.Read("_widthPixels", 0), visitor.Read("_heightPixels", 0)};
    _scene.camera = visitor.Read("_camera", host_SavedCamera()).Get();
    _scene.annotations = visitor.Read("_annotations", annC_AnnotationContainer());

    host_Require(std::ranges::all_of(_scene.positions, host_Limits::IsDrawable), "a place too far away");
    host_Require(_scene.values.size() == _scene.positions.size(), "places without a value");
    host_Require(std::ranges::none_of(_scene.values, [](double x) { return std::isinf(x); }), "an infinite value");
    host_Require(host_Limits::IsRange(_scene.low, _scene.high), "a legend without a range");
    host_Require(host_Limits::bands.Holds(_scene.bands), "a wrong number of bands");
    host_Require(host_Limits::pixels.Holds(_size[0]) && host_Limits::pixels.Holds(_size[1]), "a wrong size");
}
