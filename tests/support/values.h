#ifndef ORV_SUPPORT_VALUES_H
#define ORV_SUPPORT_VALUES_H

#include <base/nex_PrimException.h>
#include <omu/omu.h>
#include <support/streams.h>

#include <memory>
#include <string>
#include <vector>

/// A sequence of these values.
template <class T = omu_PrimTuple>
T Of(const auto&... values) {
    T sequence;
    (sequence.Put(values), ...);
    return sequence;
}

/// So many values one inside of the other, a tuple outermost; below it by turns the kinds in `kinds`: ( [ i s.
inline std::unique_ptr<omu_PrimTuple> Nested(int levels, std::string_view kinds = "(") {
    std::unique_ptr<omu_Primitive> value = std::make_unique<omu_PrimNumber>(1);
    const auto wrap = [&](auto outer, auto... key) {
        outer->Put(std::move(value), key...);
        value = std::move(outer);
    };
    for (int level = levels; level > 1; --level) {
        const char kind = kinds[static_cast<std::size_t>(level) % kinds.size()];
        if (kind == '(') wrap(std::make_unique<omu_PrimTuple>());
        if (kind == '[') wrap(std::make_unique<omu_PrimList>());
        if (kind == 'i') wrap(std::make_unique<omu_PrimDictionary<int>>(), 1);
        if (kind == 's') wrap(std::make_unique<omu_PrimDictionary<cow_String>>(), cow_String("k"));
    }
    auto outermost = std::make_unique<omu_PrimTuple>();
    outermost->Put(std::move(value));
    return outermost;
}

/// The message of the E that `act` throws.
template <class E = nex_PrimException>
std::string Refusal(const auto& act) {
    try {
        act();
    } catch (const E& refused) {
        return refused.what();
    }
    return "accepted";
}

/// Values of whatever class through holders of the base class, as attributes of a model keep them.
struct Shelf {
    cow_List<cow_CountedHld<omu_Primitive>> values;

    explicit Shelf(const std::shared_ptr<omu_Primitive>& value) { values.Append(cow_CountedHld(value)); }
    static unsigned TypeId() { return 0x7F0101; }
    static void InitializeMetadata(cls_ClassRegistrar& r) {
        r.Class<Shelf>("Shelf", 1).Add<decltype(values)>("values");
    }
    void DBWrite(const cls_WriteVisitor& v) const { v.Write("values", values); }
    explicit Shelf(const cls_ReadVisitor& v) : values(v.Read("values", decltype(values)())) {}
};

using Kinds = omu_PrimEnum<omu_PrimNumber::DataTypeEnm>;

/// A value and what it says of itself.
struct Sample {
    std::shared_ptr<omu_Primitive> value;
    char type;
    unsigned id;
    const char* typeString;
    const char* text;
};

