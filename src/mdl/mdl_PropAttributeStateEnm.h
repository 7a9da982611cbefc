#ifndef ORV_MDL_MDL_PROPATTRIBUTESTATEENM_H
#define ORV_MDL_MDL_PROPATTRIBUTESTATEENM_H

#include <base/orv_Export.h>
#include <omu/omu_PrimEnum.h>

/// How a property stands in an analysis state. Scripts know the values by these names.
enum class mdl_PropAttributeStateEnm : int {
    UNSET = 0,
    SET = 1,        ///< given in this analysis state
    UNCHANGED = 2,  ///< carried over from an earlier one
    FREED = 3,      ///< taken back in this analysis state
    NOT_APPLICABLE = 4,
    INVALID = 5,
    ABS_DEFAULT = 6,
    COMP_DEFAULT = 7
};
template <>
ORV_EXPORT const omu_PrimEnum<mdl_PropAttributeStateEnm>::Row* omu_PrimEnum<mdl_PropAttributeStateEnm>::Table();

#endif
