#include <wip/wip_WipReporter.h>

void wip_WipReporter::FacilityMessage(const atr_String& message, int level, int /*first*/, int /*second*/,
                                      omu_PrimTuple& /*data*/, OrvBasStringMode mode) {
    RouteByLevel(message, level, mode);
}

void wip_WipReporter::RouteByLevel(const atr_String& message, int level, OrvBasStringMode mode) {
    switch (level) {
        case 0:
        case 1:
        case 2:
        case 3:
            return Warning(message, mode);
        case 4:
            return Milestone(message, mode);
        case 7:
            return Landmark(message, mode);
        case 8:
            return Verbose(message, mode);
        default:
            return;
    }
}
