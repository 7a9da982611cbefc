// Protects the arrays: which shape and type nested sequences infer, with which reason they are refused, the numbers at
// each index whichever way they are reached, what shares the block, the texts, and that all survive a stream.

#include <base/nex_RangeException.h>
#include <base/nex_StreamException.h>
#include <support/ChildProcess.h>
#include <support/StartedLibrary.h>
#include <support/values.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <random>

namespace {

using Array = omu_PrimArray;
using Number = omu_PrimNumber;
using Sequence = omu_PrimSequence;
using Tuple = omu_PrimTuple;
using Type = Number::DataTypeEnm;
using Shape = std::vector<int>;

constexpr int most = std::numeric_limits<int>::max();
constexpr const double* zeros = nullptr;
constexpr const char* noMemory = "PrimArray can't allocate memory for array (data)";
constexpr const char* onlyTypes = "PrimArray only INT, FLOAT, DOUBLE allowed";

using omu_Array = StartedLibrary;

Shape ShapeOf(const Array& array) {
    Shape shape;
    for (int i = 0; i < array.ConstGetNumDimensions(); ++i) shape.push_back(array.ConstGetDimension(i));
    return shape;
}

/// What `getDimensionsFromSequence` does for a sequence by itself, or as the caller left things.
struct Inferred {
    explicit Inferred(const Sequence& sequence, bool checkAll = true, int from = 0) : nd(from) {
        good = getDimensionsFromSequence(sequence, nd, dims, type, reason, checkAll);
    }
    int nd;
    cow_List<int> dims{7, 8, 9};
    Type type = Number::UINT;
    atr_String reason;
    bool good;

