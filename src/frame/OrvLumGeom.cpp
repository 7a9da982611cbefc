#include <base/OrvLumBasicUtils.h>
#include <base/orv_StartUpCounter.h>
#include <frame/OrvLumAnn.h>
#include <frame/OrvLumG3d.h>
#include <frame/OrvLumGeom.h>
#include <frame/OrvLumGsl.h>
#include <frame/OrvLumIdb.h>
#include <frame/OrvLumMdl.h>
#include <frame/OrvLumOmu.h>
#include <frame/OrvLumUtf.h>
#include <frame/OrvLumWip.h>

#include <iterator>

namespace {

struct Step {
    void (*initialize)(int& count);
    void (*finalize)(int& count);
};

/// In the order of start-up; shutdown runs it backwards.
constexpr Step steps[] = {
    {OrvLumBasicUtils_initialize, OrvLumBasicUtils_finalize},
    {OrvBasShared_initialize, OrvBasShared_finalize},
    {OrvBasCoreUtils_initialize, OrvBasCoreUtils_finalize},
    {OrvBasAlloc_initialize, OrvBasAlloc_finalize},
    {OrvLumWip_initialize, OrvLumWip_finalize},
    {OrvLumIdb_initialize, OrvLumIdb_finalize},
    {OrvLumG3d_initialize, OrvLumG3d_finalize},
    {OrvLumOmu_initialize, OrvLumOmu_finalize},
    {OrvLumMdl_initialize, OrvLumMdl_finalize},
    {OrvLumGsl_initialize, OrvLumGsl_finalize},
    {OrvLumAnn_initialize, OrvLumAnn_finalize},
    {OrvLumUtf_initialize, OrvLumUtf_finalize},
    {OrvLumGeom_specific_initialize, OrvLumGeom_specific_finalize},
};

orv_StartUpCounter library;
orv_StartUpCounter specific;
int loaderCount = 0;

}  // namespace

void OrvLumGeom_initialize(int& count) {
    if (!library.Start(count)) return;
    const Step* step = std::begin(steps);
    try {
        for (; step != std::end(steps); ++step) step->initialize(count);
    } catch (...) {
        // The part that failed counts as started.
        for (auto undone = std::make_reverse_iterator(step + 1); undone != std::rend(steps); ++undone)
            undone->finalize(count);
        library.Stop(count);
        throw;
    }
}

void OrvLumGeom_finalize(int& count) {
    if (!library.Stop(count)) return;
    for (auto step = std::rbegin(steps); step != std::rend(steps); ++step) step->finalize(count);
}

void OrvLumGeom_specific_initialize(int& count) { specific.Start(count); }
void OrvLumGeom_specific_finalize(int& count) { specific.Stop(count); }

extern "C" int DllMain(void* /*module*/, unsigned long reason, void* /*reserved*/) {
    constexpr unsigned long processDetach = 0;
    constexpr unsigned long processAttach = 1;
    if (reason == processAttach) OrvLumGeom_initialize(loaderCount);
    if (reason == processDetach) OrvLumGeom_finalize(loaderCount);
    return 1;
}
