// Protects annotations and their anchors: defaults, names and numbers, identities, what anchors are shared, what a
// stream keeps and refuses, and the container.
#include <annC/annC.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <base/nex_PrimException.h>
#include <base/nex_RangeException.h>
#include <idb/idb_Dump.h>
#include <support/streams.h>

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <sstream>

namespace {

struct annC_Model : testing::Test {
    cls_ClassRegistrar registrar;
    void SetUp() override {
        testing::internal::CaptureStderr();  // complaints about changed streams
        for (const auto initialize : {annC_Anchor::InitializeMetadata, annC_NamedAnchor::InitializeMetadata,
                                      annC_ViewportAnchor::InitializeMetadata, annC_Point3DAnchor::InitializeMetadata,
                                      annC_Annotation::InitializeMetadata, annC_Arrow::InitializeMetadata,
                                      annC_Text::InitializeMetadata, annC_AnnotationContainer::InitializeMetadata})
            initialize(registrar);
    }

    void TearDown() override { testing::internal::GetCapturedStderr(); }

    /// Sets one attribute of a default A: it is what is got, tells the object from a default one, and survives.
    template <class A, class P, class V>
    void Check(void (A::*set)(P) noexcept, V (A::*get)() const noexcept, const std::remove_cvref_t<P>& value) {
        A object;
        (object.*set)(value);
        EXPECT_EQ((object.*get)(), value);
        EXPECT_FALSE(object == A());
        EXPECT_TRUE(RoundTrip(registrar, object) == object);
        (_all<A>.*set)(value);
    }
    /// "name value" of all the fields, in the order of the stream.
    template <class A>
    std::string Fields(const A& object) {
        std::ostringstream dump;
        bio_Ifilter in(Written(registrar, object));
        idb_Dump(dump, in, registrar);
        std::istringstream lines(dump.str());
        std::string fields;
        for (std::string line, offset, name, type, value; std::getline(lines, line);) {
            std::istringstream words(line);
            if (words >> offset >> name >> type >> value) fields += name + ' ' + value + ' ';
        }
        return fields;
    }
    template <class A>
    static inline A _all;  // has all the values checked
};

template <class T, class... V>
annC_AnchorHld Anchor(V... values) {
    return annC_AnchorHld(std::make_shared<T>(values...));
}

/// Writes what the class itself never would, under the name of T.
template <class T>
struct Forged {
    std::function<void(const cls_WriteVisitor&)> write;
    static unsigned TypeId() { return T::TypeId(); }
    void DBWrite(const cls_WriteVisitor& visitor) const { write(visitor); }
};

/// Every prefix of the object's stream is refused; every change of one bit gives a value or is refused.
template <class A>
void Attack(const cls_ClassRegistrar& registrar, const A& object) {
    const std::string golden = Written(registrar, object);
    for (std::size_t length = 0; length < golden.size(); ++length)
        EXPECT_THROW((void)ReadBack<A>(registrar, golden.substr(0, length)), nex_StreamException) << length;
    for (std::size_t bit = 0; bit < 8 * golden.size(); ++bit) {
        std::string changed = golden;
        changed[bit / 8] = static_cast<char>(changed[bit / 8] ^ (1 << (bit % 8)));
        try {
            (void)ReadBack<A>(registrar, changed);
        } catch (const nex_StreamException&) {
        }
    }
}

template <class E>
std::string TableOf() {
    std::string names;
    for (const auto* row = omu_PrimEnum<E>::Table(); row->name != nullptr; ++row)
        names += row->name + (' ' + std::to_string(static_cast<int>(row->value)) + ' ');
    return names;
}

}  // namespace

