#ifndef ORV_G3D_G3D_CAMERA_H
#define ORV_G3D_G3D_CAMERA_H

#include <base/orv_Export.h>
#include <g3d/g3d_BoundingVolume.h>
#include <g3d/g3d_Point.h>
#include <g3d/g3d_SavedViewIdEnum.h>
#include <g3d/g3d_Vector.h>
#include <g3d/g3d_XForm.h>

#include <cstdint>

class g3d_Sphere;

/// A viewer's eye, target and up vector, a view window, near and far planes and a projection mode, and the two matrices
/// made of them: the view orientation matrix (VOM, world to eye coordinates: right, up, backward) and the projection
/// matrix (PM, eye coordinates to the cube [-1, 1]^3).
///
/// The window is the size of the view rectangle: *at the near plane* for a perspective camera, *at the target* for a
/// parallel one. The view offset moves its middle off the view axis, the viewport fractions pick the part that is
/// shown. The distance factor is the eye-to-target distance that a fit chooses, in radii of what is fitted.
///
/// Nothing throws and no input makes a matrix with a NaN or an infinity:
/// - near and far planes: near is at least 1e-5 and far at least near (1 + 1e-5), both within float;
/// - a window side lies in [0.0001, 3.4028235e31], for a perspective camera the lower bound is at least
///   near * 0.0001 / distance; then the lesser side is raised to 1/500 of the greater. A NaN counts as too small;
/// - where a direction is wanted and there is none (eye equal to target), it is (0, 0, 1); where up is of no use
///   (zero, or parallel to the view direction, exactly), the y axis serves, or the z axis;
/// - a location, pan, rotation, offset, fraction or distance factor that is not finite, or whose result is not, changes
///   nothing;
/// - a matrix that would still not be finite (window of NaN, numbers near the end of float) is the identity.
///
/// While a view matrix is supplied from outside (`SetLayerXForm`) the VOM is that matrix, and neither window nor near
/// and far are repaired. What moves the camera moves the supplied matrix with it, except `SetLocation` and the fits.
///
/// All values are single precision, each operation rounded on its own; what is computed in double is said. The matrices
/// are made when asked for: two threads must not ask one camera. Copies are independent.
class ORV_EXPORT g3d_Camera {
public:
    /// Any other value means parallel.
    enum ProjectionEnum : int { Parallel = 0, Perspective = 1 };

    /// Bits of the mode flags. Bits 1, 3, 6 and 7 are 0.
    enum ModeFlagEnum : std::uint8_t {
        PerspectiveFlag = 1U << 0U,       ///< clear: parallel
        CenterFlag = 1U << 2U,            ///< last argument of `FitCenterVP`
        FittedToViewportFlag = 1U << 4U,  ///< by `FitVP` or `FitCenterVP`, and not relocated or reshaped since
        SuppliedViewFlag = 1U << 5U       ///< the VOM comes from `SetLayerXForm`
    };

    /// Perspective, eye (2, 0, 0), target the origin, up (0, 1, 0), window 1 x 1, near 1, far 10000, offsets 0, the
    /// whole viewport, distance factor 4.
    g3d_Camera() noexcept = default;

    // ---- Queries

    /// As set, after repairs. Window, near and far, offset in model units; the fractions are parts of the window.
    [[nodiscard]] const g3d_Point& GetLocation() const noexcept { return _eye; }
    [[nodiscard]] const g3d_Point& GetTarget() const noexcept { return _target; }
    [[nodiscard]] const g3d_Vector& GetUp() const noexcept { return _up; }
    void GetWindow(float& width, float& height) const noexcept;
    void GetNearFar(float& nearPlane, float& farPlane) const noexcept;
    void GetViewOffset(float& x, float& y) const noexcept;
    void GetViewportFractions(float& xMin, float& xMax, float& yMin, float& yMax) const noexcept;
    [[nodiscard]] float GetDistanceFactor() const noexcept { return _distanceFactor; }
    [[nodiscard]] bool IsPerspective() const noexcept { return Has(PerspectiveFlag); }
    [[nodiscard]] std::uint8_t GetModeFlags() const noexcept { return _modeFlags; }
    [[nodiscard]] const g3d_BoundingVolume& GetModelBoundingVolume() const noexcept { return _modelVolume; }
    /// The number that came with the volume.
    [[nodiscard]] float GetModelBoundingValue() const noexcept { return _modelValue; }

    /// Eye to target.
    [[nodiscard]] float GetViewDistance() const noexcept { return (_eye - _target).Length(); }

    /// 2 atan2(max(width, height) / 2, D) with D = near (perspective) or the view distance (parallel), in double.
    [[nodiscard]] float GetFieldOfView() const noexcept;

    /// The least near distance, 1e-5.
    [[nodiscard]] static constexpr float GetNearPlane_MinValue() noexcept { return 1e-5F; }

    /// Rows right = up x backward (in double), up, backward = eye to target reversed, then the translation by -eye; or
    /// the supplied matrix. The references stay good, the matrices change with the camera.
    [[nodiscard]] const g3d_XForm& GetVOM() const noexcept;
    [[nodiscard]] const g3d_XForm& GetPM() const noexcept;

