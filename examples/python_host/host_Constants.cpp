#include "host_Constants.h"

#include <annC/annC_Arrow.h>
#include <annC/annC_NamedAnchor.h>
#include <annC/annC_Text.h>
#include <base/nex_PrimException.h>
#include <base/nex_Throw.h>
#include <gsl/gsl_Dot.h>
#include <gsl/gsl_Plane.h>
#include <gsl/gsl_StLine.h>
#include <mdl/mdl_PropAttributeStateEnm.h>
#include <mdl/mdl_PropagationStatusEnm.h>
#include <omu/omu_BoolSelectEnum.h>
#include <omu/omu_PrimBool.h>
#include <omu/omu_PrimNumber.h>
#include <omu/omu_SymbolicConstantTable.h>
#include <omu/omu_VelNameErrorException.h>

#include <map>

namespace {

/// What Python has of a constant; never changed, one object a name.
struct Constant {
    cow_String text;
    unsigned id;
};

/// The module and the objects by identifier. Never destroyed, since the end of the process comes after that of the
/// interpreter; `host_ReleaseConstants` empties it in time.
struct Registry {
    py::object module;
    std::map<unsigned, py::object> objects;
};
Registry& TheRegistry() {
    static auto* const registry = new Registry;
    return *registry;
}

void MakeObject(const cow_String& name, unsigned id) {
    const py::gil_scoped_acquire lock;
    Registry& registry = TheRegistry();
    py::object made = py::cast(Constant{name, id});
    registry.module.attr(host_ToStr(name)) = made;
    registry.objects.insert_or_assign(id, std::move(made));
}

template <class... Enumerations>
void RegisterNames() {
    const auto each = [](const omu_PrimEnumBase& any) {
        for (const cow_String& name : any.PermissibleValues().Keys()) omu_SymbolicConstantData(name, 0, false);
    };
    (each(Enumerations(Enumerations::Value(0))), ...);
}

}  // namespace

py::object host_Constant(const cow_String& name) {
    const omu_SymbolicConstantData constant(name, 0, false);
    const bool isValid = constant.getId() != 0 || name == omu_SymbolicConstantTable::unspecified;
    if (!isValid) nex_Throw(omu_VelNameErrorException(omu_VelNameInvalid));
    std::map<unsigned, py::object>& objects = TheRegistry().objects;
    const auto found = objects.find(constant.getId());
    if (found == objects.end()) nex_Throw(nex_PrimException("the library is stopped"));
    return found->second;
}

std::optional<cow_String> host_ConstantName(py::handle object) {
    const auto* const constant = host_Object<Constant>(object);
    return constant != nullptr ? std::optional(constant->text) : std::nullopt;
}

void host_AddConstants(py::module_& module) {
    host_Class<Constant>(module, "SymbolicConstant", "a word of the scripting language; one object a word")
        .def("getText", [](const Constant& constant) { return host_ToStr(constant.text); })
        .def("getId", [](const Constant& constant) { return constant.id; })
        .def("__repr__", [](const Constant& constant) { return host_ToStr(constant.text); })
        // The name of the object in its module: a copy, by pickle too, is the constant itself.
        .def("__reduce__", [](const Constant& constant) { return host_ToStr(constant.text); });
    module.def("symbolicConstant", host_Command([](omu_Arguments& arguments) {
                   cow_String name;
                   arguments.Begin();
                   arguments.Get(name, "name");
                   arguments.End("symbolicConstant");
                   return host_Constant(name);
               }),
               "symbolicConstant(name): the constant of that name, a new one if need be");

    TheRegistry().module = module;
    omu_SymbolicConstantTable& table = omu_SymbolicConstantTable::Instance();
    for (unsigned id = 0; id < table.Size(); ++id) MakeObject(table.GetString(id), id);
    table.SetHook(&MakeObject);
    RegisterNames<omu_PrimEnum<annC_ArrowHeadStyleEnm>, omu_PrimEnum<annC_LineStyleEnm>,
                  omu_PrimEnum<annC_LineThicknessEnm>, omu_PrimEnum<annC_BackgroundStyleEnm>,
                  omu_PrimEnum<annC_JustificationEnm>, omu_PrimEnum<annC_RelativePositionEnm>,
                  omu_PrimEnum<mdl_PropAttributeStateEnm>, omu_PrimEnum<mdl_PropagationStatusEnm>,
                  omu_PrimEnum<gsl_DotMethod>, omu_PrimEnum<gsl_DirMethod>, omu_PrimEnum<gsl_LineMethod>,
                  omu_PrimEnum<bool, 2>, omu_PrimEnum<omu_BoolSelectEnum>, omu_PrimEnum<omu_PrimNumber::DataTypeEnm>>();
}

void host_ReleaseConstants() {
    omu_SymbolicConstantTable::Instance().SetHook(nullptr);
    TheRegistry() = Registry();
}
