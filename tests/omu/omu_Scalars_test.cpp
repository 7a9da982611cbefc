// Protects the scalar values: their texts (what CPython makes of them included), the unequal rules of equality, what
// numbers become when they are narrowed, the messages of enumerations, visiting, and that all survive a stream.

#include <base/nex_CommandException.h>
#include <base/nex_RangeException.h>
#include <omu/omu.h>
#include <support/ChildProcess.h>
#include <support/StartedLibrary.h>
#include <support/streams.h>

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <fstream>
#include <limits>
#include <random>

namespace {

using Kinds = omu_PrimEnum<omu_PrimNumber::DataTypeEnm>;
using Switch = omu_PrimEnum<bool, 2>;
using Limits = std::numeric_limits<double>;

constexpr double infinity = Limits::infinity();
constexpr double nan = Limits::quiet_NaN();

using omu_Scalars = StartedLibrary;

struct Sample {
    std::shared_ptr<omu_Primitive> value;
    char type;
    unsigned id;
    const char* typeString;
    const char* text;
};

template <class T, class... A>
Sample Make(char type, unsigned index, const char* typeString, const char* text, A... arguments) {
    return {std::make_shared<T>(arguments...), type, 0x130000 + index, typeString, text};
}

/// Each class, and each kind of number, once or more; no two are the same.
std::vector<Sample> Samples() {
    using Number = omu_PrimNumber;
    const auto schar = static_cast<signed char>(-5);
    const short brief = -300;
    return {
        Make<Number>('i', 0x16, "int", "-5", schar),
        Make<Number>('i', 0x16, "int", "-300", brief),
        Make<Number>('i', 0x16, "int", "7", 7),
        Make<Number>('i', 0x16, "int", "1", true),
        Make<Number>('i', 0x16, "int", "4294967295", 4294967295U),
        Make<Number>('f', 0x16, "float", "0.100000001490116", 0.1F),
        Make<Number>('f', 0x16, "float", "3.0", 3.0),
        Make<Number>('f', 0x16, "float", "0.1", 0.1),
        Make<Number>('f', 0x16, "float", "1e+20", 1e20),
        Make<Number>('f', 0x16, "float", "1e-05", 1e-5),
        Make<Number>('f', 0x16, "float", "1.5e+300", 1.5e300),
        Make<Number>('f', 0x16, "float", "-0.0", -0.0),
        Make<Number>('f', 0x16, "float", "-inf.0", -infinity),
        Make<omu_PrimString>('s', 0x18, "string", R"("it's")", "it's"),
        Make<omu_PrimTranslatedString>('l', 0x30, "tran_string", R"('a\n\\')", "a\n\\"),
        Make<omu_PrimBoolean>('b', 0x31, "Boolean", "True", true),
        Make<omu_PrimNone>('n', 0x1D, "None", "None"),
        Make<omu_PrimComplex>('x', 0x22, "complex", "1.5+2j", omi_complex(1.5, 2)),
        Make<omu_PrimComplex>('x', 0x22, "complex", "1.5-2j", omi_complex(1.5, -2)),
        Make<omu_PrimExpr>('e', 0x1A, "expression", "a.b['%s']", "a.b['%s']"),
        Make<omu_PrimType>('t', 0x1F, "PartType", "PartType", "Part"),
        Make<omu_PrimType>('t', 0x1F, "type", "Type", ""),
        Make<omu_PrimEnumBase>('c', 0x1B, "Loose", "Loose", "Loose"),
        Make<omu_PrimBool<2>>('c', 0x25, "OFF or ON", "ON", "ON"),
        Make<Kinds>('c', 0x1B, "DOUBLE, FLOAT, INT, SCHAR, SHORT or UINT", "UINT", omu_PrimNumber::UINT),
    };
}

/// A value of whatever class through a holder of the base class, as attributes and sequences keep them.
struct Holder {
    cow_CountedHld<omu_Primitive> value;

    Holder() = default;
    explicit Holder(const std::shared_ptr<omu_Primitive>& v) : value(v) {}
    static unsigned TypeId() { return 0x7F0100; }
    static void InitializeMetadata(cls_ClassRegistrar& r) {
        r.Class<Holder>("Holder", 1).Add<cow_CountedHld<omu_Primitive>>("value");
    }
    void DBWrite(const cls_WriteVisitor& v) const { v.Write("value", value); }
    explicit Holder(const cls_ReadVisitor& v) : value(v.Read("value", cow_CountedHld<omu_Primitive>())) {}
};

TEST_F(omu_Scalars, PrintCopyAndPersistAsWhatTheyAre) {
    cls_MetadataRegistrar::Instance().initClassMetadata(Holder::InitializeMetadata, 0);
    for (const Sample& each : Samples()) {
        SCOPED_TRACE(each.text);
        const std::shared_ptr<omu_Primitive> copy = each.value->Copy();
        EXPECT_EQ(copy->Uid(), each.value->Uid());
        const Holder read = RoundTrip(registrar, Holder(each.value));
        ASSERT_FALSE(read.value.IsNull());
        EXPECT_NE(read.value->Uid(), each.value->Uid());
        const bool plainEnum = each.typeString[0] == 'D';  // inside of other values only the name comes back
        for (const omu_Primitive* value :
             {each.value.get(), copy.get(), static_cast<omu_Primitive*>(read.value.Get())}) {
            EXPECT_TRUE(value->IsType(each.type));
            EXPECT_EQ(value->DynTypeId(), each.id);
            EXPECT_EQ(value->AsString(), each.text);
            EXPECT_EQ(value->AsRepr(), each.text);
            EXPECT_TRUE(plainEnum || value->TypeString() == each.typeString);
            EXPECT_TRUE(value->IsA(0x130011) && value->IsA(each.id));
            EXPECT_FALSE(value->IsA(0x130015));
            EXPECT_TRUE(*value == *each.value && *each.value == *value);
            // In every stored detail.
            EXPECT_EQ(Written(registrar, Holder(std::shared_ptr(value->Copy()))),
                      Written(registrar, Holder(each.value)));
        }
    }
    const Kinds typed = RoundTrip(registrar, Kinds(omu_PrimNumber::UINT));
    EXPECT_EQ(typed.Value(), omu_PrimNumber::UINT);
    EXPECT_EQ(registrar.Find(0x130011)->make, nullptr);
    EXPECT_EQ(registrar.Find(0x130011)->AttributeNames(), cow_List<cow_String>{"type"});
}

TEST_F(omu_Scalars, EqualityFollowsTheLeftOperand) {
    const std::vector<Sample> samples = Samples();
    for (const Sample& a : samples) {
        for (const Sample& b : samples) {
            const bool equal = *a.value == *b.value;
            EXPECT_EQ(equal, &a == &b) << a.text << " and " << b.text;
            EXPECT_EQ(*a.value != *b.value, !equal);
        }
    }
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
    struct Row {
        double value;
        int asInt;
        short asShort;
        signed char asSchar;
    };
    const Row rows[] = {
        {-2.9, -2, -2, -2},
        {4294967301.7, 5, 5, 5},
        {32768.0, 32768, -32768, 0},
        {-129.0, -129, -129, 127},
        {nan, 0, 0, 0},
        {infinity, 0, 0, 0},
        {-1e300, 0, 0, 0},
        {0x1p63, 0, 0, 0},
        {-0x1p63, 0, 0, 0},
        {2147483648.0, -2147483647 - 1, 0, 0},
    };
    for (const Row& row : rows) {
        const omu_PrimNumber number(row.value);
        EXPECT_EQ(number.AsInt(), row.asInt) << row.value;
        EXPECT_EQ(number.AsShort(), row.asShort) << row.value;
        EXPECT_EQ(number.AsSchar(), row.asSchar) << row.value;
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
    EXPECT_EQ(omu_PrimNumber(infinity).AsString(), "inf.0");
    EXPECT_EQ(omu_PrimComplex({-0.0, -0.0}).AsString(), "-0+0j");
    EXPECT_EQ(omu_PrimComplex({1e20, -infinity}).AsString(), "1e+20-infj");
}

TEST_F(omu_Scalars, EnumerationsRefuseWhatTheirTablesLack) {
    const auto refusal = [](const auto& make) -> std::string {
        try {
            make();
        } catch (const nex_CommandException& refused) {
            return refused.what();
        }
        return "accepted";
    };
    const std::string known = "  Permissible: {OFF: 0, ON: 1}";
    EXPECT_EQ(refusal([] { Kinds(static_cast<omu_PrimNumber::DataTypeEnm>(-1)); }),
              "omu_PrimEnum(Enum) - Enum value not allowed: -1  Permissible: "
              "{DOUBLE: 4, FLOAT: 3, INT: 2, SCHAR: 0, SHORT: 1, UINT: 5}");
    EXPECT_EQ(refusal([] { Switch("%n%s"); }), "omu_PrimEnum(const cow_String&) - str not allowed: %n%s" + known);
    EXPECT_EQ(refusal([] { Switch("on"); }), "omu_PrimEnum(const cow_String&) - str not allowed: on" + known);
    EXPECT_EQ(refusal([] { omu_PrimBool<2>(omu_PrimEnumBase("INT")); }),
              "omu_PrimEnum(const omu_PrimEnumBase&) - str not allowed: INT");
    const std::string gone = Written(registrar, omu_PrimEnumBase("GONE"));
    EXPECT_EQ(refusal([&] { (void)ReadBack<Switch>(registrar, gone); }),
              "omu_PrimEnum(const cls_ReadVisitor&) - str not allowed: GONE" + known);
    EXPECT_EQ(Switch(cls_ReadVisitor(nullptr)).AsString(), "ON") << "nothing stored: the first row";

    Switch value("OFF");
    EXPECT_FALSE(value.Value());
    EXPECT_FALSE(value.SetValue(cow_String(std::string("ON\0", 3))) ||
                 value.SetValue(static_cast<const char*>(nullptr)));
    EXPECT_EQ(value.StringValue(), "OFF");
    EXPECT_TRUE(value.SetValue("ON") && value.Value());
    EXPECT_STREQ(Switch::Name(1), "OFF");
    EXPECT_EQ(omu_PrimEnum<omu_BoolSelectEnum>::Value(1), omu_BoolSelectEnum::TRUE_FALSE);
    EXPECT_THROW((void)Switch::Name(2), nex_RangeException);
    EXPECT_THROW((void)Switch::Value(-1), nex_RangeException);
}

TEST_F(omu_Scalars, VisitingReachesTheConcreteClass) {
    struct ByName : omu_PrimVisitor {
        std::string seen;
        void VisitNumber(const omu_PrimNumber&) override { seen += 'N'; }
        void VisitString(const omu_PrimString&) override { seen += 'S'; }
        void VisitTranslatedString(const omu_PrimTranslatedString&) override { seen += 'T'; }
        void VisitEnum(const omu_PrimEnumBase&) override { seen += 'E'; }
        void VisitBool(const omu_PrimBool<2>&) override { seen += 'B'; }
        void VisitNone(const omu_PrimNone&) override { seen += '0'; }
        void VisitType(const omu_PrimType&) override { seen += 't'; }
    } visitor;
    std::string seen;
    int untaken = 0;
    for (const Sample& each : Samples()) {
        each.value->Accept(&visitor);
        untaken += !omu_Visit(
            *each.value, [&](const omu_PrimNumber&) { seen += 'n'; },
            [&](const omu_PrimString& s) { seen += s.IsType('l') ? 'l' : 's'; },
            [&](const omu_PrimEnumBase&) { seen += 'e'; }, [&](const omu_PrimComplex&) { seen += 'x'; },
            [&](const omu_PrimExpr&) { seen += '?'; }, [&](const omu_PrimBoolean&) { seen += 'b'; });
    }
    EXPECT_EQ(visitor.seen, std::string(13, 'N') + "ST0ttEBE");
    EXPECT_EQ(seen, std::string(13, 'n') + "slbxx?eee");
    EXPECT_EQ(untaken, 3) << "None and the types";
}

TEST_F(omu_Scalars, AtomsAndSettings) {
    EXPECT_EQ(omu_Atom("never added").Index(), 0U);
    EXPECT_EQ(omu_Atom(0).String(), nullptr);
    const omu_Atom first = omu_Atom::CreateAtom("first");
    const omu_Atom second = omu_Atom::CreateAtom("First");
    EXPECT_EQ(second.Index(), first.Index() + 1);
    EXPECT_EQ(omu_Atom("First"), second);
    EXPECT_STREQ(omu_Atom(first.Index()).String(), "first");
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

/// Each line of the file holds what stands for the value in Python and the text printed. The checks are CPython's.
constexpr const char* checker = R"PY(
import ast, sys
n = 0
with open(sys.argv[1], newline='\n', encoding='latin-1') as lines:
    for line in lines:
        kind, given, text = line.rstrip('\n').split('\t')
        value = ast.literal_eval(text)
        if kind == 'f':
            double = float.fromhex(given)
            expected = '%.15g' % double
            if '.' not in expected and 'e' not in expected: expected += '.0'
            good = type(value) is float and text == expected and value == float(expected)
        elif kind == 'i':
            good = type(value) is int and text == repr(int(given))
        elif kind == 'x':
            re, im = (float('%.15g' % float.fromhex(part)) for part in given.split(' '))
            good = type(value) is complex and value == complex(re, im)
        else:
            string = bytes.fromhex(given).decode('latin-1')
            good = value == string and (kind == 'c' or text == repr(string))
        if not good: sys.exit(f'{kind} {given}: {text}')
        n += 1
print(n)
)PY";

std::string Hex(double value) {
    char text[40];
    std::snprintf(text, sizeof text, "%a", value);
    return text;
}

TEST_F(omu_Scalars, CPythonReadsBackWhatIsPrinted) {
    constexpr unsigned seed = 20261121;
    SCOPED_TRACE(seed);
    std::mt19937_64 random(seed);
    const std::string path = testing::TempDir() + "omu_Scalars_lines.txt";
    std::ofstream lines(path, std::ios::binary);
    int count = 0;
    const auto check = [&](char kind, const std::string& given, const omu_Primitive& value) {
        lines << kind << '\t' << given << '\t' << value.AsString() << '\n';
        ++count;
    };
    const auto real = [&]() -> double {
        switch (random() % 4) {
            case 0:
                return static_cast<double>(static_cast<std::int64_t>(random()) % 100000);
            case 1:
                return static_cast<double>(static_cast<std::int64_t>(random()) % 10000000) / 1000.0;
            case 2:
                return std::ldexp(1.0, static_cast<int>(random() % 2098) - 1074);
            default:
                break;
        }
        for (;;)
            if (const auto any = std::bit_cast<double>(random()); std::isfinite(any)) return any;
    };
    for (int i = 0; i < 3000; ++i) {
        const double value = real();
        check('f', Hex(value), omu_PrimNumber(value));
        const auto whole = static_cast<int>(random());
        check('i', std::to_string(whole), omu_PrimNumber(whole));
        check('i', std::to_string(static_cast<unsigned>(whole)), omu_PrimNumber(static_cast<unsigned>(whole)));
        const double im = real();
        check('x', Hex(value) + ' ' + Hex(im), omu_PrimComplex({value, im}));

        // Strings prone to quotes; every fourth one of any byte that Python allows in a literal as it stands.
        const bool anyByte = i % 4 == 0;
        std::string text;
        for (auto left = random() % 12; left > 0; --left) {
            static constexpr std::string_view prone = "'\"\\\nn ab";
            auto byte = static_cast<unsigned char>(prone[random() % prone.size()]);
            if (anyByte && random() % 2 == 0) byte = static_cast<unsigned char>(random());
            if (byte != 0 && byte != '\r' && byte != '\t') text += static_cast<char>(byte);
        }
        std::string given;
        for (const char c : text) {
            char pair[3];
            std::snprintf(pair, sizeof pair, "%02x", static_cast<unsigned>(static_cast<unsigned char>(c)));
            given += pair;
        }
        check(anyByte ? 'c' : 's', given, omu_PrimString(text));
    }
    lines.close();
    const ChildResult python = RunProgram({"/usr/bin/python3", "-c", checker, path});
    EXPECT_EQ(python.exitCode, 0) << python.err;
    EXPECT_EQ(python.out, std::to_string(count) + "\n");
    std::remove(path.c_str());
}

TEST_F(omu_Scalars, HostileBytesGiveAValueOrAnExceptionOfOurs) {
    // Any single byte changed, any end: the value that comes back, if any, must print, compare and copy.
    std::mt19937_64 random(7);
    testing::internal::CaptureStderr();  // it is told of each class that does not fit
    for (const Sample& each : Samples()) {
        cls_MetadataRegistrar::Instance().initClassMetadata(Holder::InitializeMetadata, 0);
        const std::string bytes = Written(registrar, Holder(each.value));
        for (std::size_t i = 0; i < bytes.size(); ++i) {
            for (std::string broken : {bytes, bytes.substr(0, i)}) {
                if (i < broken.size()) broken[i] = static_cast<char>(random());
                try {
                    const Holder read = ReadBack<Holder>(registrar, broken);
                    if (read.value.IsNull()) continue;
                    EXPECT_EQ(read.value->Copy()->AsRepr(), read.value->AsRepr());
                    (void)(*read.value == *each.value);
                } catch (const nex_Exception&) {
                }
            }
        }
    }
    (void)testing::internal::GetCapturedStderr();
}

}  // namespace