    [[nodiscard]] Shape Dims() const { return {dims.begin(), dims.end()}; }
};

/// The shape and all numbers of nested sequences, looked at as a whole; none when they fill no rectangle.
struct Facts {
    Shape shape;
    std::vector<Number> numbers;
};
std::optional<Facts> FactsOf(const omu_Primitive& value) {
    if (const auto* const number = dynamic_cast<const Number*>(&value)) return Facts{{}, {*number}};
    const auto* const sequence = dynamic_cast<const Sequence*>(&value);
    if (sequence == nullptr) return std::nullopt;
    Facts all{{sequence->Length()}, {}};
    for (int i = 0; i < sequence->Length(); ++i) {
        const std::optional<Facts> facts = FactsOf((*sequence)[i]);
        if (!facts) return std::nullopt;
        if (i == 0) all.shape.insert(all.shape.end(), facts->shape.begin(), facts->shape.end());
        if (!std::equal(all.shape.begin() + 1, all.shape.end(), facts->shape.begin(), facts->shape.end()))
            return std::nullopt;
        all.numbers.insert(all.numbers.end(), facts->numbers.begin(), facts->numbers.end());
    }
    return all;
}

Type WidestOf(const std::vector<Number>& numbers) {
    const auto has = [&](Type type) { return std::ranges::count(numbers, type, &Number::DataType); };
    if (numbers.empty()) return Number::INT;
    if (has(Number::DOUBLE) != 0) return Number::DOUBLE;
    if (has(Number::FLOAT) != 0) return Number::FLOAT;
    const Type first = numbers.front().DataType();
    return has(first) == std::ssize(numbers) ? first : Number::INT;
}

/// What an element of the type is, as a double.
double Element(const Number& number, Type type) {
    const bool isUint = number.DataType() == Number::UINT;
    const double value = isUint ? number.AsUint() : number.AsDouble();
    if (type == Number::DOUBLE) return value;
    if (type == Number::FLOAT) return static_cast<float>(value);
    return isUint ? static_cast<int>(number.AsUint()) : number.AsInt();
}

std::mt19937_64 dice;
int Below(int n) { return static_cast<int>(dice() % static_cast<unsigned>(n)); }

Number RandomNumber(int kinds) {
    int kind = Below(6);
    while ((kinds >> kind & 1) == 0) kind = (kind + 1) % 6;
    const int value = static_cast<int>(dice() >> (32 + Below(31)));
    if (kind == 0) return Number(static_cast<signed char>(value));
    if (kind == 1) return Number(static_cast<short>(value));
    if (kind == 2) return Number(-value);
    if (kind == 3) return Number(static_cast<float>(value / 64.0));
    return kind == 4 ? Number(value / -64.0) : Number(-static_cast<unsigned>(value));
}

/// Nested tuples of this shape with numbers of the kinds whose bits are set; with `spoil`, one item in 40 or so is
/// something else. Inner ones are arrays here and there.
std::unique_ptr<omu_Primitive> Grow(const Shape& shape, std::size_t level, int kinds, bool spoil) {
    const int fault = spoil && level != 0 && Below(40) == 0 ? 1 + Below(3) : 0;
    if (fault == 1) return std::make_unique<omu_PrimString>("1");
    if (level == shape.size() ? fault == 0 : fault == 2) return RandomNumber(kinds).Copy();
    Tuple tuple;
    for (int i = (level == shape.size() ? 1 : shape[level]) + (fault == 3 ? 1 : 0); i > 0; --i)
        tuple.Put(Grow(shape, std::min(level + 1, shape.size()), kinds, spoil).release());
    if (level != 0 && Below(4) == 0 && Refusal([&] { Array{tuple}; }) == "accepted")
        return std::make_unique<Array>(tuple);
    return tuple.Copy();
}

/// Each element by index, lent and in the block.
void CheckItems(const Array& array, const Facts& facts) {
    const omu_PrimArrayView view = array.View();
    ASSERT_TRUE(std::ranges::equal(view.shape, facts.shape));
    Shape index(std::max<std::size_t>(facts.shape.size(), 4));
    for (const Number& number : facts.numbers) {
        const double value = Element(number, view.type);
        const omu_Primitive* lent = &array;
        const void* address = view.data;
        for (std::size_t d = 0; d < facts.shape.size(); ++d) {
            lent = &dynamic_cast<const Sequence&>(*lent)[index[d]];
            address = static_cast<const char*>(address) + view.strides[d] * index[d];
        }
        ASSERT_EQ(dynamic_cast<const Number&>(*lent).AsDouble(), value);
        ASSERT_EQ(dynamic_cast<const Number&>(*lent).DataType(), view.type);
        const double stored = view.type == Number::INT     ? *static_cast<const int*>(address)
                              : view.type == Number::FLOAT ? *static_cast<const float*>(address)
                                                           : *static_cast<const double*>(address);
        ASSERT_EQ(stored, value);
        if (std::all_of(index.begin() + 4, index.end(), [](int i) { return i == 0; })) {
            ASSERT_EQ(array.ConstGetDouble(index[0], index[1], index[2], index[3]), value);
        }
        for (std::size_t d = facts.shape.size(); d-- > 0 && ++index[d] == facts.shape[d];) index[d] = 0;
    }
}

/// It prints, slices, repeats and joins as a tuple of its elements, but into arrays; so do those within.
void CheckSequence(const Array& array) {
    Tuple tuple;
    for (int i = 0; i < array.Length(); ++i) tuple.Put(array[i]);
    ASSERT_EQ(array.AsString(), tuple.AsString());
    ASSERT_EQ(array.AsRepr(), tuple.AsRepr());
    const int begin = Below(5) - std::min(array.Length(), 2), end = Below(9) - 4, count = Below(5) - 1;
    const std::unique_ptr<Sequence> slice = array.Slice(begin, end);
    const std::pair<std::unique_ptr<Sequence>, std::unique_ptr<Sequence>> pairs[] = {
        {array.Slice(begin, end), tuple.Slice(begin, end)},
        {array.Repeat(count), tuple.Repeat(count)},
        {array.Concat(slice.get()), tuple.Concat(slice.get())},
        {array.Concat(&array), tuple.Concat(&tuple)},
    };
    for (const auto& [own, ofTuple] : pairs) {
        ASSERT_EQ(own->AsString(), ofTuple->AsString()) << begin << ' ' << end << ' ' << count;
        const Array& result = dynamic_cast<const Array&>(*own);
        ASSERT_EQ(result.ConstGetPrimNumberType(), array.ConstGetPrimNumberType());
        ASSERT_EQ(result.ConstGetPyType(), 'q');
        Shape shape = ShapeOf(array);
        shape[0] = ofTuple->Length();
        ASSERT_EQ(ShapeOf(result), shape);
    }
    if (array.ConstGetNumDimensions() > 1 && array.Length() != 0) CheckSequence(dynamic_cast<const Array&>(array[0]));
}

TEST_F(omu_Array, AreWhatTheirNumbersSayAsAWhole) {
    constexpr unsigned seed = 20261122;
    SCOPED_TRACE(seed);
    dice.seed(seed);
    int made = 0, refused = 0;
    Array last;
    for (int round = 0; round < 4000 && !HasFatalFailure(); ++round) {
        Shape shape(static_cast<std::size_t>(1 + Below(5)));
        for (int& dimension : shape) dimension = Below(12) == 0 ? 0 : 1 + Below(3);
        const int kinds = Below(3) == 0 ? 1 << Below(6) : 1 + Below(63);
        const std::unique_ptr<omu_Primitive> grown = Grow(shape, 0, kinds, Below(2) == 0);
        const auto& sequence = dynamic_cast<const Sequence&>(*grown);
        SCOPED_TRACE(sequence.AsString().str());
        const std::optional<Facts> facts = FactsOf(sequence);
        const Inferred inferred(sequence);
        ASSERT_EQ(inferred.good, facts.has_value());
        refused += !facts;
        if (!facts) continue;
        const Type type = WidestOf(facts->numbers);
        ASSERT_EQ(inferred.Dims(), facts->shape);
        ASSERT_EQ(inferred.nd, std::ssize(facts->shape));
        ASSERT_EQ(inferred.type, type);
        if (type < Number::INT || type > Number::DOUBLE) {
            ASSERT_EQ(Refusal([&] { Array{sequence}; }), onlyTypes);
            continue;
        }
        ++made;
        Array array(sequence);
        array.SetPyType('q');
        array.SetIsVlmNDarray(Below(2) == 0);
        array.SetColZeroIsInt(Below(2) == 0);
        ASSERT_EQ(ShapeOf(array), facts->shape);
        ASSERT_EQ(array.ConstGetArraySize(), facts->numbers.size() * (type == Number::DOUBLE ? 8 : 4));
        CheckItems(array, *facts);
        CheckSequence(array);
        const Array read = RoundTrip(registrar, array);
        ASSERT_TRUE(read == array && read.ConstGetPyType() == 'q');
        ASSERT_TRUE(read.IsVlmNDarray() == array.IsVlmNDarray() && read.ColZeroIsInt() == array.ColZeroIsInt());
        ASSERT_EQ(array == last, array.AsString() == last.AsString() && ShapeOf(array) == ShapeOf(last) &&
                                     type == last.ConstGetPrimNumberType());
        last = array;
    }
    EXPECT_GT(made, 1000);
    EXPECT_GT(refused, 300);
}

TEST_F(omu_Array, WidestTypes) {
    // Rows: the new item's type, -1 to 6; columns: the type so far, the same. 6 names no type.
    constexpr int widest[8][8] = {
        {-1, 4, 4, 4, 4, 4, 4, 4}, {3, 0, 2, 2, 3, 4, 2, -1},       {3, 2, 1, 2, 3, 4, 2, -1},
        {3, 2, 2, 2, 3, 4, 2, -1}, {3, 3, 3, 3, 3, 4, 3, 3},        {4, 4, 4, 4, 4, 4, 4, 4},
        {3, 2, 2, 2, 3, 4, 5, -1}, {-1, -1, -1, -1, -1, -1, -1, 6},
    };
    for (int a = -1; a <= 6; ++a)
        for (int b = -1; b <= 6; ++b)
            EXPECT_EQ(widestType(static_cast<Type>(a), static_cast<Type>(b)), widest[a + 1][b + 1]) << a << ' ' << b;
}

/// Fields as anybody might write them.
template <class T>
struct Forged {
    int type = -1;
    Shape dims{};
    std::vector<int> ints{};
    static unsigned TypeId() { return T::TypeId(); }
    void DBWrite(const cls_WriteVisitor& v) const {
        v.Write(std::is_same_v<T, Array> ? "typeCode" : "dataType", static_cast<Type>(type));
        if (dims.empty() && ints.empty()) return;
        v.Write("dims", cow_List<int>(dims));
        v.Write("intData", cow_List<int>(ints));
    }
};

TEST_F(omu_Array, ReasonsAndHowFarItGot) {
    const auto number = [this](int type) {
        return ReadBack<Number>(registrar, Written(registrar, Forged<Number>{type}));
    };
    Tuple holder('(', 2);
    holder.Put(1);
    Tuple deep = Of(1);
    for (int level = 1; level < 150; ++level) deep = Of(deep);
    EXPECT_EQ(Array(deep).AsString(), deep.AsString());
    struct Row {
        Tuple sequence;
        const char* reason;
        Shape dims;
        int type;
    };
    const Row rows[] = {
        {Of(Of(1, 2), Of(3)), "different dims in child. dimThis=0, j=1", {2, 2}, 2},
        {Of(Of(Of(1.0)), Of(Of(1, 2))), "different dims in child. dimThis=0, j=2", {2, 1, 1}, 4},
        {Of(Of(Of(1), Of(1, 2))), "different dims in child. dimThis=1, j=2", {1, 2, 1}, 2},
        {Of(Of(1), Of(1), Of(Of(1))), "different num dims in child. nd=2, ndTemp=3, i=2", {3, 1}, 2},
        {Of(Of(1, 2), 3), "Items. types not consistent.", {2, 2}, 2},
        {Of(1, Of(2, 3)), "Types not consistent", {2}, 2},
        {Of(1.5F, cow_String("1")), "Child not PrimSequence or PrimNumber", {2}, 3},
        {Of(true), "Child not PrimSequence or PrimNumber", {1}, -1},
        {holder, "Child not PrimSequence or PrimNumber", {2}, 2},
        {Of(1, number(77)), "Items. tc==NO_TYPE. pn.DT=77, tc=2", {2}, 2},
        {Of(Of(1), Of(number(77))), "Could not fit type", {2, 1}, 2},
        {Of(Array(deep)), "sequence nested too deeply", Shape(150, 1), -1},
        {Of(deep), "sequence nested too deeply", Shape(150, 1), -1},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.sequence.Length());
        const Inferred inferred(row.sequence);
        EXPECT_FALSE(inferred.good);
        EXPECT_STREQ(inferred.reason.c_str(), row.reason);
        EXPECT_EQ(inferred.Dims(), row.dims) << row.reason;
        EXPECT_EQ(inferred.nd, std::ssize(row.dims)) << row.reason;
        EXPECT_EQ(inferred.type, row.type) << row.reason;
        EXPECT_EQ(Refusal([&] { Array{row.sequence}; }),
                  std::string("omu_PrimArray from sequence failed - dimensions. ") + row.reason);
    }
    struct Fickle : Tuple {
        mutable int asked = 0;
        [[nodiscard]] int Length() const override { return asked++ == 0 ? 2 : 1; }
    } fickle;
    for (const int each : {1, 2}) fickle.Put(each);
    EXPECT_EQ(Refusal([&] { Array{fickle}; }), "omu_PrimArray from sequence failed - copyValues");
    EXPECT_EQ(Array(Of(number(-1), 1)).ConstGetPrimNumberType(), Number::FLOAT) << "the later item is the new one";
    EXPECT_EQ(Array(Of(1, number(-1))).ConstGetPrimNumberType(), Number::DOUBLE);

