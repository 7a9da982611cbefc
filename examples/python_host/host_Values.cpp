#include "host_Bridge.h"
#include "host_Commands.h"

#include <omu/omu_PrimExpr.h>
#include <omu/omu_PrimTranslatedString.h>
#include <omu/omu_PrimType.h>

namespace {

/// A command that makes a value of class P of one text, which P takes as a T.
template <class P, class T>
void AddTextual(py::module_& module, const char* command) {
    module.def(command, host_Command([command](omu_Arguments& arguments) {
                   cow_String text;
                   arguments.Begin();
                   arguments.Get(text, "text");
                   arguments.End(command);
                   return host_Value{std::make_shared<const P>(T(text))};
               }));
}

}  // namespace

void host_AddValues(py::module_& module) {
    host_Class<host_Value>(module, "Value", "Value(object): the object as the library has it")
        .def(py::init([](const py::object& object) { return host_Value{host_FromPython(object)}; }))
        .def("get", [](const host_Value& value) { return host_ToPython(*value.value); })
        .def_property_readonly("typeName",
                               [](const host_Value& value) { return host_ToStr(value.value->TypeString()); })
        .def("__repr__", [](const host_Value& value) { return host_ToStr(value.value->AsRepr()); })
        .def("__str__", [](const host_Value& value) { return host_ToStr(value.value->AsString()); })
        .def(
            "__eq__", [](const host_Value& a, const host_Value& b) { return *a.value == *b.value; }, py::is_operator());
    AddTextual<omu_PrimExpr, cow_String>(module, "Expression");
    AddTextual<omu_PrimType, cow_String>(module, "Type");
    AddTextual<omu_PrimTranslatedString, atr_String>(module, "TranslatedString");
}
