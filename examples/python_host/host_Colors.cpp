#include "host_Bridge.h"
#include "host_Commands.h"

#include <base/nex_Throw.h>
#include <g3d/g3d_Color.h>
#include <g3d/g3d_ColorErrorException.h>
#include <g3d/g3d_ColorMap.h>
#include <g3d/g3d_ColorText.h>
#include <omu/omu_PrimNumber.h>
#include <omu/omu_PrimTuple.h>
#include <omu/omu_RangeChecker.h>

#include <algorithm>
#include <cctype>
#include <string>
#include <vector>

/// A name, "#RRGGBB", or a tuple or list of 3 or 4 numbers (red, green, blue and alpha).
struct host_ColorArgument {
    cow_String name;
    std::vector<double> components;  // empty where there is a name
};
static bool omu_TakeArgument(const omu_Primitive& found, host_ColorArgument& target) {
    if (omu_TakeArgument(found, target.name)) return true;
    const auto* const tuple = dynamic_cast<const omu_PrimTuple*>(&found);
    if (tuple == nullptr || tuple->Length() < 3 || tuple->Length() > 4) return false;
    std::vector<double> components;
    for (const omu_Primitive& element : *tuple) {
        omu_PrimNumber number(0);
        if (!omu_TakeArgument(element, number)) return false;
        components.push_back(number.DataType() == omu_PrimNumber::UINT ? number.AsUint() : number.AsDouble());
    }
    target.components = std::move(components);
    return true;
}
template <>
inline constexpr const char* omu_ExpectedName<host_ColorArgument> = "color name, '#RRGGBB' or tuple of 3 or 4 numbers";

namespace {

/// Throws g3d_ColorErrorException for a text that is neither, omu_RangeErrorException for a component outside [0, 1].
g3d_Color Checked(const host_ColorArgument& argument) {
    if (argument.components.empty()) {
        const g3d_Color color = g3d_ColorMap::Instance().ConstGet(argument.name);
        if (argument.name.View().substr(0, 1) != "#") return color;
        // The colour map reads such texts leniently; what is meant prints as it was written.
        std::string upper = argument.name.str();
        std::ranges::transform(upper, upper.begin(), [](unsigned char c) { return std::toupper(c); });
        if (g3d_ColorText(color) == cow_String(upper)) return color;
        nex_Throw(g3d_ColorErrorException(argument.name));
    }
    float rgba[4] = {0.0F, 0.0F, 0.0F, 1.0F};
    for (std::size_t i = 0; i < argument.components.size(); ++i) {
        const double component = argument.components[i];
        omu_RangeChecker::CheckInRange("color", 0.0, true, component == component ? component : -1.0, 1.0, true);
        rgba[i] = static_cast<float>(component);
    }
    return {rgba[0], rgba[1], rgba[2], rgba[3]};
}

g3d_Color ReadColor(omu_Arguments& arguments, const char* command) {
    host_ColorArgument color;
    arguments.Begin();
    arguments.Get(color, "color");
    arguments.End(command);
    return Checked(color);
}

bool AddColor(omu_Arguments& arguments) {
    cow_String name;
    host_ColorArgument argument;
    arguments.Begin();
    arguments.Get(name, "name");
    arguments.Get(argument, "color");
    arguments.End("addColor");
    const g3d_Color color = Checked(argument);
    return g3d_ColorMap::Instance().AddByRGB(name, color.R(), color.G(), color.B());
}

bool RemoveColor(omu_Arguments& arguments) {
    cow_String name;
    arguments.Begin();
    arguments.Get(name, "name");
    arguments.End("removeColor");
    return g3d_ColorMap::Instance().Remove(name);
}

}  // namespace

void host_AddColors(py::module_& module) {
    module.def("color", host_Command([](omu_Arguments& arguments) {
                   const g3d_Color color = ReadColor(arguments, "color");
                   return py::make_tuple(color.R(), color.G(), color.B(), color.A());
               }),
               "color(color): red, green, blue and alpha in [0, 1]");
    module.def("colorText", host_Command([](omu_Arguments& arguments) {
                   return host_ToStr(g3d_ColorText(ReadColor(arguments, "colorText")));
               }),
               "colorText(color): '#RRGGBB', as annotations take it");
    module.def("addColor", host_Command(AddColor),
               "addColor(name, color): whether it could; names of the library stay");
    module.def("removeColor", host_Command(RemoveColor), "removeColor(name): whether it was one that was added");
    module.def("colorNames", [] { return host_ToPython(*omu_MakePrimitive(g3d_ColorMap::Instance().Keys())); });
}
