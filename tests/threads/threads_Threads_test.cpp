// Protects what threads may do at once: change copies of one value, each its own, and report, each to its own reporter
// or all to one queue. What races is found by the thread sanitizer, what goes wrong by the comparisons here.

#include <base/cls_Uid.h>
#include <base/cow_2DArray.h>
#include <base/cow_COW.h>
#include <base/cow_CountedHld.h>
#include <base/cow_List.h>
#include <base/cow_Map.h>
#include <base/cow_String.h>
#include <wip/wip.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <map>
#include <random>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace {

constexpr int kThreads = 8;
constexpr int kRounds = 2000;

/// Runs `work(thread)` on all threads, which begin at once.
template <class Work>
void OnAllThreads(const Work& work) {
    std::atomic<int> missing = kThreads;
    std::vector<std::jthread> threads;
    for (int thread = 0; thread < kThreads; ++thread)
        threads.emplace_back([&, thread] {
            // Not std::barrier: in GCC 12's library for Windows a thread now and then sleeps through the last arrival.
            for (--missing; missing > 0;) std::this_thread::yield();
            work(thread);
        });
}

/// A value of each copy-on-write type, and the same as values of the standard library.
struct Values {
    cow_String text;
    cow_List<int> list;
    cow_Map<int, cow_String> map;
    cow_2DArray<int> array{2, 2};
    cow_COW<int> held{0};
};
struct Shadow {
    std::string text;
    std::vector<int> list;
    std::map<int, std::string> map;
    int corner = 0, held = 0;

    bool Is(const Values& values) const {
        return values.text == text.c_str() && std::ranges::equal(values.list.Span(), list) &&
               std::ranges::equal(
                   values.map, map,
                   [](const auto& a, const auto& b) { return a.first == b.first && a.second == b.second.c_str(); }) &&
               values.array.ConstGet(1, 1) == corner && values.held.ConstGet() == held;
    }
};

void Change(Values& values, Shadow& shadow, std::mt19937_64& random) {
    const int number = static_cast<int>(random() % 20);
    const std::string word = std::to_string(random() % 1000);
    switch (random() % 8) {
        case 0:
            values.text = values.text + cow_String(word), shadow.text += word;
            break;
        case 1:
            values.text = word.c_str(), shadow.text = word;
            break;
        case 2:
            values.list.Append(number), shadow.list.push_back(number);
            break;
        case 3:
            if (shadow.list.empty()) break;
            values.list.Get(0) = number, shadow.list[0] = number;
            break;
        case 4:
            values.map.Insert(number, word.c_str()), shadow.map[number] = word;
            break;
        case 5:
            values.map.Remove(number), shadow.map.erase(number);
            break;
        case 6:
            values.array.Get(1, 1) = number, shadow.corner = number;
            break;
        default:
            values.held.Get() = number, shadow.held = number;
            break;
    }
}

}  // namespace

TEST(threads_Threads, CopiesOfOneValueAreChangedAtOnce) {
    const unsigned seed = 8;
    SCOPED_TRACE(seed);
    std::mt19937_64 random(seed);
    Values common;
    Shadow commonShadow;
    for (int i = 0; i < 100; ++i) Change(common, commonShadow, random);
    const Values& shared = common;
    const cow_CountedHld<std::string> handle(std::make_shared<std::string>("one for all"));
    std::vector<int> wrong(kThreads, 0);
    OnAllThreads([&](int thread) {
        std::mt19937_64 own(seed + static_cast<unsigned>(thread) + 1);
        for (int round = 0; round < kRounds; ++round) {
            Values values = shared;
            Shadow shadow = commonShadow;
            const Values kept = values;
            const cow_CountedHld<std::string> copy = handle;
            for (int i = 0; i < 5; ++i) Change(values, shadow, own);
            if (!shadow.Is(values) || !commonShadow.Is(kept) || *copy != "one for all")
                ++wrong[static_cast<std::size_t>(thread)];
        }
    });
    EXPECT_EQ(wrong, std::vector<int>(kThreads, 0));
    EXPECT_TRUE(commonShadow.Is(common));
}

TEST(threads_Threads, TheLastHolderMayWriteWithoutACopy) {
    for (int round = 0; round < 200; ++round) {
        std::vector<cow_List<int>> lists(kThreads, cow_List<int>{1, 2, 3});
        OnAllThreads([&](int thread) {
            cow_List<int> mine = std::move(lists[static_cast<std::size_t>(thread)]);
            int sum = 0;
            for (const int each : mine) sum += each;
            mine.Get(0) = sum + thread;
            if (mine.ConstGet(0) != 6 + thread || mine.ConstGet(2) != 3) ADD_FAILURE();
        });
    }
}

TEST(threads_Threads, IdentitiesAreUnique) {
    std::vector<std::vector<std::uint64_t>> given(kThreads);
    OnAllThreads([&](int thread) {
        for (int i = 0; i < kRounds; ++i)
            given[static_cast<std::size_t>(thread)].push_back(cls_Uid::AllocateUid().Value());
    });
    std::set<std::uint64_t> all;
    for (const auto& each : given) all.insert(each.begin(), each.end());
    EXPECT_EQ(all.size(), static_cast<std::size_t>(kThreads) * kRounds);
}

TEST(threads_Threads, EachThreadHasItsOwnHubAndReporter) {
    const int before = thr_ThreadSingleton<wip_WIP>::LiveCount();
    std::vector<std::string> heard(kThreads);
    OnAllThreads([&](int thread) {
        for (int round = 0; round < 100; ++round) {
            wip_RecordingReporter reporter;
            {
                const wip_ScopedReporter attached(reporter);
                wip_WIP::Instance().Warning(atr_String(std::to_string(thread).c_str()), OrvBasStringMode{0});
            }
            heard[static_cast<std::size_t>(thread)] = reporter.Text();
            if (round % 10 == 0) wip_WIP::Finalize();
        }
    });
    for (int thread = 0; thread < kThreads; ++thread)
        EXPECT_EQ(heard[static_cast<std::size_t>(thread)], "2|" + std::to_string(thread) + "||| 0 0 0|0||0\n");
    EXPECT_EQ(thr_ThreadSingleton<wip_WIP>::LiveCount(), before) << "they go with their threads";
}

TEST(threads_Threads, AQueueKeepsTheOrderOfEachThread) {
    wip_QueueReporter queue;
    wip_RecordingReporter record;
    {
        const std::jthread workers([&queue] {
            OnAllThreads([&queue](int thread) {
                const wip_ScopedReporter attached(queue);
                for (int i = 0; i < kRounds; ++i)
                    wip_WIP::Instance().Milestone(atr_String(std::to_string(thread).c_str()), i, OrvBasStringMode{0});
            });
        });
        while (record.Messages().size() < std::size_t{kThreads} * kRounds / 2) queue.Drain(record);
    }
    queue.Drain(record);
    ASSERT_EQ(record.Messages().size(), std::size_t{kThreads} * kRounds);
    std::map<std::string, int> next;
    for (const wip_Message& each : record.Messages()) ASSERT_EQ(each.numbers[0], next[each.text.Text().str()]++);
    EXPECT_EQ(next.size(), std::size_t{kThreads});
}