    // Without checkAll only the beginnings count, but what they are must agree. The caller's levels are kept.
    EXPECT_FALSE(Inferred(Of(Of(1), 5), false).good);
    const Inferred beginnings(Of(Of(1, 2.5), Of(3)), false, 1);
    EXPECT_TRUE(beginnings.good);
    EXPECT_EQ(beginnings.Dims(), (Shape{7, 2, 2}));
    EXPECT_EQ(beginnings.type, Number::INT);
    EXPECT_EQ(Inferred(Array(1, {3}, zeros), true, 1).Dims(), (Shape{7, 3}));
    EXPECT_FALSE(Inferred(Of(1), true, -1).good);
}

TEST_F(omu_Array, AreRefusedWhenTheirDimensionsAreImpossible) {
    const double values[] = {1.5, 2.5, 3.5, 4.5};
    Array array(2, {2, 2}, values);
    atr_String reason;
    for (const cow_List<int>& dims : {cow_List{65536, 32768}, {most, most, most, most}, {2, most}}) {
        EXPECT_FALSE(array.FromDimsAndData(dims.Length(), dims, nullptr, Number::INT, &reason));
        EXPECT_STREQ(reason.c_str(), noMemory);
        EXPECT_EQ(Refusal([&] { Array(dims.Length(), dims, zeros); }), noMemory);
    }
    EXPECT_FALSE(array.FromDimsAndData(-1, {}, nullptr, Number::SHORT));
    const auto from = [&](int nd, const cow_List<int>& dims, int type) {
        return Refusal([&] { (void)array.FromDimsAndData(nd, dims, values, static_cast<Type>(type)); });
    };
    for (const int type : {-1, 0, 1, 5, 6}) EXPECT_EQ(from(2, {2, -1}, type), onlyTypes);
    EXPECT_EQ(from(2, {0, -1}, 2), "PrimArray negative dimensions are not allowed");
    EXPECT_EQ(from(2, {2}, 2), "PrimArray fewer dimensions than their number");
    EXPECT_EQ(from(151, cow_List<int>(Shape(151, 1)), 2), "PrimArray too many dimensions");
    EXPECT_THROW((void)array.Repeat(most / 2), nex_PrimException) << "few rows, too many elements";
    EXPECT_EQ(array.AsString(), "((1.5, 2.5), (3.5, 4.5))") << "unchanged";
    EXPECT_EQ(Array(1, {2, 9}, zeros).AsString(), "(0.0, 0.0)");

    // Without elements nothing is too large, but for the text.
    const Array hollow(4, {most, 0, most, most}, Number::FLOAT, nullptr);
    EXPECT_EQ(hollow.View().strides, std::vector<std::ptrdiff_t>(4, 0));
    EXPECT_EQ(hollow[most - 1].AsString(), "()");
    EXPECT_EQ(hollow.Slice(1, most)->Length(), most - 1);
    EXPECT_EQ(Refusal([&] { (void)hollow.AsString(); }), "PrimArray without elements too large to print");
    EXPECT_THROW((void)hollow.Concat(&hollow), nex_PrimException);
    const Array within(Of(Array(3, {2, 0, 3}, values), Array(3, {2, 0, 4}, values)));
    EXPECT_EQ(ShapeOf(within), (Shape{2, 2, 0})) << "what an empty level would hold is not met";
    EXPECT_EQ(within.ConstGetPrimNumberType(), Number::INT);
    for (const Array& none : {Array(), Array(0, {4}, values)}) {
        EXPECT_EQ(none.Length() + none.ConstGetNumElements(), 0);
        EXPECT_EQ(none.AsString() + none.Repeat(3)->AsString() + none.Slice(0, 2)->AsString(), "()()()");
        EXPECT_THROW((void)none.ConstGetItem(0), nex_RangeException);
        EXPECT_EQ(RoundTrip(registrar, none), *none.Concat(&none));
    }
}

