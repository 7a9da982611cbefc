// Protects the values that hold values: what CPython makes of their texts, equality and copies down to the last leaf,
// the operations of sequences, nesting beyond reason on a small stack, and that all survive a stream and bad bytes.

#include <base/nex_CmdException.h>
#include <base/nex_PrimException.h>
#include <base/nex_RangeException.h>
#include <base/nex_StreamException.h>
#include <omu/omu.h>
#include <support/ChildProcess.h>
#include <support/StartedLibrary.h>
#include <support/streams.h>

#include <gtest/gtest.h>
#include <pthread.h>

#include <bit>
#include <climits>
#include <cmath>
#include <fstream>
#include <functional>
#include <numeric>
#include <random>
#include <sstream>
#include <typeinfo>

namespace {

using Value = std::unique_ptr<omu_Primitive>;
using Tuple = omu_PrimTuple;
using List = omu_PrimList;
using ByNumber = omu_PrimDictionary<int>;
using ByName = omu_PrimDictionary<cow_String>;
using Act = std::function<void(Tuple&)>;

using omu_Containers = StartedLibrary;

template <class T = Tuple>
T Of(const auto&... values) {
    T sequence;
    (sequence.Put(values), ...);
    return sequence;
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

/// A tree of values, the same for the same seed but for the leaf with the number `changed`; and, made beside it without
/// the library, what it is in Python.
class RandomTree {
public:
    explicit RandomTree(unsigned seed, int changed = -1) : _random(seed), _changed(changed) {
        python << std::hexfloat;
        value = Make(6);
    }

    std::ostringstream python;
    Value value;
    int leaves = 0;

private:
    Value Make(int depth) {
        const auto kind = _random() % (depth == 6 ? 4 : 12);
        if (depth != 0 && kind == 0) return Filled<Tuple>(depth);
        if (depth != 0 && kind == 1) return Filled<List>(depth);
        if (depth != 0 && kind == 2) return Filled<ByNumber>(depth);
        if (depth != 0 && kind == 3) return Filled<ByName>(depth);
        Value leaf = Leaf(_random());
        return leaves++ == _changed ? std::make_unique<omu_PrimExpr>("changed") : std::move(leaf);
    }
    template <class T>
    Value Filled(int depth) {
        constexpr bool isDictionary = std::is_base_of_v<omu_PrimDictionaryBase, T>;
        auto made = std::make_unique<T>();
        python << (isDictionary ? "d(" : "(");
        for (auto i = static_cast<int>(_random() % 8); i > 0; --i) {
            if constexpr (isDictionary) {
                std::decay_t<decltype((*made->begin()).first)> key;
                python << '(';
                Key(key, i);
                python << ',';
                made->Put(Make(depth - 1), key);
                python << ')';
            } else {
                made->Put(Make(depth - 1));
            }
            python << ',';
        }
        python << ')';
        return made;
    }
    void Key(int& key, int i) { python << (key = static_cast<int>(_random() % 1000) * 8 - 4000 + i); }
    void Key(cow_String& key, int i) { key = Text(std::to_string(i)); }
    Value Leaf(std::uint64_t bits) {
        const auto whole = static_cast<int>(bits >> 8);
        const double real = Real(), im = Real();
        if (bits % 6 == 0) return Told(omu_PrimNumber(whole), whole);
        if (bits % 6 == 1) return Told(omu_PrimNumber(static_cast<unsigned>(whole)), static_cast<unsigned>(whole));
        if (bits % 6 == 2) return Told(omu_PrimNumber(real), "f('", real, "')");
        if (bits % 6 == 3) return Told(omu_PrimBoolean(whole > 0), "bool(", whole > 0, ")");
        if (bits % 6 == 4) return std::make_unique<omu_PrimString>(Text(""));
        python << "c('" << im << "',";
        return Told(omu_PrimComplex({real, im}), "'", real, "')");
    }
    Value Told(const omu_Primitive& leaf, const auto&... parts) { return (python << ... << parts), leaf.Copy(); }
    double Real() {
        const auto bits = _random();
        if (bits % 4 == 0) return static_cast<double>(static_cast<int>(bits)) / 1000.0;
        if (bits % 4 == 1) return std::ldexp(1.0, static_cast<int>((bits >> 8) % 2098) - 1074);
        const auto any = std::bit_cast<double>(bits);
        return bits % 4 == 2 && std::isfinite(any) ? any : -0.0;
    }
    cow_String Text(std::string text) {
        static const std::string pieces[] = {"'", "\"", "\\", "\n", "n", "\t", "%s, {", "\xC3\xA9", "\xF0\x9F\x98\x80"};
        for (auto left = _random() % 6; left > 0; --left) text = pieces[_random() % std::size(pieces)] + text;
        python << "s('" << ToHex(text) << "')";
        return text;
    }

    std::mt19937_64 _random;
    int _changed;
};

/// Each line of the file: what is expected, and the text. As representations, which tell types, order and signs.
constexpr const char* checker = R"PY(
import ast, sys
def f(x): return float('%.15g' % float.fromhex(x))
def c(im, re): return complex(f(re) + 0, f(im) + 0)  # a literal has no negative zeros
def s(x): return bytes.fromhex(x).decode()
def d(*items): return dict(sorted(dict(items).items(), key=lambda i: i[0] if type(i[0]) is int else i[0].encode()))
with open(sys.argv[1], newline='\n', encoding='utf-8') as lines:
    for n, line in enumerate(lines, 1):
        tree, text = line.rstrip('\n').split('\x01')
        if repr(ast.literal_eval(text)) != repr(eval(tree)): sys.exit(line)
print(n)
)PY";

TEST_F(omu_Containers, CPythonReadsBackWhatIsPrinted) {
    const std::string path = testing::TempDir() + "omu_Containers_lines.txt";
    std::ofstream lines(path, std::ios::binary);
    for (unsigned seed = 0; seed < 4000; ++seed) {
        const RandomTree tree(seed);
        EXPECT_EQ(tree.value->AsRepr(), tree.value->AsString()) << seed;
        lines << tree.python.str() << '\x01' << tree.value->AsString().View() << '\n';
    }
    lines.close();
    const ChildResult python = RunProgram({"/usr/bin/python3", "-c", checker, path});
    EXPECT_EQ(python.out, "4000\n") << python.err;
    std::remove(path.c_str());
}

TEST_F(omu_Containers, CopiesAreEqualDownToTheLastLeaf) {
    for (unsigned seed = 0; seed < 400; ++seed) {
        SCOPED_TRACE(seed);
        const RandomTree tree(seed);
        const Tuple original = Of(*tree.value);
        const Value copy = original.Copy();
        const Tuple read = RoundTrip(registrar, original);
        EXPECT_TRUE(original == *copy && *copy == original && original == read && read == original);
        EXPECT_EQ(Written(registrar, read), Written(registrar, original)) << "in every stored detail";
        for (int leaf = 0; leaf < tree.leaves; ++leaf) {
            const Tuple other = Of(*RandomTree(seed, leaf).value);
            EXPECT_FALSE(original == other || other == original) << leaf;
        }
    }
}

TEST_F(omu_Containers, EqualityOfContainers) {
    struct Agreeable : omu_PrimNone {
        bool IsEqual(const omu_Primitive&) const override { return true; }
        Value Copy() const override { return std::make_unique<Agreeable>(*this); }
    };
    ByName left, right;
    left.Put(Agreeable(), "k");
    right.Put(1, "k");
    EXPECT_TRUE(Of(left) == Of(right) && Of(right) != Of(left)) << "the rule of the left element";
    omu_PrimNone set;
    set.Set();
    EXPECT_TRUE(Of(true) == Of(set) && Of(set) == Of(true));

    List named('(');
    named.Put(1);
    EXPECT_TRUE(Of(1) == named && named == Of(1)) << "the type character tells";
    EXPECT_TRUE(Of(1) != Of<List>(1) && Of<List>(1) != Of(1) && Tuple('o') != omu_PrimArray());
    EXPECT_TRUE(Tuple('{') != ByNumber() && ByNumber() != Tuple('{') && ByNumber() != ByName());
    EXPECT_TRUE(ByNumber() != ByNumber('D') && left != ByName());
    ByName renamed;
    renamed.Put(1, "K");
    EXPECT_NE(left, renamed);

    Tuple sized('(', 2), unfilled('(', 2), null = Of(1);
    sized.Put(1);
    null.Put(nullptr);
    EXPECT_TRUE(sized == null && null == sized) << "not put, or put as nothing";
    EXPECT_TRUE(sized != unfilled && unfilled != sized && sized != Of(1));
}

TEST_F(omu_Containers, SequencesAreCutRepeatedAndJoined) {
    const int numbers[] = {7, 8};
    const omu_PrimArray array(1, {2}, numbers);
    const Tuple other = Of(7, 8);
    for (const char type : {'(', 'T', '[', 'L'}) {
        const bool isList = type == '[' || type == 'L';
        const auto make = [&](int size) {
            return isList ? std::make_unique<List>(type, size) : std::make_unique<Tuple>(type, size);
        };
        for (int length = 0; length <= 5; ++length) {
            const std::unique_ptr<Tuple> sequence = make(0);
            std::vector<int> all(static_cast<std::size_t>(length)), times;
            std::iota(all.begin(), all.end(), 0);
            for (const int each : all) sequence->Put(each);
            const auto plus = [&](std::vector<int> a, const std::vector<int>& b) {
                a.insert(a.end(), b.begin(), b.end());
                return a;
            };
            const auto check = [&](const Value& result, const std::vector<int>& expected) {
                Tuple same(isList ? type : '(');
                for (const int each : expected) same.Put(each);
                EXPECT_EQ(*result, same) << result->AsString().View() << " for " << same.AsString().View();
                EXPECT_EQ(result->DynTypeId(), sequence->DynTypeId());
            };
            for (int k = 0; k < 15 * 15; ++k) {
                const int begin = k / 15 - 7, end = k % 15 - 7;
                const int first = begin < 0 ? begin + length : begin;
                const int last = end > length ? length : end < 0 ? end + length : end;
                SCOPED_TRACE(testing::Message() << length << type << '[' << begin << ':' << end << ']');
                if (first >= last)
                    check(sequence->Slice(begin, end), {});
                else if (first >= 0)
                    check(sequence->Slice(begin, end), {all.begin() + first, all.begin() + last});
                else
                    EXPECT_THROW((void)sequence->Slice(begin, end), nex_RangeException);
            }
            EXPECT_THROW((void)sequence->Slice(INT_MIN, INT_MAX), nex_RangeException);
            check(sequence->Slice(INT_MAX, INT_MIN), {});
            check(sequence->Repeat(INT_MIN), {});
            for (int count = 0; count <= 3; ++count, times = plus(times, all)) check(sequence->Repeat(count), times);
            check(sequence->Concat(&other), plus(all, {7, 8}));
            check(sequence->Concat(&array), plus(all, {7, 8}));
            check(sequence->Concat(sequence.get()), plus(all, all));
        }
        const auto holey = make(3), vast = make(1 << 30);
        holey->Put(1);
        holey->Put(nullptr);
        const std::string null = isList ? "List Index returned NULL" : "Tuple Index returned NULL";
        EXPECT_EQ(Refusal([&] { (void)holey->Slice(0, 2); }), null);
        EXPECT_EQ(Refusal([&] { (void)holey->Repeat(1); }), null);
        EXPECT_EQ(Refusal([&] { (void)holey->Concat(&other); }), null);
        EXPECT_EQ(Refusal([&] { (void)other.Concat(holey.get()); }), "Tuple Index returned NULL") << "of what joins";
        EXPECT_EQ(Refusal([&] { (void)(*holey)[2]; }), null);
        EXPECT_EQ(holey->Slice(0, 1)->AsString(), "(1,)");
        EXPECT_EQ(Refusal([&] { (void)vast->Repeat(2); }), "Sequence too long");
        EXPECT_EQ(Refusal([&] { (void)vast->Concat(vast.get()); }), "Sequence too long");
        EXPECT_NE(Refusal([&] { (void)vast->Concat(nullptr); }), "accepted");
        for (const int outside : {-1, 3, INT_MAX, INT_MIN}) {
            EXPECT_THROW((void)(*holey)[outside], nex_RangeException);
            EXPECT_EQ(holey->Find(outside), nullptr);
        }
    }
}

TEST_F(omu_Containers, WhatIsPutBecomesItsValue) {
    static_assert(!omu_Puttable<char> && !omu_Puttable<const int*> && !omu_Puttable<std::nullptr_t>);
    const char* const nothing = nullptr;
    cow_Map<cow_String, float> map;
    map.Insert("it's", 0.5F);
    Tuple tuple = Of(static_cast<signed char>(-1), short{2}, 3, 4U, 0.5F, 6.0, true, "on", nothing, cow_String("s"),
                     OrvBasUtlFilePath(cow_String("a/b")), atr_String("t"), omi_complex(1, -2), omu_PrimNone(),
                     omu_PrimType("Part"), omu_PrimEnumBase("OFF"), omu_PrimBool<2>(true), cow_List<int>{1},
                     cow_List<bool>{true, false}, cow_List<float>{0.5F}, cow_List<double>{1, 2},
                     cow_List<cow_String>{"x"}, cow_List<atr_String>{"y"}, cow_2DArray<double>(2, 2, {1, 2, 3, 4}),
                     cow_2DArray<cow_String>(1, 1, {"z"}), cow_2DArray<double>(), map, ByNumber(),
                     cow_List<omu_PrimEnumBase>{omu_PrimEnumBase("ON")}, omu_PrimException(nex_PrimException("p")));
    tuple.Put(nullptr);
    tuple.Put(static_cast<omu_Primitive*>(nullptr));
    tuple.Put(new omu_PrimNumber(5));
    tuple.Put(std::make_unique<omu_PrimExpr>("e"));
    const std::string text =
        R"((-1, 2, 3, 4, 0.5, 6.0, True, 'on', '', 's', 'a/b', 't', 1-2j, None, PartType, OFF, ON, (1,), )"
        R"((True, False), (0.5,), (1.0, 2.0), ('x',), ('y',), ((1.0, 2.0), (3.0, 4.0)), (('z',),), (), )"
        R"({"it's": 0.5}, {}, (ON,), omu_PrimException object, 5, e))";
    EXPECT_EQ(tuple.AsString(), text);
    EXPECT_EQ(tuple.AsRepr(), text);
    EXPECT_EQ(tuple.Length(), 34);
    EXPECT_EQ(std::distance(tuple.begin(), tuple.end()), 32) << "without the empty holders";
    std::string types;
    for (const omu_Primitive& each : tuple) {
        types += each.Type();
        unsigned visited = 0;
        EXPECT_TRUE(omu_Visit(each, [&](const auto& concrete) { visited = concrete.TypeId(); }));
        EXPECT_EQ(visited, each.DynTypeId());
    }
    EXPECT_EQ(types, "iiiiffbsssslxntcc[[[[[[[[[{{[Eie");
    tuple.Put(tuple);
    EXPECT_EQ(tuple[34].AsString(), text) << "itself, as it was";

    EXPECT_EQ(Tuple('(', -4).Length(), 0);
}

TEST_F(omu_Containers, DictionariesKeepTheirKeysInOrder) {
    ByName strings;
    for (const char* key : {"\xC3\xA9", "a", "Z", "", "ab"}) strings.Put(1, key);
    strings.Put(2, cow_String(std::string("a\0b", 3)));
    strings.Put("new", "a");
    strings.Put(nullptr, "none");
    std::string seen;
    for (const auto& [key, value] : strings) (seen += key.View()) += '=' + std::string(value.AsString().View()) + ';';
    EXPECT_EQ(seen, std::string("=1;Z=1;a='new';a\0b=2;ab=1;none=None;\xC3\xA9=1;", 41));
    EXPECT_EQ(strings["a"], omu_PrimString("new"));
    EXPECT_TRUE(strings.Remove("a") && !strings.Remove("a"));
    EXPECT_EQ(strings.Find("a"), nullptr);
    EXPECT_THROW((void)strings["a"], nex_RangeException);
    EXPECT_EQ(strings.Keys(), (cow_List<cow_String>{"", "Z", std::string("a\0b", 3), "ab", "none", "\xC3\xA9"}));

    ByNumber numbers('D', 'R');
    for (const int key : {3, INT_MIN, -1, INT_MAX}) numbers.Put(key == -1, key);
    EXPECT_EQ(numbers.AsString(), "{-2147483648: False, -1: True, 3: False, 2147483647: False}");
    EXPECT_THROW((void)numbers[0], nex_RangeException);
    EXPECT_EQ(strings.TypeString(), "dictionary with string keys");
    EXPECT_EQ(numbers.TypeString(), "dictionary with integer keys");
    EXPECT_TRUE(numbers.IsA(0x130012) && numbers.IsA(0x130013) && !numbers.IsA(0x130014) && strings.IsA(0x130014));
    EXPECT_EQ(RoundTrip(registrar, numbers).Represents(), 'R');
}

/// Runs `body` on a thread with a stack of 256 KiB; with a larger one where instrumentation makes all frames larger.
void OnSmallStack(std::function<void()> body) {
#if defined(__SANITIZE_ADDRESS__)
    constexpr std::size_t size = 4 << 20;
#else
    constexpr std::size_t size = 256 << 10;
#endif
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    ASSERT_EQ(pthread_attr_setstacksize(&attributes, size), 0);
    pthread_t thread{};
    const auto run = [](void* f) -> void* { return (*static_cast<std::function<void()>*>(f))(), nullptr; };
    ASSERT_EQ(pthread_create(&thread, &attributes, run, &body), 0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
}

/// So many values one inside of the other, a tuple outermost; below it by turns the kinds in `kinds`: ( [ i s.
std::unique_ptr<Tuple> Nested(int levels, std::string_view kinds) {
    Value value = std::make_unique<omu_PrimNumber>(1);
    const auto wrap = [&](auto outer, auto... key) {
        outer->Put(std::move(value), key...);
        value = std::move(outer);
    };
    for (int level = levels; level > 1; --level) {
        const char kind = kinds[static_cast<std::size_t>(level) % kinds.size()];
        if (kind == '(') wrap(std::make_unique<Tuple>());
        if (kind == '[') wrap(std::make_unique<List>());
        if (kind == 'i') wrap(std::make_unique<ByNumber>(), 1);
        if (kind == 's') wrap(std::make_unique<ByName>(), cow_String("k"));
    }
    auto outermost = std::make_unique<Tuple>();
    outermost->Put(std::move(value));
    return outermost;
}

TEST_F(omu_Containers, NestedBeyondReason) {
    const Act descents[] = {
        [](Tuple& t) { EXPECT_EQ(t.AsString(), t.AsString()); },
        [](Tuple& t) { EXPECT_EQ(t.AsRepr(), t.AsRepr()); },
        [](Tuple& t) { EXPECT_TRUE(t.Copy()); },
        [](Tuple& t) { EXPECT_TRUE(t == t); },
        [](Tuple& t) { EXPECT_EQ(t.Slice(0, 1)->Length(), 1); },
        [](Tuple& t) { EXPECT_EQ(t.Repeat(2)->Length(), 2); },
        [](Tuple& t) { EXPECT_EQ(t.Concat(&t)->Length(), 2); },
        [this](Tuple& t) { (void)Written(registrar, t); },
    };
    for (const char* kind : {"(", "[", "i", "s", "([is"}) {
        SCOPED_TRACE(kind);
        EXPECT_EQ(RoundTrip(registrar, *Nested(150, kind)), *Nested(150, kind));
        OnSmallStack([&, kind] {
            const auto deep = Nested(100'000, kind), beyond = Nested(151, kind), deepest = Nested(150, kind);
            for (const Act& descend : descents) {
                for (const auto& each : {deep.get(), beyond.get()})
                    EXPECT_EQ(Refusal([&] { descend(*each); }), "Values nested too deeply");
                descend(*deepest);
            }
            *deep = Of(1);
            EXPECT_EQ(deep->AsString(), "(1,)");
            ByName dictionary;
            for (int i = 0; i < 2; ++i) dictionary.Put(Nested(100'000, kind), "k");
            EXPECT_TRUE(dictionary.Remove("k"));
            dictionary.Put(Nested(100'000, kind), "k");
            dictionary = ByName();
        });
    }
    Tuple wide;
    for (int i = 0; i < 100'000; ++i) wide.Put(Of(i));
    EXPECT_EQ(wide, *wide.Copy());
    EXPECT_EQ(RoundTrip(registrar, wide).AsString(), wide.AsString());
}

/// Values that share what they hold, as attributes of a model do.
struct Shelf {
    cow_List<cow_CountedHld<omu_Primitive>> values;

    Shelf() = default;
    static unsigned TypeId() { return 0x7F0101; }
    static void InitializeMetadata(cls_ClassRegistrar& r) {
        r.Class<Shelf>("Shelf", 1).Add<decltype(values)>("values");
    }
    void DBWrite(const cls_WriteVisitor& v) const { v.Write("values", values); }
    explicit Shelf(const cls_ReadVisitor& v) : values(v.Read("values", decltype(values)())) {}
};

TEST_F(omu_Containers, StreamsKeepEveryClassAndWhatIsShared) {
    const double numbers[] = {1, 2};
    ByNumber byNumber;
    byNumber.Put(omu_PrimTranslatedString("t"), -1);
    ByName byName;
    byName.Put(byNumber, "a");
    byName.Put(omu_PrimArray(2, {1, 2}, numbers), "b");
    List list('L');
    list.SetMaxSize(9);
    list.Put(Of(byName, Tuple()));
    const cow_CountedHld<omu_Primitive> shared(new Tuple('T', 7));
    auto& tuple = dynamic_cast<Tuple&>(*shared);
    tuple.Put(list);
    tuple.Put(nullptr);
    tuple.Put(omu_PrimEnum<bool, 2>(true));

    cls_MetadataRegistrar::Instance().initClassMetadata(Shelf::InitializeMetadata, 0);
    Shelf shelf;
    for (int i = 0; i < 2; ++i) shelf.values.Append(shared);
    const Shelf read = RoundTrip(registrar, shelf);
    EXPECT_EQ(read.values.ConstGet(0).Get(), read.values.ConstGet(1).Get());
    const auto& again = dynamic_cast<const Tuple&>(*read.values.ConstGet(1));
    EXPECT_EQ(again, tuple);
    EXPECT_EQ(again.AsString(), "((({'a': {-1: 't'}, 'b': ((1.0, 2.0),)}, ()),), ON)");
    EXPECT_EQ(again.Length(), 7);
    EXPECT_EQ(again.Find(1), nullptr);
    EXPECT_EQ(dynamic_cast<const List&>(again[0]).MaxSize(), 9);
}

TEST_F(omu_Containers, ExceptionsKeepTheirClassOrAtLeastTheirMessage) {
    const std::shared_ptr<nex_Exception> exceptions[] = {
        std::make_shared<omu_TypeErrorException>(),
        std::make_shared<omu_KeywordTypeErrorException>("k", "int", "ON", "Part"),
        std::make_shared<omu_ArgTypeErrorException>(2, "int", "%s", "Part"),
        std::make_shared<omu_ArgNumberErrorException>(2, 1, "Part"),
        std::make_shared<omu_KeywordErrorException>("x", "Part; "),
        std::make_shared<omu_AttributeErrorException>(omu_AttribReadOnly, "width"),
        std::make_shared<omu_RangeErrorException>("x", 0.5, omu_RangeQualifierEnm(1), 1.0, omu_RangeQualifierEnm(2)),
        std::make_shared<omu_VelNameErrorException>(omu_VelNameInvalidJob),
        std::make_shared<omu_GenericTypeErrorException>(),
        std::make_shared<nex_CommandException>("100 %d"),
        std::make_shared<nex_PrimException>("Tuple Index returned NULL"),
        std::make_shared<nex_RangeException>("far out"),
        std::make_shared<nex_CmdException<cow_String, 0x7F0102>>("not registered"),
    };
    for (const auto& holder : exceptions) {
        const nex_Exception& each = *holder;
        SCOPED_TRACE(each.what());
        const omu_PrimException value(each, "File \"<stdin>\"");
        const Tuple copy = Of(value), read = RoundTrip(registrar, copy);
        const bool isStored = each.DynTypeId() >> 16 == 0x13 || typeid(each) == typeid(nex_CommandException);
        for (const Tuple* tuple : {&copy, &read}) {
            const auto& found = dynamic_cast<const omu_PrimException&>((*tuple)[0]);
            const nex_Exception& kept = found.GetException();
            const bool isSame = tuple == &copy || isStored;
            EXPECT_EQ(typeid(kept), isSame ? typeid(each) : typeid(nex_CommandException));
            EXPECT_STREQ(kept.what(), each.what());
            EXPECT_EQ(found.GetTraceback(), "File \"<stdin>\"");
            EXPECT_EQ(found == value, isSame);
        }
    }
    EXPECT_NE(omu_PrimException(*exceptions[2]), omu_PrimException(*exceptions[3]));
}

TEST_F(omu_Containers, ReadingGoesOnAfterAReload) {
    int i = 0;
    double d = 0;
    cow_String s;
    const Act steps[] = {
        [&](Tuple& t) { t.Get(i); },       [&](Tuple& t) { t.Get(d); },  // fails, if there is such an argument
        [](Tuple& t) { t.Alternative(); }, [&](Tuple& t) { t.Get(s); }, [](Tuple& t) { t.Optional(); },
        [&](Tuple& t) { t.Get(d); },       [&](Tuple& t) { t.Get(i); },
    };
    const std::pair<Tuple, std::string> rows[] = {
        {Of(1), "c; not all required arguments specified; expected 3, got 1"},
        {Of(1, "x"), "accepted"},
        {Of(1, "x", 2.0), "accepted"},
        {Of(1, "x", true), "c[2]; found Boolean, expecting float"},
        {Of(1, "x", 2.0, 3, 4), "c; too many arguments; expected 4, got 5"},
    };
    for (const auto& [tuple, expected] : rows) {
        for (std::size_t reload = 0; reload <= std::size(steps); ++reload) {
            Tuple t(tuple);
            t.Begin();
            for (std::size_t step = 0; step < std::size(steps); ++step) {
                if (step == reload) t = Tuple(std::as_const(t = RoundTrip(registrar, t)));  // and a copy
                steps[step](t);
            }
            if (reload == std::size(steps)) t = RoundTrip(registrar, t);
            EXPECT_EQ(Refusal<nex_CommandException>([&] { t.End("c"); }), expected) << "before " << reload;
        }
    }
}

TEST_F(omu_Containers, HostileBytesGiveAValueOrAnExceptionOfOurs) {
    testing::internal::CaptureStderr();  // it is told of each class that does not fit
    ByName byName;
    byName.Put(Of<List>(1, "x"), "k");
    ByNumber byNumber;
    byNumber.Put(2.0, 3);
    Tuple tuple('(', 0x01020304);
    tuple.Put(byName);
    tuple.Put(byNumber);
    const std::string bytes = Written(registrar, tuple);
    cow_List<int> list;
    const Act uses[] = {
        [](Tuple& t) { EXPECT_EQ(t.Copy()->AsRepr(), t.AsRepr()); },
        [](Tuple& t) { (void)(t == t); },
        [](Tuple& t) { (void)t.Slice(-2, INT_MAX); },
        [](Tuple& t) { (void)t.Repeat(3); },
        [](Tuple& t) { (void)t.Concat(&t); },
        [](Tuple& t) { (void)omu_PrimArray(t); },
        [&](Tuple& t) { (void)omu_TakeArgument(t, list); },
        [&](Tuple& t) { t.Get(list); },
        [](Tuple& t) { (void)t.Alternative(); },
        [](Tuple& t) { t.End(); },
    };
    // The length; 0 when the bytes are refused.
    const auto attack = [&](const std::string& broken) {
        try {
            auto read = ReadBack<Tuple>(registrar, broken);
            for (const Act& use : uses) (void)Refusal<nex_Exception>([&] { use(read); });
            return read.Length();
        } catch (const nex_Exception&) {
            return 0;
        }
    };
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        EXPECT_THROW(ReadBack<Tuple>(registrar, bytes.substr(0, at)), nex_StreamException) << at;
        for (int bit = 0; bit < 8; ++bit) {
            std::string broken = bytes;
            broken[at] = static_cast<char>(broken[at] ^ (1 << bit));
            (void)attack(broken);
        }
    }
    const auto replaced = [&](std::size_t at, int number) {
        bio_Ofilter out;
        out.Write(number);
        return std::string(bytes).replace(at, 4, out.Bytes());
    };
    const std::size_t size = bytes.find(FromHex("04 03 02 01"));
    ASSERT_NE(size, std::string::npos);
    for (const int hostile : {-1, INT_MIN, INT_MAX}) {
        EXPECT_EQ(attack(replaced(size, hostile)), std::max(hostile, 2));
        for (const std::size_t counter : {4U, 8U, 16U, 20U, 24U})  // by name, "size" last
            EXPECT_EQ(attack(replaced(size - counter, hostile)), 0) << counter;
    }
    (void)testing::internal::GetCapturedStderr();
}

}  // namespace
