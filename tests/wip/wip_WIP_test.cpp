// Protects the way of messages: every call as it was made, to the calling thread's reporter alone, or an exception.
#include <support/values.h>
#include <wip/wip.h>

#include <gtest/gtest.h>

#include <latch>
#include <thread>

namespace {

/// Records, and throws after it while it is told to.
struct Grumbler : wip_RecordingReporter {
    bool throws = false;
    void Take(wip_Message message) override {
        wip_RecordingReporter::Take(std::move(message));
        if (throws) throw std::runtime_error("no");
    }
};

constexpr OrvBasStringMode utf8{0}, local{1};
const cow_List<atr_String> texts{"a", "b"};
omu_PrimTuple data = Of(1, "x");

/// Every operation of a hub, in the order of the reporter's, and the line that a recording has of it.
const std::pair<void (*)(wip_WIPBase&), std::string> calls[] = {
    {[](wip_WIPBase& hub) { hub.Error("e", wip_errorLevelEnm{7}, local); }, "1|e||| 0 0 0|7||1\n"},
    {[](wip_WIPBase& hub) { hub.Warning("w", local); }, "2|w||| 0 0 0|0||1\n"},
    {[](wip_WIPBase& hub) { hub.ErrorList(texts, wip_errorLevelEnm{-8}, utf8); }, "3|||a,b,| 0 0 0|-8||0\n"},
    {[](wip_WIPBase& hub) { hub.WarningList(texts, OrvBasStringMode{9}); }, "4|||a,b,| 0 0 0|0||9\n"},
    {[](wip_WIPBase& hub) { hub.FacilityMessage("f", -1, 2, -3, data, local); }, "5|f||| -1 2 -3|0|(1, 'x')|1\n"},
    {[](wip_WIPBase& hub) { hub.Verbose("v", local); }, "6|v||| 0 0 0|0||1\n"},
    {[](wip_WIPBase& hub) { hub.Milestone("m", 300, local); }, "7|m||| 300 0 0|0||1\n"},
    {[](wip_WIPBase& hub) { hub.Milestone("m", "d", -4, 5, utf8); }, "8|m|d|| -4 5 0|0||0\n"},
    {[](wip_WIPBase& hub) { hub.Milestone("m", local); }, "9|m||| 0 0 0|0||1\n"},
    {[](wip_WIPBase& hub) { hub.Landmark("l", utf8); }, "10|l||| 0 0 0|0||0\n"},
    {[](wip_WIPBase& hub) { hub.Print("p", local); }, "11|p||| 0 0 0|0||1\n"},
    {[](wip_WIPBase& hub) { hub.Display("d", utf8); }, "12|d||| 0 0 0|0||0\n"},
    {[](wip_WIPBase& hub) { static_cast<void>(hub.Interrupted()); }, "13|||| 0 0 0|0||0\n"},
    {[](wip_WIPBase& hub) { hub.CommandDone(); }, "14|||| 0 0 0|0||0\n"},
    {[](wip_WIPBase& hub) { hub.InterruptedThrow(); }, "15|||| 0 0 0|0||0\n"},
};

TEST(wip_WIP, ForwardsEveryCall) {
    Grumbler heard, again;
    wip_WIPBase hub;
    std::string told;
    for (const auto& [call, line] : calls) {
        EXPECT_EQ(Refusal([&, call = call] { call(hub); }), "WipReporter != 0");
        hub.SetWipReporter(&again);
        hub.SetWipReporter(&heard);
        hub.RemoveWipReporter(&again);
        heard.throws = false;
        call(hub);
        heard.throws = true;
        EXPECT_THROW(call(hub), std::runtime_error);
        hub.RemoveWipReporter(&heard);
        told += line + line;
    }
    EXPECT_EQ(heard.Text(), told);
    for (const wip_Message& call : heard.Messages()) call.SendTo(again);
    EXPECT_EQ(again.Text(), told) << "kept and sent again";
}

TEST(wip_WIP, IsOnePerThread) {
    wip_WIP::Finalize();
    std::vector<wip_RecordingReporter> heard(6);
    std::latch allAttached(6);
    std::vector<std::jthread> threads;
    for (int t = 0; t < 6; ++t)
        threads.emplace_back([&allAttached, &own = heard[static_cast<std::size_t>(t)], t] {
            wip_WIP::Instance().SetWipReporter(&own);
            allAttached.arrive_and_wait();
            for (int i = 0; i < 500; ++i) wip_WIP::Instance().Milestone("", t, utf8);
            EXPECT_EQ(std::ranges::count(own.Messages(), t, [](const auto& call) { return call.numbers[0]; }), 500);
            EXPECT_TRUE(t % 2 == 0 || (wip_WIP::Finalize() && !wip_WIP::Finalize()));
        });
    threads.clear();
    EXPECT_EQ(thr_ThreadSingleton<wip_WIP>::LiveCount(), 0) << "a thread that ends takes its hub along";
    const wip_ScopedReporter outer(heard[0]);
    wip_Progress::Instance().Initialize("of the thread that drives it");
    for (const auto& own : heard) EXPECT_EQ(own.Messages().size(), &own == &heard[0] ? 501U : 500U);
    { const wip_ScopedReporter inner(heard[1]); }
    EXPECT_EQ(wip_WIP::Instance().GetWipReporter(), nullptr);
    thr_ThrSingletonRegistry::Finalize();
    EXPECT_FALSE(wip_WIP::Finalize());
}

TEST(wip_QueueReporter, CollectsFromThreads) {
    wip_QueueReporter queue;
    Grumbler heard;
    std::vector<std::jthread> workers;
    for (int t = 0; t < 4; ++t)
        workers.emplace_back([&queue, t] {
            const wip_ScopedReporter attached(queue);
            for (int i = 0; i < 400; ++i) wip_WIP::Instance().Milestone("", "", t, i, utf8);
            while (wip_WIP::Instance().Interrupted() == 0) std::this_thread::yield();
            EXPECT_EQ(Refusal([] { wip_WIP::Instance().InterruptedThrow(); }), "interrupted");
        });
    while (heard.Messages().size() < 1600) try {
            heard.throws = heard.Messages().size() % 16 == 5;
            queue.Drain(heard);
        } catch (const std::runtime_error&) {  // those behind it wait
        }
    queue.SetInterrupted();
    workers.clear();
    std::array<int, 4> next{};
    for (const wip_Message& call : heard.Messages())
        EXPECT_EQ(call.numbers[1], next[static_cast<std::size_t>(call.numbers[0])]++);
    queue.Print("one", utf8);
    EXPECT_EQ(queue.Drain(queue), 1) << "what comes in meanwhile waits";
}

TEST(wip_ConsoleReporter, DrawsABarOnATerminalOnly) {
    for (const bool terminal : {false, true}) {
        double now = 100;
        std::ostringstream out;
        wip_ConsoleReporter console(out, terminal, 0.5, [&] { return now; });
        const auto bar = [&](std::string text) { return terminal ? "\r" + text.append(79 - text.size(), ' ') : ""; };
        const auto shows = [&](double seconds, const char* caption, int percent, const std::string& expected) {
            now += seconds;
            percent < 0 ? console.Milestone(caption, utf8) : console.Milestone(caption, percent, utf8);
            EXPECT_EQ(std::exchange(out, std::ostringstream()).str(), expected);
        };
        const std::string half = bar("[##########..........]  50%  1:02:06 elapsed  1:02:06 left  half");
        const std::string over = bar("[####################] 100%  -:-- elapsed  0:00 left  over");
        shows(0, "Job\n", -1, bar("[....................]   0%  0:00 elapsed  -:-- left  Job"));
        shows(0.25, "soon", 10, "");
        shows(0.25, "\xC2\x9B\x7F\x80\xC3", 1, bar("[....................]   1%  0:00 elapsed  0:49 left    ??"));
        shows(3725.5, "half", 50, half);
        const std::string whole("w\0w", 3);
        console.Warning(atr_String(cow_String(whole)), utf8);
        shows(0, "half", 50, (terminal ? bar("") + "\rWarning: " + whole + "\n" + half : "Warning: " + whole + "\n"));
        shows(1e9, "over", 1000, over);
        shows(0, "", -1, terminal ? over + "\n" : "");
        for (int level = -1; level < 10; ++level) console.FacilityMessage("f", level, 1, 2, data, utf8);
        console.ErrorList(texts, {}, utf8);
        shows(0, "", -1, "Warning: f\nWarning: f\nWarning: f\nWarning: f\nf\nError: a\nError: b\n");
    }
}

}  // namespace
