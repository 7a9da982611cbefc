#include <base/orv_StartUpCounter.h>
#include <base/typ_ArchCompTable.h>
#include <frame/OrvLumAnn.h>
#include <frame/detail/orv_TypeTable.h>

namespace {

constexpr unsigned short componentCode = 848;

constexpr orv_TypeRow types[] = {
    {1, "annC_Anchor"},     {2, "annC_NamedAnchor", 1}, {3, "annC_ViewportAnchor", 1}, {4, "annC_Point3DAnchor", 1},
    {5, "annC_Annotation"}, {6, "annC_Arrow", 5},       {7, "annC_Text", 5},           {8, "annC_AnnotationContainer"},
};
constexpr auto records = orv_TypeTable<9>(componentCode, types);

orv_StartUpCounter counter;

}  // namespace

typ_ArchCompEntry annC_ArchEntry() { return {records.data(), static_cast<int>(records.size())}; }

void OrvLumAnn_initialize(int& count) {
    if (counter.Start(count)) typ_ArchCompTable::InsertEntry(componentCode, annC_ArchEntry());
}

void OrvLumAnn_finalize(int& count) { counter.Stop(count); }
