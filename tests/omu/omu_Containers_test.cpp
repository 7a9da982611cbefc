// Protects the values that hold values: equality and copies down to the last leaf, the operations of sequences, nesting
// beyond reason on a small stack, and that all survive a stream and bad bytes. Their texts are held against CPython's
// where Python is bound.

#include <base/nex_RangeException.h>
#include <base/nex_StreamException.h>
#include <support/StartedLibrary.h>
#include <support/values.h>

#include <gtest/gtest.h>
#include <pthread.h>

#include <climits>
#include <cmath>
#include <functional>
#include <random>

namespace {

using namespace std::string_literals;
using Value = std::unique_ptr<omu_Primitive>;
using Tuple = omu_PrimTuple;
using List = omu_PrimList;
using ByNumber = omu_PrimDictionary<int>;
using ByName = omu_PrimDictionary<cow_String>;
using Act = std::function<void(Tuple&)>;

using omu_Containers = StartedLibrary;

/// A tree of values, the same for the same seed but for the leaf with the number `changed`.
struct RandomTree {
    explicit RandomTree(unsigned seed, int leafToChange = -1) : random(seed), changed(leafToChange), value(Make(6)) {}

    Value Make(int depth) {
        const auto kind = random() % (depth == 6 ? 4 : 12);
        if (depth != 0 && kind == 0) return Filled<Tuple>(depth);
        if (depth != 0 && kind == 1) return Filled<List>(depth);
        if (depth != 0 && kind == 2) return Filled<ByNumber>(depth, [](int i) { return 4 - i; });
        if (depth != 0 && kind == 3) return Filled<ByName>(depth, [](int i) { return cow_String(std::to_string(i)); });
        const auto bits = random();
        const auto whole = static_cast<int>(bits >> 8);
        if (leaves++ == changed) return std::make_unique<omu_PrimExpr>("changed");
        if (bits % 6 == 0) return omu_MakePrimitive(whole);
        if (bits % 6 == 1) return omu_MakePrimitive(static_cast<unsigned>(whole));
        if (bits % 6 == 2) return omu_MakePrimitive(std::ldexp(whole, whole % 1000));
        if (bits % 6 == 3) return omu_MakePrimitive(whole > 0);
        if (bits % 6 == 4) return omu_MakePrimitive(cow_String("it's \"") + cow_String(std::to_string(whole)));
        return omu_MakePrimitive(omi_complex(whole, -1.0 / whole));
    }
    template <class T>
    Value Filled(int depth, const auto&... keyOf) {
        auto made = std::make_unique<T>();
        for (auto i = static_cast<int>(random() % 8); i > 0; --i) made->Put(Make(depth - 1), keyOf(i)...);
        return made;
    }

