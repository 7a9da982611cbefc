#include <base/nex_PrimException.h>
#include <base/nex_Throw.h>
#include <wip/wip_WIPBase.h>
#include <wip/wip_WipReporter.h>

wip_WIPBase::~wip_WIPBase() = default;

void wip_WIPBase::SetWipReporter(wip_WipReporter* reporter) { _reporter = reporter; }

void wip_WIPBase::RemoveWipReporter(const wip_WipReporter* reporter) noexcept {
    if (_reporter == reporter) _reporter = nullptr;
}

void wip_WIPBase::Error(const atr_String& message, wip_errorLevelEnm level, OrvBasStringMode mode) const {
    Reporter().Error(message, level, mode);
}
void wip_WIPBase::Warning(const atr_String& message, OrvBasStringMode mode) const { Reporter().Warning(message, mode); }
void wip_WIPBase::ErrorList(const cow_List<atr_String>& messages, wip_errorLevelEnm level,
                            OrvBasStringMode mode) const {
    Reporter().ErrorList(messages, level, mode);
}
void wip_WIPBase::WarningList(const cow_List<atr_String>& messages, OrvBasStringMode mode) const {
    Reporter().WarningList(messages, mode);
}
void wip_WIPBase::FacilityMessage(const atr_String& message, int level, int first, int second, omu_PrimTuple& data,
                                  OrvBasStringMode mode) const {
    Reporter().FacilityMessage(message, level, first, second, data, mode);
}
void wip_WIPBase::Verbose(const atr_String& message, OrvBasStringMode mode) const { Reporter().Verbose(message, mode); }
void wip_WIPBase::Milestone(const atr_String& message, int percent, OrvBasStringMode mode) const {
    Reporter().Milestone(message, percent, mode);
}
void wip_WIPBase::Milestone(const atr_String& message, const atr_String& detail, int first, int second,
                            OrvBasStringMode mode) const {
    Reporter().Milestone(message, detail, first, second, mode);
}
void wip_WIPBase::Milestone(const atr_String& message, OrvBasStringMode mode) const {
    Reporter().Milestone(message, mode);
}
void wip_WIPBase::Landmark(const atr_String& message, OrvBasStringMode mode) const {
    Reporter().Landmark(message, mode);
}
void wip_WIPBase::Print(const atr_String& message, OrvBasStringMode mode) const { Reporter().Print(message, mode); }
void wip_WIPBase::Display(const atr_String& message, OrvBasStringMode mode) const { Reporter().Display(message, mode); }
int wip_WIPBase::Interrupted() const { return Reporter().Interrupted(); }
void wip_WIPBase::CommandDone() const { Reporter().CommandDone(); }
void wip_WIPBase::InterruptedThrow() const { Reporter().InterruptedThrow(); }

wip_WipReporter& wip_WIPBase::Reporter() const {
    if (_reporter == nullptr) nex_Throw(nex_PrimException("WipReporter != 0"));
    return *_reporter;
}
