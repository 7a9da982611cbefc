#include <base/orv_StartUpCounter.h>
#include <frame/OrvLumWip.h>

namespace {

orv_StartUpCounter counter;

}  // namespace

void OrvLumWip_initialize(int& count) { counter.Start(count); }
void OrvLumWip_finalize(int& count) { counter.Stop(count); }
