// Protects the errors that a script's user reads: their exact messages, the scripting type each maps to, that they are
// kept, thrown again and stored as what they are, and which numbers the range checks refuse.

#include <base/nex_CmdException.h>
#include <base/nex_RangeException.h>
#include <base/nex_Throw.h>
#include <g3d/g3d_ColorErrorException.h>
#include <omu/omu_RangeChecker.h>
#include <omu/omu_SquareBracket.h>
#include <support/StartedLibrary.h>
#include <support/values.h>

#include <gtest/gtest.h>

#include <climits>
#include <limits>
#include <memory>
#include <typeinfo>

namespace {

using omu_Exceptions = StartedLibrary;
using Limits = std::numeric_limits<double>;

/// The message, after all the ways that an exception can take have given the same object.
template <class E>
std::string Said(const E& made, unsigned id, const char* pythonType) {
    const cls_ClassRegistrar& registrar = cls_MetadataRegistrar::Instance().Registrar();
    EXPECT_EQ(registrar.Inherits(id, 0x130001), (std::is_base_of_v<omu_TypeErrorException, E>));
    const omu_PrimException value(made, "File \"%s\"");
    const omu_PrimException stored = RoundTrip(registrar, value);
    EXPECT_EQ(stored, value);
    EXPECT_EQ(stored.GetTraceback(), "File \"%s\"");

    std::unique_ptr<nex_Exception> kept;
    try {
        nex_Throw(dynamic_cast<const E&>(stored.GetException()));
    } catch (const nex_CommandException& caught) {
        kept.reset(caught.Copy());
    }
    try {
        kept->Propagate();
    } catch (const nex_CommandException& caught) {
        EXPECT_EQ(typeid(caught), typeid(E));
        EXPECT_EQ(caught.DynTypeId(), id);
        EXPECT_STREQ(caught.PythonType(), pythonType);
        EXPECT_STREQ(caught.what(), made.what());
        EXPECT_EQ(caught.JournalMessage(OrvBasStringMode(0)), atr_String(made.what()));
        EXPECT_GT(caught.Where().line, 0U);
    }
    return made.what();
}

TEST_F(omu_Exceptions, SayExactlyWhatIsWrong) {
    using omu_ArgNumber = omu_ArgNumberErrorException;
    const auto number = [](auto... a) { return Said(omu_ArgNumber(a...), 0x130004, "TypeError"); };
    EXPECT_EQ(number(2, 1, "Part"), "Part; not all required arguments specified; expected 2, got 1");
    EXPECT_EQ(number(1, 3, ""), "too many arguments; expected 1, got 3");
    EXPECT_EQ(number(INT_MAX, INT_MAX, "%d%n"),
              "%d%n; not all required arguments specified; expected 2147483647, got 2147483647");

    const auto type = [](auto... a) { return Said(omu_ArgTypeErrorException(a...), 0x130003, "TypeError"); };
    EXPECT_EQ(type(2, "int", "float", ""), "arg2; found float, expecting int");
    EXPECT_EQ(type(1, "%s", "%1$d", "Part"), "Part[0]; found %1$d, expecting %s");
    EXPECT_EQ(type(INT_MIN, "", "", "c"), "c[2147483647]; found , expecting ");

    const auto keyType = [](auto... a) { return Said(omu_KeywordTypeErrorException(a...), 0x130002, "TypeError"); };
    EXPECT_EQ(keyType("name", "int", "ON", ""), "name; found ON, expecting int");
    EXPECT_EQ(keyType("name", "int", "ON", "Part"), "Part['name']; found ON, expecting int");
    EXPECT_EQ(keyType("it's%", "a", "b", "%s"), "%s[\"it's%\"]; found b, expecting a");
    EXPECT_EQ(keyType(cow_String(std::string("a\0b", 3)), "a", "b", "c"), "c['a']; found b, expecting a");

    const auto keyword = [](auto... a) { return Said(omu_KeywordErrorException(a...), 0x130005, "TypeError"); };
    EXPECT_EQ(keyword("nmae%n", "Part; "), "Part; keyword error on nmae%n");
    EXPECT_EQ(keyword("x", "Part"), "Partkeyword error on x");
    const std::string big(10'000'000, '%');
    EXPECT_EQ(keyword(big, ""), "keyword error on " + big);

    EXPECT_EQ(Said(omu_TypeErrorException(), 0x130001, "TypeError"), "");
    EXPECT_EQ(Said(omu_GenericTypeErrorException(), 0x130024, "TypeError"),
              "illegal argument type for built-in operation");

    const char* const attribute[] = {"read-only attributes", "%dx is read-only", "%dx",
                                     "Error message not implemented yet"};
    for (int kind = 0; kind < 4; ++kind)
        EXPECT_EQ(Said(omu_AttributeErrorException(omu_AttribErrorEnm(kind), "%dx"), 0x130006, "AttributeError"),
                  attribute[kind]);
    const char* const name[] = {"invalid name", "name is empty", "invalid job name", "invalid model name", ""};
    for (int kind = 0; kind < 5; ++kind)
        EXPECT_EQ(Said(omu_VelNameErrorException(omu_VelNameErrorEnm(kind)), 0x130023, "VelmorNameError"), name[kind]);
}

TEST_F(omu_Exceptions, TellTheRangeBySidesAndKind) {
    const char* const integers[3][3] = {{"", "<= 9", "< 9"},
                                        {">= -1", "in the range: -1 <= %x <= 9", "in the range: -1 <= %x < 9"},
                                        {"> -1", "in the range: -1 < %x <= 9", "in the range: -1 < %x < 9"}};
    for (int lower = -1; lower < 4; ++lower) {
        for (int higher = -1; higher < 4; ++higher) {
            const bool listed = lower >= 0 && lower <= 2 && higher >= 0 && higher <= 2;
            const std::string sides = listed ? integers[lower][higher] : "";
            const omu_RangeQualifierEnm below = omu_RangeQualifierEnm(lower), above = omu_RangeQualifierEnm(higher);
            EXPECT_EQ(Said(omu_RangeErrorException("%x", -1, below, 9, above), 0x130009, "RangeError"),
                      "%x must be an Integer " + sides);
            EXPECT_EQ(Said(omu_RangeErrorException("%x", -1.0, below, 9.0, above), 0x130009, "RangeError"),
                      "%x must be a Float " + sides);
        }
    }

    omu_RangeErrorException range("x", 0.1, omu_ExclusiveLimit, 1e20, omu_InclusiveLimit);
    EXPECT_STREQ(range.what(), "x must be a Float in the range: 0.1 < x <= 1e+20");
    EXPECT_EQ(range.LowerLimitAsInt(), 0);
    EXPECT_EQ(range.LowerLimitAsDouble(), 0.1);
    EXPECT_EQ(range.HigherLimitAsInt(), INT_MAX);
    EXPECT_EQ(range.HigherLimitAsDouble(), 1e20);
    range.SetLowerLimitAsDouble(-7.9);
    range.SetHigherLimitAsInt(3);
    EXPECT_EQ(range.LowerLimitAsInt(), -7);
    EXPECT_EQ(range.HigherLimitAsDouble(), 3.0);
    EXPECT_EQ(Said(range, 0x130009, "RangeError"), "x must be a Float in the range: -7.9 < x <= 3");
    range.SetLowerLimitAsDouble(Limits::quiet_NaN());
    range.SetHigherLimitAsDouble(-Limits::infinity());
    EXPECT_EQ(range.LowerLimitAsInt(), 0);
    EXPECT_EQ(range.HigherLimitAsInt(), INT_MIN);
    for (const double limit : {Limits::max(), -Limits::max(), Limits::infinity(), -Limits::infinity()}) {
        range.SetHigherLimitAsDouble(limit);
        EXPECT_EQ(range.HigherLimitAsDouble(), limit);
        EXPECT_EQ(range.HigherLimitAsInt(), limit < 0.0 ? INT_MIN : INT_MAX);
    }
    range.SetLowerLimitAsInt(INT_MIN);
    EXPECT_EQ(range.LowerLimitAsDouble(), INT_MIN);
}

TEST_F(omu_Exceptions, OfOthersAtLeastTheMessageIsStored) {
    const auto check = [this](const auto& made, bool isStored) {
        const omu_PrimException value(made), copy(value), read = RoundTrip(registrar, value);
        for (const omu_PrimException* each : {&copy, &read}) {
            const nex_Exception& kept = each->GetException();
            const bool isSame = each == &copy || isStored;
            EXPECT_EQ(typeid(kept), isSame ? typeid(made) : typeid(nex_CommandException));
            EXPECT_STREQ(kept.what(), made.what());
            EXPECT_EQ(*each == value, isSame) << made.what();
        }
    };
    check(nex_CommandException("100 %d"), true);
    check(g3d_ColorErrorException("red%s"), true);
    check(nex_PrimException("Tuple Index returned NULL"), false);
    check(nex_RangeException("far out"), false);
    check(nex_CmdException<cow_String, 0x7F0102>("not registered"), false);
}

/// What the check says; empty when it lets the value through.
std::string Told(const auto& check) {
    try {
        check();
        return "";
    } catch (const omu_RangeErrorException& refused) {
        EXPECT_GT(refused.Where().line, 0U);
        return refused.what();
    }
}

TEST(omu_RangeChecker, RefusesAtTheLimitsAndTellsThem) {
    using Checker = omu_RangeChecker;
    const auto inRange = [](auto... a) { return Told([=] { Checker::CheckInRange("x", a...); }); };
    const auto greater = [](auto... a) { return Told([=] { Checker::CheckGreaterThan("x", a...); }); };
    const auto less = [](auto... a) { return Told([=] { Checker::CheckLessThan("x", a...); }); };

    // Which values pass: around both limits, by every combination of inclusive and exclusive, for both types.
    for (const bool low : {false, true}) {
        for (const bool high : {false, true}) {
            for (int value = -2; value <= 4; ++value) {
                const bool passes = (low ? value >= -1 : value > -1) && (high ? value <= 3 : value < 3);
                EXPECT_EQ(inRange(-1, low, value, 3, high).empty(), passes);
                EXPECT_EQ(inRange(-1.0, low, 1.0 * value, 3.0, high).empty(), passes);
                EXPECT_EQ(greater(-1, low, value).empty(), low ? value >= -1 : value > -1);
                EXPECT_EQ(greater(-1.0, low, 1.0 * value).empty(), low ? value >= -1 : value > -1);
                EXPECT_EQ(less(3, high, value).empty(), high ? value <= 3 : value < 3);
                EXPECT_EQ(less(3.0, high, 1.0 * value).empty(), value > 0 && (high ? value <= 3 : value < 3));
            }
        }
    }
    EXPECT_EQ(inRange(0.0, true, 1.0, 1.0, false), "x must be a Float in the range: 0 <= x < 1");
    // Sentinels: values at them are refused, and how they are told differs between the types.
    constexpr double least = Limits::min(), most = Limits::max();
    EXPECT_EQ(greater(1, true, INT_MAX), "x must be an Integer >= 1");
    EXPECT_EQ(greater(1.0, false, most), "x must be a Float > 1");
    EXPECT_EQ(less(1, true, INT_MIN), "x must be an Integer <= 1");
    EXPECT_EQ(less(1.0, true, least), "x must be a Float <= 1");
    EXPECT_EQ(less(1.0, true, 2 * least), "");
    EXPECT_EQ(inRange(least, true, -1.0, most, true), "x must be a Float ");
    EXPECT_EQ(inRange(least, false, -1.0, 5.0, true), "x must be a Float <= 5");
    EXPECT_EQ(inRange(INT_MIN, true, 6, 5, true), "x must be an Integer in the range: -2147483648 <= x <= 5");
    EXPECT_EQ(inRange(INT_MIN, false, 6, 5, true), "x must be an Integer <= 5");
    EXPECT_EQ(inRange(7, false, 6, INT_MAX, true), "x must be an Integer in the range: 7 < x <= 2147483647");

    constexpr double nan = Limits::quiet_NaN();
    for (const bool inclusive : {false, true})
        EXPECT_EQ(inRange(0.0, inclusive, nan, 1.0, inclusive) + greater(0.0, inclusive, nan) +
                      less(0.0, inclusive, nan) + greater(nan, inclusive, 1.0),
                  "");
}

TEST(omu_SquareBracket, HoldsAnIndexOrAQuotedKey) {
    EXPECT_EQ(omu_SquareBracket(-3).AsString(), "[-3]");
    const std::pair<const char*, const char*> keys[] = {
        {nullptr, "['']"},
        {"it's", "[\"it's\"]"},
        {"'\"", "['\\'\"']"},
        {"a\nb\\n", "['a\\nb\\\\n']"},
    };
    for (const auto& [key, text] : keys) EXPECT_EQ(omu_SquareBracket(key).AsString(), text);
}

}  // namespace
