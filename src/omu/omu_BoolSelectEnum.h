#ifndef ORV_OMU_OMU_BOOLSELECTENUM_H
#define ORV_OMU_OMU_BOOLSELECTENUM_H

#include <base/orv_Export.h>
#include <omu/omu_PrimEnum.h>

/// In which words a script gets a truth value.
enum class omu_BoolSelectEnum : int { ON_OFF = 0, TRUE_FALSE = 1 };

/// "ON_OFF", "TRUE_FALSE".
template <>
ORV_EXPORT const omu_PrimEnum<omu_BoolSelectEnum>::Row* omu_PrimEnum<omu_BoolSelectEnum>::Table();

#endif
