#include <omu/detail/omu_FlagOf.h>
#include <omu/omu_PrimBoolean.h>
#include <omu/omu_PrimNone.h>

std::optional<bool> omu_FlagOf(const omu_Primitive& value) {
    if (const auto* const boolean = dynamic_cast<const omu_PrimBoolean*>(&value)) return boolean->Value();
    if (const auto* const none = dynamic_cast<const omu_PrimNone*>(&value)) return none->IsSet();
    return std::nullopt;
}
