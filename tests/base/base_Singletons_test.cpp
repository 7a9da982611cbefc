// Protects the singletons and identities: one per process or thread, fresh after being finalised, all deleted.
#include <base/cls_Uid.h>
#include <base/omi_Singleton.h>
#include <base/thr_ThreadSingleton.h>

#include <gtest/gtest.h>

#include <atomic>
#include <latch>
#include <set>
#include <span>
#include <thread>
#include <vector>

namespace {

/// Counts its living objects.
template <class Derived>
struct Living {
    static inline std::atomic<int> alive = 0;
    int value = 0;

    Living() { ++alive; }
    ~Living() { --alive; }
};

class One : public Living<One> {
    friend omi_Singleton<One>;
    One() = default;
};
class OnePerThread : public Living<OnePerThread> {
    friend thr_ThreadSingleton<OnePerThread>;
    OnePerThread() = default;
};
using Process = omi_Singleton<One>;
using Thread = thr_ThreadSingleton<OnePerThread>;

TEST(base_Singleton, IsOneUntilFinalised) {
    EXPECT_EQ(One::alive, 0) << "made on first use only";
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(Process::Instance().value, 0);
        Process::Instance().value = 5;
        EXPECT_EQ(Process::Instance().value, 5);
        EXPECT_EQ(One::alive, 1);
        Process::Finalize();
        EXPECT_EQ(One::alive, 0);
    }
    Process::Finalize();
}

TEST(base_ThreadSingleton, IsOnePerThread) {
    constexpr int count = 8;
    std::latch allMade(count);
    {
        std::vector<std::jthread> threads;
        for (int t = 0; t < count; ++t)
            threads.emplace_back([&allMade, t] {
                Thread::Instance().value = t;
                allMade.arrive_and_wait();
                EXPECT_EQ(Thread::Instance().value, t);
                EXPECT_TRUE(t % 2 == 0 || Thread::Finalize());
            });
    }
    EXPECT_EQ(Thread::LiveCount(), 0) << "a thread that ends takes its instance along";
    EXPECT_EQ(OnePerThread::alive, 0);
    EXPECT_FALSE(Thread::Finalize());
}

TEST(base_ThreadSingletonRegistry, RunsDownwardsAndOnce) {
    static std::vector<int> ran;
    thr_ThrSingletonRegistry::Finalize();
    (void)Thread::Instance();
    thr_ThrSingletonRegistry::Register(3, [] { ran.push_back(3); });
    thr_ThrSingletonRegistry::Register(3, [] { ran.push_back(OnePerThread::alive == 0 ? 4 : -4); });
    void (*const once)() = [] {
        ran.push_back(OnePerThread::alive == 1 ? 20 : -20);
        thr_ThrSingletonRegistry::Register(0, [] { ran.push_back(0); });
    };
    for (int time = 0; time < 2; ++time) thr_ThrSingletonRegistry::Register(20, once);
    thr_ThrSingletonRegistry::Register(9, nullptr);
    thr_ThrSingletonRegistry::Finalize();
    EXPECT_EQ(ran, (std::vector{20, 4, 3})) << "the thread's instance goes at level 15";
    (void)Thread::Instance();
    thr_ThrSingletonRegistry::Finalize();
    EXPECT_EQ(ran.back(), 0);
    EXPECT_EQ(Thread::LiveCount(), 0) << "a fresh instance is registered again";
}

TEST(base_Uid, IsGivenOnce) {
    std::vector<cls_Uid> given(4000);
    {
        std::vector<std::jthread> threads;
        for (std::size_t t = 0; t < 4; ++t)
            threads.emplace_back([part = std::span(given).subspan(1000 * t, 1000)] {
                for (cls_Uid& uid : part) uid = cls_Uid::AllocateUid();
            });
    }
    given.emplace_back();  // the default one, 0, is not among them
    std::set<std::uint64_t> values;
    for (const cls_Uid& uid : given) values.insert(uid.Value());
    EXPECT_EQ(values.size(), given.size());
    EXPECT_EQ(*values.begin(), 0u);
}

}  // namespace
