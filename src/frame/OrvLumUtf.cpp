#include <base/OrvBasOmniSSELevel.h>
#include <base/orv_StartUpCounter.h>
#include <frame/OrvLumUtf.h>

namespace {

orv_StartUpCounter counter;

}  // namespace

void OrvLumUtf_initialize(int& count) {
    if (counter.Start(count)) OrvBasOmniSetSSELevel();
}

void OrvLumUtf_finalize(int& count) { counter.Stop(count); }