/// What can be put, of each class and kind of number once or more; no two are equal.
inline std::vector<Sample> Samples() {
    omu_PrimTuple gap('(', 2), rowAndGap('(', 2);
    gap.Put(7);
    rowAndGap.Put(Of(7.5));
    cow_Map<cow_String, float> floats;
    floats.Insert("it's", 0.5F);
    omu_PrimDictionary<int> byInt;
    byInt.Put(true, -1);
    omu_PrimDictionary<cow_String> byText, doubles;
    doubles.Put(0.5, "d");
    const double numbers[] = {8.5, 9.5};
    const char* const nothing = nullptr;

    std::vector<Sample> samples;
    const auto add = [&](char type, unsigned index, const char* typeString, const char* text, const auto& value) {
        samples.push_back({omu_MakePrimitive(value), type, 0x130000 + index, typeString, text});
    };
    add('i', 0x16, "int", "-5", static_cast<signed char>(-5));
    add('i', 0x16, "int", "-300", short{-300});
    add('i', 0x16, "int", "7", 7);
    add('i', 0x16, "int", "4294967295", 4294967295U);
    add('f', 0x16, "float", "0.5", 0.5F);
    add('f', 0x16, "float", "2.5", 2.5);
    add('b', 0x31, "Boolean", "True", true);
    add('x', 0x22, "complex", "1.5+2j", omi_complex(1.5, 2));
    add('s', 0x18, "string", R"("it's")", "it's");
    add('s', 0x18, "string", "''", nothing);
    add('s', 0x18, "string", "'text'", cow_String("text"));
    add('s', 0x18, "string", R"('1."x')", OrvBasUtlFilePath("1.\"x"));
    add('l', 0x30, "tran_string", R"('a\n\\')", atr_String("a\n\\"));
    add('n', 0x1D, "None", "None", omu_PrimNone());
    add('t', 0x1F, "PartType", "PartType", omu_PrimType("Part"));
    add('t', 0x1F, "type", "Type", omu_PrimType(""));
    add('e', 0x1A, "expression", "a['%s']", omu_PrimExpr("a['%s']"));
    add('E', 0x2F, "exception", "omu_PrimException object", omu_PrimException(nex_CommandException("p")));
    add('c', 0x25, "OFF or ON", "ON", omu_PrimBool<2>("ON"));
    add('c', 0x1B, "OFF", "OFF", omu_PrimEnumBase("OFF"));
    add('c', 0x1B, "%n\xFF", "%n\xFF", omu_PrimEnumBase("%n\xFF"));
    add('c', 0x1B, "DOUBLE, FLOAT, INT, SCHAR, SHORT or UINT", "INT", Kinds(omu_PrimNumber::INT));
    add('c', 0x1B, "UINT", "UINT", omu_PrimEnumBase("UINT"));
    add('(', 0x19, "tuple", "()", Of());
    add('(', 0x19, "tuple", "(1, 2)", Of(1, 2));
    add('(', 0x19, "tuple", "(4,)", Of(short{4}));
    add('(', 0x19, "tuple", "(5, 6.0)", Of(5, 6.0));
    add('(', 0x19, "tuple", "(7,)", gap);
    add('(', 0x19, "tuple", "(2.5,)", Of(2.5));
    add('(', 0x19, "tuple", "(True, OFF)", Of(true, omu_PrimEnumBase("OFF")));
    add('(', 0x19, "tuple", "((0.5, 1.5), (2.5, 3.5))", Of(Of(0.5, 1.5), cow_List<double>{2.5, 3.5}));
    add('(', 0x19, "tuple", "((0.5, 1.5), (2.5,))", Of(Of(0.5, 1.5), Of(2.5)));
    add('(', 0x19, "tuple", "((0.5,), 0.5)", Of(Of(0.5), 0.5));
    add('(', 0x19, "tuple", "((7.5,),)", rowAndGap);
    add('[', 0x15, "list", "((), ())", Of<omu_PrimList>(Of(), cow_List<int>()));
    add('[', 0x15, "list", "(3,)", cow_List<int>{3});
    add('[', 0x15, "list", "(False, True)", cow_List<bool>{false, true});
    add('[', 0x15, "list", "(0.5, 1.5)", cow_List<float>{0.5F, 1.5F});
    add('[', 0x15, "list", "(2.0, 3.5)", cow_List<double>{2, 3.5});
    add('[', 0x15, "list", "('a', 'b')", cow_List<cow_String>{"a", "b"});
    add('[', 0x15, "list", "('c',)", cow_List<atr_String>{"c"});
    add('[', 0x15, "list", "(on,)", cow_List<omu_PrimEnumBase>{omu_PrimEnumBase("on")});
    add('[', 0x15, "list", "((1.0, 2.0), (3.0, 4.0))", cow_2DArray<double>(2, 2, {1, 2, 3, 4}));
    add('[', 0x15, "list", "(('a', 'b'),)", cow_2DArray<cow_String>(1, 2, {"a", "b"}));
    add('[', 0x15, "list", "()", cow_2DArray<double>());
    add('{', 0x13, "dictionary with integer keys", "{-1: True}", byInt);
    add('{', 0x14, "dictionary with string keys", "{}", byText);
    add('{', 0x14, "dictionary with string keys", R"({"it's": 0.5})", floats);
    add('{', 0x14, "dictionary with string keys", "{'d': 0.5}", doubles);
    add('o', 0x21, "array", "(8.5, 9.5)", omu_PrimArray(1, {2}, numbers));
    return samples;
}

#endif
