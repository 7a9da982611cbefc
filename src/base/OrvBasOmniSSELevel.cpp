#include <base/OrvBasOmniSSELevel.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#if defined(__x86_64__) || defined(__i386__)
#include <cpuid.h>
#endif

namespace {

struct Level {
    std::string_view keyword;
    int word;
    const char* displayName;
};

constexpr int noSSE = 2;
constexpr int avx = 0x20000;
constexpr Level levels[] = {
    {"AVX", avx, "AVX"},          {"SSE3", 0x800, "SSE 3"},     {"SSE2", 0x200, "SSE 2"},  {"SSSE3", 0x1000, "S-SSE 3"},
    {"SSE41", 0x2000, "SSE 4.1"}, {"SSE42", 0x8000, "SSE 4.2"}, {"NONE", noSSE, "NO SSE"},
};

/// 0 until forced or detected. Atomic because any thread may be the one that detects.
std::atomic<int> levelWord = 0;

#if defined(__x86_64__) || defined(__i386__)

/// Whether the system saves the wide registers on a switch of threads, without which AVX must not be used.
bool WideRegistersAreSaved() {
    unsigned low = 0, high = 0;
    __asm__("xgetbv" : "=a"(low), "=d"(high) : "c"(0));
    return (low & 6) == 6;
}

// Asked for on first use by hand: the compiler's own detection runs as the library is loaded, and costs a virtual
// machine's guest a tenth of a millisecond.
int DetectLevel() {
    unsigned eax = 0, ebx = 0, ecx = 0, edx = 0;
    if (!__get_cpuid(1, &eax, &ebx, &ecx, &edx)) return noSSE;
    if ((ecx & bit_AVX) && (ecx & bit_OSXSAVE) && WideRegistersAreSaved()) return avx;
    if (ecx & bit_SSE4_2) return 0x8000;
    if (ecx & bit_SSE4_1) return 0x2000;
    if (ecx & bit_SSSE3) return 0x1000;
    if (ecx & bit_SSE3) return 0x800;
    return (edx & bit_SSE2) ? 0x200 : noSSE;
}

#else

int DetectLevel() { return noSSE; }

#endif

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

bool OrvBasOmniHasAVX() {
    static const bool has = DetectLevel() == avx;
    return has;
}
