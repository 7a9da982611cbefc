#include <base/cls_MetadataRegistrar.h>
#include <base/omi_Singleton.h>
#include <base/orv_StartUpCounter.h>
#include <base/typ_ArchCompTable.h>
#include <frame/OrvLumOmu.h>
#include <frame/detail/orv_TypeTable.h>
#include <omu/detail/omu_ForgetAtoms.h>
#include <omu/omu_ArgNumberErrorException.h>
#include <omu/omu_ArgTypeErrorException.h>
#include <omu/omu_AttributeErrorException.h>
#include <omu/omu_GenericTypeErrorException.h>
#include <omu/omu_KeywordErrorException.h>
#include <omu/omu_KeywordTypeErrorException.h>
#include <omu/omu_PrimArray.h>
#include <omu/omu_PrimBool.h>
#include <omu/omu_PrimBoolean.h>
#include <omu/omu_PrimComplex.h>
#include <omu/omu_PrimDictionary.h>
#include <omu/omu_PrimDictionaryBase.h>
#include <omu/omu_PrimEnumBase.h>
#include <omu/omu_PrimException.h>
#include <omu/omu_PrimExpr.h>
#include <omu/omu_PrimList.h>
#include <omu/omu_PrimNone.h>
#include <omu/omu_PrimNumber.h>
#include <omu/omu_PrimSequence.h>
#include <omu/omu_PrimString.h>
#include <omu/omu_PrimTranslatedString.h>
#include <omu/omu_PrimTuple.h>
#include <omu/omu_PrimType.h>
#include <omu/omu_Primitive.h>
#include <omu/omu_RangeErrorException.h>
#include <omu/omu_SymbolicConstantTable.h>
#include <omu/omu_TextRepr.h>
#include <omu/omu_TypeErrorException.h>
#include <omu/omu_TypeId.h>
#include <omu/omu_VelNameErrorException.h>

namespace {

constexpr orv_TypeRow types[] = {
    {0x01, "omu_TypeErrorException"},
    {0x02, "omu_KeywordTypeErrorException", 0x01},
    {0x03, "omu_ArgTypeErrorException", 0x01},
    {0x04, "omu_ArgNumberErrorException", 0x01},
    {0x05, "omu_KeywordErrorException", 0x01},
    {0x06, "omu_AttributeErrorException"},
    {0x09, "omu_RangeErrorException"},
    {0x11, "omu_Primitive"},
    {0x12, "omu_PrimDictionaryBase", 0x11},
    {0x13, "omu_PrimDictionary<int>", 0x12},
    {0x14, "omu_PrimDictionary<cow_String>", 0x12},
    {0x15, "omu_PrimList", 0x19},
    {0x16, "omu_PrimNumber", 0x11},
    {0x17, "omu_PrimPath", 0x11},
    {0x18, "omu_PrimString", 0x11},
    {0x19, "omu_PrimTuple", 0x20},
    {0x1A, "omu_PrimExpr", 0x11},
    {0x1B, "omu_PrimEnumBase", 0x11},
    {0x1D, "omu_PrimNone", 0x11},
    {0x1E, "omu_PrimWrapper", 0x11},
    {0x1F, "omu_PrimType", 0x11},
    {0x20, "omu_PrimSequence", 0x11},
    {0x21, "omu_PrimArray", 0x20},
    {0x22, "omu_PrimComplex", 0x11},
    {0x23, "omu_VelNameErrorException"},
    {0x24, "omu_GenericTypeErrorException", 0x01},
    {0x25, "omu_PrimBool<2>", 0x1B},
    {0x2F, "omu_PrimException", 0x11},
    {0x30, "omu_PrimTranslatedString", 0x18},
    {0x31, "omu_PrimBoolean", 0x11},
};
constexpr auto records = orv_TypeTable<0x32>(omu_ComponentCode, types);

/// The classes that persist, a base before what derives from it.
constexpr void (*registrations[])(cls_ClassRegistrar&) = {
    omu_TypeErrorException::InitializeMetadata,
    omu_KeywordTypeErrorException::InitializeMetadata,
    omu_ArgTypeErrorException::InitializeMetadata,
    omu_ArgNumberErrorException::InitializeMetadata,
    omu_KeywordErrorException::InitializeMetadata,
    omu_GenericTypeErrorException::InitializeMetadata,
    omu_AttributeErrorException::InitializeMetadata,
    omu_RangeErrorException::InitializeMetadata,
    omu_VelNameErrorException::InitializeMetadata,
    omu_Primitive::InitializeMetadata,
    omu_PrimNumber::InitializeMetadata,
    omu_PrimString::InitializeMetadata,
    omu_PrimTranslatedString::InitializeMetadata,
    omu_PrimBoolean::InitializeMetadata,
    omu_PrimNone::InitializeMetadata,
    omu_PrimComplex::InitializeMetadata,
    omu_PrimExpr::InitializeMetadata,
    omu_PrimType::InitializeMetadata,
    omu_PrimEnumBase::InitializeMetadata,
    omu_PrimBool<2>::InitializeMetadata,
    omu_PrimDictionaryBase::InitializeMetadata,
    omu_PrimDictionary<int>::InitializeMetadata,
    omu_PrimDictionary<cow_String>::InitializeMetadata,
    omu_PrimSequence::InitializeMetadata,
    omu_PrimTuple::InitializeMetadata,
    omu_PrimList::InitializeMetadata,
    omu_PrimArray::InitializeMetadata,
    omu_PrimException::InitializeMetadata,
};
/// Of command exceptions and scripting values.
constexpr unsigned registrationFlags = 2;

orv_StartUpCounter counter;

}  // namespace

typ_ArchCompEntry omu_ArchEntry() { return {records.data(), static_cast<int>(records.size())}; }

void OrvLumOmu_initialize(int& count) {
    if (!counter.Start(count)) return;
    typ_ArchCompTable::InsertEntry(omu_ComponentCode, omu_ArchEntry());
    cls_MetadataRegistrar& registrar = cls_MetadataRegistrar::Instance();
    for (const auto& each : registrations) registrar.initClassMetadata(each, registrationFlags);
}

void OrvLumOmu_finalize(int& count) {
    if (!counter.Stop(count)) return;
    omi_Singleton<omu_SymbolicConstantTable>::Finalize();
    omi_Singleton<omu_TextRepr>::Finalize();
    omu_ForgetAtoms();
}
