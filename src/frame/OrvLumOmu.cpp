#include <base/orv_StartUpCounter.h>
#include <base/typ_ArchCompTable.h>
#include <frame/OrvLumOmu.h>
#include <frame/detail/orv_TypeTable.h>

namespace {

constexpr unsigned short componentCode = 19;

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
constexpr auto records = orv_TypeTable<0x32>(componentCode, types);

orv_StartUpCounter counter;

}  // namespace

typ_ArchCompEntry omu_ArchEntry() { return {records.data(), static_cast<int>(records.size())}; }

void OrvLumOmu_initialize(int& count) {
    if (counter.Start(count)) typ_ArchCompTable::InsertEntry(componentCode, omu_ArchEntry());
}

void OrvLumOmu_finalize(int& count) { counter.Stop(count); }
