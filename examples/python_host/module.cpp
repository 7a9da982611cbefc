// The extension module: starts the library when it is imported and stops it when the interpreter ends.

#include "host_Commands.h"
#include "host_Constants.h"

#include <frame/OrvLumGeom.h>

namespace {

int started = 0;

/// While the interpreter still has everything. Objects that outlive this may die later, but make no new constants.
void Stop() {
    host_ReleaseConstants();
    OrvLumGeom_finalize(started);
}

}  // namespace

PYBIND11_MODULE(orvlumgeom, module) {
    module.doc() = "Commands of OrvLumGeom for Python";
    OrvLumGeom_initialize(started);
    host_AddErrors(module);
    host_AddConstants(module);
    host_AddValues(module);
    host_AddArrays(module);
    host_AddAnnotations(module);
    host_AddColors(module);
    host_AddNames(module);
    host_AddAttributes(module);
    host_AddNodes(module);
    pybind11::module_::import("atexit").attr("register")(pybind11::cpp_function(&Stop));
}
