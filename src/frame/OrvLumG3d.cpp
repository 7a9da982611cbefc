#include <base/cls_MetadataRegistrar.h>
#include <base/omi_Singleton.h>
#include <base/orv_StartUpCounter.h>
#include <base/typ_ArchCompTable.h>
#include <frame/OrvLumG3d.h>
#include <frame/detail/orv_TypeTable.h>
#include <g3d/g3d_ColorErrorException.h>
#include <g3d/g3d_ColorMap.h>
#include <g3d/g3d_Point.h>
#include <g3d/g3d_TypeId.h>
#include <g3d/g3d_Vector.h>

namespace {

constexpr orv_TypeRow types[] = {
    {1, "g3d_Point"},
    {2, "g3d_Vector"},
};
constexpr auto records = orv_TypeTable<3>(g3d_ComponentCode, types);

orv_StartUpCounter counter;

}  // namespace

typ_ArchCompEntry g3d_ArchEntry() { return {records.data(), static_cast<int>(records.size())}; }

void OrvLumG3d_initialize(int& count) {
    if (!counter.Start(count)) return;
    typ_ArchCompTable::InsertEntry(g3d_ComponentCode, g3d_ArchEntry());
    cls_MetadataRegistrar& registrar = cls_MetadataRegistrar::Instance();
    registrar.initClassMetadata(g3d_Point::InitializeMetadata, 4);
    registrar.initClassMetadata(g3d_Vector::InitializeMetadata, 4);
    registrar.initClassMetadata(g3d_ColorErrorException::InitializeMetadata, 2);
}

void OrvLumG3d_finalize(int& count) {
    if (counter.Stop(count)) omi_Singleton<g3d_ColorMap>::Finalize();
}
