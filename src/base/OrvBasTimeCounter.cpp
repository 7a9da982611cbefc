#include <base/OrvBasTimeCounter.h>

#include <chrono>

std::int64_t OrvBasTimeCounter() noexcept {
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}
