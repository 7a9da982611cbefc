// Protects each class of value by what samples say of themselves, a stream and copies included; the unequal rules of
// equality, what numbers become when they are narrowed, the messages of enumerations, and visiting.

#include <base/nex_RangeException.h>
#include <omu/omu_EnumErrorException.h>
#include <support/StartedLibrary.h>
#include <support/values.h>

#include <gtest/gtest.h>

#include <climits>
#include <limits>

namespace {

using Switch = omu_PrimEnum<bool, 2>;
using Limits = std::numeric_limits<double>;

constexpr double infinity = Limits::infinity();
constexpr double nan = Limits::quiet_NaN();

using omu_Scalars = StartedLibrary;

TEST_F(omu_Scalars, PrintCopyAndPersistAsWhatTheyAre) {
    cls_MetadataRegistrar::Instance().initClassMetadata(Shelf::InitializeMetadata, 0);
    for (const Sample& each : Samples()) {
        SCOPED_TRACE(each.text);
        const std::shared_ptr<omu_Primitive> copy = each.value->Copy();
        EXPECT_EQ(copy->Uid(), each.value->Uid());
        const std::string bytes = Written(registrar, Shelf(each.value));
        const Shelf read = ReadBack<Shelf>(registrar, bytes);
        const omu_Primitive& back = *read.values.ConstGet(0);
        EXPECT_NE(back.Uid(), each.value->Uid());
        const bool plainEnum = each.typeString[0] == 'D';  // inside of other values only the name comes back
        for (const omu_Primitive* value :
             std::initializer_list<const omu_Primitive*>{each.value.get(), copy.get(), &back}) {
            EXPECT_TRUE(value->IsType(each.type));
            EXPECT_EQ(value->DynTypeId(), each.id);
            EXPECT_EQ(value->AsString(), each.text);
            EXPECT_EQ(value->AsRepr(), each.text);
            EXPECT_TRUE(plainEnum || value->TypeString() == each.typeString);
            EXPECT_TRUE(value->IsA(0x130011) && value->IsA(each.id));
            EXPECT_FALSE(value->IsA(0x130001));
            EXPECT_TRUE(*value == *each.value && *each.value == *value);
            EXPECT_EQ(Written(registrar, Shelf(value->Copy())), bytes) << "in every stored detail";
            omu_Visit(*value, [&](const omu_PrimNumber& number) {
                EXPECT_EQ(number.DataType(), dynamic_cast<const omu_PrimNumber&>(*each.value).DataType());
            });
        }
    }
    const Kinds typed = RoundTrip(registrar, Kinds(omu_PrimNumber::UINT));
    EXPECT_EQ(typed.Value(), omu_PrimNumber::UINT);
    EXPECT_EQ(registrar.Find(0x130011)->make, nullptr);
    EXPECT_EQ(registrar.Find(0x130011)->AttributeNames(), cow_List<cow_String>{"type"});
}

TEST_F(omu_Scalars, EqualityFollowsTheLeftOperand) {
    const std::vector<Sample> samples = Samples();
    for (const Sample& a : samples)
        for (const Sample& b : samples) EXPECT_EQ(*a.value == *b.value, &a == &b) << a.text << " and " << b.text;
    EXPECT_EQ(omu_PrimNumber(2), omu_PrimNumber(2.0));
    EXPECT_NE(omu_PrimNumber(2), omu_PrimNumber(2U));
    EXPECT_EQ(omu_PrimNumber(0U), omu_PrimNumber(0.0)) << "both fields are 0";
    EXPECT_NE(omu_PrimNumber(nan), omu_PrimNumber(nan));
    EXPECT_NE(omu_PrimNumber(1), omu_PrimBoolean(true)) << "no number";

    omu_PrimNone none;
    EXPECT_TRUE(omu_PrimBoolean(false) == none && none == omu_PrimBoolean(false));
    none.Set();
    EXPECT_TRUE(omu_PrimBoolean(true) == none && none == omu_PrimBoolean(true) && none != omu_PrimNone());

    EXPECT_FALSE(omu_PrimString("a") == omu_PrimTranslatedString("a"));
    EXPECT_FALSE(omu_PrimTranslatedString("a") == omu_PrimString("a"));
    EXPECT_EQ(omu_PrimEnumBase("ON"), omu_PrimBool<2>(true)) << "by name";
    EXPECT_EQ(omu_PrimComplex({0.0, -0.0}), omu_PrimComplex({0.0, 0.0}));
    EXPECT_NE(omu_PrimComplex({0.0, nan}), omu_PrimComplex({0.0, nan}));
    EXPECT_NE(omu_PrimExpr("x"), omu_PrimType("x"));
}

TEST_F(omu_Scalars, NumbersNarrowInADefinedWay) {
    const std::tuple<double, int, int, int> rows[] = {
        {-2.9, -2, -2, -2},        {4294967301.7, 5, 5, 5}, {32768.0, 32768, -32768, 0},
        {-129.0, -129, -129, 127}, {nan, 0, 0, 0},          {infinity, 0, 0, 0},
        {-1e300, 0, 0, 0},         {0x1p63, 0, 0, 0},       {2147483648.0, INT_MIN, 0, 0}};
    for (const auto& [value, asInt, asShort, asSchar] : rows) {
        const omu_PrimNumber number(value);
        EXPECT_EQ(number.AsInt(), asInt) << value;
        EXPECT_EQ(number.AsShort(), asShort) << value;
        EXPECT_EQ(number.AsSchar(), asSchar) << value;
        EXPECT_EQ(number.AsUint(), 0U);
    }
    EXPECT_EQ(omu_PrimNumber(1e300).AsFloat(), std::numeric_limits<float>::infinity());
    const omu_PrimNumber bits(4000000000U);
    EXPECT_EQ(bits.AsUint(), 4000000000U);
    EXPECT_EQ(bits.AsDouble(), 0.0);
    EXPECT_EQ(omu_PrimNumber(true).DataType(), omu_PrimNumber::INT);
    static_assert(!std::is_constructible_v<omu_PrimNumber, const char*>);
    static_assert(!std::is_constructible_v<omu_PrimBoolean, const char*>);
}

TEST_F(omu_Scalars, TextsOfExceptionalNumbers) {
    for (const double each : {nan, -nan}) {
        EXPECT_EQ(omu_PrimNumber(each).AsString(), "nan.0");
        EXPECT_EQ(omu_PrimComplex({each, each}).AsString(), "nan+nanj");
    }
    EXPECT_EQ(omu_PrimNumber(-infinity).AsString(), "-inf.0");
    EXPECT_EQ(omu_PrimNumber(0.1F).AsString(), "0.100000001490116");
    EXPECT_EQ(omu_PrimComplex({-0.0, -0.0}).AsString(), "-0+0j");
    EXPECT_EQ(omu_PrimComplex({1e20, -infinity}).AsString(), "1e+20-infj");
}

TEST_F(omu_Scalars, EnumerationsRefuseWhatTheirTablesLack) {
    const std::string known = "  Permissible: {OFF: 0, ON: 1}";
    EXPECT_EQ(Refusal<omu_EnumErrorException>([] { Kinds(static_cast<omu_PrimNumber::DataTypeEnm>(-1)); }),
              "omu_PrimEnum(Enum) - Enum value not allowed: -1  Permissible: "
              "{DOUBLE: 4, FLOAT: 3, INT: 2, SCHAR: 0, SHORT: 1, UINT: 5}");
    EXPECT_EQ(Refusal<omu_EnumErrorException>([] { Switch("%n%s"); }),
              "omu_PrimEnum(const cow_String&) - str not allowed: %n%s" + known);
    EXPECT_EQ(Refusal<omu_EnumErrorException>([] { omu_PrimBool<2>(omu_PrimEnumBase("INT")); }),
              "omu_PrimEnum(const omu_PrimEnumBase&) - str not allowed: INT");
    const std::string gone = Written(registrar, omu_PrimEnumBase("GONE"));
    EXPECT_EQ(Refusal<omu_EnumErrorException>([&] { (void)ReadBack<Switch>(registrar, gone); }),
              "omu_PrimEnum(const cls_ReadVisitor&) - str not allowed: GONE" + known);
    EXPECT_EQ(Switch(cls_ReadVisitor(nullptr)).AsString(), "ON") << "nothing stored: the first row";

    Switch value("OFF");
    for (const cow_String& lacked : {cow_String("on"), cow_String(std::string("ON\0", 3)), cow_String()})
        EXPECT_FALSE(value.SetValue(lacked)) << lacked;
    EXPECT_FALSE(value.SetValue(static_cast<const char*>(nullptr)));
    EXPECT_EQ(value.StringValue(), "OFF");
    EXPECT_TRUE(!value.Value() && value.SetValue("ON") && value.Value());
    EXPECT_STREQ(Switch::Name(1), "OFF");
    EXPECT_EQ(omu_PrimEnum<omu_BoolSelectEnum>::Value(1), omu_BoolSelectEnum::TRUE_FALSE);
    EXPECT_THROW((void)Switch::Name(2), nex_RangeException);
    EXPECT_THROW((void)Switch::Value(-1), nex_RangeException);
}

TEST_F(omu_Scalars, VisitingReachesTheConcreteClass) {
    struct Strict : omu_PrimVisitor {
        std::string seen;
        void VisitString(const omu_PrimString&) override { seen += 's'; }
        void VisitEnum(const omu_PrimEnumBase&) override { seen += 'e'; }
    } strict;
    std::string seen;
    for (const Sample& each : Samples()) {
        unsigned visited = 0;
        EXPECT_TRUE(omu_Visit(*each.value, [&](const auto& concrete) { visited = concrete.TypeId(); }));
        EXPECT_EQ(visited, each.id);
        each.value->Accept(&strict);
        const bool taken = omu_Visit(
            *each.value, [&](const omu_PrimString&) { seen += 's'; }, [&](const omu_PrimEnumBase&) { seen += 'e'; });
        EXPECT_EQ(taken, each.value->IsA(0x130018) || each.value->IsA(0x13001B));
    }
    EXPECT_EQ(strict.seen, "sssseeee");
    EXPECT_EQ(seen, "ssssseeeee") << "lambdas of a base class too";
}

TEST_F(omu_Scalars, AtomsAndSettings) {
    EXPECT_EQ(omu_Atom("never added").Index(), 0U);
    EXPECT_EQ(omu_Atom(0).String(), nullptr);
    const omu_Atom first = omu_Atom::CreateAtom("first");
    const omu_Atom second = omu_Atom::CreateAtom("First");
    EXPECT_EQ(second.Index(), first.Index() + 1);
    EXPECT_EQ(omu_Atom("First"), second);
    EXPECT_STREQ(omu_Atom(second.Index()).String(), "First");
    EXPECT_THROW((void)omu_Atom(second.Index() + 1).String(), nex_RangeException);

    omu_TextRepr& settings = omu_TextRepr::Instance();
    EXPECT_EQ(settings.GetMaxRecursionString(), "%s object");
    EXPECT_EQ(settings.GetMaxRecursionString("Part"), "'Part object'");
    settings.SetMaxRecursionString("%n %d %s %s");
    EXPECT_EQ(settings.GetMaxRecursionString("%s"), "'%n %d %s %s'");
    for (const int style : {0, 2, -1, 1}) {
        settings.SetSimpleStyle(style);
        EXPECT_EQ(settings.IsSimpleStyle(), style == 1);
    }
    TearDown();
    SetUp();
    EXPECT_EQ(omu_TextRepr::Instance().GetMaxRecursionString(), "%s object") << "defaults after a restart";
}

}  // namespace
