#include <base/orv_StartUpCounter.h>
#include <base/typ_ArchCompTable.h>
#include <frame/OrvLumMdl.h>
#include <frame/detail/orv_TypeTable.h>

namespace {

constexpr unsigned short componentCode = 10;

constexpr orv_TypeRow types[] = {
    {0x0F, "mdl_PropAttr<double>"},
    {0x10, "mdl_PropAttr<bool>"},
    {0x13, "mdl_PropAttr<int>"},
};
constexpr auto records = orv_TypeTable<0x14>(componentCode, types);

orv_StartUpCounter counter;

}  // namespace

typ_ArchCompEntry mdl_ArchEntry() { return {records.data(), static_cast<int>(records.size())}; }

void OrvLumMdl_initialize(int& count) {
    if (counter.Start(count)) typ_ArchCompTable::InsertEntry(componentCode, mdl_ArchEntry());
}

void OrvLumMdl_finalize(int& count) { counter.Stop(count); }
