// Protects the values that hold values: what CPython makes of their texts, equality and copies down to the last leaf,
// the operations of sequences, nesting beyond reason on a small stack, and that all survive a stream and bad bytes.

#include <base/nex_RangeException.h>
#include <base/nex_StreamException.h>
#include <support/ChildProcess.h>
#include <support/StartedLibrary.h>
#include <support/values.h>

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

namespace {

using Value = std::unique_ptr<omu_Primitive>;
using Tuple = omu_PrimTuple;
using List = omu_PrimList;
using ByNumber = omu_PrimDictionary<int>;
using ByName = omu_PrimDictionary<cow_String>;
using Act = std::function<void(Tuple&)>;

using omu_Containers = StartedLibrary;

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
        if (depth != 0 && kind == 2) return Filled<ByNumber, int>(depth);
        if (depth != 0 && kind == 3) return Filled<ByName, cow_String>(depth);
        Value leaf = Leaf(_random());
        return leaves++ == _changed ? std::make_unique<omu_PrimExpr>("changed") : std::move(leaf);
    }
    template <class T, class... K>
    Value Filled(int depth) {
        auto made = std::make_unique<T>();
        python << (sizeof...(K) == 0 ? "(" : "d(");
        for (auto i = static_cast<int>(_random() % 8); i > 0; --i) {
            python << '(';
            [&](const K&... key) { made->Put(Make(depth - 1), key...); }(Key(K(), i)...);
            python << "),";
        }
        python << ')';
        return made;
    }
    int Key(int key, int i) {
        python << (key = static_cast<int>(_random() % 1000) * 8 - 4000 + i) << ',';
        return key;
    }
    cow_String Key(cow_String key, int i) {
        key = Text(std::to_string(i));
        python << ',';
        return key;
    }
    Value Leaf(std::uint64_t bits) {
        const auto whole = static_cast<int>(bits >> 8);
        const double real = Real(), im = Real();
        if (bits % 6 == 0) return Told(omu_PrimNumber(whole), whole);
        if (bits % 6 == 1) return Told(omu_PrimNumber(static_cast<unsigned>(whole)), static_cast<unsigned>(whole));
        if (bits % 6 == 2) return Told(omu_PrimNumber(real), "f('", real, "')");
        if (bits % 6 == 3) return Told(omu_PrimBoolean(whole > 0), "bool(", whole > 0, ")");
        if (bits % 6 == 4) return std::make_unique<omu_PrimString>(Text(""));
        return Told(omu_PrimComplex({real, im}), "c('", real, "','", im, "')");
    }
    Value Told(const omu_Primitive& leaf, const auto&... parts) { return (python << ... << parts), leaf.Copy(); }
    double Real() {
        const auto bits = _random();
        if (bits % 4 == 0) return static_cast<double>(static_cast<int>(bits)) / 1000.0;
        if (bits % 4 == 1) return std::ldexp(1.0, static_cast<int>((bits >> 8) % 2098) - 1074);
        const auto any = std::bit_cast<double>(bits);
        return bits % 4 == 2 && std::isfinite(any) ? any : -0.0;
    }
    /// Prone to quotes, with any byte that Python allows in a literal as it stands.
    cow_String Text(std::string text) {
        static const std::string prone = "'\"\\\nn%{ ,";
        for (auto left = _random() % 12; left > 0; --left) {
            const auto byte = static_cast<char>(_random());
            text.insert(text.begin(),
                        _random() % 4 != 0 || byte == 0 || byte == '\r' ? prone[_random() % prone.size()] : byte);
        }
        python << "s(bytes.fromhex('" << ToHex(text) << "').decode('latin-1'))";
        return text;
    }

    std::mt19937_64 _random;
    int _changed;
};

#if !defined(_WIN32)  // which has no CPython at a known place

/// Each line of the file: what is expected, and the text; which must be CPython's own, but that numbers have 15 digits
/// and strings keep odd bytes as they are, and be read back by it.
constexpr const char* checker = R"PY(
import ast, re, sys
class f(float):
    def __new__(cls, x): return super().__new__(cls, '%.15g' % float.fromhex(x))
    def __repr__(self): return re.sub(r'^-?\d+$', r'\g<0>.0', '%.15g' % self)
class c(complex):
    def __new__(cls, re, im): return super().__new__(cls, f(re), f(im) + 0)
    def __repr__(self): return '%.15g%+.15gj' % (self.real, self.imag)
class s(str):
    def __repr__(self):
        odd = iter(re.findall('[^ -}\n]', self))
        return re.sub('~', lambda _: next(odd), repr(re.sub('[^ -}\n]', '~', self)))
def d(*items): return dict(sorted(items))
with open(sys.argv[1], newline='\n', encoding='latin-1') as lines:
    for n, line in enumerate(lines, 1):
        given, text = line.rstrip('\n').split('\0')
        tree = eval(given)
        if text != repr(tree) or ast.literal_eval(text) != tree: sys.exit(line)
print(n)
)PY";

TEST_F(omu_Containers, CPythonReadsBackWhatIsPrinted) {
    const std::string path = testing::TempDir() + "omu_Containers_lines.txt";
    std::ofstream lines(path, std::ios::binary);
    for (unsigned seed = 0; seed < 4000; ++seed) {
        const RandomTree tree(seed);
        EXPECT_EQ(tree.value->AsRepr(), tree.value->AsString()) << seed;
        lines << tree.python.str() << '\0' << tree.value->AsString().View() << '\n';
    }
    lines.close();
    const ChildResult python = RunProgram({"/usr/bin/python3", "-c", checker, path});
    EXPECT_EQ(python.out, "4000\n") << python.err;
    std::remove(path.c_str());
}

