// Protects where annotations appear: the pixels of anchors, the layout of arrows and texts by its laws, that bounds and
// hits agree with what is drawn, and that no input puts a number into the list that is not finite.
#include <annC/annC.h>
#include <g3d/g3d_Camera.h>
#include <g3d/g3d_Viewport.h>
#include <support/RandomGeometry.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <complex>

namespace {

using Pixel = std::complex<double>;
Pixel Of(const annC_DrawPoint& p) { return {p.x, p.y}; }

/// A screen of 2 pixels a millimetre; characters are 6 wide, 9 above the baseline and 3 below.
struct Client : annC_AnnotationClient {
    double scale = 2.0, wide = 6.0;
    double GetWidth(const cow_String& line, const cow_String&) const override { return wide * line.Length(); }
    double GetAscent(const cow_String&) const override { return 9.0; }
    double GetDescent(const cow_String&) const override { return 3.0; }
    g3d_Color GetBackgroundColor() const override { return g3d_Color(g3d_Cyan); }
    double GetPixelsPerMillimeter() const override { return scale; }
};

const g3d_Viewport kViewport(10.0, 20.0, 300.0, 200.0);

template <class A, class... V>
annC_AnchorHld At(V... position) {
    return annC_AnchorHld(std::make_shared<A>(position...));
}

annC_DrawList Drawn(const annC_Annotation& annotation, const Client& client = Client()) {
    return annC_Draw(annotation, g3d_Camera(), kViewport, client);
}

template <class T>
std::vector<T> Items(const annC_DrawList& list) {
    std::vector<T> items;
    for (const auto& item : list.Items())
        if (const T* const each = std::get_if<T>(&item)) items.push_back(*each);
    return items;
}

/// Points all over the items, no further apart than `step`, each with the reach of its line about it.
std::vector<std::pair<Pixel, double>> Sampled(const annC_DrawList& list, double step) {
    std::vector<std::pair<Pixel, double>> points;
    const auto line = [&](Pixel a, Pixel b, double width) {
        const int count = 1 + static_cast<int>(std::abs(b - a) / step);
        for (int i = 0; i <= count; ++i) points.emplace_back(a + (b - a) * (static_cast<double>(i) / count), width / 2);
    };
    for (const auto& each : Items<annC_DrawSegment>(list)) line(Of(each.from), Of(each.to), each.width);
    for (const auto& each : Items<annC_DrawPolygon>(list)) {  // all of them are convex: a fan about the first corner
        for (std::size_t i = 0; i < each.corners.size(); ++i) {
            const Pixel a = Of(each.corners[i]), b = Of(each.corners[(i + 1) % each.corners.size()]);
            line(a, b, each.outline ? each.width : 0.0);
            for (double t = 0.0; t < 1.0; t += step / (std::abs(b - a) + step))
                line(Of(each.corners[0]), a + t * (b - a), 0.0);
        }
    }
    for (const auto& each : Items<annC_DrawText>(list)) {
        const Pixel along = std::polar(1.0, -each.angleDegrees * kPi / 180), up = along * Pixel(0, -1);
        for (double v = -each.descent; v <= each.ascent; v += (each.ascent + each.descent) / 24)
            line(Of(each.baseline) + v * up, Of(each.baseline) + v * up + each.width * along, 0.0);
    }
    return points;
}

/// Annotations with numbers and enumerators of which some are what they should not be.
struct Random : RandomGeometry {
    using RandomGeometry::RandomGeometry;
    double odds = 0.0;  // that a number is odd

