// Protects the copy-on-write containers: they behave as the standard containers they are built on, share until a write,
// never let a write through to a copy, and refuse every access outside their bounds.
#include <base/cls_xo1DArrayList.h>
#include <base/cow_2DArray.h>
#include <base/cow_Btree.h>
#include <base/cow_COW.h>
#include <base/cow_CountedHld.h>
#include <base/cow_Stack.h>
#include <base/cow_String.h>
#include <base/nex_PrimException.h>
#include <base/nex_RangeException.h>

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <random>
#include <thread>

namespace {

/// Pairs of a container and its shadow, which are copied onto each other while operations run on one of them: a write
/// that shows through to a copy makes some pair differ.
template <class Tested, class Shadow, class Operate, class Compare>
void RunShadowed(const Operate& operate, const Compare& compare) {
    constexpr unsigned seed = 20240611;
    SCOPED_TRACE(seed);
    std::mt19937_64 random(seed);
    std::array<std::pair<Tested, Shadow>, 4> pairs;
    for (int round = 0; round < 4000; ++round) {
        auto& chosen = pairs[random() % pairs.size()];
        if (random() % 8 == 0)
            pairs[random() % pairs.size()] = chosen;
        else
            operate(chosen.first, chosen.second, static_cast<int>(random() % 16), static_cast<int>(random() % 1000));
        for (const auto& [tested, shadow] : pairs) compare(tested, shadow);
        if (testing::Test::HasFailure()) FAIL() << "in round " << round;
    }
}

/// Counts its copies.
struct Counted {
    static inline int copies = 0;
    int value = 0;

