#include "host_Bridge.h"
#include "host_Commands.h"

#include <base/nex_CommandException.h>
#include <base/nex_RangeException.h>

#include <exception>
#include <string>
#include <utility>

namespace {

/// The module, and the class Error in it. One reference too many, on purpose: what is thrown at the very end of the
/// interpreter still needs them.
py::handle theModule;
py::handle theError;

/// The exception class of a name: Python's own where there is one, else one of the module, made when it is new.
py::object ClassOf(const char* name) {
    const auto find = [name](const py::handle& from) {
        py::object found = py::getattr(from, name, py::none());
        return PyExceptionClass_Check(found.ptr()) != 0 ? found : py::object();
    };
    if (py::object builtin = find(py::module_::import("builtins"))) return builtin;
    if (py::object known = find(theModule)) return known;
    auto made = py::reinterpret_steal<py::object>(
        PyErr_NewException((std::string("orvlumgeom.") + name).c_str(), theError.ptr(), nullptr));
    theModule.attr(name) = made;
    return made;
}

void Raise(const py::object& type, const cow_String& message) {
    PyErr_SetObject(type.ptr(), host_ToStr(message).ptr());
}

void Translate(std::exception_ptr thrown) {
    try {
        if (thrown) std::rethrow_exception(std::move(thrown));
    } catch (const nex_CommandException& error) {
        Raise(ClassOf(error.PythonType()), error.JournalMessage(OrvBasStringMode{}).Text());
    } catch (const nex_RangeException& error) {
        Raise(ClassOf("IndexError"), error.what());
    } catch (const nex_Exception& error) {
        Raise(py::reinterpret_borrow<py::object>(theError), error.what());
    }
}

}  // namespace

void host_AddErrors(py::module_& module) {
    theModule = py::handle(module).inc_ref();
    theError = PyErr_NewExceptionWithDoc("orvlumgeom.Error", "What the library throws and Python has no class for",
                                         nullptr, nullptr);
    module.attr("Error") = theError;
    // Those that the library names, for `except` clauses; a host's own come with their first exception.
    for (const char* name : {"RangeError", "VelmorNameError", "ColorError"}) static_cast<void>(ClassOf(name));
    py::register_exception_translator(&Translate);
}
