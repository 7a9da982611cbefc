#ifndef ORV_WIP_WIP_SCOPEDREPORTER_H
#define ORV_WIP_WIP_SCOPEDREPORTER_H

#include <wip/wip_WIP.h>

/// Attaches a reporter to the thread that makes this object, and detaches it at the end of the scope, on the same
/// thread, unless another has taken its place meanwhile. What was attached before is not attached again.
///
///     wip_ConsoleReporter console;
///     const wip_ScopedReporter attached(console);
class [[nodiscard]] wip_ScopedReporter {
public:
    /// Attaches `reporter`, which must outlive the scope.
    explicit wip_ScopedReporter(wip_WipReporter& reporter) : _reporter(reporter) {
        wip_WIP::Instance().SetWipReporter(&reporter);
    }
    ~wip_ScopedReporter() { wip_WIP::Instance().RemoveWipReporter(&_reporter); }

    wip_ScopedReporter(const wip_ScopedReporter&) = delete;
    wip_ScopedReporter& operator=(const wip_ScopedReporter&) = delete;

private:
    wip_WipReporter& _reporter;
};

#endif