    explicit Counted(int v = 0) : value(v) {}
    Counted(const Counted& other) : value(other.value) { ++copies; }
};

/// A tree by value, whose list may be appended to itself.
struct Nested {
    cow_List<Nested> children;
};

TEST(base_List, FollowsAVector) {
    RunShadowed<cow_List<int>, std::vector<int>>(
        [](cow_List<int>& list, std::vector<int>& shadow, int kind, int value) {
            for (const int outside : {-1, list.Length(), std::numeric_limits<int>::min()}) {
                EXPECT_THROW((void)list.ConstGet(outside), nex_RangeException);
                EXPECT_THROW((void)list[outside], nex_RangeException);
            }
            const int index = shadow.empty() ? 0 : value % static_cast<int>(shadow.size());
            if (kind == 0) {
                list.Clear();
                shadow.clear();
            } else if (kind < 8 || shadow.empty()) {
                if (kind < 3) list.Reserve(value);
                list.Append(value);
                shadow.push_back(value);
            } else if (kind < 10) {
                list.Append(list.ConstGet(index));
                shadow.push_back(shadow[static_cast<std::size_t>(index)]);
            } else {
                (kind % 2 == 0 ? list.Get(index) : list[index]) = value;
                shadow[static_cast<std::size_t>(index)] = value;
            }
        },
        [](const cow_List<int>& list, const std::vector<int>& shadow) {
            EXPECT_EQ(std::vector<int>(list.begin(), list.end()), shadow);
            EXPECT_EQ(list, cow_List<int>(shadow));
        });
}

TEST(base_Map, FollowsAMap) {
    using Map = cow_Btree<cow_String, int>;
    using Shadow = std::map<cow_String, int>;
    RunShadowed<Map, Shadow>(
        [](Map& map, Shadow& shadow, int kind, int value) {
            const cow_String key = std::to_string(value % 40);
            EXPECT_EQ(map.IsMember(key), shadow.contains(key));
            if (kind < 8) {
                map.Insert(key, value);
                shadow[key] = value;
            } else if (kind < 12) {
                EXPECT_EQ(map.Remove(key), shadow.erase(key) == 1);
            } else if (shadow.contains(key)) {
                map.Get(key) = value;
                shadow[key] = value;
            } else {
                EXPECT_THROW((void)map.ConstGet(key), nex_RangeException);
                EXPECT_THROW((void)map.Get(key), nex_RangeException);
            }
        },
        [](const Map& map, const Shadow& shadow) {
            EXPECT_EQ(Shadow(map.begin(), map.end()), shadow);
            EXPECT_EQ(map.Keys().Length(), static_cast<int>(shadow.size()));
            for (const cow_String& key : map.Keys()) EXPECT_EQ(map.ConstGet(key), shadow.at(key));
        });
}

TEST(base_StackDeathTest, TakesFromTheTopSharesAndStopsTheProcessWhenEmpty) {
    cow_Stack<int> stack;
    for (const int value : {1, 2, 3}) stack.Push(value);
    const cow_Stack<int> copy = stack;
    stack.Pop();
    stack.Top() = 7;
    stack.Push(stack.ConstTop());
    EXPECT_EQ(copy.Size(), 3);
    EXPECT_EQ(copy.ConstTop(), 3);
    for (const int value : {7, 7, 1}) {
        EXPECT_EQ(stack.ConstTop(), value);
        stack.Pop();
    }
    EXPECT_TRUE(stack.IsEmpty());
    EXPECT_DEATH(stack.Pop(), "cow_Stack::Pop");
    EXPECT_DEATH((void)stack.Top(), "cow_Stack::Top");
    EXPECT_DEATH((void)stack.ConstTop(), "cow_Stack::ConstTop");
}

TEST(base_Sharing, CopiesAreMadeOnTheFirstWriteOnly) {
    cow_List<Counted> list(std::vector<Counted>(5));
    cow_COW<Counted> holder(Counted(3));
    Counted::copies = 0;
    const cow_List<Counted> copy = list;
    const cow_COW<Counted> other = holder;
    EXPECT_THROW((void)list.Get(5), nex_RangeException);
    EXPECT_EQ(&list.ConstGet(1), &copy[1]);
    EXPECT_EQ(&holder.ConstGet(), &other.ConstGet());
    EXPECT_EQ(Counted::copies, 0) << "copying the holder, reading and failing cost no copy of an element";
    for (const int value : {7, 8}) {  // the second time as the only owner, in place
        list.Get(1).value = value;
        EXPECT_EQ(Counted::copies, value == 7 ? 5 : 6);
        holder.Get().value = value;
        EXPECT_EQ(Counted::copies, 6);
    }
    EXPECT_EQ(copy[1].value, 0);
    EXPECT_EQ(other->value, 3);
}

TEST(base_Sharing, AnElementThatHoldsItsContainerIsAValue) {
    Nested node;
    node.children.Append(node);
    node.children.Append(node);
    ASSERT_EQ(node.children.Length(), 2);
    EXPECT_EQ(node.children.ConstGet(0).children.Length(), 0);
    EXPECT_EQ(node.children.ConstGet(1).children.Length(), 1);

    cow_Map<int, cow_List<int>> map;
    map.Insert(1, {10});
    const auto copy = map;
    map.Insert(2, map.ConstGet(1));
    map.Get(map.begin()->first).Append(11);
    EXPECT_EQ(map.ConstGet(1), (cow_List<int>{10, 11}));
    EXPECT_EQ(map.ConstGet(2), (cow_List<int>{10}));
    EXPECT_EQ(copy.Length(), 1);
    EXPECT_TRUE(map.Remove(map.begin()->first));
}

TEST(base_List, ComparesElementsWhetherSharedOrNot) {
    const cls_xo1DArrayList<double> list{1.0, std::numeric_limits<double>::quiet_NaN()};
    EXPECT_FALSE(list == cls_xo1DArrayList<double>(list));
    cow_List<bool> flags{true, false};
    unsigned char& last = flags.Get(1);
    last = true;
    EXPECT_EQ(flags, (cow_List<bool>{true, true}));
    EXPECT_FALSE(flags == cow_List<bool>{true});
}

TEST(base_2DArray, IsRowMajorAndCheckedOnBothAxes) {
    cow_2DArray<int> array(2, 3);
    for (int k = 0; k < 6; ++k) array.Get(k / 3, k % 3) = k;
    const cow_2DArray<int> copy = array;
    EXPECT_EQ(copy.Span().data(), array.Span().data());
    array.Get(1, 2) = -1;
    EXPECT_EQ(copy, cow_2DArray<int>(2, 3, {0, 1, 2, 3, 4, 5}));
    for (const auto& at : {std::pair(-1, 0), {2, 0}, {0, -1}, {0, 3}, {1, 3}}) {
        EXPECT_THROW((void)array.ConstGet(at.first, at.second), nex_RangeException);
        EXPECT_THROW((void)array.Get(at.first, at.second), nex_RangeException);
    }
    EXPECT_THROW(cow_2DArray<char>(-1, 2), nex_RangeException);
    EXPECT_THROW(cow_2DArray<char>(1 << 16, 1 << 16), nex_RangeException);
    EXPECT_THROW(cow_2DArray<char>(2, 2, {'a', 'b', 'c'}), nex_RangeException);
    EXPECT_FALSE(cow_2DArray<int>(0, 3) == cow_2DArray<int>(3, 0)) << "an empty array has a shape too";
}

TEST(base_Holders, ShareOneObjectOrNone) {
    const cow_CountedHld<Counted> hold(new Counted(1)), same = hold, none;
    same->value = 2;
    EXPECT_EQ((*hold).value, 2);
    EXPECT_EQ(hold, cow_CountedHld<Counted>(same.Share()));
    EXPECT_FALSE(hold == cow_CountedHld<Counted>(std::make_shared<Counted>(2)));
    cow_COW<Counted> nothing;
    EXPECT_TRUE(none.IsNull() && none.Get() == nullptr && nothing.IsNull());
    EXPECT_THROW((void)none->value, nex_PrimException);
    EXPECT_THROW((void)nothing->value, nex_PrimException);
    EXPECT_THROW((void)nothing.Get(), nex_PrimException);
}

// Meant for the sanitizers as much as for its own comparison.
TEST(base_Sharing, DistinctCopiesServeDistinctThreads) {
    cow_List<cow_String> list;
    for (int i = 0; i < 100; ++i) list.Append(std::to_string(i));
    std::array<int, 8> lengths{};
    {
        std::vector<std::jthread> threads;
        for (std::size_t t = 0; t < lengths.size(); ++t)
            threads.emplace_back([copy = list, t, &length = lengths[t]]() mutable {
                for (int round = 0; round < 200; ++round) {
                    cow_List<cow_String> mine = copy;
                    mine.Get(round % 100) = std::to_string(t);
                    mine.Append(mine.ConstGet(round % 100));
                    if (mine.ConstGet(100) == std::to_string(t)) copy = mine;
                    if (copy.Length() == 101) copy = cow_List<cow_String>(std::vector(copy.begin(), copy.end() - 1));
                }
                length = copy.Length();
            });
        list.Clear();
    }
    for (const int length : lengths) EXPECT_EQ(length, 100);
}

}  // namespace
