// Protects the camera and what is built on it: both matrices against double precision, fits, zooms, moves and their
// repairs, and that no input makes a matrix that is not finite.
#include <g3d/g3d.h>
#include <support/ChildProcess.h>
#include <support/RandomFloats.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <functional>
#include <iterator>
#include <string>
#include <tuple>
#include <vector>

namespace {

using Pair = std::array<float, 2>;
using Six = std::array<float, 6>;
using Triple = g3d_Viewport::Triple;

const g3d_Viewport screen(100.0, 50.0, 1600.0, 1000.0);
const g3d_Point origin;

g3d_Point At(float x, float y, float z) { return {x, y, z}; }
g3d_Vector To(float x, float y, float z) { return {x, y, z}; }

/// Width, height, near, far, offset x and y.
Six Fields(const g3d_Camera& camera) {
    Six fields{};
    camera.GetWindow(fields[0], fields[1]);
    camera.GetNearFar(fields[2], fields[3]);
    camera.GetViewOffset(fields[4], fields[5]);
    return fields;
}
Pair Window(const g3d_Camera& camera) { return {Fields(camera)[0], Fields(camera)[1]}; }
Pair NearFar(const g3d_Camera& camera) { return {Fields(camera)[2], Fields(camera)[3]}; }

double Distance(const g3d_Point& a, const g3d_Point& b) { return (a - b).Length(); }
double Distance(const Triple& a, const Triple& b) { return std::hypot(a[0] - b[0], a[1] - b[1]); }

template <class Point>
Triple Pixel(const g3d_Camera& camera, const Point& point) {
    return screen.ToPixel(camera, point).value_or(Triple{kNaN, kNaN, kNaN});
}

bool HasFiniteMatrices(const g3d_Camera& camera) {
    float zero = 0.0F;
    for (int k = 0; k < 16; ++k) zero += 0.0F * camera.GetVOM().M(0, k) + 0.0F * camera.GetPM().M(0, k);
    return zero == 0.0F;
}

/// Looks along -z at the origin from 10 away, 4 x 2 at the target, near 5 and far 15.
g3d_Camera Parallel() {
    g3d_Camera camera;
    camera.SetLocation(At(0, 0, 10), origin, kY);
    camera.SetProjection(g3d_Camera::Parallel);
    camera.SetNearFar(5, 15);
    camera.SetWindow(4, 2);
    return camera;
}
g3d_Camera Perspective() {
    g3d_Camera camera = Parallel();
    camera.MakePerspective();
    return camera;
}

struct Random : RandomFloats {
    using RandomFloats::RandomFloats;
    g3d_Point Point(double size = 5.0) { return origin + Vector(size); }

    /// With offsets, and with the whole viewport unless `part`.
    g3d_Camera Camera(bool perspective, bool part = false) {
        g3d_Camera camera;
        const g3d_Point target = Point();
        camera.SetLocation(target + Vector(10.0), target, Vector());
        const float distance = camera.GetViewDistance(), nearPlane = distance * Number(0.1, 0.5);
        const float size = perspective ? nearPlane : distance;
        camera.SetProjection(perspective ? g3d_Camera::Perspective : g3d_Camera::Parallel);
        camera.SetNearFar(nearPlane, distance * Number(1.5, 4.0));
        camera.SetWindow(size * Number(0.3, 1.5), size * Number(0.3, 1.5));
        camera.SetViewOffset(size * Number(-0.2, 0.2), size * Number(-0.2, 0.2));
        if (part) camera.SetViewportFractions(0.1F, Number(0.6, 1.0), 0.2F, Number(0.6, 1.0));
        return camera;
    }

    /// Before the eye of the camera.
    g3d_Point Seen(const g3d_Camera& camera) { return camera.GetTarget() + Vector(0.3) * camera.GetViewDistance(); }

