#include "host_Bridge.h"
#include "host_Commands.h"

#include <annC/annC_AnnotationContainer.h>
#include <annC/annC_ArrowIntObj.h>
#include <annC/annC_TextIntObj.h>
#include <omu/omu_VelmorName.h>

#include <memory>
#include <string>

/// An object of class Text or Arrow.
struct host_AnnotationArgument {
    annC_AnnotationHld value;
};
static bool omu_TakeArgument(const omu_Primitive& found, host_AnnotationArgument& target) {
    if (const auto* const text = host_Carried<annC_TextIntObj>(found))
        target.value = annC_AnnotationHld(std::shared_ptr<annC_Annotation>(text->Annotation()));
    else if (const auto* const arrow = host_Carried<annC_ArrowIntObj>(found))
        target.value = annC_AnnotationHld(std::shared_ptr<annC_Annotation>(arrow->Annotation()));
    else
        return false;
    return true;
}
template <>
inline constexpr const char* omu_ExpectedName<host_AnnotationArgument> = "Text or Arrow";

namespace {

/// Attributes are read by their names and assigned by the command setValues.
template <class Object, class Annotation>
auto AddClass(py::module_& module) {
    const auto copy = [](const Object& object, const py::args&) {
        return std::make_shared<Object>(std::make_shared<Annotation>(*object.Annotation()));
    };
    return host_Class<Object>(module, Annotation::constructorCmd())
        .def(py::init(host_Command([](omu_Arguments& arguments) { return std::make_shared<Object>(arguments); })))
        .def("setValues", host_Method<Object>([](Object& object, omu_Arguments& a) { object.SetValues(a); }))
        .def("__getattr__",
             [](const Object& object, const py::str& name) { return host_ToPython(*object.Member(host_Text(name))); })
        .def("__setattr__",
             [](Object& object, const py::str& name, const py::object& value) {
                 static_cast<void>(object.Member(host_Text(name)));  // else a missing one were an unknown keyword
                 omu_Arguments arguments;
                 arguments.Put(host_FromPython(value), host_Text(name));
                 object.SetValues(arguments);
             })
        .def("__dir__",
             [](const py::object& object) {
                 auto names = py::module_::import("builtins").attr("object").attr("__dir__")(object).cast<py::list>();
                 for (const cow_String& member : Object::Members()) names.append(host_ToStr(member));
                 return names;
             })
        .def("__copy__", copy)
        .def("__deepcopy__", copy)
        .def("__repr__", [](const Object& object) { return host_ToStr(object.AsString()); })
        .def(
            "__eq__", [](const Object& a, const Object& b) { return *a.Annotation() == *b.Annotation(); },
            py::is_operator());
}

py::object ToPython(const annC_AnnotationHld& annotation) {
    if (auto text = std::dynamic_pointer_cast<annC_Text>(annotation.Share()))
        return py::cast(std::make_shared<annC_TextIntObj>(std::move(text)));
    if (auto arrow = std::dynamic_pointer_cast<annC_Arrow>(annotation.Share()))
        return py::cast(std::make_shared<annC_ArrowIntObj>(std::move(arrow)));
    return py::none();
}

using Container = annC_AnnotationContainer;

void Insert(Container& container, omu_Arguments& arguments) {
    cow_String name;
    host_AnnotationArgument annotation;
    arguments.Begin();
    arguments.Get(name, "name");
    arguments.Get(annotation, "annotation");
    arguments.End("insert");
    container.Insert(omu_VelmorName(name, omu_KernelName).AsString(), annotation.value);
}

bool Rename(Container& container, omu_Arguments& arguments) {
    cow_String from;
    cow_String to;
    arguments.Begin();
    arguments.Get(from, "fromName");
    arguments.Get(to, "toName");
    arguments.End("rename");
    return container.Rename(from, omu_VelmorName(to, omu_KernelName).AsString());
}

/// `base`, or the first free one of base-1, base-2, ...
cow_String UniqueName(const Container& container, omu_Arguments& arguments) {
    cow_String base;
    arguments.Begin();
    arguments.Get(base, "name");
    arguments.End("uniqueName");
    cow_String name = base;
    for (int i = 1; container.IsMember(name); ++i) name = base + cow_String("-" + std::to_string(i));
    return omu_VelmorName(name, omu_KernelName).AsString();
}

cow_String KnownName(const Container& container, const py::str& name) {
    cow_String text = host_Text(name);
    if (container.IsMember(text)) return text;
    PyErr_SetObject(PyExc_KeyError, name.ptr());
    throw py::error_already_set();
}

py::list Names(const Container& container) {
    py::list names;
    for (const cow_String& name : container.Keys()) names.append(host_ToStr(name));
    return names;
}

}  // namespace

void host_AddAnnotations(py::module_& module) {
    AddClass<annC_TextIntObj, annC_Text>(module).def(
        "translate", host_Method<annC_TextIntObj>([](annC_TextIntObj& text, omu_Arguments& a) { text.Translate(a); }));
    AddClass<annC_ArrowIntObj, annC_Arrow>(module)
        .def("translateStartPoint", host_Method<annC_ArrowIntObj>([](annC_ArrowIntObj& arrow, omu_Arguments& a) {
                 arrow.TranslateStartPoint(a);
             }))
        .def("translateEndPoint", host_Method<annC_ArrowIntObj>(
                                      [](annC_ArrowIntObj& arrow, omu_Arguments& a) { arrow.TranslateEndPoint(a); }));
    host_Class<Container>(module, "Annotations", "annotations by name, which they share with all who have them")
        .def(py::init<>())
        .def("insert", host_Method<Container>(Insert), "insert(name, annotation)")
        .def("rename", host_Method<Container>(Rename), "rename(fromName, toName): whether it could")
        .def("uniqueName", host_Method<Container>([](Container& container, omu_Arguments& a) {
                 return host_ToStr(UniqueName(container, a));
             }))
        .def("keys", Names)
        .def("__iter__", [](const Container& container) { return py::iter(Names(container)); })
        .def("__len__", &Container::Length)
        .def("__contains__",
             [](const Container& container, const py::str& name) { return container.IsMember(host_Text(name)); })
        .def("__getitem__",
             [](const Container& container, const py::str& name) {
                 return ToPython(container.ConstGet(KnownName(container, name)));
             })
        .def("__delitem__",
             [](Container& container, const py::str& name) { container.Remove(KnownName(container, name)); })
        .def(
            "__eq__", [](const Container& a, const Container& b) { return a == b; }, py::is_operator());
}
