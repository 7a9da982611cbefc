#include <g3d/g3d_Camera.h>
#include <g3d/g3d_Sphere.h>
#include <g3d/g3d_Storage.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <numbers>
#include <tuple>
#include <utility>

namespace {

constexpr float greatestFloat = std::numeric_limits<float>::max();
constexpr float leastNormalFloat = std::numeric_limits<float>::min();
constexpr float leastWindowSide = 0.0001F;
constexpr float greatestWindowSide = 3.4028235e31F;
constexpr float greatestAspect = 500.0F;
constexpr float leastRadius = 0.0002F;
constexpr float fitMargin = 1.05F;
constexpr double radiansPerDegree = std::numbers::pi / 180.0;
constexpr double degreesPerRadian = 57.29577951308232;

// Functions, so that nothing runs as the library is loaded.
g3d_Vector YAxis() noexcept { return {0.0F, 1.0F, 0.0F}; }
g3d_Vector ZAxis() noexcept { return {0.0F, 0.0F, 1.0F}; }

bool targetRotate = true;

// ---- What is fit for use

template <class... Float>
bool AreFinite(Float... values) noexcept {
    return (std::isfinite(values) && ...);
}

bool IsFinite(const g3d_Vector& v) noexcept { return AreFinite(v.X(), v.Y(), v.Z()); }

/// W too: a point may be finite and its ordinary form not.
bool IsFinite(const g3d_Point& point) noexcept {
    const g3d_Point p = point.Cartesian();
    return AreFinite(point.W(), p.X(), p.Y(), p.Z());
}

bool IsFinite(const g3d_XForm& xform) noexcept {
    for (int i = 0; i < 16; ++i) {
        if (!std::isfinite(xform.M(0, i))) return false;
    }
    return true;
}

bool IsDirection(const g3d_Vector& v) noexcept { return IsFinite(v) && v != g3d_Vector(); }

g3d_Vector Unit(g3d_Vector v) noexcept {
    v.Normalize();
    return IsDirection(v) ? v : ZAxis();
}

// ---- Views

g3d_Storage InDouble(const g3d_Vector& v) noexcept { return {v.X(), v.Y(), v.Z()}; }

/// Across `view`, which is no zero, and the first of up, y and z that is not parallel to it: 1 long. In double, for an
/// up that is next to the view direction, or huge.
g3d_Vector Right(const g3d_Vector& up, const g3d_Vector& view) noexcept {
    g3d_Storage right;
    for (const g3d_Vector& upright : {up, YAxis(), ZAxis()}) {
        right = g3d_Cross(InDouble(upright), InDouble(view));
        const double square = g3d_Dot(right, right);
        if (square > 0.0 && std::isfinite(square)) break;
    }
    g3d_Normalize(right);
    return {right.GetX(), right.GetY(), right.GetZ()};
}

g3d_XForm ViewOrientation(const g3d_Point& eye, const g3d_Point& target, const g3d_Vector& up) noexcept {
    g3d_Vector view = eye - target;
    g3d_Vector backward = view;
    backward.Normalize();
    if (!IsDirection(backward)) view = backward = ZAxis();
    const g3d_Vector right = Right(up, view);
    const g3d_Point at = eye.Cartesian();
    return g3d_XForm()
        .Set(right, g3d_Cross(backward, right), backward)
        .Transpose()
        .Translate(-at.X(), -at.Y(), -at.Z());
}

g3d_Vector Row(const g3d_XForm& xform, int i) noexcept { return {xform.M(i, 0), xform.M(i, 1), xform.M(i, 2)}; }

/// `xform` applied to the ordinary point at a's x, y, z after it was moved by -a and before it is moved back.
g3d_XForm About(const g3d_Point& a, const g3d_XForm& xform) noexcept {
    const g3d_Point at = a.Cartesian();
    g3d_XForm result;
    return (result.Translate(at.X(), at.Y(), at.Z()) *= xform).Translate(-at.X(), -at.Y(), -at.Z());
}

g3d_XForm Scaling(float scale) noexcept { return g3d_XForm().SetScale(scale, scale, scale); }

// ---- Volumes

/// Calls `visit` with the ordinary form of each finite vertex.
template <class Visit>
void ForEachVertex(const g3d_BoundingVolume& volume, Visit visit) {
    for (const g3d_Point& vertex : volume.Vertices()) {
        const g3d_Point p = vertex.Cartesian();
        if (IsFinite(p)) visit(g3d_Point(p.X(), p.Y(), p.Z()));
    }
}

/// The axis-aligned box of the vertices as `view` shows them.
class Box {
public:
    Box(const g3d_BoundingVolume& volume, const g3d_XForm& view) {
        ForEachVertex(volume, [&](g3d_Point p) {
            view.XForm(p);
            const float coordinates[] = {p.X(), p.Y(), p.Z()};
            for (int i = 0; i < 3; ++i) {
                _least[i] = std::min(_least[i], coordinates[i]);
                _greatest[i] = std::max(_greatest[i], coordinates[i]);
            }
            _empty = false;
        });
    }