    /// Any float, every other one of those that break things.
    float Nasty() {
        constexpr float values[] = {0.0F,      -0.0F,      kNaN,   kInfinity, -kInfinity,
                                    kGreatest, -kGreatest, 1e-45F, 1e30F,     -1.0F};
        return Whole(0, 1) == 0 ? values[Whole(0, 9)] : Number(-200.0, 200.0);
    }
    g3d_Vector NastyVector() { return {Nasty(), Nasty(), Nasty()}; }
    g3d_Point NastyPoint() { return {Nasty(), Nasty(), Nasty(), Whole(0, 3) == 0 ? Nasty() : 1.0F}; }
};

/// Where a point is on the screen, from the camera's fields, in double.
Triple PixelByHand(const g3d_Camera& camera, const g3d_Point& point) {
    const Precise eye = Precisely(camera.GetLocation()), backward = Unit(eye - Precisely(camera.GetTarget()));
    const Precise right = Unit(Cross(Precisely(camera.GetUp()), backward)), up = Cross(backward, right);
    const Precise arm = Precisely(point) - eye;
    const double depth = -Dot(arm, backward);
    const auto [w, h, n, f, ox, oy] = Fields(camera);
    float x0, x1, y0, y1;
    camera.GetViewportFractions(x0, x1, y0, y1);
    const bool perspective = camera.IsPerspective();
    const double toPlane = perspective ? n / depth : 1.0, span = static_cast<double>(f) - n;
    const double x = ((Dot(arm, right) * toPlane - ox) / w + 0.5 - x0) / (x1 - x0);
    const double y = ((Dot(arm, up) * toPlane - oy) / h + 0.5 - y0) / (y1 - y0);
    return {100.0 + 1600.0 * x, 1050.0 - 1000.0 * y, (depth - n) / span * (perspective ? f / depth : 1.0)};
}

/// How far inside each bound of what is shown a pixel is, in the order of the frustum's planes.
std::array<double, 6> Inside(const Triple& pixel) {
    const double x = (pixel[0] - 100.0) / 1600.0, y = (1050.0 - pixel[1]) / 1000.0;
    return {x, 1.0 - x, y, 1.0 - y, pixel[2], 1.0 - pixel[2]};
}

TEST(g3d_Camera, ShowsWhatItsFieldsSayAndThereAndBackKeepsThePixel) {
    Random random(431);
    for (int n = 0; n < 2000; ++n) {
        const g3d_Camera camera = random.Camera(n % 2 == 0, true);
        const g3d_Point point = random.Seen(camera);
        const Triple pixel = Pixel(camera, point), byHand = PixelByHand(camera, point);
        EXPECT_LT(Distance(pixel, byHand), 0.05);
        EXPECT_NEAR(pixel[2], byHand[2], 1e-5);
        const auto world = screen.ToWorld(camera, pixel);
        ASSERT_TRUE(world);
        EXPECT_LT(Distance(Pixel(camera, *world), pixel), 1e-4);
        EXPECT_LT(Distance(g3d_Point((*world)[0], (*world)[1], (*world)[2]), point), 1e-4);
        const auto planes = g3d_FrustumPlanes(camera);
        for (unsigned i = 0; i < 6; ++i) {
            const double height = g3d_Dot(point - planes[i].Point(), planes[i].Normal()), inside = Inside(pixel)[i];
            EXPECT_TRUE(std::abs(inside) < 1e-3 || (height > 0.0) == (inside > 0.0)) << i;
            EXPECT_NEAR(planes[i].Normal().Length(), 1.0, 1e-6);
        }
    }
    for (const float z : {10.0F, 11.0F}) EXPECT_FALSE(screen.ToPixel(Perspective(), At(0, 0, z)));
    EXPECT_LT(Distance(Pixel(g3d_Camera(), *screen.ToWorld(g3d_Camera(), {9.0, 9.0, 0.9})), {9.0, 9.0}), 1e-9);
    EXPECT_FALSE(g3d_Viewport(0.0, 0.0, 0.0, 9.0).ToPixel(Parallel(), origin));
    EXPECT_LT(Distance(Pixel(Parallel(), g3d_Point(-4.0F, 2.0F, 9.0F, 2.0F)), {100.0, 50.0}), 1e-9);
    g3d_Camera flat = Parallel();
    const g3d_XForm singular = g3d_XForm().SetScale(1, 1, 0);
    flat.SetLayerXForm(true, &singular);
    EXPECT_FALSE(screen.ToWorld(flat, {500.0, 500.0, 0.5}));
}

TEST(g3d_Camera, LocationsAreRepaired) {
    const g3d_Point at = At(0, 0, 2), above = At(0, 3, 0), start = At(2, 0, 0);
    const std::tuple<g3d_Point, g3d_Point, g3d_Vector, g3d_Point, g3d_Vector> cases[] = {
        {at, at, kY, At(0, 0, 2.0F * 1.1F), kY},   // coincident: z * 1.1
        {above, above, kY, above, kZ},             // repaired nothing: no up is any good
        {at, origin, To(0, 0, 0), at, kY},         // no up
        {at, origin, To(0, 0, 5), at, kY},         // parallel, y not above z
        {above, origin, To(0, 5, 0), above, kZ},   // parallel, y above z
        {above, origin, To(0, -5, 0), above, kY},  // the replacement is parallel as well
        {at, origin, To(0, 0, -5), at, kZ},        // here too
        {At(kNaN, 0, 0), origin, kX, start, kY},   // refused
        {at, {kGreatest, 0.0F, 0.0F, 0.1F}, kX, start, kY}};
    for (const auto& [eye, target, up, expectedEye, expectedUp] : cases) {
        g3d_Camera camera;
        camera.SetLocation(eye, target, up);
        EXPECT_EQ(std::pair(camera.GetLocation(), camera.GetUp()), std::pair(expectedEye, expectedUp));
        EXPECT_NEAR(camera.GetVOM().Determinant(), 1.0, 1e-5) << up.Z();  // a view all the same, and turned too
        if (eye == target && eye == expectedEye) continue;                // no direction to turn
        const g3d_XForm turned = camera.GetVOM() * g3d_XForm().SetRotate(-30, To(1, 2, 3));
        camera.Rotate(30, To(1, 2, 3), origin);
        for (int k = 0; k < 12; ++k) EXPECT_NEAR(camera.GetVOM().M(0, k), turned.M(0, k), 1e-5) << up.Z();
    }
    Random random(430);
    g3d_Camera camera;
    for (const g3d_Vector& up : {To(5e-6F, 0, 1), To(-1e-7F, 0, -1), To(3e38F, 3e38F, 0), To(1e-38F, 0, 1e-31F)}) {
        camera.SetLocation(At(0, 0, 5), origin, up);  // next to the view direction, or huge
        const double across = std::hypot(double{up.X()}, double{up.Y()});
        EXPECT_EQ(camera.GetUp(), up);
        EXPECT_NEAR(camera.GetVOM().M(1, 0), up.X() / across, 1e-7);
        EXPECT_NEAR(camera.GetVOM().M(1, 1), up.Y() / across, 1e-7);
    }
    for (int n = 0; n < 50; ++n) {  // parallel up to rounding
        const g3d_Vector direction = random.Vector();
        camera.SetLocation(origin + direction * 7, origin, direction * 0.3F);
        EXPECT_NEAR(camera.GetVOM().Determinant(), 1.0, 1e-5);
    }
    camera.SetLocation(at, origin, kY);
    camera.SetLocation(camera.GetTarget(), camera.GetLocation(), camera.GetUp());  // its own, by reference
    EXPECT_EQ(std::pair(camera.GetLocation(), camera.GetTarget()), std::pair(origin, at));
}

TEST(g3d_Camera, WindowsAndPlanesAreRepaired) {
    constexpr float widest = 3.4028235e31F, gap = 1e-5F, edge = kGreatest - kGreatest * gap;
    using Setter = void (g3d_Camera::*)(float, float) noexcept;
    const Setter window = &g3d_Camera::SetWindow, planes = &g3d_Camera::SetNearFar, aspect = &g3d_Camera::CorrectAspect;
    const std::tuple<Setter, Pair (*)(const g3d_Camera&), Pair, Pair> cases[] = {
        {window, Window, {1000, 1}, {1000, 2}},
        {window, Window, {1, 1000}, {2, 1000}},
        {window, Window, {kNaN, -1}, {1e-4F, 1e-4F}},
        {window, Window, {kInfinity, kGreatest}, {widest, widest}},
        {planes, NearFar, {0, 5}, {gap, 5}},
        {planes, NearFar, {kNaN, kNaN}, {gap, gap + gap * gap}},
        {planes, NearFar, {100, 100.0005F}, {100, 100 + 100 * gap}},
        {planes, NearFar, {1, kInfinity}, {1, kGreatest}},
        {planes, NearFar, {kInfinity, 1}, {edge, kGreatest}},
        {aspect, Window, {800, 800}, {4, 4}},
        {aspect, Window, {800, 200}, {8, 2}},
        {aspect, Window, {kNaN, 0}, {4, 2}}};
    for (const auto& [set, get, given, kept] : cases) {
        g3d_Camera camera = Parallel();
        (camera.*set)(given[0], given[1]);
        EXPECT_EQ(get(camera), kept);
    }
    g3d_Camera close = Perspective();
    close.SetNearFar(1000, 2000);
    close.SetWindow(0, 0);
    EXPECT_EQ(Window(close), (Pair{0.01F, 0.01F}));  // 1000 * 0.0001 / 10
}

TEST(g3d_Camera, NoInputReachesTheMatricesUnrepaired) {
    Random random(432);
    g3d_Camera camera;
    float a = 0, b = 0, c = 0, d = 0;
    bool flag = false;
    g3d_Point p, q;
    g3d_Vector v, u;
    g3d_XForm view;
    const std::function<void()> operations[] = {
        [&] { camera.SetLocation(p, flag ? p : q, v); },
        [&] { camera.SetWindow(a, b), camera.SetViewOffset(c, d); },
        [&] { camera.SetViewportFractions(a, b, c, d), camera.SetDistanceFactor(a); },
        [&] { camera.SetProjection(flag ? g3d_Camera::Parallel : g3d_Camera::Perspective); },
        [&] { camera.SetNearFar(a, b); },
        [&] { camera.SetFieldOfView(a, flag); },
        [&] { flag ? camera.MakePerspective() : camera.MakeParallel(); },
        [&] { camera.CorrectAspect(a, b); },
        [&] { camera.SetLayerXForm(a > 0.0F, flag ? &view : nullptr); },
        [&] { camera.SetModelBoundingVolume(g3d_BoundingVolume::Box(p, q), a); },
        [&] { camera.Fit(g3d_Sphere(p, a)); },
        [&] { camera.Fit(p, q); },
        [&] { flag ? camera.FitVP(a, b) : camera.FitCenterVP(a, b, c, flag); },
        [&] { camera.Canned(g3d_Sphere(p, a), static_cast<g3d_SavedViewIdEnum>(random.Whole(-1, 7))); },
        [&] { camera.Zoom(a, flag); },
        [&] { camera.Zoom(a, b, c, d, flag); },
        [&] { camera.Pan(a, b, c, flag); },
        [&] { flag ? camera.Rotate(a, v, p) : camera.Rotate(v, u); },
        [&] { camera = g3d_InterpolateCameras(a, camera, random.Camera(flag)); }};
    for (int n = 0; n < 12000; ++n) {
        a = random.Nasty(), b = random.Nasty(), c = random.Nasty(), d = random.Nasty(), flag = random.Whole(0, 1) == 0;
        p = random.NastyPoint(), q = random.NastyPoint(), v = random.NastyVector(), u = random.NastyVector();
        view.SetRotate(a, v).Translate(b, c, d);
        const int operation = random.Whole(0, std::ssize(operations) - 1);
        operations[operation]();
        ASSERT_TRUE(HasFiniteMatrices(camera)) << "operation " << operation << ", step " << n;
        static_cast<void>(screen.ToPixel(camera, p));
        static_cast<void>(screen.ToWorld(camera, {a, b, c}));
        static_cast<void>(g3d_FrustumPlanes(camera));
        static_cast<void>(camera.GetFieldOfView());
        if (n % 40 > 0) continue;
        camera.SetLayerXForm(false, nullptr);  // nothing is beyond repair
        camera.SetViewportFractions(0, 1, 0, 1);
        camera.SetDistanceFactor(4);
        camera.Fit(g3d_Sphere(At(1, 2, 3), 1));
        EXPECT_EQ(NearFar(camera), (Pair{2, 6}));
        EXPECT_LT(Distance(Pixel(camera, At(1, 2, 3)), {900.0, 550.0}), 0.01);
        if (n % 80 > 0) camera = g3d_Camera();
    }
}

TEST(g3d_Camera, FitsHoldWhatTheyFit) {
    Random random(433);
    const auto isShown = [](const g3d_Camera& camera, const g3d_Point& p) {
        const auto inside = Inside(Pixel(camera, p));
        return std::all_of(inside.begin(), inside.end(), [](double x) { return x >= 0.0; });
    };
    for (int n = 0; n < 300; ++n) {
        g3d_Camera camera = random.Camera(n % 2 == 0), parallel = random.Camera(false);
        const g3d_Vector direction = (camera.GetLocation() - camera.GetTarget()).Normalize();
        const g3d_Sphere sphere(random.Point(20.0), random.Number(0.1, 5.0));
        camera.Fit(sphere);
        EXPECT_LT(Distance(sphere.Center() + direction * (4 * sphere.Radius()), camera.GetLocation()), 1e-4);
        for (int i = 0; i < 20; ++i) {
            EXPECT_TRUE(isShown(camera, sphere.Center() + random.Vector().Normalize() * sphere.Radius()));
        }
        std::vector<g3d_Point> vertices(1 + static_cast<unsigned>(random.Whole(0, 19)), random.Point(20.0));
        for (g3d_Point& vertex : vertices) vertex += random.Vector(3.0);
        parallel.SetDistanceFactor(random.Number(2.5, 8.0));
        parallel.Fit(g3d_BoundingVolume(vertices));
        float widest = 1e-4F / 2.1F;
        for (const g3d_Point& vertex : vertices) {
            EXPECT_TRUE(isShown(parallel, vertex)) << vertices.size();
            g3d_Point seen = vertex;
            parallel.GetVOM().XForm(seen);
            widest = std::max(widest, std::abs(seen.X()));
        }
        EXPECT_NEAR(Window(parallel)[0], 2.1F * widest, 1e-4);  // tight, 5 % to spare
    }
}

TEST(g3d_Camera, FitsAsTabulated) {
    const auto fitted = [](g3d_Camera camera, const auto&... what) {
        camera.Fit(what...);
        return camera;
    };
    const g3d_Sphere unit(origin, 1);
    EXPECT_EQ(Fields(fitted(Parallel(), unit)), (Six{2.1F, 2.1F, 2, 6, 0, 0}));
    EXPECT_EQ(Fields(fitted(g3d_Camera(), unit)), (Six{1.05F, 1.05F, 2, 6, 0, 0}));
    EXPECT_EQ(Window(fitted(Parallel(), g3d_Sphere(origin, kNaN)))[0], 2.1F * 0.0002F);
    g3d_Camera parallel = Parallel();
    for (const float none : {2.0F, -3.0F, kNaN, kInfinity}) parallel.SetDistanceFactor(none);
    EXPECT_EQ(parallel, Parallel());
    EXPECT_EQ(fitted(Parallel(), g3d_BoundingVolume()), Parallel());
    EXPECT_EQ(fitted(Parallel(), g3d_BoundingVolume(std::array{At(kNaN, 0, 0)})), Parallel());
    EXPECT_EQ(fitted(Parallel(), g3d_Sphere(At(kInfinity, 0, 0), 1)), Parallel());

    // The corners of a box as a perspective camera sees them: the nearest ones decide, at the near plane.
    g3d_Camera box = Perspective();
    box.SetViewOffset(0.1F, 0.1F);
    box.Fit(At(-3, -2, -1), At(3, 2, 1));
    const double radius = std::sqrt(14.0), atNear = 2.0 * radius / (4.0 * radius - 1.0);
    EXPECT_NEAR(Fields(box)[0], 6.0 * atNear * 1.05, 1e-5);
    EXPECT_NEAR(Fields(box)[1], 4.0 * atNear * 1.05, 1e-5);
    EXPECT_EQ(Fields(box)[4], 0.0F);

    // A supplied view is kept, near and far are not repaired, and the view axis belongs to the extents: 0 to 6, not 5
    // to 6.
    g3d_Camera supplied = Parallel(), aimless;
    const g3d_XForm aside = g3d_XForm().SetTranslate(To(5, 0, 0));
    supplied.SetLayerXForm(true, &aside);
    supplied.Fit(origin, At(1, 1, 1));
    EXPECT_EQ(supplied.GetVOM(), aside);
    const float half = std::sqrt(0.75F);
    EXPECT_EQ(Fields(supplied), (Six{6 * 1.05F, 1.05F, 2 * half, 6 * half, 0, 0}));
    supplied.SetNearFar(3, 4);
    supplied.MakePerspective();
    supplied.Fit(g3d_Sphere(origin, 7));
    EXPECT_EQ(Fields(supplied), (Six{1.05F / 4 * 2 * 14, 1.05F / 4 * 2 * 14, 14, 42, 0, 0}));

    // Without a direction a sphere is seen along -z, a volume along +z.
    aimless.SetLocation(origin, origin, kY);
    EXPECT_EQ(fitted(aimless, unit).GetLocation(), At(0, 0, 4));
    EXPECT_EQ(fitted(aimless, At(0, 0, -1), At(0, 0, 1)).GetLocation(), At(0, 0, -4));
}

TEST(g3d_Camera, OverlaysArePixelsAndKeepTheirWindow) {
    g3d_Camera camera;
    camera.SetViewOffset(1, 1);
    camera.FitVP(0, 300);
    EXPECT_EQ(Fields(camera), (Six{500, 500, 9, 11, 0, 0}));
    EXPECT_EQ(camera.GetModeFlags(), g3d_Camera::FittedToViewportFlag);
    camera.FitVP(kNaN, 1);
    EXPECT_TRUE(std::isnan(Window(camera)[0]) && HasFiniteMatrices(camera));
    camera.FitCenterVP(1600, 1, 0, true);
    EXPECT_EQ(Fields(camera), (Six{1600, 1, 9, 11, 0, 0}));  // 500 : 1 is not for overlays
    EXPECT_EQ(camera.GetModeFlags(), g3d_Camera::FittedToViewportFlag | g3d_Camera::CenterFlag);
    camera.FitCenterVP(1600, 1000, 3, false);
    EXPECT_EQ(camera.GetLocation(), At(800, 500, 12));
    EXPECT_EQ(NearFar(camera), (Pair{6, 18}));
    EXPECT_LT(Distance(Pixel(camera, At(8, 2, 0)), {108.0, 1048.0}), 1e-3);
    camera.SetNearFar(6, 18);
    EXPECT_EQ(camera.GetModeFlags(), 0);
}

TEST(g3d_Camera, FieldOfView) {
    const double tan30 = std::tan(std::acos(-1.0) / 6.0);
    for (const auto& [width, height] : {Pair{4, 2}, Pair{2, 4}}) {
        g3d_Camera camera = Parallel();  // upside down: a window of 1 : 2 becomes 2 : 1
        camera.SetWindow(width, height);
        camera.SetViewOffset(1, 0);
        camera.SetFieldOfView(60, true);
        EXPECT_NEAR(Fields(camera)[0], 20.0 * tan30, 1e-5);
        EXPECT_NEAR(Fields(camera)[1], 10.0 * tan30, 1e-5);
        EXPECT_NEAR(Fields(camera)[4], 5.0 * tan30, 1e-5);
        EXPECT_NEAR(camera.GetFieldOfView(), 60.0, 1e-5);
    }
    g3d_Camera camera = Perspective();
    camera.SetFieldOfView(60, false);  // the window stays, the near plane moves
    EXPECT_EQ(Window(camera), (Pair{2, 1}));
    EXPECT_NEAR(NearFar(camera)[0], 1.0 / tan30, 1e-6);
    EXPECT_NEAR(camera.GetFieldOfView(), 60.0, 1e-5);
    const g3d_Camera before = camera;
    for (const float degrees : {0.0F, 180.0F, -30.0F, kNaN, kInfinity}) {
        camera.SetFieldOfView(degrees, false);
        camera.SetFieldOfView(degrees, true);
        EXPECT_EQ(camera, before) << degrees;
    }
}

TEST(g3d_Camera, ProjectionsConvertThereAndBack) {
    Random random(434);
    for (int n = 0; n < 300; ++n) {
        const g3d_Camera camera = random.Camera(n % 2 == 0);
        g3d_Camera other = camera;
        n % 2 == 0 ? other.MakeParallel() : other.MakePerspective();
        EXPECT_NE(other.IsPerspective(), camera.IsPerspective());
        const g3d_Vector view = camera.GetLocation() - camera.GetTarget();
        const g3d_Point inPlane = camera.GetTarget() + g3d_Cross(random.Vector(0.3), view);
        EXPECT_LT(Distance(Pixel(other, inPlane), Pixel(camera, inPlane)), 0.01);
        n % 2 == 0 ? other.MakePerspective() : other.MakeParallel();
        for (unsigned i = 0; i < 6; ++i) EXPECT_FLOAT_EQ(Fields(other)[i], Fields(camera)[i]);
    }
    g3d_Camera camera = Perspective();
    EXPECT_FALSE(camera.SetProjection(g3d_Camera::Perspective));
    EXPECT_TRUE(camera.SetProjection(static_cast<g3d_Camera::ProjectionEnum>(7)));  // anything else is parallel
    EXPECT_EQ(Window(camera), (Pair{2, 1}));
}

TEST(g3d_Camera, ZoomScalesTheWindowWithinItsBounds) {
    const float most = 1.0F - 99.0F / 100.0F;
    for (const auto& [percent, scale] : {Pair{50, 0.5F}, Pair{-50, 2}, Pair{150, most}, Pair{kNaN, 1}}) {
        g3d_Camera camera = Parallel();
        camera.Zoom(percent, false);
        EXPECT_EQ(Window(camera), (Pair{4 * scale, 2 * scale})) << percent;
        EXPECT_EQ(camera.GetLocation(), At(0, 0, 10));
    }
    g3d_Camera in = Parallel(), out = Parallel();
    for (int n = 0; n < 20; ++n) in.Zoom(99, false), out.Zoom(-99, false);
    EXPECT_EQ(Window(in), (Pair{0.0002F, 0.0001F}));
    EXPECT_EQ(Window(out)[0], 3.4028235e31F);
    EXPECT_FLOAT_EQ(Window(out)[1], 3.4028235e31F / 2);
}

TEST(g3d_Camera, ZoomByTheEyeKeepsTheAngleAndTheClippedSpace) {
    Random random(435);
    for (int n = 0; n < 200; ++n) {
        const g3d_Camera before = random.Camera(true);
        g3d_Camera after = before;
        after.Zoom(random.Number(-90.0, 90.0), true);
        const auto planes = g3d_FrustumPlanes(before), moved = g3d_FrustumPlanes(after);
        for (const unsigned i : {4U, 5U}) {
            EXPECT_NEAR(g3d_Dot(moved[i].Point() - planes[i].Point(), planes[i].Normal()), 0.0, 1e-3);
        }
        // What goes with the eye keeps its place on the screen: window and offsets follow near.
        const g3d_Point point = random.Seen(before), shifted = point + (after.GetLocation() - before.GetLocation());
        EXPECT_LT(Distance(Pixel(after, shifted), Pixel(before, point)), 0.05);
    }
    g3d_Camera beyond = Perspective();  // the target lies before the near plane and is pushed on
    beyond.SetNearFar(30, 40);
    beyond.Zoom(50, true);
    EXPECT_EQ(beyond.GetLocation(), At(0, 0, -5));
    EXPECT_EQ(beyond.GetTarget(), At(0, 0, -15));
}

TEST(g3d_Camera, ZoomToARectangleFillsTheWindow) {
    Random random(436);
    for (int n = 0; n < 200; ++n) {
        g3d_Camera camera = random.Camera(n % 2 == 0);
        const float x = random.Number(0.0, 0.4), y = random.Number(0.0, 0.4), side = random.Number(0.1, 0.6);
        const auto inTargetPlane = [&, depth = Pixel(camera, camera.GetTarget())[2]](float right, float up) {
            return *screen.ToWorld(camera, {100.0 + 1600.0 * right, 1050.0 - 1000.0 * up, depth});
        };
        const Triple lower = inTargetPlane(x, y), upper = inTargetPlane(x + side, y + side);
        camera.Zoom(x + side, x, y, y + side, false);
        EXPECT_LT(Distance(Pixel(camera, lower), {100.0, 1050.0}), 0.1);
        EXPECT_LT(Distance(Pixel(camera, upper), {1700.0, 50.0}), 0.1);
    }
    g3d_Camera camera = Parallel();
    camera.Zoom(0.3F, 0.3F, 0.6F, 0.6F, false);
    EXPECT_EQ(camera, Parallel());
    camera.Zoom(0.25F, 0.75F, 0.5F, 0.6F, false);  // the larger side decides
    EXPECT_EQ(Window(camera), (Pair{2, 1}));
}

TEST(g3d_Camera, ZoomTowardsAPointByTheEnvironment) {
    const std::string meanings[] = {"", "use start drag for zoom out origin.\n", "use center for zoom out origin.\n",
                                    "transpose center toward start drag position.\n"};
    const std::string outwards[] = {"", "-1 -2, -1 -2, -0.25 -0.5, ", "0 0, -1 -2, 0 0, ",
                                    "-2 -4, -1 -2, -0.5625 -1.125, "};
    const std::tuple<const char*, int> settings[] = {
        {nullptr, 1}, {"2", 2}, {" +3x", 3}, {"7", 3}, {"99999999999999999999", 3}, {"0", 1}, {"text", 1}, {"-2", 1}};
    for (const auto& [value, mode] : settings) {
        const ChildResult child = RunInChild([text = value] {
            SetVariable("VLM_ZOOM_TOWARD", text);
            for (const float percent : {50.0F, -50.0F, -20.0F}) {
                for (const bool keepPoint : {true, false}) {
                    g3d_Camera camera = Parallel();
                    camera.ZoomTo(1, 2, percent, keepPoint, false);
                    const double x = camera.GetTarget().X(), y = camera.GetTarget().Y();
                    std::printf("%g %g, ", x, y);
                    SetVariable("VLM_ZOOM_TOWARD", "2");  // not read again
                }
            }
            return 0;
        });
        EXPECT_EQ(child.out, "0.75 1.5, 0.5 1, " + outwards[mode] + "-0.25 -0.5, ") << mode;
        EXPECT_EQ(child.err, value == nullptr ? "" : "VLM_ZOOM_TOWARD: Zoom-out set to " + meanings[mode]);
    }
}

TEST(g3d_Camera, MovesAreRigid) {
    Random random(437);
    for (int n = 0; n < 300; ++n) {
        const g3d_Camera before = random.Camera(n % 2 == 0);
        const g3d_Vector axis = random.Vector(), to = random.Vector();
        const g3d_Point center = random.Point(), point = random.Seen(before);
        const float angle = random.Number(-180.0, 180.0);
        g3d_Camera turned = before, aimed = before, supplied = before;
        const g3d_XForm view = before.GetVOM();
        supplied.SetLayerXForm(true, &view);
        const Triple from = Pixel(before, before.GetTarget());
        for (g3d_Camera panned : {before, supplied}) {
            panned.Pan(0.25F, -0.5F, 0, true);
            EXPECT_LT(Distance(Pixel(panned, before.GetTarget()), {from[0] - 400.0, from[1] - 500.0}), 0.1);
        }
        g3d_Vector arm = point - center;
        g3d_XForm().SetRotate(angle, axis).XForm(&arm, 1);
        for (g3d_Camera* camera : {&turned, &supplied}) {  // a scene that turns along keeps its picture
            camera->Rotate(angle, axis, center);
            EXPECT_LT(Distance(Pixel(*camera, center + arm), Pixel(before, point)), 0.1);
        }
        aimed.Rotate(axis, to);
        aimed.Rotate(to, axis);
        EXPECT_EQ(aimed.GetTarget(), before.GetTarget());
        EXPECT_LT(Distance(aimed.GetLocation(), before.GetLocation()), 1e-4);
    }
    g3d_Camera camera = Parallel();
    camera.Pan(1, 2, 3, false);
    EXPECT_EQ(camera.GetLocation(), At(1, 2, 13));
    EXPECT_EQ(camera.GetTarget(), At(1, 2, 3));
    for (const g3d_Vector& from : {kX, kY, kZ}) {  // a half turn about whatever axis
        camera.SetLocation(origin + from * 5, origin, To(1, 2, 3));
        camera.Rotate(from, from * -2);
        EXPECT_LT(Distance(camera.GetLocation(), origin - from * 5), 1e-5);
    }
    g3d_Camera little = Parallel();  // well below the angle at which `AngleWith` snaps to 0
    little.Rotate(kZ, To(0.001F, 0, 1));
    EXPECT_NEAR(little.GetLocation().X(), 0.01, 1e-6);
}

TEST(g3d_Camera, ModelVolumeIsTurnedAboutAndHeldByNearAndFar) {
    g3d_Camera camera = Parallel();
    camera.SetModelBoundingVolume(g3d_BoundingVolume::Box(At(1, 0, -1), At(3, 0, 1)), 7);
    EXPECT_EQ(camera.GetModelBoundingVolume().Count(), 8);
    EXPECT_EQ(camera.GetModelBoundingValue(), 7.0F);
    for (const bool aboutModel : {true, false}) {
        g3d_Camera_SetTargetRotate(aboutModel);  // stores the negation
        g3d_Camera turned = camera, without = Parallel();
        for (g3d_Camera* each : {&turned, &without}) each->Rotate(180, kY);
        EXPECT_LT(Distance(turned.GetTarget(), aboutModel ? At(4, 0, 0) : origin), 1e-5);
        EXPECT_LT(Distance(without.GetTarget(), origin), 1e-5);
    }
    for (g3d_Camera wider : {Perspective(), Parallel()}) {
        const g3d_Camera before = wider;
        wider.SetModelBoundingVolume(g3d_BoundingVolume::Box(At(-8, 0, 0), At(8, 0, 0)), 1);
        EXPECT_NEAR(NearFar(wider)[0], 10.0 - 8.08, 1e-5);
        EXPECT_NEAR(NearFar(wider)[1], 10.0 + 8.08, 1e-5);
        EXPECT_LT(Distance(Pixel(wider, At(1, 1, 1)), Pixel(before, At(1, 1, 1))), 0.01);  // the picture stays
    }
}

TEST(g3d_Camera, StandardViews) {
    const g3d_Vector diagonal = To(1, 1, 1) * std::sqrt(1.0F / 3);
    const std::tuple<int, g3d_Vector, g3d_Vector> views[] = {{0, kZ, kY},       {1, kZ * -1, kY}, {2, kY, kZ * -1},
                                                             {3, kY * -1, kZ},  {4, kX * -1, kY}, {5, kX, kY},
                                                             {6, diagonal, kY}, {9, kZ, kY},      {-1, kZ, kY}};
    for (const auto& [view, backward, up] : views) {
        g3d_Camera camera = Parallel();
        camera.Canned(g3d_Sphere(At(1, 1, 1), 2), static_cast<g3d_SavedViewIdEnum>(view));
        EXPECT_LT(Distance(camera.GetLocation(), At(1, 1, 1) + backward * 8), 1e-6) << view;
        EXPECT_EQ(camera.GetUp(), up);
        EXPECT_EQ(camera.GetTarget(), At(1, 1, 1));
    }
}

TEST(g3d_Camera, SuppliedViewsStandUntilTheyAreTakenBack) {
    g3d_Camera camera = Parallel();
    const g3d_XForm aside = g3d_XForm().SetTranslate(To(1, 0, -10));
    camera.SetLayerXForm(true, &aside);
    EXPECT_FALSE(camera == Parallel());
    camera.SetLocation(At(9, 9, 9), At(1, 0, 0), kX);
    EXPECT_EQ(camera.GetLocation(), At(0, 0, 10));
    EXPECT_EQ(camera.GetTarget(), At(1, 0, 0));
    camera.SetWindow(1000, 1);
    camera.SetNearFar(0, 0);
    EXPECT_EQ(Fields(camera), (Six{1000, 1, 0, 0, 0, 0}));
    const g3d_Camera before = camera;
    camera.Zoom(50, true);  // twice as large about the target
    EXPECT_EQ(camera.GetVOM(), g3d_XForm(aside).Translate(1, 0, 0).Scale(2, 2, 2).Translate(-1, 0, 0));
    EXPECT_FALSE(camera == before);
    camera.Pan(0.25F, 0, 0, true);  // a quarter of the window, which spans 500 in the world now
    EXPECT_EQ(camera.GetTarget(), At(126, 0, 0));
    camera.SetLayerXForm(false, &aside);
    EXPECT_EQ(Fields(camera), (Six{1000, 2, 1e-5F, 1e-5F * (1.0F + 1e-5F), 0, 0}));
    camera.SetLocation(At(0, 0, 10), origin, kY);
    EXPECT_EQ(camera.GetVOM(), Parallel().GetVOM());
}

TEST(g3d_Camera, DiffersByWhateverIsSet) {
    void (*const changes[])(g3d_Camera&) = {
        [](g3d_Camera& c) { c.SetViewOffset(1, 0); },
        [](g3d_Camera& c) { c.SetViewOffset(0, 1); },
        [](g3d_Camera& c) { c.SetWindow(3, 1); },
        [](g3d_Camera& c) { c.SetNearFar(1, 11); },
        [](g3d_Camera& c) { c.SetViewportFractions(0, 1, 0.5F, 1); },
        [](g3d_Camera& c) { c.SetDistanceFactor(5); },
        [](g3d_Camera& c) { c.Pan(0, 0, 1, false); },
    };
    for (const auto& change : changes) {
        g3d_Camera camera = Parallel();
        change(camera);
        EXPECT_FALSE(camera == Parallel()) << &change - changes;
    }
}

TEST(g3d_Camera, InterpolationIsExactAtItsEndsAndTurnsEvenly) {
    Random random(438);
    for (int n = 0; n < 200; ++n) {
        const g3d_Camera from = random.Camera(n % 2 == 0), to = random.Camera(n % 4 < 2, true);
        EXPECT_EQ(g3d_InterpolateCameras(0, from, to), from);
        EXPECT_EQ(g3d_InterpolateCameras(1, from, to), to);
        EXPECT_EQ(g3d_InterpolateCameras(kNaN, from, to), from);
        // Both ends are approached, though the other projection may have to be made first.
        for (const auto& [t, end] : {std::tuple(1e-6F, &from), std::tuple(0.999999F, &to)}) {
            const g3d_Camera near = g3d_InterpolateCameras(t, from, to);
            EXPECT_LT(Distance(near.GetLocation(), end->GetLocation()), 1e-3);
            const g3d_Vector across = g3d_Cross(random.Vector(0.1), end->GetLocation() - end->GetTarget());
            EXPECT_LT(Distance(Pixel(near, end->GetTarget() + across), Pixel(*end, end->GetTarget() + across)), 0.1);
        }
        const float t = random.Number(0.01, 0.99), angle = random.Number(-170.0, 170.0);
        const g3d_Vector axis = random.Vector();
        g3d_Camera turned = from, part = from;
        turned.Rotate(angle, axis, from.GetTarget());
        part.Rotate(t * angle, axis, from.GetTarget());
        const g3d_Point point = random.Seen(part);
        EXPECT_LT(Distance(Pixel(g3d_InterpolateCameras(t, from, turned), point), Pixel(part, point)), 0.1);
    }
    g3d_Camera twice = Parallel();
    twice.SetWindow(16, 8);
    EXPECT_FLOAT_EQ(Window(g3d_InterpolateCameras(0.5F, Parallel(), twice))[0], 8);  // equal ratios
}

}  // namespace
