#include <base/omi_Singleton.h>
#include <base/orv_StartUpCounter.h>
#include <frame/OrvLumWip.h>
#include <wip/wip_Progress.h>
#include <wip/wip_WIP.h>

namespace {

orv_StartUpCounter counter;

}  // namespace

void OrvLumWip_initialize(int& count) { counter.Start(count); }

void OrvLumWip_finalize(int& count) {
    if (!counter.Stop(count)) return;
    wip_WIP::Finalize();
    omi_Singleton<wip_Progress>::Finalize();
}