TEST_F(omu_Array, ShareTheirBlockUntilGivenAnother) {
    std::vector<int> values(24);
    for (int& each : values) each = static_cast<int>(&each - values.data());
    Array array(3, {2, 3, 4}, values.data());
    values.clear();
    Array copy(array);
    copy.SetPyType('z');
    EXPECT_GT(copy.SerialNumber(), array.SerialNumber());
    const std::unique_ptr<omu_Primitive> owned = array.Index(1);
    const auto& lent = dynamic_cast<const Array&>(array[1]);
    EXPECT_EQ(&array[1], &lent) << "lent once";
    const omu_Primitive& number = dynamic_cast<const Array&>(lent[2])[3];
    EXPECT_EQ(number.AsString(), "23");
    copy.SetItem(Number(4294967295U), 1, 2, 3);
    dynamic_cast<Array&>(*owned).SetItem(Number(-7.9), 0);
    EXPECT_EQ(array.ConstGetInt(1, 2, 3), -1) << "the same bits";
    EXPECT_EQ(array.ConstGetInt(1), -7) << "cut off";
    EXPECT_EQ(&dynamic_cast<const Array&>(lent[2])[3], &number);
    EXPECT_EQ(number.AsString(), "-1");
    EXPECT_EQ(RoundTrip(registrar, lent), *owned) << "of the block only its part";
    array.SetPyType('y');
    EXPECT_EQ(dynamic_cast<const Array&>(array[1]).ConstGetPyType(), 'y') << "not what the copy was told";

    const Sequence& plain = array;
    EXPECT_EQ(Array(plain).ConstGetData(), array.ConstGetData()) << "an array by whatever name";
    const std::unique_ptr<Sequence> slice = array.Slice(0, 2);
    array = lent;
    EXPECT_EQ(array, *owned) << "though lent by itself";
    array.SetItem(Number(0), 0);
    EXPECT_EQ(copy.ConstGetInt(1), 0);
    EXPECT_EQ(dynamic_cast<const Array&>(*slice).ConstGetInt(1), -7) << "a block of its own";
    (void)array[0];
    ASSERT_TRUE(array.FromDimsAndData(1, {2}, array.ConstGetData(), Number::INT)) << "its own numbers again";
    EXPECT_EQ(array[1].AsString() + array[0].AsString(), "130");
    array.SetItem(Number(5), 1);
    EXPECT_EQ(copy.ConstGetInt(1, 0, 1), 13);

    for (const auto& [i, j, k, l] : {std::array{2, 0, 0, 0}, {-1, 0, 0, 0}, {0, 3, 0, 0}, {0, 0, 4, 0}, {0, 0, 0, 1}}) {
        EXPECT_THROW((void)copy.ConstGetDouble(i, j, k, l), nex_RangeException);
        EXPECT_THROW(copy.SetItem(Number(1), i, j, k, l), nex_RangeException);
    }
    EXPECT_THROW((void)copy[2], nex_RangeException);
    EXPECT_THROW((void)copy.Index(-1), nex_RangeException);
}

