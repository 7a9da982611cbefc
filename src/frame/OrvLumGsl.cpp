#include <base/cls_MetadataRegistrar.h>
#include <base/omi_Singleton.h>
#include <base/omu_xoObjVarray.h>
#include <base/orv_StartUpCounter.h>
#include <base/typ_ArchCompTable.h>
#include <frame/OrvLumGsl.h>
#include <frame/detail/orv_TypeTable.h>
#include <gsl/gsl_BBox.h>
#include <gsl/gsl_Dot.h>
#include <gsl/gsl_ModelSegment.h>
#include <gsl/gsl_PersistentMatrix.h>
#include <gsl/gsl_PersistentVector.h>
#include <gsl/gsl_Plane.h>
#include <gsl/gsl_Point.h>
#include <gsl/gsl_Segment.h>
#include <gsl/gsl_StLine.h>
#include <gsl/gsl_TypeId.h>
#include <gsl/gsl_Util.h>

namespace {

constexpr orv_TypeRow types[] = {
    {1, "gsl_Point"},       {2, "gsl_Matrix"},     {3, "gsl_Vector", 1},     {4, "gsl_Plane"},
    {5, "gsl_Dot"},         {6, "gsl_StLine"},     {7, "gsl_BBox"},          {8, "gsl_Segment"},
    {9, "gsl_ArrayPoint"},  {10, "gsl_LineArray"}, {11, "gsl_ModelSegment"}, {12, "gsl_ModelSegmentArray"},
    {13, "gsl_PlaneArray"}, {14, "gsl_DotArray"},
};
constexpr auto records = orv_TypeTable<15>(gsl_ComponentCode, types);

struct Registration {
    void (*initializeMetadata)(cls_ClassRegistrar&);
    unsigned flags;
};

/// In the order of registration.
constexpr Registration registrations[] = {
    {gsl_BBox::InitializeMetadata, 3},
    {gsl_ModelSegment::InitializeMetadata, 7},
    {gsl_Plane::InitializeMetadata, 3},
    {omu_xoObjVarray<gsl_Plane>::InitializeMetadata, 3},
    {gsl_Point::InitializeMetadata, 7},
    {gsl_Segment::InitializeMetadata, 3},
    {gsl_StLine::InitializeMetadata, 3},
    {omu_xoObjVarray<gsl_StLine>::InitializeMetadata, 3},
    {gsl_PersistentVector::InitializeMetadata, 7},
    {gsl_Dot::InitializeMetadata, 7},
    {omu_xoObjVarray<gsl_Dot>::InitializeMetadata, 3},
    {gsl_PersistentMatrix::InitializeMetadata, 7},
};

orv_StartUpCounter counter;

}  // namespace

typ_ArchCompEntry gsl_ArchEntry() { return {records.data(), static_cast<int>(records.size())}; }

void OrvLumGsl_initialize(int& count) {
    if (!counter.Start(count)) return;
    typ_ArchCompTable::InsertEntry(gsl_ComponentCode, gsl_ArchEntry());
    static_cast<void>(omi_Singleton<gsl_Util>::Instance());
    cls_MetadataRegistrar& registrar = cls_MetadataRegistrar::Instance();
    for (const Registration& each : registrations) registrar.initClassMetadata(each.initializeMetadata, each.flags);
}

void OrvLumGsl_finalize(int& count) {
    if (counter.Stop(count)) omi_Singleton<gsl_Util>::Finalize();
}