    std::mt19937_64 random;
    int changed;
    int leaves = 0;
    Value value;
};

TEST_F(omu_Containers, CopiesAreEqualDownToTheLastLeaf) {
    for (unsigned seed = 0; seed < 400; ++seed) {
        SCOPED_TRACE(seed);
        const RandomTree tree(seed);
        const Tuple original = Of(*tree.value);
        const Value copy = original.Copy();
        const Tuple read = RoundTrip(registrar, original);
        EXPECT_TRUE(original == *copy && *copy == original && original == read && read == original);
        EXPECT_EQ(Written(registrar, read), Written(registrar, original)) << "in every stored detail";
        EXPECT_EQ(read.AsRepr(), original.AsString());
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
            for (int i = 0; i < length; ++i) sequence->Put(i);
            // Of so many numbers from `first` on, again and again up to `length`; then 7 and 8, if asked for.
            const auto check = [&](const Value& result, int first, int count, bool isJoined = false) {
                Tuple same(isList ? type : '(');
                for (int i = 0; i < count; ++i) same.Put(first + i % std::max(length, 1));
                for (int i = 7; isJoined && i <= 8; ++i) same.Put(i);
                EXPECT_EQ(*result, same) << result->AsString().View() << " for " << same.AsString().View();
                EXPECT_EQ(result->DynTypeId(), sequence->DynTypeId());
            };
            for (int k = 0; k < 15 * 15; ++k) {
                const int begin = k / 15 - 7, end = k % 15 - 7;
                const int first = begin < 0 ? begin + length : begin;
                const int last = end > length ? length : end < 0 ? end + length : end;
                SCOPED_TRACE(testing::Message() << length << type << '[' << begin << ':' << end << ']');
                if (first >= last || first >= 0)
                    check(sequence->Slice(begin, end), first, last - first);
                else
                    EXPECT_THROW((void)sequence->Slice(begin, end), nex_RangeException);
            }
            EXPECT_THROW((void)sequence->Slice(INT_MIN, INT_MAX), nex_RangeException);
            check(sequence->Slice(INT_MAX, INT_MIN), 0, 0);
            for (const int count : {INT_MIN, -1, 0, 1, 2, 3})
                check(sequence->Repeat(count), 0, std::max(count, 0) * length);
            check(sequence->Concat(&other), 0, length, true);
            check(sequence->Concat(&array), 0, length, true);
            check(sequence->Concat(sequence.get()), 0, 2 * length);
        }
        const auto holey = make(3), vast = make(1 << 30);
        holey->Put(1);
        holey->Put(nullptr);
        const std::string null = isList ? "List Index returned NULL" : "Tuple Index returned NULL";
        const std::pair<std::function<void()>, std::string> refused[] = {
            {[&] { (void)holey->Slice(0, 2); }, null},
            {[&] { (void)holey->Repeat(1); }, null},
            {[&] { (void)holey->Concat(&other); }, null},
            {[&] { (void)other.Concat(holey.get()); }, "Tuple Index returned NULL"},  // of what joins
            {[&] { (void)(*holey)[2]; }, null},
            {[&] { (void)vast->Concat(nullptr); }, null},
            {[&] { (void)vast->Repeat(2); }, "Sequence too long"},
            {[&] { (void)vast->Concat(vast.get()); }, "Sequence too long"},
        };
        for (const auto& [act, message] : refused) EXPECT_EQ(Refusal(act), message);
        EXPECT_EQ(holey->Slice(0, 1)->AsString(), "(1,)");
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
    strings.Put(2, cow_String("a\0b"s));
    strings.Put("new", "a");
    strings.Put(nullptr, "none");
    EXPECT_EQ(strings.AsString().str(), "{'': 1, 'Z': 1, 'a': 'new', 'a\0b': 2, 'none': None, '\xC3\xA9': 1}"s);
    EXPECT_EQ(strings["a"], omu_PrimString("new"));
    EXPECT_TRUE(strings.Remove("a") && !strings.Remove("a"));
    EXPECT_EQ(strings.Find("a"), nullptr);
    EXPECT_THROW((void)strings["a"], nex_RangeException);
    EXPECT_EQ(strings.Keys(), (cow_List<cow_String>{"", "Z", "a\0b"s, "none", "\xC3\xA9"}));

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
            for (const Act& descend : descents) {
                for (const int levels : {100'000, 151})
                    EXPECT_EQ(Refusal([&] { descend(*Nested(levels, kind)); }), "Values nested too deeply");
                descend(*Nested(150, kind));
            }
            const auto deep = Nested(100'000, kind);
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
        [&](Tuple& t) { t.Get(d); },       [&](Tuple& t) { t.Get(i); }, [](Tuple&) {},
    };
    const std::pair<Tuple, std::string> rows[] = {
        {Of(1), "c; not all required arguments specified; expected 3, got 1"},
        {Of(1, "x"), "accepted"},
        {Of(1, "x", true), "c[2]; found Boolean, expecting float"},
        {Of(1, "x", 2.0, 3, 4), "c; too many arguments; expected 4, got 5"},
    };
    for (const auto& [tuple, expected] : rows) {
        for (const Act& reload : steps) {
            Tuple t(tuple);
            t.Begin();
            for (const Act& step : steps) {
                if (&step == &reload) t = Tuple(std::as_const(t = RoundTrip(registrar, t)));  // and a copy
                step(t);
            }
            EXPECT_EQ(Refusal<nex_CommandException>([&] { t.End("c"); }), expected) << "before " << &reload - steps;
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
        for (const char* hostile : {"ff ff ff ff", "00 00 00 80", "ff ff ff 7f"}) {
            const auto replaced = [&](std::size_t at) { return std::string(bytes).replace(at, 4, FromHex(hostile)); };
            EXPECT_EQ(attack(replaced(size)), hostile[9] == '7' ? INT_MAX : 1);
            for (const std::size_t counter : {4U, 8U, 16U, 20U, 24U})  // by name, "size" last
                EXPECT_EQ(attack(replaced(size - counter)), 0) << counter;
        }
    }
    (void)testing::internal::GetCapturedStderr();
}

}  // namespace