TEST_F(annC_Model, NamesAreListedInOrder) {
    EXPECT_EQ(TableOf<annC_ArrowHeadStyleEnm>(),
              "ARROW 0 FILLED_ARROW 1 HOLLOW_CIRCLE 2 FILLED_CIRCLE 3 HOLLOW_DIAMOND 4 FILLED_DIAMOND 5 "
              "HOLLOW_SQUARE 6 FILLED_SQUARE 7 NONE 8 ");
    EXPECT_EQ(TableOf<annC_LineStyleEnm>(), "SOLID 0 DASHED 2 DOTTED 1 DOT_DASH 3 NONE 4 ");
    EXPECT_EQ(TableOf<annC_LineThicknessEnm>(), "VERY_THIN 0 THIN 1 MEDIUM 2 THICK 3 ");
    EXPECT_EQ(TableOf<annC_BackgroundStyleEnm>(), "TRANSPARENT 0 MATCH 1 OTHER 2 ");
    EXPECT_EQ(TableOf<annC_JustificationEnm>(), "LEFT 0 CENTER 1 RIGHT 2 ");
    EXPECT_EQ(TableOf<annC_RelativePositionEnm>(),
              "BOTTOM_LEFT 0 BOTTOM_CENTER 1 BOTTOM_RIGHT 2 CENTER_LEFT 3 CENTER 4 CENTER_RIGHT 5 TOP_LEFT 6 "
              "TOP_CENTER 7 TOP_RIGHT 8 ");
    using A = annC_Arrow;
    using T = annC_Text;
    using Names = cow_List<cow_String>;
    EXPECT_EQ(registrar.Find(A::TypeId())->AttributeNames(),
              (Names{"startPointX", "startPointY", "endPointX", "endPointY", A::startAnchorCmd(), A::endAnchorCmd(),
                     A::startHeadStyleCmd(), A::endHeadStyleCmd(), A::startGapCmd(), A::endGapCmd(), A::colorCmd(),
                     A::lineStyleCmd(), A::lineThicknessCmd()}));
    EXPECT_EQ(registrar.Find(T::TypeId())->AttributeNames(),
              (Names{T::textCmd(), "offsetX", "offsetY", T::anchorCmd(), T::referencePointCmd(), T::rotationAngleCmd(),
                     T::fontCmd(), T::colorCmd(), T::backgroundStyleCmd(), T::backgroundColorCmd(), T::boxCmd(),
                     T::justificationCmd()}));
}

TEST_F(annC_Model, ArrowAttributesAreKeptComparedAndNamed) {
    using A = annC_Arrow;
    EXPECT_EQ(Fields(A()),
              "annC_Arrow object endGap 0 endHeadStyle 1 endPointX 0 endPointY 0 lineStyle 0 lineThickness 0 "
              "startGap 0 startHeadStyle 8 startPointX 0 startPointY 0 color \"White\" base annC_Annotation "
              "endAnchor 0x03500002, position 0 base annC_Anchor startAnchor 0x03500002, position 0 base annC_Anchor ");
    Check(&A::SetStartPointX, &A::StartPointX, 1.0);
    Check(&A::SetStartPointY, &A::StartPointY, 2.0);
    Check(&A::SetEndPointX, &A::EndPointX, 3.0);
    Check(&A::SetEndPointY, &A::EndPointY, 4.0);
    Check(&A::SetStartAnchor, &A::StartAnchor, Anchor<annC_ViewportAnchor>(0.25, 0.5));
    Check(&A::SetEndAnchor, &A::EndAnchor, Anchor<annC_Point3DAnchor>(7.0, 8.0, 9.0));
    Check(&A::SetStartHeadStyle, &A::StartHeadStyle, annC_ArrowHeadStyleEnm::ARROW);
    Check(&A::SetEndHeadStyle, &A::EndHeadStyle, static_cast<annC_ArrowHeadStyleEnm>(-77));
    Check(&A::SetStartGap, &A::StartGap, std::numeric_limits<double>::infinity());
    Check(&A::SetEndGap, &A::EndGap, -6.0);
    Check(&A::SetColor, &A::Color, "#FF0000");
    Check(&A::SetLineStyle, &A::LineStyle, annC_LineStyleEnm::DASHED);
    Check(&A::SetLineThickness, &A::LineThickness, annC_LineThicknessEnm::THICK);
    _all<A>.Translate(10.0, 20.0);
    EXPECT_EQ(Fields(_all<A>),
              "annC_Arrow object endGap -6 endHeadStyle -77 endPointX 13 endPointY 24 lineStyle 2 lineThickness 3 "
              "startGap inf startHeadStyle 0 startPointX 11 startPointY 22 color \"#FF0000\" base annC_Annotation "
              "endAnchor 0x03500004, positionX 7 positionY 8 positionZ 9 base annC_Anchor "
              "startAnchor 0x03500003, positionX 0.25 positionY 0.5 base annC_Anchor ");
    Attack(registrar, _all<A>);
}

