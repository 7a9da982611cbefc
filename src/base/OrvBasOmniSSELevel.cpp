#include <base/OrvBasOmniSSELevel.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace {

struct Level {
    std::string_view keyword;
    int word;
    const char* displayName;
};

constexpr int noSSE = 2;
constexpr Level levels[] = {
    {"AVX", 0x20000, "AVX"},      {"SSE3", 0x800, "SSE 3"},     {"SSE2", 0x200, "SSE 2"},  {"SSSE3", 0x1000, "S-SSE 3"},
    {"SSE41", 0x2000, "SSE 4.1"}, {"SSE42", 0x8000, "SSE 4.2"}, {"NONE", noSSE, "NO SSE"},
};

/// 0 until forced or detected. Atomic because any thread may be the one that detects.
std::atomic<int> levelWord = 0;

int DetectLevel() {
#if defined(__x86_64__) || defined(__i386__)
    __builtin_cpu_init();
    if (__builtin_cpu_supports("avx")) return 0x20000;
    if (__builtin_cpu_supports("sse4.2")) return 0x8000;
    if (__builtin_cpu_supports("sse4.1")) return 0x2000;
    if (__builtin_cpu_supports("ssse3")) return 0x1000;
    if (__builtin_cpu_supports("sse3")) return 0x800;
    if (__builtin_cpu_supports("sse2")) return 0x200;
#endif
    return noSSE;
}

void MarkNotified() {
#if defined(_WIN32)
    _putenv_s("VLM_SSE_LEVEL_NOTIFIED", "1");
#else
    setenv("VLM_SSE_LEVEL_NOTIFIED", "1", 1);
#endif
}

}  // namespace

void OrvBasOmniSetSSELevel() {
    // Both are read before anything is set: setting one may move what the other points to.
    const char* const wanted = std::getenv("VLM_SSE_LEVEL");
    const bool notified = std::getenv("VLM_SSE_LEVEL_NOTIFIED") != nullptr;
    if (wanted == nullptr) return;
    for (const Level& level : levels) {
        if (level.keyword != wanted) continue;
        levelWord.store(level.word, std::memory_order_relaxed);
        if (notified) return;
        std::printf(">>> SSE LEVEL OVERRIDE! ENFORCED LEVEL: %s\n", level.displayName);
        std::fflush(stdout);  // a child forked before the next flush would print it again
        MarkNotified();
        return;
    }
}

int OrvBasOmniGetSSELevel() {
    int level = levelWord.load(std::memory_order_relaxed);
    if (level == 0) {
        const int detected = DetectLevel();
        // A level that was forced meanwhile stays.
        if (levelWord.compare_exchange_strong(level, detected, std::memory_order_relaxed)) level = detected;
    }
    return level;
}
