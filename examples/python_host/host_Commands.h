#ifndef ORV_PYTHON_HOST_HOST_COMMANDS_H
#define ORV_PYTHON_HOST_HOST_COMMANDS_H

#include <pybind11/pybind11.h>

// The families of commands, each in the source of its name. Constants come first: the others hand them out.

void host_AddErrors(pybind11::module_& module);
void host_AddValues(pybind11::module_& module);
void host_AddArrays(pybind11::module_& module);
void host_AddAnnotations(pybind11::module_& module);
void host_AddColors(pybind11::module_& module);
void host_AddNames(pybind11::module_& module);
void host_AddAttributes(pybind11::module_& module);
void host_AddNodes(pybind11::module_& module);

#endif
