#include <base/orv_StartUpCounter.h>
#include <base/typ_ArchCompTable.h>
#include <frame/OrvLumG3d.h>
#include <frame/detail/orv_TypeTable.h>

namespace {

constexpr unsigned short componentCode = 36;

constexpr orv_TypeRow types[] = {
    {1, "g3d_Point"},
    {2, "g3d_Vector"},
};
constexpr auto records = orv_TypeTable<3>(componentCode, types);

orv_StartUpCounter counter;

}  // namespace

typ_ArchCompEntry g3d_ArchEntry() { return {records.data(), static_cast<int>(records.size())}; }

void OrvLumG3d_initialize(int& count) {
    if (counter.Start(count)) typ_ArchCompTable::InsertEntry(componentCode, g3d_ArchEntry());
}

void OrvLumG3d_finalize(int& count) { counter.Stop(count); }