TEST_F(annC_Model, TextAttributesAreKeptComparedAndNamed) {
    using A = annC_Text;
    EXPECT_EQ(Fields(A()),
              "annC_Text object backgroundStyle 0 box false justification 0 offsetX 0 offsetY 0 rotationAngle 0 "
              "backgroundColor \"Black\" color \"White\" font \"-*-helvetica-medium-r-normal-*-*-120-\" text \"\" "
              "base annC_Annotation anchor 0x03500002, position 0 base annC_Anchor "
              "referencePoint 0x03500002, position 0 base annC_Anchor ");
    Check(&A::SetText, &A::Text, std::string("two\nlines"));
    Check(&A::SetOffsetX, &A::OffsetX, 1.0);
    Check(&A::SetOffsetY, &A::OffsetY, 2.0);
    Check(&A::SetAnchor, &A::Anchor, Anchor<annC_NamedAnchor>(annC_RelativePositionEnm::CENTER));
    Check(&A::SetReferencePoint, &A::ReferencePoint, Anchor<annC_NamedAnchor>(annC_RelativePositionEnm::TOP_RIGHT));
    Check(&A::SetRotationAngle, &A::RotationAngle, 30.0);
    Check(&A::SetFont, &A::Font, "fixed");
    Check(&A::SetColor, &A::Color, "");
    Check(&A::SetBackgroundStyle, &A::BackgroundStyle, static_cast<annC_BackgroundStyleEnm>(3));
    Check(&A::SetBackgroundColor, &A::BackgroundColor, "Red");
    Check(&A::SetBox, &A::Box, true);
    Check(&A::SetJustification, &A::Justification, annC_JustificationEnm::RIGHT);
    _all<A>.Translate(10.0, 20.0);
    EXPECT_EQ(Fields(_all<A>),
              "annC_Text object backgroundStyle 3 box true justification 2 offsetX 11 offsetY 22 rotationAngle 30 "
              "backgroundColor \"Red\" color \"\" font \"fixed\" text \"two\\x0alines\" "
              "base annC_Annotation anchor 0x03500002, position 4 base annC_Anchor "
              "referencePoint 0x03500002, position 8 base annC_Anchor ");
    Attack(registrar, _all<A>);
}

