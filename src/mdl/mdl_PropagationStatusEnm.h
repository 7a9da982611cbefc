#ifndef ORV_MDL_MDL_PROPAGATIONSTATUSENM_H
#define ORV_MDL_MDL_PROPAGATIONSTATUSENM_H

#include <base/orv_Export.h>
#include <omu/omu_PrimEnum.h>

/// How a feature of a model stands across the analysis states; applications report it. Scripts know the values by these
/// names.
enum class mdl_PropagationStatusEnm : int {
    NOT_YET_ACTIVE = 0,
    CREATED = 1,
    PROPAGATED = 2,
    MODIFIED = 3,
    DEACTIVATED = 4,
    NO_LONGER_ACTIVE = 5,
    TYPE_NOT_APPLICABLE = 6,
    INSTANCE_NOT_APPLICABLE = 7,
    BUILT_INTO_BASE_STATE = 8,
    PROPAGATED_FROM_BASE_STATE = 9,
    MODIFIED_FROM_BASE_STATE = 10,
    DEACTIVATED_FROM_BASE_STATE = 11,
    BUILT_INTO_MODES = 12,
    COMPUTED = 13,
    PROPAGATED_FROM_COMPUTED = 14,
    RESET_TO_INITIAL = 15,
    PROPAGATED_FROM_FREQUENCY = 16
};
template <>
ORV_EXPORT const omu_PrimEnum<mdl_PropagationStatusEnm>::Row* omu_PrimEnum<mdl_PropagationStatusEnm>::Table();

#endif