#endif

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

    List named('(');
    named.Put(1);
    EXPECT_TRUE(Of(1) == named && named == Of(1)) << "the type character tells";
    EXPECT_TRUE(Tuple('o') != omu_PrimArray() && Tuple('{') != ByNumber() && ByNumber() != Tuple('{'));
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

TEST_F(omu_Containers, WhatIsPutIsOwnedOrCopied) {
    static_assert(!omu_Puttable<char> && !omu_Puttable<const int*> && !omu_Puttable<std::nullptr_t>);
    Tuple tuple = Of(1);
    tuple.Put(nullptr);
    tuple.Put(static_cast<omu_Primitive*>(nullptr));
    tuple.Put(new omu_PrimNumber(5));
    tuple.Put(std::make_unique<omu_PrimExpr>("e"));
    tuple.Put(tuple);
    EXPECT_EQ(tuple.AsRepr(), "(1, 5, e, (1, 5, e))") << "itself, as it was";
    EXPECT_EQ(tuple.Length(), 6);
    EXPECT_EQ(std::distance(tuple.begin(), tuple.end()), 4) << "without the empty holders";
    EXPECT_EQ(Tuple('(', -4).Length(), 0);
}

TEST_F(omu_Containers, DictionariesKeepTheirKeysInOrder) {
    ByName strings;
    for (const char* key : {"\xC3\xA9", "a", "Z", ""}) strings.Put(1, key);
    strings.Put(2, cow_String(std::string("a\0b", 3)));
    strings.Put("new", "a");
    strings.Put(nullptr, "none");
    std::string seen;
    for (const auto& [key, value] : strings) (seen += key.View()) += '=' + std::string(value.AsString().View()) + ';';
    EXPECT_EQ(seen, std::string("=1;Z=1;a='new';a\0b=2;none=None;\xC3\xA9=1;", 36));
    EXPECT_EQ(strings["a"], omu_PrimString("new"));
    EXPECT_TRUE(strings.Remove("a") && !strings.Remove("a"));
    EXPECT_EQ(strings.Find("a"), nullptr);
    EXPECT_THROW((void)strings["a"], nex_RangeException);
    EXPECT_EQ(strings.Keys(), (cow_List<cow_String>{"", "Z", std::string("a\0b", 3), "none", "\xC3\xA9"}));

    ByNumber numbers('D', 'R');
    for (const int key : {3, INT_MIN, -1, INT_MAX}) numbers.Put(key == -1, key);
    EXPECT_EQ(numbers.AsString(), "{-2147483648: False, -1: True, 3: False, 2147483647: False}");
    EXPECT_THROW((void)numbers[0], nex_RangeException);
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

TEST_F(omu_Containers, StreamsKeepSizesAndWhatIsShared) {
    List list('L');
    list.SetMaxSize(9);
    const auto tuple = std::make_shared<Tuple>('T', 7);
    tuple->Put(list);
    tuple->Put(nullptr);
    cls_MetadataRegistrar::Instance().initClassMetadata(Shelf::InitializeMetadata, 0);
    Shelf shelf(tuple);
    shelf.values.Append(shelf.values.ConstGet(0));
    const Shelf read = RoundTrip(registrar, shelf);
    EXPECT_EQ(read.values.ConstGet(0).Get(), read.values.ConstGet(1).Get());
    const auto& again = dynamic_cast<const Tuple&>(*read.values.ConstGet(1));
    EXPECT_EQ(again, *tuple);
    EXPECT_EQ(again.Length(), 7);
    EXPECT_EQ(again.Find(1), nullptr);
    EXPECT_EQ(dynamic_cast<const List&>(again[0]).MaxSize(), 9);
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
    std::mt19937_64 random(7);
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
    for (const Sample& each : Samples()) {
        SCOPED_TRACE(each.text);
        Tuple tuple('(', 0x01020304);
        tuple.Put(*each.value);
        const std::string bytes = Written(registrar, tuple);
        for (std::size_t at = 0; at < bytes.size(); ++at) {
            EXPECT_THROW(ReadBack<Tuple>(registrar, bytes.substr(0, at)), nex_StreamException) << at;
            std::string broken = bytes;
            broken[at] = static_cast<char>(broken[at] ^ (1 << random() % 8));
            (void)attack(broken);
        }
        const std::size_t size = bytes.find(FromHex("04 03 02 01"));
        ASSERT_NE(size, std::string::npos);
        for (const int hostile : {-1, INT_MIN, INT_MAX}) {
            bio_Ofilter out;
            out.Write(hostile);
            const auto replaced = [&](std::size_t at) { return std::string(bytes).replace(at, 4, out.Bytes()); };
            EXPECT_EQ(attack(replaced(size)), std::max(hostile, 1));
            for (const std::size_t counter : {4U, 8U, 16U, 20U, 24U})  // by name, "size" last
                EXPECT_EQ(attack(replaced(size - counter)), 0) << counter;
        }
    }
    (void)testing::internal::GetCapturedStderr();
}

}  // namespace
