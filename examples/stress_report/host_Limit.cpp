#include "host_Limit.h"

#include <mdl/mdl_PropAttributeGet.h>
#include <omu/omu_Arguments.h>

#include <charconv>
#include <cmath>
#include <stdexcept>

using StateName = omu_PrimEnum<mdl_PropAttributeStateEnm>;

void host_GiveLimit(host_Limit& limit, const std::string& text) {
    constexpr char keyword[] = "limit";
    omu_Arguments arguments;
    double number = 0.0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (const StateName freed(mdl_PropAttributeStateEnm::FREED); freed.StringValue() == cow_String(text))
        arguments.Put(freed.Copy(), keyword);
    else if (error == std::errc() && end == text.data() + text.size())
        arguments.Put(number, keyword);
    else
        arguments.Put(cow_String(text), keyword);
    arguments.Begin();
    mdl_PropAttributeGet<double>::Get(arguments, limit, keyword, false, false);
    arguments.End("stress_report");
    host_CheckLimit(limit);
}

void host_CheckLimit(const host_Limit& limit) {
    if (limit.IsActive() && !(std::isfinite(limit.ConstGet()) && limit.ConstGet() > 0.0))
        throw std::runtime_error("the limit is not a finite number above 0");
}

std::string host_StateName(const host_Limit& limit) { return StateName(limit.GetState()).StringValue().str(); }