    [[nodiscard]] bool IsEmpty() const noexcept { return _empty; }
    [[nodiscard]] g3d_Point Center() const noexcept { return {Middle(0), Middle(1), Middle(2)}; }

private:
    [[nodiscard]] float Middle(int i) const noexcept { return (_least[i] + _greatest[i]) * 0.5F; }

    bool _empty = true;
    float _least[3] = {greatestFloat, greatestFloat, greatestFloat};
    float _greatest[3] = {-greatestFloat, -greatestFloat, -greatestFloat};
};

/// Greatest distance of a vertex from `center`, at least 0.0002.
float RadiusAbout(const g3d_Point& center, const g3d_BoundingVolume& volume) {
    double greatest = 0.0;
    ForEachVertex(volume, [&](const g3d_Point& p) {
        const g3d_Vector arm = p - center;
        const double x = arm.X(), y = arm.Y(), z = arm.Z();
        greatest = std::max(greatest, x * x + y * y + z * z);
    });
    return std::max(static_cast<float>(std::sqrt(greatest)), leastRadius);
}

// ---- Sizes

/// A NaN counts as too small.
float ClampSide(float side, float least) noexcept { return side >= least ? std::min(side, greatestWindowSide) : least; }

float LimitAspect(float side, float other) noexcept {
    return other > greatestAspect * side ? other / greatestAspect : side;
}

void RepairOverlaySize(float& width, float& height) noexcept {
    if (width == 0.0F || height == 0.0F) width = height = 500.0F;
}

// ---- Zooming out towards a point

int ReadZoomOutMode() {
    constexpr std::array<const char*, 3> meanings = {"use start drag for zoom out origin.\n",
                                                     "use center for zoom out origin.\n",
                                                     "transpose center toward start drag position.\n"};
    const char* const text = std::getenv("VLM_ZOOM_TOWARD");
    if (text == nullptr) return 1;
    const long mode = std::clamp(std::strtol(text, nullptr, 10), 1L, 3L);
    std::fprintf(stderr, "VLM_ZOOM_TOWARD: Zoom-out set to %s", meanings[static_cast<unsigned>(mode - 1)]);
    return static_cast<int>(mode);
}

int ZoomOutMode() {
    static const int mode = ReadZoomOutMode();
    return mode;
}

}  // namespace

void g3d_Camera_SetTargetRotate(bool aboutModel) noexcept { targetRotate = !aboutModel; }

// ---- Queries

void g3d_Camera::GetWindow(float& width, float& height) const noexcept {
    width = _width;
    height = _height;
}

void g3d_Camera::GetNearFar(float& nearPlane, float& farPlane) const noexcept {
    nearPlane = _near;
    farPlane = _far;
}

void g3d_Camera::GetViewOffset(float& x, float& y) const noexcept {
    x = _offsetX;
    y = _offsetY;
}

void g3d_Camera::GetViewportFractions(float& xMin, float& xMax, float& yMin, float& yMax) const noexcept {
    xMin = _xMin;
    xMax = _xMax;
    yMin = _yMin;
    yMax = _yMax;
}

float g3d_Camera::GetFieldOfView() const noexcept {
    const double half = static_cast<double>(std::max(_width, _height)) / 2.0;
    return static_cast<float>(2.0 * std::atan2(half, static_cast<double>(ViewPlaneDistance())) * degreesPerRadian);
}

