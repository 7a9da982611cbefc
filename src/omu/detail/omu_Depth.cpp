#include <base/nex_PrimException.h>
#include <base/nex_Throw.h>
#include <omu/detail/omu_Depth.h>

namespace {

thread_local int depth = 0;

}  // namespace

omu_Depth::omu_Depth() {
    if (depth == omu_deepestValue) nex_Throw(nex_PrimException("Values nested too deeply"));
    ++depth;
}

omu_Depth::~omu_Depth() { --depth; }
