// Protects the processor-level override: which level is forced, and that it is told once per process tree.

#include <base/OrvBasOmniSSELevel.h>
#include <frame/OrvLumUtf.h>
#include <support/ChildProcess.h>
#include <support/UnstartedLibrary.h>

#include <gtest/gtest.h>

namespace {

constexpr const char* level = "VLM_SSE_LEVEL";
constexpr const char* notified = "VLM_SSE_LEVEL_NOTIFIED";

/// Starts the module twice in a fresh process, after the level was forced to `before` quietly unless that is null.
/// `err` holds the level's number, a blank, and what stands in the notice variable afterwards.
ChildResult StartWith(const char* before, const char* levelValue, const char* notifiedValue) {
    return RunInChild([&] {
        SetVariable(notified, "");
        SetVariable(level, before);
        OrvBasOmniSetSSELevel();
        SetVariable(level, levelValue);
        SetVariable(notified, notifiedValue);
        int count = 0;
        OrvLumUtf_initialize(count);
        OrvLumUtf_initialize(count);
        const char* const after = std::getenv(notified);
        std::fprintf(stderr, "%d %s", OrvBasOmniGetSSELevel(), after == nullptr ? "(unset)" : after);
        return 0;
    });
}

TEST(SSELevel, EachKeywordForcesItsLevelAndIsToldOnce) {
    const std::tuple<const char*, std::string, std::string> levels[] = {
        {"AVX", "131072", "AVX"},     {"SSE3", "2048", "SSE 3"},    {"SSE2", "512", "SSE 2"},
        {"SSSE3", "4096", "S-SSE 3"}, {"SSE41", "8192", "SSE 4.1"}, {"SSE42", "32768", "SSE 4.2"},
        {"NONE", "2", "NO SSE"},
    };
    for (const auto& [keyword, word, displayName] : levels) {
        const ChildResult told = StartWith(nullptr, keyword, nullptr);
        EXPECT_EQ(told.err, word + " 1");
        EXPECT_EQ(told.out, ">>> SSE LEVEL OVERRIDE! ENFORCED LEVEL: " + displayName + "\n");
        for (const char* already : {"0", ""}) {
            const ChildResult quiet = StartWith(nullptr, keyword, already);
            EXPECT_EQ(quiet.err, word + " " + already);
            EXPECT_EQ(quiet.out, "");
        }
    }
}

TEST(SSELevel, AnyOtherValueLeavesEverythingAlone) {
    for (const char* value : {"sse2", "Avx", "AVX ", " AVX", "AVX2", "SSE", "SSE4.1", ""}) {
        const ChildResult child = StartWith("SSSE3", value, nullptr);
        EXPECT_EQ(child.err, "4096 (unset)") << value;
        EXPECT_EQ(child.out, "") << value;
    }
}

TEST(SSELevel, WithoutOverrideTheProcessorIsAsked) {
    const ChildResult child = StartWith(nullptr, nullptr, nullptr);
    EXPECT_EQ(child.out, "");
#if defined(__x86_64__)
    if (__builtin_cpu_supports("avx"))
        EXPECT_EQ(child.err, "131072 (unset)");
    else if (__builtin_cpu_supports("sse4.2"))
        EXPECT_EQ(child.err, "32768 (unset)");
    else
        EXPECT_GE(std::stoi(child.err), 512);  // too old a machine to say more
#else
    EXPECT_EQ(child.err, "2 (unset)");
#endif
}

/// Runs by itself too; in the next test's grandchild it finds the level forced and told.
TEST(SSELevel, Scenario) {
    testing::internal::CaptureStdout();
    OrvBasOmniSetSSELevel();
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

TEST(SSELevel, NoticeReachesOneProcessOfATree) {
    const auto force = [] {
        SetVariable(level, "SSE2");
        SetVariable(notified, nullptr);
        OrvBasOmniSetSSELevel();
    };
    const ChildResult child = RunInChild([force] {
        force();
        const ChildResult grandchild = RunTest("SSELevel.Scenario", {});
        OrvBasOmniSetSSELevel();
        return grandchild.exitCode;
    });
    EXPECT_EQ(child.exitCode, 0);
    EXPECT_EQ(child.out, ">>> SSE LEVEL OVERRIDE! ENFORCED LEVEL: SSE 2\n");
    const ChildResult cutOff = RunInChild([force]() -> int {
        force();
        _exit(0);  // writes no buffer, which a fork would have doubled
    });
    EXPECT_EQ(cutOff.out, child.out);
}

}  // namespace
