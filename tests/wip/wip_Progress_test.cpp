// Protects the nesting of progress: every fraction, percent and message, whoever opens or closes and whoever hears it.
#include <base/nex_PrimException.h>
#include <wip/wip.h>

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <random>

namespace {

/// The tracker again, on plain records: each operation in double and then rounded to single precision.
struct Model {
    static inline wip_WIPBase hub;
    std::vector<wip_ProgressState> levels{{0, 1, 0, ""}};
    bool cleared = true;
    static double Round(double exact) { return static_cast<float>(exact); }
    static bool Good(float f) { return 0 <= f && f <= 1; }
    static double Width(const wip_ProgressState& t) { return Round(double{t.end} - double{t.start}); }
    static float At(const wip_ProgressState& t, double from, float f) {
        return std::min(static_cast<float>(from + Round(Width(t) * double{f})), t.end);
    }
    wip_ProgressState& Top() { return levels.back(); }
    int Depth() const { return static_cast<int>(levels.size()) - 1; }
    bool HasProgress() const { return !cleared; }
    atr_String CurrentMessage() { return Top().message; }
    float CurrentProgress() {
        const double done = Round(double{Top().current} - double{Top().start});
        return Width(Top()) <= 0 ? 0.0F : static_cast<float>(done / Width(Top()));
    }
    bool Report() {
        int percent = 0;
        while (percent + 1 <= Round(double{Top().current} * 100) + 0.01) ++percent;
        hub.Milestone(CurrentMessage(), percent, {});
        return !(cleared = false);
    }
    void Initialize(const atr_String& m) { *this = Model{{{0, 1, 0, m}}}, hub.Milestone(m, {}); }
    void Finish() { Initialize(""); }
    bool Push(float f) {
        const wip_ProgressState t = Top();
        if (Good(f)) levels.push_back({t.current, At(t, double{t.current}, f), t.current, t.message});
        return Good(f);
    }
    bool Push(float f, const atr_String& message) { return Push(f) && (Update(message), true); }
    bool Pop(int n) {
        if (n < 1 || Depth() == 0) return false;
        const auto kept = static_cast<std::size_t>(std::max(Depth() + 1 - n, 1));
        levels[kept - 1].current = levels[kept].end;
        levels.resize(kept);
        return Report();
    }
    bool Update(float f) { return Good(f) && (Top().current = At(Top(), double{Top().start}, f), Report()); }
    bool Update(int i, int n) { return i >= 0 && n >= 0 && Update(i < n ? float(Round(i) / Round(n)) : 1.0F); }
    bool Update(float f, const atr_String& m) { return Good(f) && (Top().message = m, Update(f)); }
    void Update(const atr_String& message) {
        Top().message = message;
        cleared ? hub.Milestone(message, {}) : static_cast<void>(Report());
    }
} model;

/// A scoped object by its formulas in sizes of the stack.
struct ModelObj {
    atr_String message;
    int depth = model.Depth();
    float fraction = model.cleared ? -1.0F : model.CurrentProgress();

