#ifndef ORV_WIP_WIP_WIP_H
#define ORV_WIP_WIP_WIP_H

#include <base/orv_Export.h>
#include <base/thr_ThreadSingleton.h>
#include <wip/wip_WIPBase.h>

class wip_WIP;
extern template class ORV_EXPORT thr_ThreadSingleton<wip_WIP>;

/// The message hub of a thread: one each, made on first use, without a reporter. A thread that reports attaches its own
/// reporter first.
///
///     wip_WIP::Instance().Warning("The mesh is coarse.", OrvBasStringMode{0});
///
/// It goes when the thread calls `Finalize` or ends, or with level 15 of the thr_ThrSingletonRegistry for the thread
/// that finalises that; the reporter is then detached, and the next use makes a fresh hub.
class ORV_EXPORT wip_WIP : public wip_WIPBase {
public:
    /// That of the calling thread, the same as `thr_ThreadSingleton<wip_WIP>::Instance()`.
    [[nodiscard]] static wip_WIP& Instance();

    /// Deletes that of the calling thread; false when it has none.
    static bool Finalize();

private:
    friend class thr_ThreadSingleton<wip_WIP>;
    wip_WIP() = default;
};

#endif
