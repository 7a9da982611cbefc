#ifndef ORV_SUPPORT_HOST_SESSION_H
#define ORV_SUPPORT_HOST_SESSION_H

#include <frame/OrvLumGeom.h>

/// Keeps the library started for as long as it lives: what every host does first and last.
class host_Session {
public:
    host_Session() { OrvLumGeom_initialize(_count); }
    ~host_Session() { OrvLumGeom_finalize(_count); }
    host_Session(const host_Session&) = delete;
    host_Session& operator=(const host_Session&) = delete;

    /// How many libraries and modules this session started: 14 when it is the first of the process.
    [[nodiscard]] int Started() const noexcept { return _count; }

private:
    int _count = 0;
};

#endif
