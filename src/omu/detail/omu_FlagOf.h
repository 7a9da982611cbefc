#ifndef ORV_OMU_DETAIL_OMU_FLAGOF_H
#define ORV_OMU_DETAIL_OMU_FLAGOF_H

#include <optional>

class omu_Primitive;

/// The flag by which Booleans and Nones compare with each other; none for a value of any other class.
[[nodiscard]] std::optional<bool> omu_FlagOf(const omu_Primitive& value);

#endif
