#include "host_Bridge.h"
#include "host_Commands.h"

#include <mdl/mdl_PropAttr.h>
#include <mdl/mdl_PropAttributeGet.h>
#include <mdl/mdl_PropAttributeGetFromTuple.h>
#include <omu/omu_PrimEnum.h>
#include <omu/omu_PrimTuple.h>

#include <string_view>

namespace {

using State = omu_PrimEnum<mdl_PropAttributeStateEnm>;

/// A property attribute with what the command that reads it would know of it.
template <class T>
struct Attribute {
    cow_String name;
    bool allowUnset = false;
    bool allowNone = false;
    mdl_PropAttr<T> attribute;

    explicit Attribute(omu_Arguments& arguments) {
        T value{};
        arguments.Begin();
        arguments.Get(name, "name");
        arguments.Optional();
        arguments.Get(value, "default");
        arguments.Get(allowUnset, "allowUnset");
        arguments.Get(allowNone, "allowNone");
        arguments.End("Attribute");
        if (name.View().find('\0') != std::string_view::npos) throw py::value_error("a keyword with a null character");
        attribute = mdl_PropAttr<T>(value);
    }

    /// A command whose one argument is the attribute.
    void SetValues(omu_Arguments& arguments) {
        arguments.Begin();
        arguments.Optional();
        mdl_PropAttr<T> read = attribute;
        mdl_PropAttributeGet<T>::Get(arguments, read, name.c_str(), allowUnset, allowNone);
        arguments.End("setValues");
        attribute = read;
    }

    /// The same from a tuple of one element.
    void SetFromTuple(omu_Arguments& arguments) {
        omu_PrimTuple tuple;
        arguments.Begin();
        arguments.Get(tuple, "values");
        arguments.End("setFromTuple");
        tuple.Begin();
        mdl_PropAttr<T> read = attribute;
        mdl_PropAttributeGetFromTuple<T>::Get(tuple, read, allowUnset, allowNone);
        tuple.End(name);
        attribute = read;
    }

    void ForceState(omu_Arguments& arguments) {
        State state(attribute.GetState());
        arguments.Begin();
        arguments.Get(state, "state");
        arguments.End("forceState");
        attribute.ForceState(state.Value());
    }
};

template <class T>
void AddClass(py::module_& module, const char* name) {
    using A = Attribute<T>;
    host_Class<A>(module, name, "(name, default, allowUnset=False, allowNone=False)")
        .def(py::init(host_Command([](omu_Arguments& arguments) { return A(arguments); })))
        .def("setValues", host_Method<A>([](A& self, omu_Arguments& arguments) { self.SetValues(arguments); }))
        .def("setFromTuple", host_Method<A>([](A& self, omu_Arguments& arguments) { self.SetFromTuple(arguments); }))
        .def("forceState", host_Method<A>([](A& self, omu_Arguments& arguments) { self.ForceState(arguments); }))
        .def("propagate", [](A& self) { self.attribute.Propagate(); })
        .def_property_readonly(
            "value", [](const A& self) { return host_ToPython(*omu_MakePrimitive(self.attribute.ConstGet())); })
        .def_property_readonly("state", [](const A& self) { return host_ToPython(State(self.attribute.GetState())); })
        .def("isActive", [](const A& self) { return self.attribute.IsActive(); })
        .def("isFree", [](const A& self) { return self.attribute.IsFree(); })
        .def("isModified", [](const A& self) { return self.attribute.IsModified(); })
        .def(
            "__eq__", [](const A& a, const A& b) { return a.attribute == b.attribute; }, py::is_operator());
}

}  // namespace

void host_AddAttributes(py::module_& module) {
    AddClass<double>(module, "FloatAttribute");
    AddClass<int>(module, "IntAttribute");
    AddClass<bool>(module, "BooleanAttribute");
    AddClass<cow_List<float>>(module, "FloatsAttribute");
    AddClass<cow_List<cow_String>>(module, "StringsAttribute");
    AddClass<cow_List<int>>(module, "IntsAttribute");
}