    // ---- Setting

    /// Repairs first: equal eye and target (exact) multiply the eye's z by 1.1; a zero up becomes (0, 1, 0); an up
    /// parallel to the view direction (exactly) becomes (0, 0, 1) when up.y > up.z, else (0, 1, 0), *which may be
    /// parallel as well*. With a supplied view *only the target is stored*.
    void SetLocation(const g3d_Point& eye, const g3d_Point& target, const g3d_Vector& up) noexcept;

    /// In model units, after the repairs told above; and by how much the window is moved off the axis.
    void SetWindow(float width, float height) noexcept;
    void SetViewOffset(float x, float y) noexcept;

    /// Parts of the window, each in [0, 1] when all of it is inside: (0, 1, 0, 1) shows the window. No extent in x or y
    /// makes the PM the identity.
    void SetViewportFractions(float xMin, float xMax, float yMin, float yMax) noexcept;

    /// Must exceed 2, else nothing happens: at 2 a fit would put the near plane into the eye.
    void SetDistanceFactor(float factor) noexcept;

    /// Flips the mode and nothing else, so the picture jumps; true when it was the other. See `MakePerspective`.
    bool SetProjection(ProjectionEnum projection) noexcept;

    /// Distances from the eye in model units, after the repairs told above.
    void SetNearFar(float nearPlane, float farPlane) noexcept;

    /// Angles outside (0, 180), ends excluded, change nothing. In double, rounded to float once.
    ///
    /// With `adjustWindow`: size = 2 D tan(angle / 2), D as for `GetFieldOfView`. A window at least as wide as high
    /// gets width = size and keeps its aspect; *a tall one gets width = size and height = size * width / height*, its
    /// aspect upside down. Nothing changes when the greater side is within 0.0001 of size. The view offsets are scaled
    /// by size / greater side. Else the near plane moves to max(width, height) / (2 tan(angle / 2)).
    void SetFieldOfView(float degrees, bool adjustWindow) noexcept;

    /// To a perspective (parallel) camera that shows the same at the target: window and offsets are scaled by
    /// near / distance (its inverse). Nothing when it is one already; no scaling when the ratio is no positive number.
    void MakePerspective() noexcept;
    void MakeParallel() noexcept;

    /// Enlarges one side of the window so that its aspect is that of a viewport of `width` x `height` pixels: nothing
    /// that was shown is lost, and circles are round. Sizes that are not positive and finite change nothing.
    void CorrectAspect(float width, float height) noexcept;

    /// With `supplied` the VOM is `*xform` from now on, as it stands; null or not finite: nothing happens. Without, the
    /// camera makes its own again, and window, near and far are repaired.
    void SetLayerXForm(bool supplied, const g3d_XForm* xform) noexcept;

    /// Keeps a copy of the volume of the whole model and its number, and widens near and far so that they hold its
    /// sphere, 1.01 times as large, as far as it lies before the eye. A perspective camera's window shrinks with near:
    /// the picture stays. Not finite vertices count for nothing.
    void SetModelBoundingVolume(g3d_BoundingVolume volume, float value) noexcept;

    // ---- Fitting. View offsets become 0. With a supplied view, near and far are stored without repair.

    /// Looks at the sphere from the present direction, with 5 % to spare. A radius that is not positive becomes 0.0002.
    void Fit(const g3d_Sphere& sphere) noexcept;

    /// Tight in both directions of the view, about the middle of the vertices as they are seen. *The extents contain
    /// the view axis*, and are taken as symmetric about it: exact for a parallel camera, while a perspective one may
    /// lose more than its margin of 5 % on one side. An empty volume changes nothing, vertices that are not finite
    /// count for nothing. *Without a view direction the camera looks along +z here*, though along -z elsewhere.
    void Fit(const g3d_BoundingVolume& volume) noexcept;

    /// The box of two opposite corners.
    void Fit(const g3d_Point& a, const g3d_Point& b);

    /// The parallel camera of overlays: eye (0, 0, 10), near 9, far 11, one unit a pixel. A zero width or height makes
    /// *both* 500; *the window is stored as given*, NaN and negative sizes too.
    void FitVP(float width, float height) noexcept;

    /// The same with the origin in the lower left corner: eye and target are before the middle, *as given too*, NaN
    /// included. `depth` is the radius in z that near and far hold, by the distance factor; 0 is as `FitVP`.
    void FitCenterVP(float width, float height, float depth, bool center) noexcept;

    /// Turns to one of the standard views and fits the sphere; other values keep the direction.
    void Canned(const g3d_Sphere& sphere, g3d_SavedViewIdEnum view) noexcept;

    // ---- Moving

    /// The window becomes s times as large, s = 1 - percent/100 for percent >= 0, else 1/(1 + percent/100); percent is
    /// clamped to [-99, 99], NaN is 0. A side that meets a bound holds the other back, so that the aspect stays.
    ///
    /// With `moveEye` the angle stays and the eye moves instead: near becomes s near, offsets are scaled by s, and the
    /// eye goes near (1 - s) towards the target, so the near and far planes stay where they are. A target that would be
    /// reached is pushed on. A supplied view is scaled by 1/s about the target, and nothing else happens.
    void Zoom(float percent, bool moveEye) noexcept;

