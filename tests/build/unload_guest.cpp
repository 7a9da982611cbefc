// The module that uses the library in the test of its unloading: notes what the statics hold, then changes each.

#include <base/cls_Uid.h>
#include <base/orv_Export.h>
#include <g3d/g3d_GeomUtils.h>
#include <omu/omu_Atom.h>
#include <omu/omu_SymbolicConstantData.h>
#include <omu/omu_SymbolicConstantTable.h>
#include <wip/wip_WIP.h>

#include <thread>

extern "C" ORV_EXPORT void unload_use(double (&found)[5]) {
    found[0] = g3d_GeomUtils::getTolerance();
    g3d_GeomUtils::setTolerance(0.25);
    found[1] = static_cast<double>(cls_Uid::AllocateUid().Value());
    found[2] = omu_SymbolicConstantTable::Instance().Size();
    static_cast<void>(omu_SymbolicConstantData("UNLOADED", 0, true));
    found[3] = omu_Atom("unloaded").Index();
    static_cast<void>(omu_Atom::CreateAtom("unloaded"));

    // A thread's message hub goes with the thread, and until then the loader keeps the library: not on the host's own.
    found[4] = thr_ThreadSingleton<wip_WIP>::LiveCount();
    std::thread([] { static_cast<void>(wip_WIP::Instance()); }).join();
}
