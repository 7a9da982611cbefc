#include "host_Bridge.h"
#include "host_Commands.h"
#include "host_Constants.h"

#include <omu/omu_PrimEnum.h>
#include <omu/omu_VelmorName.h>

template <>
const omu_PrimEnum<omu_VelmorNameEnum>::Row* omu_PrimEnum<omu_VelmorNameEnum>::Table() {
    static constexpr Row rows[] = {{"KERNEL_NAME", omu_KernelName},
                                   {"KERNEL_JOB_NAME", omu_KernelJobName},
                                   {"KERNEL_MODEL_NAME", omu_KernelModelName},
                                   {"GUI_NAME", omu_GuiName},
                                   {"GUI_JOB_NAME", omu_GuiJobName},
                                   {"GUI_MODEL_NAME", omu_GuiModelName},
                                   {"STEP_NAME", omu_StepName},
                                   {"XY_DATA_NAME", omu_XyDataName},
                                   {}};
    return rows;
}

namespace {

py::str CheckName(omu_Arguments& arguments) {
    cow_String name;
    omu_PrimEnum<omu_VelmorNameEnum> kind(omu_KernelName);
    arguments.Begin();
    arguments.Get(name, "name");
    arguments.Optional();
    arguments.Get(kind, "kind");
    arguments.End("checkName");
    return host_ToStr(omu_VelmorName(name, kind.Value()).AsString());
}

py::object MakeLegalGuiName(omu_Arguments& arguments) {
    cow_String name;
    cow_String replacement;
    arguments.Begin();
    arguments.Get(name, "name");
    arguments.Get(replacement, "replacement");
    arguments.End("makeLegalGuiName");
    if (!omu_VelmorName::MakeLegalGuiName(name, replacement.c_str())) return py::none();
    return host_ToStr(name);
}

/// A command from one name to another.
void AddRewriting(py::module_& module, const char* command, cow_String (*rewrite)(const cow_String&)) {
    module.def(command, host_Command([command, rewrite](omu_Arguments& arguments) {
                   cow_String name;
                   arguments.Begin();
                   arguments.Get(name, "name");
                   arguments.End(command);
                   return host_ToStr(rewrite(name));
               }));
}

}  // namespace

void host_AddNames(py::module_& module) {
    using Kind = omu_PrimEnum<omu_VelmorNameEnum>;
    for (const Kind::Row* row = Kind::Table(); row->name != nullptr; ++row) static_cast<void>(host_Constant(row->name));
    module.def("checkName", host_Command(CheckName), "checkName(name, kind=KERNEL_NAME): the name, if it is legal");
    module.def("makeLegalGuiName", host_Command(MakeLegalGuiName),
               "makeLegalGuiName(name, replacement): the repaired name, None where there is no repair");
    AddRewriting(module, "quoteIfNeeded", &omu_VelmorName::QuoteIfNeeded);
    AddRewriting(module, "makeLegalFileName", &omu_VelmorName::MakeLegalFileName);
}