const g3d_XForm& g3d_Camera::GetVOM() const noexcept {
    if (_viewDirty && !Has(SuppliedViewFlag)) {
        _viewOrientation = ViewOrientation(_eye, _target, _up);
        if (!IsFinite(_viewOrientation)) _viewOrientation = g3d_XForm();
        _viewDirty = false;
    }
    return _viewOrientation;
}

const g3d_XForm& g3d_Camera::GetPM() const noexcept {
    if (_projectionDirty) {
        const float left = (_xMin - 0.5F) * _width + _offsetX;
        const float right = (_xMax - 0.5F) * _width + _offsetX;
        const float top = (_yMax - 0.5F) * _height + _offsetY;
        const float bottom = (_yMin - 0.5F) * _height + _offsetY;
        if (IsPerspective()) {
            _projection.SetPerspectiveProjection(left, right, top, bottom, _near, _far);
        } else {
            _projection.SetOrthographicProjection(left, right, top, bottom, _near, _far);
        }
        if (!IsFinite(_projection)) _projection = g3d_XForm();
        _projectionDirty = false;
    }
    return _projection;
}

g3d_Point g3d_Camera::RotationCenter() const noexcept {
    if (targetRotate) return _target;
    const Box box(_modelVolume, g3d_XForm());
    return box.IsEmpty() ? _target : box.Center();
}

// ---- Storing: what is kept is repaired here, and the matrix that follows from it is marked

void g3d_Camera::Put(ModeFlagEnum flag, bool on) noexcept {
    _modeFlags = static_cast<std::uint8_t>(on ? _modeFlags | flag : _modeFlags & ~flag);
}

/// By value: the arguments may be this camera's own. False, and nothing done, when one is not finite.
bool g3d_Camera::Place(g3d_Point eye, g3d_Point target, g3d_Vector up) noexcept {
    if (!IsFinite(eye) || !IsFinite(target) || !IsFinite(up)) return false;
    _eye = eye;
    _target = target;
    _up = up;
    Put(FittedToViewportFlag, false);
    _viewDirty = true;
    return true;
}

/// `Place` after a motion of the camera, whose inverse `undo` a supplied view is multiplied by.
bool g3d_Camera::Carry(const g3d_Point& eye, const g3d_Point& target, const g3d_Vector& up,
                       const g3d_XForm& undo) noexcept {
    const bool supplied = Has(SuppliedViewFlag);
    const g3d_XForm carried = supplied ? _viewOrientation * undo : g3d_XForm();
    if (!IsFinite(carried) || !Place(eye, target, up)) return false;
    if (supplied) _viewOrientation = carried;
    return true;
}

void g3d_Camera::StoreNearFar(float nearPlane, float farPlane) noexcept {
    _near = nearPlane;
    _far = farPlane;
    _projectionDirty = true;
    if (Has(SuppliedViewFlag)) return;
    _near = _near >= GetNearPlane_MinValue() ? std::min(_near, greatestFloat) : GetNearPlane_MinValue();
    _far = std::min(_far, greatestFloat);
    const float gap = _near * 1e-5F;
    if (_far - _near >= gap) return;
    if (_near > greatestFloat - gap) {
        _near = greatestFloat - gap;
        _far = greatestFloat;
    } else {
        _far = _near + gap;
    }
}

void g3d_Camera::StoreWindow(float width, float height) noexcept {
    if (width == _width && height == _height) return;
    _width = width;
    _height = height;
    _projectionDirty = true;
}

float g3d_Camera::LeastWindowSide() const noexcept {
    const float least = IsPerspective() ? _near * 0.0001F / GetViewDistance() : 0.0F;
    return std::isfinite(least) ? std::clamp(least, leastWindowSide, greatestWindowSide) : leastWindowSide;
}

/// The nearest scale by which the window can change without changing its aspect.
float g3d_Camera::AttainableScale(float scale) const noexcept {
    const float lesser = std::min(_width, _height), greater = std::max(_width, _height);
    if (!(lesser > 0.0F) || !std::isfinite(greater)) return scale;
    if (scale * lesser < LeastWindowSide()) scale = LeastWindowSide() / lesser;
    return scale * greater > greatestWindowSide ? greatestWindowSide / greater : scale;
}

