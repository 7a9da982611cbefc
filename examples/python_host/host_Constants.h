#ifndef ORV_PYTHON_HOST_HOST_CONSTANTS_H
#define ORV_PYTHON_HOST_HOST_CONSTANTS_H

#include "host_Bridge.h"

#include <optional>

/// The one Python object of a symbolic constant, which is registered if it is new. Throws omu_VelNameErrorException for
/// a name that no constant can have.
[[nodiscard]] py::object host_Constant(const cow_String& name);

/// The name behind an object of class SymbolicConstant; nothing for all else.
[[nodiscard]] std::optional<cow_String> host_ConstantName(py::handle object);

/// Adds the class, installs the hook and registers the names of all enumerations of the library: each is an attribute
/// of the module from then on.
void host_AddConstants(py::module_& module);

/// Takes the hook out and lets the objects go; constants still in use by Python stay what they are.
void host_ReleaseConstants();

#endif
