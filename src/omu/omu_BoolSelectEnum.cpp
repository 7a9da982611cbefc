#include <omu/omu_BoolSelectEnum.h>

template <>
const omu_PrimEnum<omu_BoolSelectEnum>::Row* omu_PrimEnum<omu_BoolSelectEnum>::Table() {
    static constexpr Row rows[] = {
        {"ON_OFF", omu_BoolSelectEnum::ON_OFF},
        {"TRUE_FALSE", omu_BoolSelectEnum::TRUE_FALSE},
        {},
    };
    return rows;
}