void g3d_Camera::ScaleWindow(float scale) noexcept {
    const float least = LeastWindowSide();
    StoreWindow(ClampSide(scale * _width, least), ClampSide(scale * _height, least));
}

// ---- Setting

void g3d_Camera::SetLocation(const g3d_Point& eye, const g3d_Point& target, const g3d_Vector& up) noexcept {
    if (Has(SuppliedViewFlag)) {
        if (IsFinite(target)) _target = target;
        return;
    }
    g3d_Point from = eye;
    if (from == target) from.Z() *= 1.1F;
    g3d_Vector upright = up == g3d_Vector() ? YAxis() : up;
    if (g3d_Cross(from - target, upright) == g3d_Vector()) upright = upright.Y() > upright.Z() ? ZAxis() : YAxis();
    Place(from, target, upright);
}

void g3d_Camera::SetWindow(float width, float height) noexcept {
    if (!Has(SuppliedViewFlag)) {
        const float least = LeastWindowSide();
        const float w = ClampSide(width, least), h = ClampSide(height, least);
        width = LimitAspect(w, h);
        height = LimitAspect(h, w);
    }
    StoreWindow(width, height);
}

void g3d_Camera::SetViewOffset(float x, float y) noexcept {
    if (!AreFinite(x, y)) return;
    _offsetX = x;
    _offsetY = y;
    _projectionDirty = true;
}

void g3d_Camera::SetViewportFractions(float xMin, float xMax, float yMin, float yMax) noexcept {
    if (!AreFinite(xMin, xMax, yMin, yMax)) return;
    _xMin = xMin;
    _xMax = xMax;
    _yMin = yMin;
    _yMax = yMax;
    _projectionDirty = true;
}

void g3d_Camera::SetDistanceFactor(float factor) noexcept {
    if (factor > 2.0F && std::isfinite(factor)) _distanceFactor = factor;
}

bool g3d_Camera::SetProjection(ProjectionEnum projection) noexcept {
    const bool perspective = projection == Perspective;
    if (perspective == IsPerspective()) return false;
    Put(PerspectiveFlag, perspective);
    _projectionDirty = true;
    return true;
}

void g3d_Camera::SetNearFar(float nearPlane, float farPlane) noexcept {
    Put(FittedToViewportFlag, false);
    StoreNearFar(nearPlane, farPlane);
}

void g3d_Camera::SetFieldOfView(float degrees, bool adjustWindow) noexcept {
    if (!(degrees > 0.0F && degrees < 180.0F)) return;
    Put(FittedToViewportFlag, false);
    const double w = _width, h = _height, greater = std::max(w, h), angle = degrees;
    if (!adjustWindow) {
        const double nearPlane = std::tan((180.0 - angle) * radiansPerDegree / 2.0) * greater / 2.0;
        StoreNearFar(static_cast<float>(nearPlane), _far);
        return;
    }
    const double size = 2.0 * static_cast<double>(ViewPlaneDistance()) * std::tan(angle * radiansPerDegree / 2.0);
    const double scale = size / greater;
    if (!(size > 0.0) || !std::isfinite(scale) || std::abs(size - greater) <= 0.0001) return;
    const double height = w >= h ? size * h / w : size * w / h;
    SetWindow(static_cast<float>(size), static_cast<float>(height));
    SetViewOffset(static_cast<float>(_offsetX * scale), static_cast<float>(_offsetY * scale));
}

void g3d_Camera::MakePerspective() noexcept { ConvertProjection(Perspective, _near / GetViewDistance()); }

void g3d_Camera::MakeParallel() noexcept { ConvertProjection(Parallel, GetViewDistance() / _near); }

void g3d_Camera::ConvertProjection(ProjectionEnum projection, float scale) noexcept {
    if (!SetProjection(projection)) return;
    Put(FittedToViewportFlag, false);
    if (!(scale > 0.0F) || !std::isfinite(scale)) return;
    SetWindow(_width * scale, _height * scale);
    SetViewOffset(_offsetX * scale, _offsetY * scale);
}

void g3d_Camera::CorrectAspect(float width, float height) noexcept {
    const float aspect = width / height;
    if (!(width > 0.0F && height > 0.0F && aspect > 0.0F) || !AreFinite(width, height, aspect)) return;
    SetWindow(std::max(_width, _height * aspect), std::max(_height, _width / aspect));
}

