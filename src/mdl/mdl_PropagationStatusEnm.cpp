#include <mdl/mdl_PropagationStatusEnm.h>

template <>
const omu_PrimEnum<mdl_PropagationStatusEnm>::Row* omu_PrimEnum<mdl_PropagationStatusEnm>::Table() {
    static constexpr Row rows[] = {
        {"NOT_YET_ACTIVE", mdl_PropagationStatusEnm::NOT_YET_ACTIVE},
        {"CREATED", mdl_PropagationStatusEnm::CREATED},
        {"PROPAGATED", mdl_PropagationStatusEnm::PROPAGATED},
        {"MODIFIED", mdl_PropagationStatusEnm::MODIFIED},
        {"DEACTIVATED", mdl_PropagationStatusEnm::DEACTIVATED},
        {"NO_LONGER_ACTIVE", mdl_PropagationStatusEnm::NO_LONGER_ACTIVE},
        {"TYPE_NOT_APPLICABLE", mdl_PropagationStatusEnm::TYPE_NOT_APPLICABLE},
        {"INSTANCE_NOT_APPLICABLE", mdl_PropagationStatusEnm::INSTANCE_NOT_APPLICABLE},
        {"BUILT_INTO_BASE_STATE", mdl_PropagationStatusEnm::BUILT_INTO_BASE_STATE},
        {"PROPAGATED_FROM_BASE_STATE", mdl_PropagationStatusEnm::PROPAGATED_FROM_BASE_STATE},
        {"MODIFIED_FROM_BASE_STATE", mdl_PropagationStatusEnm::MODIFIED_FROM_BASE_STATE},
        {"DEACTIVATED_FROM_BASE_STATE", mdl_PropagationStatusEnm::DEACTIVATED_FROM_BASE_STATE},
        {"BUILT_INTO_MODES", mdl_PropagationStatusEnm::BUILT_INTO_MODES},
        {"COMPUTED", mdl_PropagationStatusEnm::COMPUTED},
        {"PROPAGATED_FROM_COMPUTED", mdl_PropagationStatusEnm::PROPAGATED_FROM_COMPUTED},
        {"RESET_TO_INITIAL", mdl_PropagationStatusEnm::RESET_TO_INITIAL},
        {"PROPAGATED_FROM_FREQUENCY", mdl_PropagationStatusEnm::PROPAGATED_FROM_FREQUENCY},
        {},
    };
    return rows;
}
