#include <annC/annC_AnnotationContainer.h>
#include <annC/annC_Arrow.h>
#include <annC/annC_NamedAnchor.h>
#include <annC/annC_Point3DAnchor.h>
#include <annC/annC_Text.h>
#include <annC/annC_TypeId.h>
#include <annC/annC_ViewportAnchor.h>
#include <base/cls_MetadataRegistrar.h>
#include <base/orv_StartUpCounter.h>
#include <base/typ_ArchCompTable.h>
#include <frame/OrvLumAnn.h>
#include <frame/detail/orv_TypeTable.h>

namespace {

constexpr orv_TypeRow types[] = {
    {1, "annC_Anchor"},     {2, "annC_NamedAnchor", 1}, {3, "annC_ViewportAnchor", 1}, {4, "annC_Point3DAnchor", 1},
    {5, "annC_Annotation"}, {6, "annC_Arrow", 5},       {7, "annC_Text", 5},           {8, "annC_AnnotationContainer"},
};
constexpr auto records = orv_TypeTable<9>(annC_ComponentCode, types);

orv_StartUpCounter counter;

}  // namespace

typ_ArchCompEntry annC_ArchEntry() { return {records.data(), static_cast<int>(records.size())}; }

void OrvLumAnn_initialize(int& count) {
    if (!counter.Start(count)) return;
    typ_ArchCompTable::InsertEntry(annC_ComponentCode, annC_ArchEntry());
    cls_MetadataRegistrar& registrar = cls_MetadataRegistrar::Instance();
    for (const auto initializeMetadata :
         {annC_Anchor::InitializeMetadata, annC_NamedAnchor::InitializeMetadata,
          annC_ViewportAnchor::InitializeMetadata, annC_Point3DAnchor::InitializeMetadata,
          annC_Annotation::InitializeMetadata, annC_Arrow::InitializeMetadata, annC_Text::InitializeMetadata})
        registrar.initClassMetadata(initializeMetadata, 7);
    registrar.initClassMetadata(annC_AnnotationContainer::InitializeMetadata, 1);
}

void OrvLumAnn_finalize(int& count) { counter.Stop(count); }
