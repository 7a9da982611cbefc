#ifndef ORV_PYTHON_HOST_HOST_BRIDGE_H
#define ORV_PYTHON_HOST_HOST_BRIDGE_H

#include <base/cow_String.h>
#include <omu/omu_Argument.h>
#include <omu/omu_Arguments.h>
#include <omu/omu_Primitive.h>

#include <pybind11/pybind11.h>

#include <memory>

namespace py = pybind11;

// Between Python objects and the values that commands read. All of this needs the interpreter's lock.

/// The value of an object, as README.md lists. What has no counterpart is carried as it is
/// (host_PrimObject), so that the command tells what it found. Throws RecursionError for objects nested more than 150
/// deep (those that hold themselves are), OverflowError for integers beyond 32 bits.
[[nodiscard]] std::unique_ptr<omu_Primitive> host_FromPython(py::handle object);

/// The reverse. An array shares its block; what has no counterpart in Python comes as a host_Value.
[[nodiscard]] py::object host_ToPython(const omu_Primitive& value);

/// Bytes are taken for UTF-8; those that are not become lone surrogates, which `host_Text` turns back.
[[nodiscard]] py::str host_ToStr(const cow_String& text);
[[nodiscard]] cow_String host_Text(py::handle str);

[[nodiscard]] omu_Arguments host_Arguments(const py::args& positional, const py::kwargs& keywords);

/// `f` takes omu_Arguments and what comes back converts to Python: a function of the module.
template <class F>
auto host_Command(F f) {
    return [f](const py::args& positional, const py::kwargs& keywords) {
        omu_Arguments arguments = host_Arguments(positional, keywords);
        return f(arguments);
    };
}

/// The same for methods: `f` takes the object, then omu_Arguments.
template <class Self, class F>
auto host_Method(F f) {
    return [f](Self& self, const py::args& positional, const py::kwargs& keywords) {
        omu_Arguments arguments = host_Arguments(positional, keywords);
        return f(self, arguments);
    };
}

/// A library value as an object of its own: what Python has no type for, and what is to print as the library prints.
struct host_Value {
    std::shared_ptr<const omu_Primitive> value;
};

/// A Python object on its way through the arguments of a command.
class host_PrimObject : public omu_Primitive {
public:
    explicit host_PrimObject(py::object object) : omu_Primitive('w'), _object(std::move(object)) {}

    [[nodiscard]] const py::object& Object() const noexcept { return _object; }

    /// The name of the Python type.
    [[nodiscard]] cow_String TypeString() const override;
    /// Python's `repr`.
    [[nodiscard]] cow_String AsString(int mode) const override;
    /// No operation of a visitor is for it.
    void Accept(omu_PrimVisitor* visitor) const override;
    [[nodiscard]] std::unique_ptr<omu_Primitive> Copy() const override;
    [[nodiscard]] unsigned DynTypeId() const override;
    /// Throws nex_StreamException.
    void DBWrite(const cls_WriteVisitor& visitor) const override;

protected:
    /// The same object.
    [[nodiscard]] bool IsEqual(const omu_Primitive& other) const override;

private:
    py::object _object;
};

/// A class of the module. pybind11 takes an instance that has no T, because its `__init__` was not called or did not
/// succeed, for one whose memory it has still to allocate, and would read what lies there; here TypeError comes
/// instead.
template <class T, class... Extra>
auto host_Class(py::module_& module, const char* name, const Extra&... extra) {
    py::class_<T, std::shared_ptr<T>> made(module, name, extra...);
    py::detail::get_type_info(typeid(T))->operator_new = [](std::size_t) -> void* {
        throw py::type_error("an object whose __init__ did not succeed");
    };
    return made;
}

/// What an object of the class of T is to C++, as long as it lives; null for all else, also for what only claims a
/// `__class__`. TypeError as above.
template <class T>
T* host_Object(py::handle object) {
    py::detail::make_caster<T> caster;
    return caster.load(object, false) ? py::detail::cast_op<T*>(caster) : nullptr;
}

/// The T that `found` carries, or null.
template <class T>
T* host_Carried(const omu_Primitive& found) {
    const auto* const carried = dynamic_cast<const host_PrimObject*>(&found);
    return carried != nullptr ? host_Object<T>(carried->Object()) : nullptr;
}

#endif
