// Protects the processor-level override: which level is forced, and that it is told once per process tree.

#include <base/OrvBasOmniSSELevel.h>
#include <frame/OrvLumUtf.h>
#include <support/ChildProcess.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

namespace {

constexpr const char* level = "VLM_SSE_LEVEL";
constexpr const char* notified = "VLM_SSE_LEVEL_NOTIFIED";

/// Sets the variable, or unsets it for null.
void Put(const char* name, const char* value) {
    if (value == nullptr)
        unsetenv(name);
    else
        setenv(name, value, 1);
}

std::string Got(const char* name) {
    const char* const value = std::getenv(name);
    return value == nullptr ? "(unset)" : value;
}

struct Outcome {
    int word = 0;
    std::string printed;
    std::string notifiedAfter;
};

/// Starts the module in a fresh process, after the level was forced to `before` quietly unless that is null.
Outcome StartWith(const char* before, const char* levelValue, const char* notifiedValue) {
    const ChildResult child = RunInChild([&] {
        Put(notified, "");
        Put(level, before);
        OrvBasOmniSetSSELevel();
        Put(level, levelValue);
        Put(notified, notifiedValue);
        int count = 0;
        OrvLumUtf_initialize(count);
        OrvLumUtf_initialize(count);
        std::fprintf(stderr, "%d %s", OrvBasOmniGetSSELevel(), Got(notified).c_str());
        return 0;
    });
    EXPECT_EQ(child.exitCode, 0);
    const std::size_t blank = child.err.find(' ');
    return {std::stoi(child.err), child.out, child.err.substr(blank + 1)};
}

TEST(SSELevel, EachKeywordForcesItsLevelAndIsToldOnce) {
    const struct {
        const char* keyword;
        int word;
        const char* displayName;
    } levels[] = {
        {"AVX", 0x20000, "AVX"},    {"SSE3", 2048, "SSE 3"},     {"SSE2", 512, "SSE 2"}, {"SSSE3", 4096, "S-SSE 3"},
        {"SSE41", 8192, "SSE 4.1"}, {"SSE42", 32768, "SSE 4.2"}, {"NONE", 2, "NO SSE"},
    };
    for (const auto& each : levels) {
        SCOPED_TRACE(each.keyword);
        const Outcome told = StartWith(nullptr, each.keyword, nullptr);
        EXPECT_EQ(told.word, each.word);
        EXPECT_EQ(told.printed, std::string(">>> SSE LEVEL OVERRIDE! ENFORCED LEVEL: ") + each.displayName + "\n");
        EXPECT_EQ(told.notifiedAfter, "1");
        for (const char* already : {"0", "1", ""}) {
            const Outcome quiet = StartWith(nullptr, each.keyword, already);
            EXPECT_EQ(quiet.word, each.word);
            EXPECT_EQ(quiet.printed, "");
            EXPECT_EQ(quiet.notifiedAfter, already);
        }
    }
}

TEST(SSELevel, AnyOtherValueLeavesEverythingAlone) {
    for (const char* value : {"sse2", "Avx", "AVX ", " AVX", "AVX2", "SSE", "SSE4.1", ""}) {
        SCOPED_TRACE(value);
        const Outcome outcome = StartWith("SSSE3", value, nullptr);
        EXPECT_EQ(outcome.word, 4096);
        EXPECT_EQ(outcome.printed, "");
        EXPECT_EQ(outcome.notifiedAfter, "(unset)");
    }
}

TEST(SSELevel, WithoutOverrideTheProcessorIsAsked) {
    const Outcome outcome = StartWith(nullptr, nullptr, nullptr);
    EXPECT_EQ(outcome.printed, "");
    EXPECT_EQ(outcome.notifiedAfter, "(unset)");
    int expected = 2;
#if defined(__x86_64__)
    expected = __builtin_cpu_supports("avx")      ? 0x20000
               : __builtin_cpu_supports("sse4.2") ? 0x8000
                                                  : outcome.word;  // too old a machine to say more
    EXPECT_GE(outcome.word, 0x200);
#endif
    EXPECT_EQ(outcome.word, expected);
}

TEST(SSELevel, NoticeReachesOneProcessOfATree) {
    const ChildResult child = RunInChild([] {
        Put(level, "SSE2");
        Put(notified, nullptr);
        OrvBasOmniSetSSELevel();
        std::fflush(stderr);
        const pid_t grandchild = fork();
        OrvBasOmniSetSSELevel();
        if (grandchild != 0) waitpid(grandchild, nullptr, 0);
        return 0;
    });
    EXPECT_EQ(child.out, ">>> SSE LEVEL OVERRIDE! ENFORCED LEVEL: SSE 2\n");
}

}  // namespace