TEST_F(omu_Array, JoinAndCompareByType) {
    const Array ints(Of(Of(1, 2))), doubles(Of(Of(0.5, 1e300))), floats(Of(Of(0.25F, 1.0F)));
    EXPECT_EQ(ints.Concat(&doubles)->AsString(), "((1.0, 2.0), (0.5, 1e+300))");
    EXPECT_EQ(*floats.Concat(&ints), Array(Of(Of(0.25F, 1.0F), Of(1.0F, 2.0F))));
    const Tuple tuple = Of(Of(3U, 4));
    EXPECT_EQ(*ints.Concat(&tuple), Array(Of(Of(1, 2), Of(3, 4))));
    for (const Tuple& other : {Of(Of(1, 2, 3)), Of(1, 2), Of(Of(Of(1), Of(2))), Of(), Of(cow_String())})
        EXPECT_THROW((void)ints.Concat(&other), nex_PrimException) << other.AsString();
    EXPECT_THROW((void)ints.Concat(nullptr), nex_PrimException);

    const Array nan(Of(std::nan("")));
    EXPECT_NE(nan, nan);
    EXPECT_EQ(Array(Of(-0.0)), Array(Of(0.0)));
    EXPECT_NE(Array(Of(0)), Array(Of(0.0F)));
    EXPECT_TRUE(ints.IsA(0x130020));
}