    ModelObj() : ModelObj(model.CurrentMessage()) {}
    explicit ModelObj(const atr_String& m) : message(m) { Open(); }
    ~ModelObj() try { Finish(); } catch (...) {
        return;
    }
    int Above() const { return static_cast<int>(model.levels.size()) - (depth == 0 ? 1 : depth); }
    int Depth() const { return Above() - 1; }
    bool Push(float f, const atr_String& m) { return model.Push(f, m); }
    bool Pop(int n) { return Above() != 1 && n >= 1 && model.Pop(std::min(Above() - 1, n)); }
    void Finish() { depth == 0 ? model.Finish() : static_cast<void>(model.Pop(Above() - 1)); }
    void Restart() { Finish(), Open(), fraction >= 0 && model.Update(fraction); }
    void Open() {
        if (model.Depth() > 0) return model.Update(message);
        model.Initialize(message), model.Push(1.0F);
    }
};

/// Does one thing, drawn from `random`, and tells what can be seen of it.
template <class Object>
std::string Step(std::mt19937_64 random, auto& tracker, std::vector<std::unique_ptr<Object>>& objects) {
    const float special[] = {0, -0.0F, 1, 0.5F, 0.29F, -1e-30F, std::nextafter(1.0F, 2.0F), HUGE_VALF, std::nanf("")};
    const auto draw = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    const float f = draw(3) == 0 ? special[draw(9)] : static_cast<float>(draw(1 << 24)) * 0x1p-24F;
    const atr_String text(std::string(1, static_cast<char>('a' + draw(26))).c_str());
    const int n = draw(6) - 1, of = draw(5) - 1, what = draw(24);
    const auto at = objects.begin() + (objects.empty() ? 0 : draw(static_cast<int>(objects.size())));
    std::ostringstream seen;
    try {
        if (what < 5) seen << tracker.Push(f);
        if (what == 5) seen << tracker.Pop(n);
        if (what > 5 && what < 10) seen << tracker.Update(f);
        if (what == 10) seen << tracker.Update(n, of) << tracker.Update(1000000007 * (n % 2), 2147483647);
        if (what == 11) seen << tracker.Update(f, text);
        if (what == 12) tracker.Update(text);
        if (what == 13 && n == 0) of > 1 ? tracker.Finish() : tracker.Initialize(text);
        if (what == 14) objects.push_back(std::make_unique<Object>());
        if (what == 15) objects.push_back(std::make_unique<Object>(text));
        if (objects.empty()) return seen.str();
        if (what == 16 || what == 17) seen << (*at)->Push(f, text);
        if (what == 18 || what == 19) seen << (*at)->Pop(n) << (*at)->Depth();
        if (what == 20 || what == 21) n > 1 ? (*at)->Finish() : (*at)->Restart();
        if (what > 21) objects.erase(at);
    } catch (const nex_PrimException& refused) {
        seen << refused.what();
    }
    seen << " by " << what << " at " << tracker.Depth() << tracker.HasProgress() << tracker.CurrentMessage().c_str()
         << std::bit_cast<unsigned>(tracker.CurrentProgress());
    return seen.str();
}

TEST(wip_Progress, FollowsTheModelBitForBit) {
    for (unsigned seed = 1; seed <= 2000; ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937_64 random(seed);
        wip_RecordingReporter heard, expected;
        wip_Progress& tracker = omi_Singleton<wip_Progress>::Instance();
        tracker.Clear();
        model = {};
        std::vector<std::unique_ptr<wip_ProgressObj>> objects;
        std::vector<std::unique_ptr<ModelObj>> models;
        for (int step = 0; step < 50; ++step, random.discard(16)) {
            const bool deaf = seed % 2 == 0 && random() % 8 == 0;
            wip_WIP::Instance().SetWipReporter(deaf ? nullptr : &heard);
            Model::hub.SetWipReporter(deaf ? nullptr : &expected);
            ASSERT_EQ(Step(random, model, models), Step(random, tracker, objects));
        }
        ASSERT_EQ(heard.Text(), expected.Text());
        wip_WIP::Finalize();
        Model::hub.SetWipReporter(nullptr);
    }
}

TEST(wip_Progress, CountsPercentsOfAnyNumber) {
    constexpr int most = std::numeric_limits<int>::max();
    for (const auto& [current, percent] : {std::pair(0.29F, 29),
                                           {0.2898F, 28},
                                           {-0.5F, -50},
                                           {2.1474836e7F, most},
                                           {HUGE_VALF, most},
                                           {-3e38F, -most - 1},
                                           {std::nanf(""), 0}})
        EXPECT_EQ((wip_ProgressState{.current = current}.Percent()), percent) << current;
}

TEST(wip_Progress, NestsAMillionLevels) {
    wip_RecordingReporter heard;
    const wip_ScopedReporter attached(heard);
    wip_Progress::Instance().Clear();
    wip_ProgressObj progress("deep");
    for (int level = 0; level < 1000000; ++level) progress.Push(0.999F);
    EXPECT_TRUE(progress.Depth() == 1000000 && progress.Pop(1000000));
    EXPECT_EQ(heard.Text(), "9|deep||| 0 0 0|0||0\n7|deep||| 99 0 0|0||0\n");
}

}  // namespace