void g3d_Camera::SetLayerXForm(bool supplied, const g3d_XForm* xform) noexcept {
    if (!supplied) {
        Put(SuppliedViewFlag, false);
        _viewDirty = true;
        StoreNearFar(_near, _far);
        SetWindow(_width, _height);
    } else if (xform != nullptr && IsFinite(*xform)) {
        Put(SuppliedViewFlag, true);
        _viewOrientation = *xform;
    }
}

void g3d_Camera::SetModelBoundingVolume(g3d_BoundingVolume volume, float value) noexcept {
    _modelVolume = std::move(volume);
    _modelValue = value;
    const Box box(_modelVolume, g3d_XForm());
    if (box.IsEmpty() || Has(SuppliedViewFlag)) return;
    const float reach = 1.01F * RadiusAbout(box.Center(), _modelVolume);
    const float depth = g3d_Dot(_eye - box.Center(), Unit(_eye - _target));
    if (!AreFinite(reach, depth)) return;
    const float formerNear = _near;
    StoreNearFar(std::min(_near, depth - reach), std::max(_far, depth + reach));
    if (!IsPerspective() || _near == formerNear) return;
    const float scale = AttainableScale(_near / formerNear);
    ScaleWindow(scale);
    SetViewOffset(_offsetX * scale, _offsetY * scale);
}

// ---- Fitting

/// Puts the eye the distance factor in radii behind `center`, with near and far about the sphere.
bool g3d_Camera::PlaceBefore(const g3d_Point& center, float radius, const g3d_Vector& backward,
                             const g3d_Vector& up) noexcept {
    if (!Place(center + backward * (_distanceFactor * radius), center, up)) return false;
    StoreNearFar((_distanceFactor - 2.0F) * radius, (_distanceFactor + 2.0F) * radius);
    return true;
}

void g3d_Camera::FitFrom(const g3d_Sphere& sphere, const g3d_Vector& backward, const g3d_Vector& up) noexcept {
    const float radius = sphere.Radius() > 0.0F ? sphere.Radius() : leastRadius;
    if (!PlaceBefore(sphere.Center(), radius, backward, up)) return;
    SetViewOffset(0.0F, 0.0F);
    const float side = IsPerspective() ? fitMargin / _distanceFactor * 2.0F * _near : 2.1F * radius;
    SetWindow(side, side);
}

void g3d_Camera::Fit(const g3d_Sphere& sphere) noexcept { FitFrom(sphere, Unit(_eye - _target), _up); }

void g3d_Camera::Fit(const g3d_BoundingVolume& volume) noexcept {
    const Box box(volume, g3d_XForm());
    if (box.IsEmpty()) return;
    const g3d_Vector backward = Unit(_target - _eye) * -1.0F;
    if (!PlaceBefore(box.Center(), RadiusAbout(box.Center(), volume), backward, _up)) return;
    SetViewOffset(0.0F, 0.0F);

    // A box along the view axes is tighter about what is seen than one along the world's.
    g3d_Point center = Box(volume, GetVOM()).Center();
    g3d_XForm(GetVOM()).Invert().XForm(center);
    if (IsFinite(center)) PlaceBefore(center, RadiusAbout(center, volume), backward, _up);

    float xMin = -leastNormalFloat, xMax = leastNormalFloat, yMin = xMin, yMax = xMax;
    ForEachVertex(volume, [&](g3d_Point p) {
        GetVOM().XForm(p);
        const float toNearPlane = IsPerspective() && p.Z() != 0.0F ? -_near / p.Z() : 1.0F;
        const float x = p.X() * toNearPlane, y = p.Y() * toNearPlane;
        xMin = std::min(xMin, x);
        xMax = std::max(xMax, x);
        yMin = std::min(yMin, y);
        yMax = std::max(yMax, y);
    });
    SetWindow((xMax - xMin) * fitMargin, (yMax - yMin) * fitMargin);
}

void g3d_Camera::Fit(const g3d_Point& a, const g3d_Point& b) { Fit(g3d_BoundingVolume::Box(a, b)); }