TEST_F(omu_Array, StoredFieldsMustFitEachOther) {
    EXPECT_EQ(Array(cls_ReadVisitor(nullptr)), Array());
    const auto read = [&](const Forged<Array>& forged) {
        return ReadBack<Array>(registrar, Written(registrar, forged));
    };
    EXPECT_EQ(read({Number::INT, {2, 1}, {5, 6}}), Array(Of(Of(5), Of(6))));
    for (const Shape& dims : {Shape{}, {1}, {3}, {-1, -2}, {65536, 65536}, Shape(151, 1)})
        EXPECT_THROW(read({Number::INT, dims, {5, 6}}), nex_StreamException) << dims.size();
    for (const int type : {-1, 0, 1, 3, 4, 5, 6}) EXPECT_THROW(read({type, {2}, {5, 6}}), nex_StreamException) << type;
    EXPECT_THROW(read({Number::INT, {65536, 65536}, {}}), nex_StreamException);
}

/// Runs by itself as any test, and in the processes of the next one for what it writes.
TEST_F(omu_Array, Scenario) { EXPECT_EQ(Array(Of(Of(1, 2.5), Of(Number(3U), 4), Array(Of(5, 6)))).Length(), 3); }

TEST_F(omu_Array, SwitchTellsWhatIsFound) {
    const auto errors = [](const char* value) {
        const ChildResult child = RunTest("omu_Array.Scenario", {{"VLM_DBG_PRIMARRAY", value}});
        EXPECT_EQ(child.exitCode, 0) << child.out;
        return child.err;
    };
    const std::string row = "getDimensionsFromSequence() nd=2, i=0, tc set to ";
    const std::string changed = "    getDimensionsFromSequence() tc changed to omu_PrimNumber::";
    EXPECT_EQ(errors(nullptr), "");
    for (const char* value : {"", "0"})
        EXPECT_EQ(errors(value),
                  "getDimensionsFromSequence() nd=1, i=0, tc set to omu_PrimNumber::INT\nomu_PrimArray() 6 ##001\n" +
                      row + "omu_PrimNumber::INT\n" + changed + "DOUBLE\n" + row + "(null)\n" + changed + "INT\n" +
                      row + "omu_PrimNumber::INT\nomu_PrimArray() 6 ##003\n");
}

}  // namespace
