// Protects the processor-level override: which level is forced, and that it is told once per process tree.

#include <base/OrvBasOmniSSELevel.h>
#include <frame/OrvLumUtf.h>
#include <support/ChildProcess.h>
#include <support/UnstartedLibrary.h>

#include <gtest/gtest.h>

namespace {

constexpr const char* level = "VLM_SSE_LEVEL";
constexpr const char* notified = "VLM_SSE_LEVEL_NOTIFIED";

/// The level's number, what then stands in the notice variable, and what was printed, after two starts of the module in
/// a fresh process in which the level had been forced to `before` quietly, unless that is null.
std::string Started(const char* before, const char* levelValue, const char* notifiedValue) {
    const ChildResult child = RunInChild([&] {
        SetVariable(notified, "");
        SetVariable(level, before);
        OrvBasOmniSetSSELevel();
        SetVariable(level, levelValue);
        SetVariable(notified, notifiedValue);
        int count = 0;
        OrvLumUtf_initialize(count);
        OrvLumUtf_initialize(count);
        const char* const after = std::getenv(notified);
        std::fprintf(stderr, "%d %s\n", OrvBasOmniGetSSELevel(), after == nullptr ? "(unset)" : after);
        return 0;
    });
    return child.err + child.out;
}

TEST(SSELevel, EachKeywordForcesItsLevelAndIsToldOnce) {
    const std::tuple<const char*, std::string, std::string> levels[] = {
        {"AVX", "131072", "AVX"},     {"SSE3", "2048", "SSE 3"},    {"SSE2", "512", "SSE 2"},
        {"SSSE3", "4096", "S-SSE 3"}, {"SSE41", "8192", "SSE 4.1"}, {"SSE42", "32768", "SSE 4.2"},
        {"NONE", "2", "NO SSE"},
    };
    for (const auto& [keyword, word, displayName] : levels) {
        EXPECT_EQ(Started(nullptr, keyword, nullptr),
                  word + " 1\n>>> SSE LEVEL OVERRIDE! ENFORCED LEVEL: " + displayName + "\n");
        for (const char* already : {"0", ""})
            EXPECT_EQ(Started(nullptr, keyword, already), word + " " + already + "\n");
    }
    for (const char* other : {"sse2", "Avx", "AVX ", " AVX", "AVX2", "SSE", "SSE4.1", ""})
        EXPECT_EQ(Started("SSSE3", other, nullptr), "4096 (unset)\n") << other;
}

TEST(SSELevel, WithoutOverrideTheProcessorIsAsked) {
    const std::string detected = Started(nullptr, nullptr, nullptr);
#if defined(__x86_64__)
    if (__builtin_cpu_supports("avx"))
        EXPECT_EQ(detected, "131072 (unset)\n");
    else if (__builtin_cpu_supports("sse4.2"))
        EXPECT_EQ(detected, "32768 (unset)\n");
    else
        EXPECT_GE(std::stoi(detected), 512);  // too old a machine to say more
#else
    EXPECT_EQ(detected, "2 (unset)\n");
#endif
}

/// Runs by itself too; in the next test's grandchild it finds the level forced and told.
TEST(SSELevel, Scenario) {
    testing::internal::CaptureStdout();
    OrvBasOmniSetSSELevel();
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

TEST(SSELevel, NoticeReachesOneProcessOfATree) {
    for (const bool cutOff : {false, true}) {
        const ChildResult child = RunInChild([cutOff] {
            SetVariable(level, "SSE2");
            SetVariable(notified, nullptr);
            OrvBasOmniSetSSELevel();
            if (cutOff) _exit(0);  // writes no buffer, which a fork would have doubled
            const ChildResult grandchild = RunTest("SSELevel.Scenario", {});
            OrvBasOmniSetSSELevel();
            return grandchild.exitCode;
        });
        EXPECT_EQ(child.exitCode, 0);
        EXPECT_EQ(child.out, ">>> SSE LEVEL OVERRIDE! ENFORCED LEVEL: SSE 2\n");
    }
}

}  // namespace
