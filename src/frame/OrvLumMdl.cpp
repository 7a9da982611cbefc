#include <base/cls_MetadataRegistrar.h>
#include <base/orv_StartUpCounter.h>
#include <base/typ_ArchCompTable.h>
#include <frame/OrvLumMdl.h>
#include <frame/detail/orv_TypeTable.h>
#include <mdl/mdl_PropAttr.h>
#include <mdl/mdl_TypeId.h>

namespace {

template <class T>
constexpr orv_TypeRow row = {mdl_PropAttrRecordOf<T>.index, mdl_PropAttrRecordOf<T>.name};

constexpr orv_TypeRow types[] = {
    row<double>, row<bool>, row<int>, row<cow_List<float>>, row<cow_List<cow_String>>, row<cow_List<int>>};
constexpr auto records = orv_TypeTable<0x17>(mdl_ComponentCode, types);

orv_StartUpCounter counter;

}  // namespace

typ_ArchCompEntry mdl_ArchEntry() { return {records.data(), static_cast<int>(records.size())}; }

void OrvLumMdl_initialize(int& count) {
    if (!counter.Start(count)) return;
    typ_ArchCompTable::InsertEntry(mdl_ComponentCode, mdl_ArchEntry());
    cls_MetadataRegistrar& registrar = cls_MetadataRegistrar::Instance();
    for (const auto initializeMetadata :
         {mdl_PropAttr<double>::InitializeMetadata, mdl_PropAttr<bool>::InitializeMetadata,
          mdl_PropAttr<int>::InitializeMetadata, mdl_PropAttr<cow_List<float>>::InitializeMetadata,
          mdl_PropAttr<cow_List<cow_String>>::InitializeMetadata, mdl_PropAttr<cow_List<int>>::InitializeMetadata})
        registrar.initClassMetadata(initializeMetadata, 7);
}

void OrvLumMdl_finalize(int& count) { counter.Stop(count); }
