#include <base/orv_StartUpCounter.h>
#include <frame/OrvLumIdb.h>

namespace {

orv_StartUpCounter counter;

}  // namespace

void OrvLumIdb_initialize(int& count) { counter.Start(count); }
void OrvLumIdb_finalize(int& count) { counter.Stop(count); }
