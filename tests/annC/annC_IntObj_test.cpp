// Protects what scripts can do to arrows and texts: what each keyword reads and refuses, that a refused command changes
// nothing, and that the members read back make the same annotation again.
#include <annC/annC.h>
#include <support/RandomGeometry.h>
#include <support/values.h>

#include <gtest/gtest.h>

#include <cmath>
#include <set>

namespace {

/// What a keyword reads of the samples, by type character and text.
std::set<std::string> ReadsOf(const std::string& keyword) {
    static const std::set<std::string> pairs = {"((1, 2)", "((5, 6.0)", "[(0.5, 1.5)", "[(2.0, 3.5)"};
    const auto ends = [&](auto... endings) { return (keyword.ends_with(endings) || ...); };
    if (ends("Point", "offset", "nchor")) return pairs;
    if (ends("Gap", "Angle")) return {"i-5", "i-300", "i7", "i4294967295", "f0.5", "f2.5"};
    if (ends("olor", "text", "font")) return {"s\"it's\"", "s''", "s'text'", "s'1.\"x'"};
    if (keyword == "box") return {"bTrue", "cON", "cOFF"};
    return {};  // none of the symbolic constants is one of an enumeration
}

/// Scripting-side type and message of what `act` throws.
std::string Thrown(const auto& act) {
    try {
        act();
    } catch (const nex_CommandException& thrown) {
        return std::string(thrown.PythonType()) + ": " + thrown.what();
    }
    return "accepted";
}

/// What comes of setting one attribute, beside the colour; a refusal must change nothing.
template <class Object>
std::string Set(Object& object, const cow_String& keyword, const omu_Primitive& value) {
    const auto before = object.Annotation()->Copy();
    omu_Arguments arguments;
    arguments.Put("Red", "color");
    arguments.Put(value, keyword);
    const std::string result = Thrown([&] { object.SetValues(arguments); });
    EXPECT_EQ(result == "accepted", !(*before == *object.Annotation())) << keyword << " " << result;
    return result;
}

template <class Object>
void ExpectRefusals() {
    std::vector<Sample> samples = Samples();
    samples.push_back({omu_MakePrimitive(omu_PrimEnumBase("MIDDLE")), 'c', 0, "", "MIDDLE"});
    EXPECT_EQ(Object::Members().Length(), 11);
    for (const cow_String& member : Object::Members()) {
        for (const Sample& sample : samples) {
            omu_Arguments none;
            Object object(none);
            const std::string result = Set(object, member, *sample.value);
            const std::string found = sample.type == 'c' ? sample.text : sample.typeString;
            const bool isError =
                result.starts_with("TypeError: setValues['" + member.str() + "']; found " + found + ", ");
            EXPECT_EQ(isError, !ReadsOf(member.str()).contains(sample.type + std::string(sample.text))) << result;
        }
    }
}

TEST(Commands, EveryKeywordAgainstEveryType) {
    ExpectRefusals<annC_ArrowIntObj>();
    ExpectRefusals<annC_TextIntObj>();
}

/// The constructor by position, the same object from its members by keyword, and the text.
template <class Object>
void ExpectSame(omu_Arguments given, const char* text) {
    const Object object(given);
    omu_Arguments members;
    for (const cow_String& member : Object::Members()) members.Put(object.Member(member), member);
    const Object again(members);
    EXPECT_TRUE(*again.Annotation() == *object.Annotation());
    EXPECT_EQ(again.AsString(), text);
}

TEST(Commands, MembersMakeTheSameAgain) {
    const auto name = [](const char* constant) { return omu_PrimEnumBase(constant); };
    ExpectSame<annC_ArrowIntObj>(
        Of<omu_Arguments>(Of(1, 2.5), Of(-3U, 4.0F), name("TOP_LEFT"), Of(0.5, 0.25), name("ARROW"), name("NONE"), 7,
                          8.5, "#0aF9c1", name("DOTTED"), name("THICK")),
        "Arrow(startPoint=(1.0, 2.5), endPoint=(4294967293.0, 4.0), startAnchor=TOP_LEFT, endAnchor=(0.5, 0.25), "
        "startHeadStyle=ARROW, endHeadStyle=NONE, startGap=7.0, endGap=8.5, color='#0aF9c1', lineStyle=DOTTED, "
        "lineThickness=THICK)");
    ExpectSame<annC_TextIntObj>(
        Of<omu_Arguments>("it's\n", Of(-1e300, 0), Of(1, 2, 3), name("CENTER"), -90, "Times", "Light orange",
                          name("OTHER"), "Red", true, name("RIGHT")),
        "Text(text=\"it's\\n\", offset=(-1e+300, 0.0), anchor=(1.0, 2.0, 3.0), referencePoint=CENTER, "
        "rotationAngle=-90.0, font='Times', color='Light orange', backgroundStyle=OTHER, backgroundColor='Red', "
        "box=True, justification=RIGHT)");
}

TEST(Commands, RangesAndColours) {
    const auto arrow = [](const char* keyword, const auto& value) {
        annC_ArrowIntObj object(std::make_shared<annC_Arrow>());
        return Set(object, keyword, *omu_MakePrimitive(value));
    };
    const auto text = [](const char* keyword, const auto& value) {
        annC_TextIntObj object(std::make_shared<annC_Text>());
        return Set(object, keyword, *omu_MakePrimitive(value));
    };
    const std::string angle = "RangeError: rotationAngle must be a Float in the range: -360 <= rotationAngle <= 360";
    const std::string finite = " must be a Float >= -1.79769313486232e+308";
    EXPECT_EQ(arrow("startGap", 0) + text("rotationAngle", -360.0) + arrow("color", "#1a2B3c"),
              "acceptedacceptedaccepted");
    EXPECT_EQ(arrow("endGap", -5e-324), "RangeError: endGap must be a Float >= 0");
    EXPECT_EQ(arrow("startGap", kInfinity), "RangeError: startGap must be a Float >= 0");
    EXPECT_EQ(text("rotationAngle", std::nextafter(360.0, 361.0)), angle);
    EXPECT_EQ(text("rotationAngle", kNaN), angle);
    EXPECT_EQ(arrow("endPoint", Of(1.0, kInfinity)), "RangeError: endPoint" + finite);
    EXPECT_EQ(text("offset", Of(kNaN, 1.0)), "RangeError: offset" + finite);
    EXPECT_EQ(arrow("startAnchor", Of(1, 2, kNaN)), "RangeError: startAnchor" + finite);
    EXPECT_EQ(text("anchor", Of(1, 2, 3, 4)),
              "TypeError: setValues['anchor']; found tuple, expecting named position or tuple of 2 or 3 numbers");
    EXPECT_EQ(arrow("color", "red"), "ColorError: red is not a valid color name.");
    EXPECT_EQ(text("backgroundColor", "#12345G"), "ColorError: #12345G is not a valid color name.");
    EXPECT_EQ(text("justification", omu_PrimEnumBase("MIDDLE")),
              "TypeError: setValues['justification']; found MIDDLE, expecting CENTER, LEFT or RIGHT");
    EXPECT_EQ(text("size", 1), "TypeError: setValueskeyword error on size");
    // What was not given is not checked.
    const auto odd = std::make_shared<annC_Arrow>();
    odd->SetStartGap(-1.0);
    odd->SetLineStyle(annC_LineStyleEnm{77});
    odd->SetEndAnchor({});
    annC_ArrowIntObj object(odd);
    EXPECT_EQ(Set(object, "endGap", omu_PrimNumber(2)), "accepted");
    EXPECT_EQ(object.Member("lineStyle")->AsString(), "77");
    EXPECT_EQ(object.Member("endAnchor")->AsString(), "None");
    EXPECT_EQ(Thrown([&] { return object.Member("gap"); }), "AttributeError: Arrow has no attribute gap");
    EXPECT_THROW(annC_TextIntObj{nullptr}, nex_PrimException);
}

TEST(Commands, Moves) {
    annC_ArrowIntObj arrow(std::make_shared<annC_Arrow>());
    annC_TextIntObj text(std::make_shared<annC_Text>());
    const auto move = [](const auto& dx, const auto& dy, auto&& command) {
        omu_Arguments arguments;
        arguments.Put(dx);
        arguments.Put(dy, "dy");
        return Thrown([&] { command(arguments); });
    };
    const auto start = [&](omu_Arguments& a) { arrow.TranslateStartPoint(a); };
    const auto both = [&](omu_Arguments& a) { text.Translate(a); };
    EXPECT_EQ(move(1, 2.5, start) + move(1e308, 7, both), "acceptedaccepted");
    EXPECT_EQ(move(-3.0, 4, [&](omu_Arguments& a) { arrow.TranslateEndPoint(a); }), "accepted");
    EXPECT_EQ(move(1e308, 1.0, both).substr(0, 27), "RangeError: offset must be ");
    EXPECT_EQ(move("1", 1.0, start), "TypeError: translateStartPoint[0]; found string, expecting float");
    omu_Arguments few;
    EXPECT_EQ(Thrown([&] { arrow.TranslateEndPoint(few); }),
              "TypeError: translateEndPoint; not all required arguments specified; expected 2, got 0");
    EXPECT_EQ(arrow.Member("startPoint")->AsString(), "(1.0, 2.5)");
    EXPECT_EQ(arrow.Member("endPoint")->AsString(), "(-3.0, 4.0)");
    EXPECT_EQ(text.Member("offset")->AsString(), "(1e+308, 7.0)");
}

}  // namespace
