#include <base/OrvLumBasicUtils.h>
#include <base/cls_ClassRegistrar.h>
#include <base/cls_MetadataRegistrar.h>
#include <base/nex_CommandException.h>
#include <base/omi_Singleton.h>
#include <base/orv_StartUpCounter.h>
#include <base/thr_ThrSingletonRegistry.h>
#include <base/typ_ArchCompTable.h>

namespace {

orv_StartUpCounter basicUtils;
orv_StartUpCounter shared;
orv_StartUpCounter coreUtils;
orv_StartUpCounter alloc;

void RegisterClasses(cls_ClassRegistrar& registrar) {
    registrar.AddClass("cow_String", 0x1A0001, 0).Attribute("STRING", cls_StringAttribute);
    registrar.AddClass("atr_String", 0x1A0007, 0).Attribute("TRSTRING", cls_TextAttribute);
    nex_CommandException::InitializeMetadata(registrar);
}

}  // namespace

void OrvLumBasicUtils_initialize(int& count) {
    if (basicUtils.Start(count)) cls_MetadataRegistrar::Instance().initClassMetadata(RegisterClasses, 0);
}

void OrvLumBasicUtils_finalize(int& count) {
    if (!basicUtils.Stop(count)) return;
    thr_ThrSingletonRegistry::Finalize();
    omi_Singleton<cls_MetadataRegistrar>::Finalize();
    typ_ArchCompTable::Clear();
}

void OrvBasShared_initialize(int& count) { shared.Start(count); }
void OrvBasShared_finalize(int& count) { shared.Stop(count); }
void OrvBasCoreUtils_initialize(int& count) { coreUtils.Start(count); }
void OrvBasCoreUtils_finalize(int& count) { coreUtils.Stop(count); }
void OrvBasAlloc_initialize(int& count) { alloc.Start(count); }
void OrvBasAlloc_finalize(int& count) { alloc.Stop(count); }
