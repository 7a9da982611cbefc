#include "host_Interruption.h"

#include <wip/wip_MessageReporter.h>

#include <atomic>
#include <csignal>

namespace {

std::atomic<wip_MessageReporter*> asked = nullptr;
static_assert(std::atomic<wip_MessageReporter*>::is_always_lock_free, "a signal handler must not wait");

extern "C" void Interrupt(int signal) {
    if (wip_MessageReporter* const reporter = asked) reporter->SetInterrupted();
    std::signal(signal, SIG_DFL);
}

}  // namespace

host_Interruption::host_Interruption(wip_MessageReporter& reporter) {
    asked = &reporter;
    _before = std::signal(SIGINT, Interrupt);
    if (_before == SIG_IGN) std::signal(SIGINT, SIG_IGN);  // a job in the background stays there
}

host_Interruption::~host_Interruption() {
    std::signal(SIGINT, _before);
    asked = nullptr;
}