TEST_F(annC_Model, CopiesShareIdentitiesAndAnchorsUntilTheyAreGivenOthers) {
    const auto check = [this]<class A>(A a, auto set, auto get, auto getOther) {
        EXPECT_FALSE((a.*get)() == (a.*getOther)()) << "two anchors of its own";
        const auto copied = a.Copy();
        auto& copy = dynamic_cast<A&>(*copied);
        EXPECT_TRUE(copy.Uid() == a.Uid() && copy.OwnUid() == a.OwnUid() && !(a.Uid() == a.OwnUid()));
        copy.NewUid();
        EXPECT_FALSE(copy.Uid() == a.Uid() || copy.OwnUid() == a.OwnUid() || copy.Uid() == cls_Uid());
        EXPECT_TRUE((copy.*get)() == (a.*get)() && (copy.*getOther)() == (a.*getOther)());
        (copy.*set)(Anchor<annC_NamedAnchor>(annC_RelativePositionEnm::BOTTOM_LEFT));
        EXPECT_FALSE((copy.*get)() == (a.*get)());
        EXPECT_TRUE(copy == a) << "by value";
        const A read = RoundTrip(registrar, a);
        EXPECT_FALSE(read.Uid() == a.Uid() || read.OwnUid() == a.OwnUid() || (read.*get)() == (a.*get)());

        (copy.*set)(annC_AnchorHld());
        EXPECT_FALSE(copy == a || a == copy);
        EXPECT_TRUE(A(copy) == copy && (A(copy).*get)().IsNull());
        EXPECT_TRUE(RoundTrip(registrar, copy) == a) << "a new default anchor instead of none";
    };
    check(annC_Arrow(), &annC_Arrow::SetEndAnchor, &annC_Arrow::EndAnchor, &annC_Arrow::StartAnchor);
    check(annC_Text(), &annC_Text::SetAnchor, &annC_Text::Anchor, &annC_Text::ReferencePoint);
    EXPECT_FALSE(static_cast<const annC_Annotation&>(annC_Arrow()) == annC_Text());
    const annC_NamedAnchor named;
    EXPECT_TRUE(annC_NamedAnchor(named).Uid() == named.Uid() && !(annC_NamedAnchor().Uid() == named.Uid()));
}

TEST_F(annC_Model, ContainerKeepsOrderNamesAndSharing) {
    annC_AnnotationContainer c;
    annC_Text text;
    annC_Arrow arrow;
    arrow.SetStartAnchor(text.Anchor());
    const annC_AnnotationHld shared(std::make_shared<annC_Text>(text));
    c.Insert("b", annC_AnnotationHld(arrow.Copy()));
    c.Insert("c", shared);
    c.Insert("a", shared);
    c.Insert("a", shared);
    EXPECT_EQ(c.Keys(), (cow_List<cow_String>{"a", "b", "c"}));
    EXPECT_THROW(c.Insert("a", annC_AnnotationHld()), nex_PrimException);
    EXPECT_THROW((void)c.ConstGet("d"), nex_RangeException);

    const auto read = RoundTrip(registrar, c);
    EXPECT_TRUE(read == c && !(read == annC_AnnotationContainer()));
    EXPECT_TRUE(read.ConstGet("a") == read.ConstGet("c"));
    const auto& readText = dynamic_cast<const annC_Text&>(*read.ConstGet("a"));
    const auto& readArrow = dynamic_cast<const annC_Arrow&>(*read.ConstGet("b"));
    EXPECT_TRUE(readArrow.StartAnchor() == readText.Anchor());
    EXPECT_FALSE(readArrow.EndAnchor() == readText.Anchor() || readText.ReferencePoint() == readText.Anchor());

    const annC_AnnotationContainer before = c;
    EXPECT_FALSE(c.Rename("d", "e") || c.Rename("a", "b"));
    EXPECT_TRUE(c.Rename("a", "a") && c == before);
    EXPECT_TRUE(c.Rename(c.begin()->first, "z") && c.ConstGet("z") == shared && !c.IsMember("a") && !(c == before));
    EXPECT_TRUE(before.IsMember("a") && c.Remove("z") && !c.Remove("z") && c.Length() == 2);

    Attack(registrar, c);
    // An entry without an annotation, and an annotation where an anchor should be.
    annC_MapString2AnnotationCow map;
    map.Insert("null", annC_AnnotationHld());
    map.Insert("text", shared);
    const auto withNull = Written(
        registrar, Forged<annC_AnnotationContainer>{[&](const auto& visitor) { visitor.Write("annotations", map); }});
    EXPECT_EQ(ReadBack<annC_AnnotationContainer>(registrar, withNull).Keys(), cow_List<cow_String>{"text"});
    const auto notAnchor =
        Written(registrar, Forged<annC_Text>{[&](const auto& visitor) { visitor.Write("anchor", shared); }});
    EXPECT_THROW((void)ReadBack<annC_Text>(registrar, notAnchor), nex_StreamException);
}
