#include <mdl/mdl_PropAttributeStateEnm.h>

template <>
const omu_PrimEnum<mdl_PropAttributeStateEnm>::Row* omu_PrimEnum<mdl_PropAttributeStateEnm>::Table() {
    static constexpr Row rows[] = {
        {"UNSET", mdl_PropAttributeStateEnm::UNSET},
        {"SET", mdl_PropAttributeStateEnm::SET},
        {"UNCHANGED", mdl_PropAttributeStateEnm::UNCHANGED},
        {"FREED", mdl_PropAttributeStateEnm::FREED},
        {"NOT_APPLICABLE", mdl_PropAttributeStateEnm::NOT_APPLICABLE},
        {"INVALID", mdl_PropAttributeStateEnm::INVALID},
        {"ABS_DEFAULT", mdl_PropAttributeStateEnm::ABS_DEFAULT},
        {"COMP_DEFAULT", mdl_PropAttributeStateEnm::COMP_DEFAULT},
        {},
    };
    return rows;
}