/// Not through `Place` and `SetWindow`: sizes of overlays are kept as given, NaN too.
void g3d_Camera::PlaceOverlay(float width, float height, const g3d_Point& target, float distance) noexcept {
    _eye = g3d_Point(target.X(), target.Y(), distance);
    _target = target;
    _up = YAxis();
    _viewDirty = true;
    StoreWindow(width, height);
    SetViewOffset(0.0F, 0.0F);
    SetProjection(Parallel);
    Put(FittedToViewportFlag, true);
}

void g3d_Camera::FitVP(float width, float height) noexcept {
    RepairOverlaySize(width, height);
    PlaceOverlay(width, height, g3d_Point(), 10.0F);
    StoreNearFar(9.0F, 11.0F);
}

void g3d_Camera::FitCenterVP(float width, float height, float depth, bool center) noexcept {
    RepairOverlaySize(width, height);
    const bool flat = depth == 0.0F;
    PlaceOverlay(width, height, {width / 2.0F, height / 2.0F, 0.0F}, flat ? 10.0F : depth * _distanceFactor);
    StoreNearFar(flat ? 9.0F : (_distanceFactor - 2.0F) * depth, flat ? 11.0F : (_distanceFactor + 2.0F) * depth);
    Put(CenterFlag, center);
}

void g3d_Camera::Canned(const g3d_Sphere& sphere, g3d_SavedViewIdEnum view) noexcept {
    struct Look {
        float backward[3];
        float up[3];
    };
    static constexpr Look looks[] = {{{0, 0, 1}, {0, 1, 0}},  {{0, 0, -1}, {0, 1, 0}}, {{0, 1, 0}, {0, 0, -1}},
                                     {{0, -1, 0}, {0, 0, 1}}, {{-1, 0, 0}, {0, 1, 0}}, {{1, 0, 0}, {0, 1, 0}},
                                     {{1, 1, 1}, {0, 1, 0}}};
    if (view < g3d_FrontView || view > g3d_IsometricView) {
        Fit(sphere);
        return;
    }
    const auto& [backward, up] = looks[view];
    FitFrom(sphere, Unit({backward[0], backward[1], backward[2]}), {up[0], up[1], up[2]});
}

// ---- Moving

void g3d_Camera::Zoom(float percent, bool moveEye) noexcept {
    const float p = std::isnan(percent) ? 0.0F : std::clamp(percent, -99.0F, 99.0F);
    ScaleView(p >= 0.0F ? 1.0F - p / 100.0F : 1.0F / (1.0F + p / 100.0F), moveEye);
}

void g3d_Camera::Zoom(float xMin, float xMax, float yMin, float yMax, bool moveEye) noexcept {
    const float scale = std::max(std::abs(xMax - xMin), std::abs(yMax - yMin));
    if (!AreFinite(xMin, xMax, yMin, yMax, scale) || scale == 0.0F) return;
    Pan(xMin / 2.0F + xMax / 2.0F - 0.5F, yMin / 2.0F + yMax / 2.0F - 0.5F, 0.0F, true);
    ScaleView(std::clamp(scale, 0.01F, 100.0F), moveEye);
}

void g3d_Camera::ScaleView(float scale, bool moveEye) noexcept {
    if (Has(SuppliedViewFlag)) {
        Carry(_eye, _target, _up, About(_target, Scaling(1.0F / scale)));
        return;
    }
    scale = AttainableScale(scale);
    const float advance = _near * (1.0F - scale);
    const g3d_Vector backward = Unit(_eye - _target), by = backward * -advance;
    const g3d_Point eye = _eye + by;
    const bool passes = !(g3d_Dot(eye - _target, backward) > 0.0F);
    const g3d_Point target = passes ? _target + by : _target;
    if (moveEye && !(IsFinite(eye) && IsFinite(target))) return;
    ScaleWindow(scale);
    if (!moveEye) return;
    Place(eye, target, _up);
    StoreNearFar(scale * _near, _far - advance);
    SetViewOffset(_offsetX * scale, _offsetY * scale);
}

