#include <base/nex_PrimException.h>
#include <base/nex_Throw.h>
#include <omu/omu_PrimTuple.h>
#include <wip/wip_MessageReporter.h>

#include <memory>

using Kind = wip_MessageKindEnm;

void wip_MessageReporter::Error(const atr_String& message, wip_errorLevelEnm level, OrvBasStringMode mode) {
    Take({.kind = Kind::Error, .text = message, .errorLevel = level, .mode = mode});
}
void wip_MessageReporter::Warning(const atr_String& message, OrvBasStringMode mode) {
    Take({.kind = Kind::Warning, .text = message, .mode = mode});
}
void wip_MessageReporter::ErrorList(const cow_List<atr_String>& messages, wip_errorLevelEnm level,
                                    OrvBasStringMode mode) {
    Take({.kind = Kind::ErrorList, .list = messages, .errorLevel = level, .mode = mode});
}
void wip_MessageReporter::WarningList(const cow_List<atr_String>& messages, OrvBasStringMode mode) {
    Take({.kind = Kind::WarningList, .list = messages, .mode = mode});
}
void wip_MessageReporter::FacilityMessage(const atr_String& message, int level, int first, int second,
                                          omu_PrimTuple& data, OrvBasStringMode mode) {
    Take({.kind = Kind::FacilityMessage,
          .text = message,
          .numbers = {level, first, second},
          .data = std::make_shared<const omu_PrimTuple>(data),
          .mode = mode});
}
void wip_MessageReporter::Verbose(const atr_String& message, OrvBasStringMode mode) {
    Take({.kind = Kind::Verbose, .text = message, .mode = mode});
}
void wip_MessageReporter::Milestone(const atr_String& message, int percent, OrvBasStringMode mode) {
    Take({.kind = Kind::PercentMilestone, .text = message, .numbers = {percent}, .mode = mode});
}
void wip_MessageReporter::Milestone(const atr_String& message, const atr_String& detail, int first, int second,
                                    OrvBasStringMode mode) {
    Take({.kind = Kind::DetailMilestone, .text = message, .detail = detail, .numbers = {first, second}, .mode = mode});
}
void wip_MessageReporter::Milestone(const atr_String& message, OrvBasStringMode mode) {
    Take({.kind = Kind::Milestone, .text = message, .mode = mode});
}
void wip_MessageReporter::Landmark(const atr_String& message, OrvBasStringMode mode) {
    Take({.kind = Kind::Landmark, .text = message, .mode = mode});
}
void wip_MessageReporter::Print(const atr_String& message, OrvBasStringMode mode) {
    Take({.kind = Kind::Print, .text = message, .mode = mode});
}
void wip_MessageReporter::Display(const atr_String& message, OrvBasStringMode mode) {
    Take({.kind = Kind::Display, .text = message, .mode = mode});
}
int wip_MessageReporter::Interrupted() {
    Take({.kind = Kind::Interrupted});
    return _interrupted ? 1 : 0;
}
void wip_MessageReporter::CommandDone() { Take({.kind = Kind::CommandDone}); }
void wip_MessageReporter::InterruptedThrow() {
    Take({.kind = Kind::InterruptedThrow});
    if (_interrupted) nex_Throw(nex_PrimException("interrupted"));
}