    /// Makes a rectangle of the window fill it: fractions from the lower left, in any order. Its centre is panned to
    /// the middle, its larger side decides s, within [0.01, 100]. A rectangle that is a point changes nothing.
    void Zoom(float xMin, float xMax, float yMin, float yMax, bool moveEye) noexcept;

    /// Zooms about the point (x, y), in world units from the target along right and up. With `keepPoint` the point is
    /// meant to keep its place; *the way back is scaled by k^2 then when zooming in*, k being the change of the
    /// window's width, and by k without.
    ///
    /// Zooming out with `keepPoint` has a mode for the process, from VLM_ZOOM_TOWARD, read in the first call: an
    /// integer n >= 1 gives min(n, 3), anything else 1; when it is set the mode is told on standard error. 1: k. 2: a
    /// plain `Zoom` (also for 0 percent). 3: min(k^2, k + 1).
    void ZoomTo(float x, float y, float percent, bool keepPoint, bool moveEye) noexcept;

    /// Eye and target together along right, up and backward: in world units, or with `windowFractions` dx and dy as
    /// fractions of the window's size at the target. The camera moves, so what is seen moves the other way.
    void Pan(float dx, float dy, float dz, bool windowFractions) noexcept;

    /// Turns the camera rigidly, counter-clockwise seen from the tip of `axis` (world axes). No axis: nothing happens.
    void Rotate(float angleDegrees, const g3d_Vector& axis, const g3d_Point& about) noexcept;

    /// By the least turn that takes `from` into the direction of `to`, in double; of opposite directions, about some
    /// axis across. Zero vectors change nothing.
    void Rotate(const g3d_Vector& from, const g3d_Vector& to, const g3d_Point& about) noexcept;

    /// The same about the camera's own centre: the target, or while the target-rotate switch is off the middle of the
    /// model's bounding box, if it is set.
    void Rotate(float angleDegrees, const g3d_Vector& axis) noexcept { Rotate(angleDegrees, axis, RotationCenter()); }
    void Rotate(const g3d_Vector& from, const g3d_Vector& to) noexcept { Rotate(from, to, RotationCenter()); }

    // ---- Comparison

    /// Exact, on everything that is set, a supplied matrix too; not on the matrices that follow from it.
    [[nodiscard]] bool operator==(const g3d_Camera& other) const noexcept;

private:
    [[nodiscard]] bool Has(ModeFlagEnum flag) const noexcept { return (_modeFlags & flag) != 0; }
    void Put(ModeFlagEnum flag, bool on) noexcept;

    [[nodiscard]] float ViewPlaneDistance() const noexcept { return IsPerspective() ? _near : GetViewDistance(); }
    [[nodiscard]] g3d_Point RotationCenter() const noexcept;
    [[nodiscard]] float LeastWindowSide() const noexcept;
    [[nodiscard]] float AttainableScale(float scale) const noexcept;

    bool Place(g3d_Point eye, g3d_Point target, g3d_Vector up) noexcept;
    bool Carry(const g3d_Point& eye, const g3d_Point& target, const g3d_Vector& up, const g3d_XForm& undo) noexcept;
    bool PlaceBefore(const g3d_Point& center, float radius, const g3d_Vector& backward, const g3d_Vector& up) noexcept;
    void FitFrom(const g3d_Sphere& sphere, const g3d_Vector& backward, const g3d_Vector& up) noexcept;
    void PlaceOverlay(float width, float height, const g3d_Point& target, float distance) noexcept;
    void StoreNearFar(float nearPlane, float farPlane) noexcept;
    void StoreWindow(float width, float height) noexcept;
    void ScaleWindow(float scale) noexcept;
    void ConvertProjection(ProjectionEnum projection, float scale) noexcept;
    void ScaleView(float scale, bool moveEye) noexcept;

    mutable g3d_XForm _viewOrientation;
    mutable g3d_XForm _projection;
    g3d_Point _eye{2.0F, 0.0F, 0.0F};
    g3d_Point _target;
    g3d_Vector _up{0.0F, 1.0F, 0.0F};
    float _width = 1.0F, _height = 1.0F;
    float _near = 1.0F, _far = 10000.0F;
    mutable bool _viewDirty = true;
    mutable bool _projectionDirty = true;
    std::uint8_t _modeFlags = PerspectiveFlag;
    float _offsetX = 0.0F, _offsetY = 0.0F;
    float _xMin = 0.0F, _xMax = 1.0F, _yMin = 0.0F, _yMax = 1.0F;
    float _distanceFactor = 4.0F;
    g3d_BoundingVolume _modelVolume;
    float _modelValue = 0.0F;
};

/// The process-wide target-rotate switch, on at the start: *it stores the negation of its argument*, so `true` makes
/// cameras turn about the model and `false` about their targets. One thread at a time.
extern "C" ORV_EXPORT void g3d_Camera_SetTargetRotate(bool aboutModel) noexcept;

#endif