void g3d_Camera::ZoomTo(float x, float y, float percent, bool keepPoint, bool moveEye) noexcept {
    const int mode = ZoomOutMode();
    if (keepPoint && percent <= 0.0F && mode == 2) {
        Zoom(percent, moveEye);
        return;
    }
    const float formerWidth = _width;
    Pan(x, y, 0.0F, false);
    Zoom(percent, moveEye);
    float k = _width / formerWidth;
    if (!std::isfinite(k)) k = 1.0F;
    if (keepPoint && percent >= 0.0F) {
        k = k * k;
    } else if (keepPoint && mode == 3) {
        k = std::min(k * k, k + 1.0F);
    }
    Pan(-k * x, -k * y, 0.0F, false);
}

void g3d_Camera::Pan(float dx, float dy, float dz, bool windowFractions) noexcept {
    const g3d_XForm view = GetVOM();
    if (windowFractions) {
        // A supplied view may be scaled: what the window spans in eye coordinates is less or more in the world.
        g3d_Point target = _target;
        view.XForm(target);
        const bool supplied = Has(SuppliedViewFlag);
        const float distance = supplied ? -target.Z() : GetViewDistance();
        const float atTarget = IsPerspective() ? distance / _near : 1.0F;
        dx *= _width * atTarget / (supplied ? Row(view, 0).Length() : 1.0F);
        dy *= _height * atTarget / (supplied ? Row(view, 1).Length() : 1.0F);
    }
    const g3d_Vector by = Unit(Row(view, 0)) * dx + Unit(Row(view, 1)) * dy + Unit(Row(view, 2)) * dz;
    Carry(_eye + by, _target + by, _up, g3d_XForm().SetTranslate(by * -1.0F));
}

void g3d_Camera::Rotate(float angleDegrees, const g3d_Vector& axis, const g3d_Point& about) noexcept {
    g3d_XForm turn;
    turn.SetRotate(angleDegrees, axis);
    if (turn == g3d_XForm()) return;
    const g3d_Point cartesian = about.Cartesian();
    const g3d_Point center(cartesian.X(), cartesian.Y(), cartesian.Z());
    // Of an up next to the view direction the turn would leave rounding noise: the view's own is turned instead.
    const g3d_Storage up = InDouble(_up), across = g3d_Cross(up, InDouble(Unit(_eye - _target)));
    const bool isUpright = g3d_Dot(across, across) > 1e-10 * g3d_Dot(up, up);
    std::array<g3d_Vector, 3> arms = {_eye - center, _target - center,
                                      isUpright ? _up : Row(ViewOrientation(_eye, _target, _up), 1)};
    turn.XForm(arms.data(), 3);
    Carry(center + arms[0], center + arms[1], arms[2], About(center, turn.Transpose()));
}

void g3d_Camera::Rotate(const g3d_Vector& from, const g3d_Vector& to, const g3d_Point& about) noexcept {
    const double a[] = {from.X(), from.Y(), from.Z()};
    const auto acrossFrom = [&a](double x, double y, double z) {
        return std::array{a[1] * z - a[2] * y, a[2] * x - a[0] * z, a[0] * y - a[1] * x};
    };
    const double dot = a[0] * to.X() + a[1] * to.Y() + a[2] * to.Z();
    std::array<double, 3> axis = acrossFrom(to.X(), to.Y(), to.Z());
    double sine = std::hypot(axis[0], axis[1], axis[2]);
    const double angle = std::atan2(sine, dot) * degreesPerRadian;
    if (sine == 0.0 && dot < 0.0) {
        axis = std::abs(a[0]) <= std::abs(a[1]) ? acrossFrom(1.0, 0.0, 0.0) : acrossFrom(0.0, 1.0, 0.0);
        sine = std::hypot(axis[0], axis[1], axis[2]);
    }
    if (!(sine > 0.0) || !std::isfinite(sine)) return;
    Rotate(static_cast<float>(angle), {axis[0] / sine, axis[1] / sine, axis[2] / sine}, about);
}

// ---- Comparison

bool g3d_Camera::operator==(const g3d_Camera& other) const noexcept {
    const auto fields = [](const g3d_Camera& c) {
        return std::tie(c._eye, c._target, c._up, c._width, c._height, c._near, c._far, c._modeFlags, c._offsetX,
                        c._offsetY, c._xMin, c._xMax, c._yMin, c._yMax, c._distanceFactor, c._modelVolume,
                        c._modelValue);
    };
    return fields(*this) == fields(other) && (!Has(SuppliedViewFlag) || _viewOrientation == other._viewOrientation);
}
