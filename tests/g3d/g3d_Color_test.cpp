// Protects colours: exact conversions, their deliberate oddities, contrast, palette, names, spectra and legends, and
// that no input whatever leads to undefined behaviour.
#include <g3d/g3d.h>
#include <support/RandomFloats.h>
#include <support/streams.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <climits>
#include <cmath>
#include <complex>
#include <numbers>
#include <string>
#include <tuple>
#include <vector>

static bool operator==(const _RGB& a, const _RGB& b) { return a.r == b.r && a.g == b.g && a.b == b.b; }
static bool operator==(const _HSV& a, const _HSV& b) { return a.h == b.h && a.s == b.s && a.v == b.v; }
static void PrintTo(const _RGB& c, std::ostream* out) { *out << c.r << ' ' << c.g << ' ' << c.b; }
static void PrintTo(const _HSV& c, std::ostream* out) { *out << c.h << ' ' << c.s << ' ' << c.v; }

namespace {

using Colors = std::vector<g3d_Color>;

constexpr _RGB kRed = {65535, 0, 0}, kGreen = {0, 65535, 0};

struct Random : RandomFloats {
    using RandomFloats::RandomFloats;
    float Fraction() { return Number(0.0, 1.0); }
    uint16_t Channel() { return static_cast<uint16_t>(Whole(0, 65535)); }
    _RGB Rgb() { return {Channel(), Channel(), Channel()}; }
    g3d_Color Color() { return {Fraction(), Fraction(), Fraction(), Fraction()}; }
    /// Any bit pattern: NaN, infinities, huge and tiny numbers.
    float Any() { return std::bit_cast<float>(Whole(INT_MIN, INT_MAX)); }
    g3d_Color AnyColor() { return {Any(), Any(), Any(), Any()}; }
};

TEST(g3d_RGB, ToHSVAndBack) {
    for (int level = 0; level < 65536; ++level) {
        const auto c = static_cast<uint16_t>(level);
        ASSERT_EQ(RGBToHSV({c, c, c}), (_HSV{0.0F, 0.0F, static_cast<float>(level) / 65535.0F}));
    }
    EXPECT_EQ(RGBToHSV({65535, 65535, 0}).h, 1.0F / 6.0F) << "the first of two greatest decides";
    EXPECT_EQ(RGBToHSV({65535, 0, 65535}).h, 5.0F / 6.0F);

    Random random(1);
    for (int round = 0; round < 20000; ++round) {
        const _RGB c = random.Rgb();
        const double r = c.r, g = c.g, b = c.b, v = std::max({r, g, b}), d = v - std::min({r, g, b});
        const double sixths = d == 0.0 ? 0.0 : v == r ? (g - b) / d : v == g ? 2.0 + (b - r) / d : 4.0 + (r - g) / d;
        _HSV hsv = RGBToHSV(c);
        EXPECT_NEAR(hsv.h, (sixths < 0.0 ? sixths + 6.0 : sixths) / 6.0, 2e-7 * std::max(1.0, 65535.0 / d));
        EXPECT_NEAR(hsv.s, d / v, 2e-7 * std::max(1.0, 65535.0 / v));
        EXPECT_EQ(hsv.v, static_cast<float>(v / 65535.0));
        EXPECT_EQ(HSVToRGB(hsv), c);
    }
}

TEST(g3d_RGB, FromHSVChangesItsArgument) {
    const std::tuple<_HSV, _RGB, _HSV> rows[] = {
        {{0.4F, 0.0F, 0.5F}, {32768, 32768, 32768}, {0.4F, 0.0F, 0.5F}},  // a grey leaves it alone
        {{0.25F, 2.0F, 1.5F}, {32768, 65535, 0}, {1.5F, 1.0F, 1.0F}},
        {{0.25F, -1.0F, 0.5F}, {32768, 32768, 32768}, {1.5F, 0.0F, 0.5F}},
        {{1.0F, 1.0F, 1.0F}, kRed, {0.0F, 1.0F, 1.0F}},
        {{0.9375F, 1.0F, 1.0F}, {65535, 0, 24576}, {5.625F, 1.0F, 1.0F}},
        {{-0.125F, 1.0F, 0.5F}, {32768, 40961, 0}, {-0.75F, 1.0F, 0.5F}},  // sector 0 goes on below 0
        {{-0.25F, 1.0F, 1.0F}, {0, 0, 0}, {-1.5F, 1.0F, 1.0F}},
        {{-kInfinity, 1.0F, 1.0F}, {0, 0, 0}, {-kInfinity, 1.0F, 1.0F}}};
    for (const auto& [before, rgb, after] : rows) {
        _HSV hsv = before;
        EXPECT_EQ(HSVToRGB(hsv), rgb) << before.h << ' ' << before.s << ' ' << before.v;
        EXPECT_EQ(hsv, after);
    }
    _HSV lost = {kNaN, 1.0F, 1.0F};
    EXPECT_EQ(HSVToRGB(lost), kRed);
}

TEST(g3d_RGB, FractionsAndMixtures) {
    EXPECT_EQ(PctToRGB(1.5F, 0.5F, 0.0F), (_RGB{65535, 32768, 0}));
    EXPECT_EQ(PctToRGB(-0.5F, kNaN, kInfinity), (_RGB{32769, 0, 65535}));
    EXPECT_EQ(PctToRGB(-kInfinity, -1e30F, -1e-9F), (_RGB{0, 0, 0}));
    EXPECT_EQ(PctToHSV(1.5F, -2.0F, 0.25F), (_HSV{1.0F, -2.0F, 0.25F}));

    EXPECT_EQ(MixRGB({101, 60000, 60000}, 0.5F, {100, 60000, 1}, 1.0F), (_RGB{150, 65535, 30001}));
    EXPECT_EQ(MixRGB({1, 2, 3}, -1.0F, {0, 0, 0}, kInfinity), (_RGB{0, 0, 0}));

    const _RGB pink = {65535, 0, 39321};  // hue 0.9
    EXPECT_NEAR(RGBToHSV(MixHSV(kRed, 0.5F, pink, 0.5F)).h, 0.95F, 1e-5F);
    EXPECT_NEAR(RGBToHSV(MixHSV(kRed, 0.0F, pink, 1.0F)).h, 0.4F, 1e-5F) << "half a turn off, whatever the weights";
    EXPECT_EQ(MixHSV(kRed, 0.5F, {0, 65535, 65535}, 0.5F), (_RGB{32768, 65535, 0})) << "not for just half a turn";
    EXPECT_EQ(MixHSV(kGreen, -1.0F, kGreen, 0.0F), (_RGB{0, 0, 0}));

    EXPECT_EQ(RGBDist(RGBBlack, RGBWhite), 3.0F);
    EXPECT_EQ(RGBDist({1, 5, 9}, {2, 3, 9}), 3.0F / 65535.0F);
    EXPECT_EQ(CMYToRGB({1, 2, 65535}), (_RGB{65534, 65533, 0}));
    EXPECT_EQ(RGBToCMY(RGBWhite), RGBBlack);
}

TEST(g3d_Color, SetsFromPresetsColoursAndPackedBytes) {
    g3d_Color c;
    EXPECT_EQ(c.SetMagenta(0.5F), g3d_Color(1.0F, 0.0F, 1.0F, 0.5F));
    EXPECT_EQ(c.SetYellow().SetGrey70(0.25F), g3d_Color(0.7F, 0.7F, 0.7F, 0.25F));
    for (const int preset : {17, -1, INT_MIN})
        EXPECT_EQ(c.Set(static_cast<g3d_PresetColorEnum>(preset), 0.5F), g3d_Color(0.7F, 0.7F, 0.7F, 0.25F));
    EXPECT_EQ(g3d_Color().Set(c, 1.0F).A(), 0.25F) << "1 keeps the alpha of the source";
    EXPECT_EQ(c.Set(c, 0.999F).A(), 0.999F);

    constexpr float step = 1.0F / 255.0F;
    const g3d_Color packed(1 * step, 2 * step, 3 * step, 255 * step);
    EXPECT_EQ(c.Set(0x010203FFU), packed);
    EXPECT_EQ(g3d_ColorArray::IntToFloatColor(0xFF030201U), packed) << "the other way round";
    for (unsigned byte = 0; byte < 256; ++byte) {
        const unsigned rgba = byte << 24 | (255 - byte) << 16 | 0xA5FFU;
        ASSERT_EQ(c.Set(rgba).GetRGBA(), rgba);
        ASSERT_EQ(g3d_Color().Set(g3d_ColorText(c)), c);
    }
    EXPECT_EQ(g3d_ColorText({kInfinity, 0.0019F, 0.002F, 1.0F}), "#FF0001");
    EXPECT_EQ(g3d_Color(2.0F, -1.0F, kNaN, 0.999F).GetRGBA(), 0xFE0100FEU) << "low bytes";

    EXPECT_EQ(g3d_Color(-1.0F, 0.5F, kInfinity, 2.0F).Clamp(), g3d_Color(0.0F, 0.5F, 1.0F, 1.0F));
    const g3d_Color a(0.5F, 0.25F, 2.0F, 0.0F), b(2.0F, 1.0F, 3.0F, 0.0F);
    EXPECT_EQ(a * b - a + b, g3d_Color(2.5F, 1.0F, 7.0F, 1.0F));
    EXPECT_EQ((a + a).A() + (a - a).A() + (a * a).A(), 3.0F);
    EXPECT_NE(g3d_Color(1.0F, 1.0F, 1.0F, 0.5F), g3d_Color(g3d_White));
    EXPECT_EQ(testing::PrintToString(g3d_Color(1.0F, 0.1F, -2.5F, 0.0F)), "(1, 0.1, -2.5, 0)");
}

TEST(g3d_Color, ReadsTextAsTheScannerDoes) {
    const std::pair<std::string, unsigned> rows[] = {{"#ff80001234", 0xFF8000},
                                                     {"#", 0},
                                                     {"#1G2233", 0x010000},
                                                     {"# 1\t 2\n33", 0x010233},
                                                     {"#+1+2+3", 0x010203},
                                                     {std::string("#12\0", 4) + "34", 0x120000},
                                                     {"#01" + std::string(100000, ' ') + "02x", 0x010200}};
    for (const auto& [text, rgb] : rows)
        EXPECT_EQ(g3d_Color().Set(cow_String(text), 0.5F), g3d_Color().Set(g3d_Color().Set(rgb << 8), 0.5F)) << text;
    EXPECT_EQ(g3d_Color().Set("#-1"), g3d_Color(0x1p32F / 255.0F, 0.0F, 0.0F, 1.0F)) << "wraps around";
    for (const char* const text : {"", "FF8000", " #FF8000"})
        EXPECT_EQ(g3d_Color(g3d_Cyan, 0.25F).Set(text, 0.5F), g3d_Color(g3d_Cyan, 0.25F));
}

TEST(g3d_Color, HSVKeepsAlphaAndFoldsNothing) {
    Random random(2);
    for (int round = 0; round < 5000; ++round) {
        const g3d_Color c = random.Color();
        const g3d_Color off = g3d_Color(0.0F, 0.0F, 0.0F, c.A()).SetHSV(c.GetHSV()) - c;
        EXPECT_LT(std::max({std::abs(off.R()), std::abs(off.G()), std::abs(off.B())}), 1e-6F);
    }
    EXPECT_EQ(g3d_Color(0.5F, 0.25F, 0.75F, 0.0F).GetHSV(), (_HSV{4.5F / 6.0F, 1.0F / 1.5F, 0.75F}));
    const g3d_Color c(0.1F, 0.2F, 0.3F, 0.4F);
    const std::pair<_HSV, g3d_Color> rows[] = {{{1.0F, 0.5F, 2.0F}, {2.0F, 1.0F, 1.0F, 0.4F}},
                                               {{-0.125F, 1.0F, 1.0F}, {1.0F, -0.75F, 0.0F, 0.4F}},
                                               {{-0.25F, 1.0F, 1.0F}, c},
                                               {{-0.25F, 0.0F, 1.0F}, {1.0F, 1.0F, 1.0F, 0.4F}}};
    for (const auto& [hsv, color] : rows) EXPECT_EQ(g3d_Color(c).SetHSV(hsv), color) << hsv.h;
}

TEST(g3d_Color, InvertsByOctantsAndTheirTable) {
    EXPECT_EQ(g3d_Color::ColorOctal(0.5F, 0.0F, 0.0F), 2);
    EXPECT_EQ(g3d_Color::ColorOctal(0.0F, 0.5F, 0.0F), 4);
    EXPECT_EQ(g3d_Color::ColorOctal(0.4999F, kNaN, 0.5F), 1);

    const g3d_Color same(0.25F, 0.5F, 0.75F, 0.5F);
    EXPECT_EQ(g3d_Color(same).Invert(same, 0.0F), g3d_Color(0.75F, 0.5F, 0.25F, 0.5F));
    const std::array<float, 9> rows[] = {
        // colour, background, result
        {0.125F, 0.25F, 0.0F, 0.3F, 0.4F, 0.0F, 0.875F, 0.75F, 1.0F},    // 0 on 0: up, 1 - x below a quarter
        {1.0F, 0.75F, 0.5F, 0.5F, 0.5F, 0.5F, 0.0F, 0.25F, 0.0F},        // 7 on 7: down, 1 - x above three quarters
        {0.5F, 0.0F, 0.25F, 0.0F, 0.0F, 0.75F, 0.0F, 1.0F, 0.75F},       // 2 on 1: red down
        {1.0F, 0.0F, 0.25F, 0.0F, 0.125F, 1.0F, 0.0F, 1.0F, 0.75F},      // 2 on 1, bright: red inverted
        {0.75F, 0.0F, 0.0F, 0.0F, 0.0F, 0.5F, 0.25F, 1.0F, 1.0F},        // 2 on 1, just not bright
        {0.5F, 0.0F, 0.0F, 0.0F, 0.5F, 0.5F, 0.5F, 0.0F, 0.0F},          // 2 on 5: contrast enough
        {0.625F, 0.25F, 0.25F, 0.0F, 0.5F, 0.5F, 0.375F, 0.75F, 0.75F},  // 2 on 5: red inverted
        {0.875F, 0.0F, 0.0F, 0.5F, 0.0F, 0.0F, 0.375F, 1.0F, 1.0F},      // 2 on 2, bright: red down all the same
        {1.0F, 0.25F, 0.5F, 0.0F, 0.75F, 0.0F, 0.0F, 0.25F, 1.0F},       // 3 on 4: blue 1, green as it was
        {0.0F, 0.75F, 0.25F, 1.0F, 0.25F, 0.5F, 1.0F, 0.75F, 0.0F},      // 4 on 3: blue 0, green as it was
    };
    for (const auto& [r, g, b, br, bg, bb, ir, ig, ib] : rows)
        EXPECT_EQ(g3d_Color(r, g, b, 0.5F).Invert({br, bg, bb, 1.0F}, 7.0F), g3d_Color(ir, ig, ib, 0.5F))
            << r << ' ' << g << ' ' << b;

    // The table is not symmetric: a contrast between the two entries is enough one way only.
    const g3d_Color pink(0.83F, 0.0F, 0.0F, 1.0F), navy(0.0F, 0.0F, 0.5F, 1.0F);  // octants 2, 1: 0.191
    EXPECT_NE(g3d_Color(pink).Invert(navy, 0.0F), pink) << "0.22 asked";
    EXPECT_EQ(g3d_Color(navy).Invert(pink, 0.0F), navy) << "0.19 asked";
    const g3d_Color green(0.0F, 0.75F, 0.0F, 1.0F), yellow(0.875F, 0.75F, 0.0F, 1.0F);  // octants 4, 6: 0.26
    EXPECT_NE(g3d_Color(green).Invert(yellow, 0.0F), green) << "0.30 asked";
    EXPECT_EQ(g3d_Color(yellow).Invert(green, 0.0F), yellow) << "0.19 asked";
}

TEST(g3d_Color, ContrastingColorKeepsHueAndSaturation) {
    const auto grey = [](float v, float alpha = 0.5F) { return g3d_Color(v, v, v, alpha); };
    EXPECT_EQ(grey(0.5F).GetContrastingColor(grey(0.4F)), grey(1.0F));
    EXPECT_EQ(grey(0.5F).GetContrastingColor(grey(0.5F)), grey(0.0F));
    EXPECT_EQ(grey(0.25F).GetContrastingColor(grey(0.75F)), grey(0.25F));
    EXPECT_EQ(grey(1.0F).GetContrastingColor(g3d_Color(g3d_Yellow)), g3d_Color()) << "white on yellow: opaque black";
    EXPECT_EQ(grey(1.0F).GetContrastingColor(g3d_Color(g3d_Blue)), grey(1.0F));
    const g3d_Color black = grey(0.0F).GetContrastingColor({0.2F, 0.0F, 0.0F, 1.0F});
    EXPECT_GT(black.R(), 0.5F) << "black on dark red";
    EXPECT_EQ(black, grey(black.R()));

    // What is moved ends at a distance of 0.35 from the background, in the cone of colours.
    Random random(3);
    int moved = 0;
    for (int round = 0; round < 5000; ++round) {
        const g3d_Color c = random.Color(), background = random.Color();
        const _HSV before = c.GetHSV(), other = background.GetHSV();
        if (before.s < 0.1F || before.v < 0.1F) continue;
        const g3d_Color result = c.GetContrastingColor(background);
        EXPECT_EQ(result.A(), c.A());
        const _HSV after = result.GetHSV();
        if (result == c || after.v < 0.05F || after.v > 1.0F) continue;
        ++moved;
        EXPECT_NEAR(after.s, before.s, 1e-5F);
        EXPECT_NEAR(std::remainder(after.h - before.h, 1.0F), 0.0F, 1e-4F);
        const auto isLight = [](const _HSV& x) {
            return (x.h > 0.15F && x.h < 0.24F) || (x.h > 0.42F && x.h < 0.52F) || (x.v > 0.9F && x.s < 0.16F);
        };
        const double k = isLight(before) && isLight(other) ? 0.31 : 0.36;
        const auto around = [k](const _HSV& x) { return std::polar(k * x.v * x.s, 2.0 * std::numbers::pi * x.h); };
        EXPECT_NEAR(std::hypot(std::abs(around(after) - around(other)), after.v - other.v), 0.35, 2e-4);
        EXPECT_EQ(std::isless(after.v, other.v), std::isgreater(other.v, 0.5F)) << "darker on what is bright";
    }
    EXPECT_GT(moved, 1000);
}

TEST(g3d_ColorArray, HoldsNoMoreThan254) {
    const g3d_Color none(0.0F, 0.0F, 0.0F, 0.0F), white(g3d_White);
    g3d_ColorArray palette;
    EXPECT_EQ(palette.GetColor(0), none);
    EXPECT_EQ(palette.GetColor(1), white);
    for (unsigned i = 0; i < 254; ++i) EXPECT_EQ(palette.CheckColor(g3d_Color().Set(i << 8 | 0x80U)), i);
    EXPECT_EQ(palette.CheckColor(white), 254u);
    EXPECT_EQ(palette.CheckColor(g3d_Color().Set(0x00000780U)), 7u);
    EXPECT_EQ(palette.GetColor(254), none) << "one past the end may be asked for";
    g3d_Color color;
    palette.GetColor(0xFFFFFFFFU, color);
    EXPECT_EQ(color, white);
    float r = 7.0F, g = 7.0F, b = 7.0F;
    palette.GetColor(255, r, g, b);
    EXPECT_EQ(r, 7.0F);
    palette.GetColor(3, r, g, b);
    EXPECT_EQ(b, static_cast<float>(3 * 0.00392156862745098));

    g3d_ColorArray copy = palette;
    copy.SetAlpha(1.0F);
    EXPECT_EQ(copy.GetColor(9).GetRGBA(), 0x000009FFU);
    EXPECT_EQ(palette.GetColor(9).GetRGBA(), 0x00000980U);
    palette.Cleanup();
    EXPECT_EQ(palette.Count(), 0u);
    EXPECT_EQ(palette.GetColor(0), none);
    EXPECT_EQ(palette.CheckColor({2.0F, -1.0F, kNaN, 0.5F}), 0u);
    EXPECT_EQ(palette.GetColor(0).GetRGBA(), 0xFE01007FU);
    palette.CheckColor({0.5F, 0.5F, 0.5F, 0.25F});
    palette.ContrastColors(g3d_Color(g3d_Grey40));
    EXPECT_EQ(palette.GetColor(1).GetRGBA(), 0xFFFFFF3FU);
}

TEST(g3d_ColorMap, NamesAreExactAndDefaultsStay) {
    omi_Singleton<g3d_ColorMap>::Finalize();
    g3d_ColorMap& map = g3d_ColorMap::Instance();
    EXPECT_EQ(map.Length(), 28);
    EXPECT_EQ(map.ConstGet("Light orange"), g3d_Color(1.0F, 0.6F, 0.0F, 1.0F));
    EXPECT_FALSE(map.AddByRGB("Red", 0.0F, 0.0F, 0.0F) || map.Remove("Red"));
    EXPECT_TRUE(map.AddByRGB("red", 0.75F, 0.0F, 0.0F));
    EXPECT_TRUE(map.IsMember("red") && map.IsUserColor("red") && !map.IsDefaultColor("red"));
    EXPECT_TRUE(map.AddDefaultColor("red", 0.25F, 0.0F, 0.0F));
    EXPECT_EQ(map.ConstGet("red").R(), 0.75F) << "the user's hides the default one";
    const cow_List<cow_String> keys = map.Keys();
    EXPECT_EQ(keys.Length(), map.Length());
    EXPECT_TRUE(keys.ConstGet(0) == "Aqua" && keys.ConstGet(29) == "red");
    EXPECT_TRUE(map.Remove("red"));
    EXPECT_EQ(map.ConstGet("red").R(), 0.25F);
    EXPECT_TRUE(map.AddByRGB("#FF0000", 0.0F, 1.0F, 0.0F));
    EXPECT_EQ(map.ConstGet("#FF0000"), g3d_Color(g3d_Red)) << "read, not looked up";
    omi_Singleton<g3d_ColorMap>::Finalize();
    EXPECT_FALSE(g3d_ColorMap::Instance().IsMember("red"));
}

TEST(g3d_ColorErrorException, CarriesTheNameAndComesBack) {
    try {
        static_cast<void>(g3d_ColorMap::Instance().ConstGet("100%s%n red"));
        FAIL();
    } catch (const nex_CommandException& caught) {
        EXPECT_STREQ(caught.what(), "100%s%n red is not a valid color name.");
        EXPECT_STREQ(caught.PythonType(), "ColorError");
        EXPECT_EQ(caught.JournalMessage(OrvBasStringMode(0)), caught.what());
    }
    cls_ClassRegistrar registrar;
    g3d_ColorErrorException::InitializeMetadata(registrar);
    const auto back = RoundTrip(registrar, g3d_ColorErrorException(cow_String(std::string("a\0b", 3))));
    EXPECT_EQ(back.Value(), cow_String(std::string("a\0b", 3)));
    EXPECT_STREQ(back.what(), "a is not a valid color name.");
}

TEST(g3d_Utils, ConvertsScalars) {
    const std::pair<float, int> rows[] = {{2.5F, 3}, {-0.5F, 0},       {-2.5F, -2},           {-2.7F, -2},
                                          {kNaN, 0}, {1e10F, INT_MAX}, {-kInfinity, INT_MIN}, {0.49999997F, 1}};
    for (const auto& [x, whole] : rows) EXPECT_EQ(g3d_Utils::Round(x), whole) << x;
    const auto thickness = [](int value) { return g3d_Utils::ConvertLineThickness(g3d_LineThicknessEnum(value)); };
    EXPECT_EQ((std::array{thickness(-1), thickness(0), thickness(1), thickness(2), thickness(3), thickness(4)}),
              (std::array{0.2F, 0.2F, 0.5F, 0.8F, 1.2F, 0.2F}));
    const auto size = [](int value) { return g3d_Utils::ConvertMarkerSize(g3d_MarkerSizeEnum(value)); };
    EXPECT_EQ((std::array{size(-1), size(0), size(1), size(2), size(3)}), (std::array{2.0F, 2.0F, 3.0F, 4.0F, 2.0F}));
}

Colors Spectrum(int which, int n, bool reverse) {
    Colors colors(static_cast<std::size_t>(std::max(n, 1)), g3d_Color(0.5F, 0.5F, 0.5F, 0.5F));
    g3d_Spectrum(g3d_SpectrumEnum(which), colors.data(), n, reverse, 0.25F);
    return colors;
}

TEST(g3d_Utils, NamedSpectra) {
    const auto c = [](float r, float g, float b) { return g3d_Color(r, g, b, 0.25F); };
    EXPECT_EQ(Spectrum(0, 3, false), (Colors{c(0, 0, 1), c(0, 1, 0), c(1, 0, 0)}));
    EXPECT_EQ(Spectrum(99, 3, true), (Colors{c(1, 0, 0), c(0, 1, 0), c(0, 0, 1)})) << "rainbow when unknown";
    EXPECT_EQ(Spectrum(1, 3, false), (Colors{c(0, 0.09F, 1), c(0.25F, 0.09F, 0.25F), c(1, 0.09F, 0)}));
    EXPECT_EQ(Spectrum(2, 3, true), (Colors{c(0.85F, 0.85F, 0.85F), c(0.5F, 0.5F, 0.5F), c(0.15F, 0.15F, 0.15F)}));
    const Colors wrapped = Spectrum(3, 11, true);
    EXPECT_EQ(wrapped.front(), wrapped.back());
    EXPECT_EQ(wrapped[0], c(static_cast<float>(13107) / 65535.0F, 1, 0));
    EXPECT_EQ(wrapped[7], c(1, 0, 0)) << "once around";

    const Colors safe = Spectrum(4, 9, false), perceptual = Spectrum(5, 9, false);
    const Colors one[] = {{c(0, 0, 1), c(1, 0, 0)}, {c(0, 0.5F, 1), c(1, 0.5F, 0)},
                          {c(0, 0, 0), c(1, 1, 1)}, {c(0, 1, 0.5F), c(0, 1, 0.5F)},
                          {safe[0], safe[8]},       {perceptual[0], perceptual[8]}};
    for (int which = 0; which < 6; ++which) {
        EXPECT_EQ((Colors{Spectrum(which, 1, false)[0], Spectrum(which, 1, true)[0]}), one[which]) << which;
        g3d_Spectrum(g3d_SpectrumEnum(which), nullptr, which == 0 ? 0 : INT_MIN, false, 0.0F);
    }
}

TEST(g3d_Utils, SpectrumThroughNames) {
    const auto filled = [](const cow_List<cow_String>& names, int n) {
        Colors colors(300, g3d_Color(0.0F, 0.0F, 0.0F, 0.25F));
        g3d_Utils::FillInColorsAndInterpolate(names, n, colors.data());
        colors.resize(static_cast<std::size_t>(std::clamp(n, 1, 300)));
        return colors;
    };
    const g3d_Color red(g3d_Red), green(g3d_Green), blue(g3d_Blue), none(0.0F, 0.0F, 0.0F, 0.25F);
    for (const auto& ends : {cow_List<cow_String>{"Red", "Blue"}, {"Blue", "Red"}}) {
        const g3d_Color middle = filled(ends, 3)[1];
        EXPECT_NEAR(middle.GetHSV().h, 5.0F / 6.0F, 1e-6F) << "the short way, by magenta";
        EXPECT_EQ(middle.A(), 0.25F);
    }
    const Colors six = filled({"Red", "#00FF00", "Blue"}, 6);
    EXPECT_EQ(six[2], green) << "a half goes down: place 2.5";
    EXPECT_NEAR(six[3].GetHSV().h, 4.0F / 9.0F, 1e-6F);
    EXPECT_EQ(filled({"Red", "Green", "White", "Blue"}, 3), (Colors{red, green, blue})) << "3 / 2 is 1";
    EXPECT_EQ(filled({"Red", "Green"}, 1), Colors{red});
    EXPECT_EQ(filled({"Blue"}, 3), (Colors{blue, blue, blue}));
    EXPECT_EQ(filled({"Red", "Blue"}, 256)[255], blue);
    for (const int n : {0, 257}) EXPECT_EQ(filled({"Red", "Blue"}, n)[0], none);
    EXPECT_EQ(filled({}, 3)[0], none);
    Colors untouched(1, none);
    EXPECT_THROW(g3d_Utils::FillInColorsAndInterpolate({"Red", "nowhere"}, 1, untouched.data()),
                 g3d_ColorErrorException);
    EXPECT_EQ(untouched[0], none);
    for (int n = 5; n <= 256; ++n) {  // names keep their places whatever the rounding
        const Colors names = filled({"Red", "White", "Black", "Green", "Blue"}, n);
        EXPECT_TRUE(names.front() == red && names.back() == blue);
        EXPECT_EQ(std::count_if(names.begin(), names.end(), [](const g3d_Color& c) { return c.A() == 1.0F; }), 5);
    }
}

/// Lightness and the two colour axes of Oklab, in double precision.
std::array<double, 3> Oklab(const g3d_Color& color) {
    const auto linear = [](double x) { return x <= 0.04045 ? x / 12.92 : std::pow((x + 0.055) / 1.055, 2.4); };
    const double r = linear(color.R()), g = linear(color.G()), b = linear(color.B());
    const double l = std::cbrt(0.4122214708 * r + 0.5363325363 * g + 0.0514459929 * b);
    const double m = std::cbrt(0.2119034982 * r + 0.6806995451 * g + 0.1073969566 * b);
    const double s = std::cbrt(0.0883024619 * r + 0.2817188376 * g + 0.6299787005 * b);
    return {0.2104542553 * l + 0.7936177850 * m - 0.0040720468 * s,
            1.9779984951 * l - 2.4285922050 * m + 0.4505937099 * s,
            0.0259040371 * l + 0.7827717662 * m - 0.8086757660 * s};
}

TEST(g3d_Spectrum, StepsLookEqualAndRiseForEveryEye) {
    for (const int which : {4, 5}) {
        const Colors colors = Spectrum(which, 65, false);
        double firstStep = 0.0;
        for (std::size_t i = 0; i < colors.size(); ++i) {
            EXPECT_EQ(g3d_Color(colors[i]).Clamp(), colors[i]) << "no colour of a screen";
            if (i == 0) continue;
            const auto a = Oklab(colors[i - 1]), b = Oklab(colors[i]);
            const double step = std::hypot(b[0] - a[0], b[1] - a[1], b[2] - a[2]);
            if (i == 1) firstStep = step;
            EXPECT_NEAR(step, firstStep, 1e-5);
            EXPECT_GT(g3d_RelativeLuminance(colors[i]), g3d_RelativeLuminance(colors[i - 1]));
            EXPECT_TRUE(which == 5 || std::abs(b[1]) < 0.021) << "red and green must not matter";
        }
        EXPECT_GT(g3d_ContrastRatio(colors.front(), colors.back()), 7.0);
    }
}

TEST(g3d_ContrastRatio, FollowsTheGuidelines) {
    const g3d_Color white(g3d_White), black(g3d_Black);
    EXPECT_DOUBLE_EQ(g3d_ContrastRatio(white, black), 21.0);
    EXPECT_EQ(g3d_ContrastRatio({kNaN, -1.0F, kNaN, 0.0F}, black), 1.0);
    EXPECT_NEAR(g3d_ContrastRatio(g3d_Color().Set("#767676"), white), 4.54, 0.005);
    EXPECT_NEAR(g3d_ContrastRatio(g3d_Color(g3d_Red), white), 3.998, 0.001);
    EXPECT_NEAR(g3d_RelativeLuminance(g3d_Color(g3d_Blue)), 0.0722, 1e-12);
}

TEST(g3d_ContourScale, EveryValueHasTheColourOfItsBand) {
    g3d_ContourScale scale(0.0, 12.0, 3);
    scale.SetNaNColor(g3d_Color(g3d_Black));
    const double justBelow4 = std::nextafter(4.0, 0.0);
    const std::tuple<double, int, g3d_PresetColorEnum> rows[] = {
        {-0.001, -1, g3d_Grey20}, {0.0, 0, g3d_Blue}, {justBelow4, 0, g3d_Blue}, {4.0, 1, g3d_Green},
        {8.0, 2, g3d_Red},        {12.0, 2, g3d_Red}, {HUGE_VAL, 3, g3d_Grey80}, {double{kNaN}, -1, g3d_Black}};
    for (const auto& [value, band, color] : rows) {
        EXPECT_EQ(scale.Band(value), band) << value;
        EXPECT_EQ(scale.Color(value), g3d_Color(color)) << value;
    }
    Random random(4);
    for (int round = 0; round < 500; ++round) {
        const double low = random.Any(), high = random.Any();
        const g3d_ContourScale any(low, high, static_cast<int>(random.Channel() % 300) - 10, g3d_PerceptualSpectrum);
        ASSERT_TRUE(any.BandCount() >= 1 && any.BandCount() <= 256 && any.Low() <= any.High());
        for (int i = 0; i <= any.BandCount(); ++i) {
            const double value = any.Limit(i);
            const int band = any.Band(value);
            EXPECT_LE(any.Limit(band), value);
            EXPECT_TRUE(value < any.Limit(band + 1) || (band == any.BandCount() - 1 && value == any.High()));
            EXPECT_EQ(any.Color(value), any.BandColor(band));
        }
    }
    EXPECT_EQ(g3d_ContourScale(3.0, -kInfinity, {}).Low(), 0.0);
    EXPECT_EQ(g3d_ContourScale(1.7e308, -1.7e308, 2).Limit(1), 0.0);
    EXPECT_EQ(g3d_ContourScale(5.0, 5.0, 4).Color(5.0), g3d_Color(g3d_Red));
    EXPECT_EQ(g3d_ContourScale(0.0, 1.0, Colors(300)).BandCount(), 256);
}

TEST(g3d_Color, AnyBitsAreDefined) {
    Random random(5);
    for (int round = 0; round < 20000; ++round) {
        g3d_Color c = random.AnyColor();
        const g3d_Color other = round % 2 == 0 ? random.AnyColor() : random.Color();
        g3d_ColorArray palette;
        palette.CheckColor(c);
        palette.ContrastColors(other);
        palette.SetAlpha(random.Any());
        static_cast<void>(other.GetContrastingColor(c).GetRGBA());
        static_cast<void>(g3d_ColorText(c).Length() + g3d_Utils::Round(c.R()));
        const double ratio = g3d_ContrastRatio(c, other);
        ASSERT_TRUE(ratio >= 1.0 && ratio <= 21.0 + 1e-12);
        _HSV hsv = {random.Any(), random.Any(), random.Any()};
        c.SetHSV(hsv).Invert(other, c.A());
        HSVToRGB(hsv);
        MixHSV(random.Rgb(), c.R(), random.Rgb(), c.G());
        MixRGB(random.Rgb(), c.R(), random.Rgb(), c.G());
        std::string text(static_cast<std::size_t>(round % 12), '#');
        for (std::size_t i = 1; i < text.size(); ++i) text[i] = static_cast<char>(random.Channel());
        c.Set(cow_String(text), 1.0F);
    }
}

}  // namespace