    double Any(double low, double high) {
        static const double odd[] = {-1.0, 1e-300, 1e8, 1e300, kInfinity, -kInfinity, kNaN};
        return Number(0, 1) < odds ? odd[static_cast<std::size_t>(Number(0, 7))] : Number(low, high);
    }
    template <class E>
    void Put(auto& annotation, void (std::decay_t<decltype(annotation)>::*set)(E) noexcept, double count) {
        (annotation.*set)(static_cast<E>(static_cast<int>(Number(0.0, count + 1.0))));
    }
    annC_Arrow Arrow() {
        annC_Arrow arrow;
        arrow.SetStartAnchor(At<annC_ViewportAnchor>(Any(0, 1), Any(0, 1)));
        for (const auto set : {&annC_Arrow::SetEndPointX, &annC_Arrow::SetEndPointY}) (arrow.*set)(Any(0, 40));
        for (const auto set : {&annC_Arrow::SetStartGap, &annC_Arrow::SetEndGap}) (arrow.*set)(Any(-5, 10));
        Put(arrow, &annC_Arrow::SetStartHeadStyle, 9);
        Put(arrow, &annC_Arrow::SetEndHeadStyle, 9);
        Put(arrow, &annC_Arrow::SetLineStyle, 5);
        Put(arrow, &annC_Arrow::SetLineThickness, 4);
        return arrow;
    }
    annC_Text Text() {
        annC_Text text;
        text.SetText(Number(0, 1) < 0.5 ? "one line" : "of three lines\n\nthe longest one");
        text.SetReferencePoint(At<annC_ViewportAnchor>(Any(0, 1), Any(0, 1)));
        for (const auto set : {&annC_Text::SetOffsetX, &annC_Text::SetRotationAngle}) (text.*set)(Any(-400, 400));
        text.SetBox(Number(0, 1) < 0.5);
        Put(text, &annC_Text::SetBackgroundStyle, 3);
        Put(text, &annC_Text::SetJustification, 3);
        return text;
    }
};

TEST(Drawing, AnchorsLieWhereTheViewportShowsThem) {
    RandomGeometry random(20262);
    g3d_Camera camera;
    const auto resolved = [&](const annC_AnchorHld& anchor) {
        const auto pixel = annC_ResolveAnchor(anchor, camera, kViewport);
        return pixel ? Of(*pixel) : Pixel(kInfinity);
    };
    for (int position = 0; position < 9; ++position)
        EXPECT_EQ(resolved(At<annC_NamedAnchor>(annC_RelativePositionEnm{position})),
                  Pixel(10.0 + 150.0 * (position % 3), 220.0 - 100.0 * (position / 3)));
    for (const auto& fallback : {annC_AnchorHld(), At<annC_NamedAnchor>(annC_RelativePositionEnm{9})})
        EXPECT_EQ(resolved(fallback), Pixel(10.0, 220.0));
    for (int i = 0; i < 1000; ++i) {
        const double x = random.Number(-2, 2), y = random.Number(-2, 2), z = random.Number(-2, 2);
        EXPECT_LT(std::abs(resolved(At<annC_ViewportAnchor>(x, y)) - Pixel(10 + x * 300, 220 - y * 200)), 1e-11);
        const auto seen = kViewport.ToPixel(camera, g3d_Viewport::Triple{x, y, z});  // the eye is at x = 2
        EXPECT_EQ(resolved(At<annC_Point3DAnchor>(x, y, z)), Pixel((*seen)[0], (*seen)[1]));
    }
    for (const auto& nowhere : {At<annC_Point3DAnchor>(2.0, 0.0, 0.0), At<annC_Point3DAnchor>(3.0, 0.0, 0.0),
                                At<annC_Point3DAnchor>(kNaN, 0.0, 0.0), At<annC_ViewportAnchor>(0.0, kInfinity)})
        EXPECT_EQ(resolved(nowhere), Pixel(kInfinity));
}

TEST(Drawing, ArrowsRunFromGapToGap) {
    Random random(20263);
    for (int i = 0; i < 300; ++i) {
        const annC_Arrow arrow = random.Arrow();
        const Pixel start = Of(*annC_ResolveAnchor(arrow.StartAnchor(), g3d_Camera(), kViewport));
        const Pixel end = Pixel(10, 220) + 2.0 * Pixel(arrow.EndPointX(), -arrow.EndPointY());
        const double length = std::abs(end - start);
        const double first = 2 * std::max(0.0, arrow.StartGap()), last = length - 2 * std::max(0.0, arrow.EndGap());
        const annC_DrawList list = Drawn(arrow);
        const bool isLine = arrow.LineStyle() != annC_LineStyleEnm::NONE;
        EXPECT_TRUE(first < last ? !isLine || !list.Items().empty() : list.Items().empty());
        double least = last, most = first;
        for (const auto& [point, reach] : Sampled(list, 100)) {
            const double along = std::real((point - start) * std::conj(end - start)) / length;
            least = std::min(least, along);
            most = std::max(most, along);
        }
        if (first >= last) continue;
        EXPECT_TRUE(least > first - 1e-9 && most < last + 1e-9);
        EXPECT_TRUE(!isLine || (least < first + 1e-9 && most > last - 1e-9));
    }
}

TEST(Drawing, TextsLieByTheirReferencePoint) {
    Random random(20264);
    for (int i = 0; i < 200; ++i) {
        annC_Text text = random.Text();
        text.SetBox(true);
        const annC_DrawList list = Drawn(text);
        const auto box = Items<annC_DrawPolygon>(list).at(0);
        const auto lines = Items<annC_DrawText>(list);
        const Pixel corner = Of(box.corners[0]), right = Of(box.corners[1]) - corner, up = Of(box.corners[3]) - corner;
        const auto [x, y] = *annC_AnchorFractions(text.ReferencePoint());
        EXPECT_LT(std::abs(corner + x * right + y * up - Pixel(10 + 2 * text.OffsetX(), 220)), 1e-9);
        const Pixel turn = std::polar(1.0, -text.RotationAngle() * kPi / 180);
        const double widest = lines.back().width, height = lines.size() == 1 ? 12.0 : 36.0;  // and a margin of 2 pixels
        EXPECT_LT(std::abs(right - (widest + 4) * turn) + std::abs(up - (height + 4) * turn * Pixel(0, -1)), 1e-9);
        const int side = static_cast<int>(text.Justification());
        const double indent = side == 1 || side == 2 ? (widest - lines[0].width) * side / 2 : 0.0;
        EXPECT_LT(std::abs(corner + turn * Pixel(2 + indent, 7 - height) - Of(lines[0].baseline)), 1e-9);
        EXPECT_LT(std::abs(corner + turn * Pixel(2, -5) - Of(lines.back().baseline)), 1e-9);
        const std::optional<g3d_Color> fills[] = {{}, g3d_Color(g3d_Cyan), g3d_Color(g3d_Black)};
        EXPECT_EQ(box.fill, fills[static_cast<unsigned>(text.BackgroundStyle()) % 3]);
    }
}

TEST(Drawing, BoundsAndHitsAreThoseOfWhatIsDrawn) {
    Random random(20265);
    for (int i = 0; i < 20; ++i) {
        annC_DrawList list = Drawn(random.Arrow());
        if (i % 2 == 0) list = Drawn(random.Text());
        if (list.Items().empty()) continue;
        const auto points = Sampled(list, 1.0);
        const annC_DrawBounds bounds = *list.Bounds();
        Pixel least(kInfinity, kInfinity), most = -least;
        for (const auto& [p, reach] : points) {
            least = {std::min(least.real(), p.real() - reach), std::min(least.imag(), p.imag() - reach)};
            most = {std::max(most.real(), p.real() + reach), std::max(most.imag(), p.imag() + reach)};
        }
        EXPECT_LT(std::abs(least - Of(bounds.min)) + std::abs(most - Of(bounds.max)), 1e-9);
        for (int k = 0; k < 30; ++k) {
            const annC_DrawPoint p{random.Number(bounds.min.x - 5, bounds.max.x + 5),
                                   random.Number(bounds.min.y - 5, bounds.max.y + 5)};
            const double tolerance = std::max(0.0, random.Number(-1, 4));
            double distance = kInfinity;
            for (const auto& [q, reach] : points) distance = std::min(distance, std::abs(Of(p) - q) - reach);
            const bool isClear = std::abs(distance - tolerance) > 1.0;
            EXPECT_TRUE(!isClear || list.IsHit(p, tolerance) == (distance < tolerance));
        }
        EXPECT_FALSE(list.IsHit({kNaN, 0.0}, 1e9));
    }
}

TEST(Drawing, NothingIsNotFinite) {
    Random random(20266);
    random.odds = 0.1;
    int drawn = 0;
    for (int i = 0; i < 1000; ++i) {
        Client client;
        client.scale = random.Any(1.0, 4.0);
        client.wide = random.Any(0.0, 9.0);
        annC_DrawList list = Drawn(random.Arrow(), client);
        list.Add(Drawn(random.Text(), client));
        if (list.Items().empty()) continue;
        ++drawn;
        double sum = std::abs(Of(list.Bounds()->min)) + std::abs(Of(list.Bounds()->max));
        for (const auto& segment : Items<annC_DrawSegment>(list))
            for (const double dash : segment.dashes) sum += 1.0 / dash;
        for (const auto& [point, reach] : Sampled(list, 1e10)) sum += std::abs(point) + reach;
        EXPECT_TRUE(std::isfinite(sum));
    }
    EXPECT_GT(drawn, 300);
    annC_Arrow arrow;  // its ends coincide
    EXPECT_TRUE(Drawn(arrow).Items().empty() && Drawn(annC_Text()).Items().empty());
    arrow.SetEndPointX(5.0);
    for (const char* const color : {"White", "#ffffff", "no colour", "#", "#zz", "#gggggg", "#1234567"}) {
        arrow.SetColor(color);
        EXPECT_EQ(Items<annC_DrawSegment>(Drawn(arrow)).at(0).color, g3d_Color(g3d_White)) << color;
    }
    arrow.SetStartGap(5.0);
    EXPECT_TRUE(Drawn(arrow).Items().empty());
}

}  // namespace
