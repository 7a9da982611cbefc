#ifndef ORV_WIP_WIP_MESSAGEREPORTER_H
#define ORV_WIP_WIP_MESSAGEREPORTER_H

#include <base/orv_Export.h>
#include <wip/wip_Message.h>
#include <wip/wip_WipReporter.h>

#include <atomic>

/// A reporter that takes every call, the questions too, as a value in one place. It answers the questions itself: the
/// user wants to stop once `SetInterrupted` has been called.
class ORV_EXPORT wip_MessageReporter : public wip_WipReporter {
public:
    /// From any thread, and from a signal handler.
    void SetInterrupted(bool interrupted = true) noexcept { _interrupted = interrupted; }

    /// Each takes its message.
    void Error(const atr_String& message, wip_errorLevelEnm level, OrvBasStringMode mode) override;
    void Warning(const atr_String& message, OrvBasStringMode mode) override;
    void ErrorList(const cow_List<atr_String>& messages, wip_errorLevelEnm level, OrvBasStringMode mode) override;
    void WarningList(const cow_List<atr_String>& messages, OrvBasStringMode mode) override;

    /// Throws what copying `data` throws, before anything is taken.
    void FacilityMessage(const atr_String& message, int level, int first, int second, omu_PrimTuple& data,
                         OrvBasStringMode mode) override;
    /// Takes the message.
    void Verbose(const atr_String& message, OrvBasStringMode mode) override;
    void Milestone(const atr_String& message, int percent, OrvBasStringMode mode) override;
    void Milestone(const atr_String& message, const atr_String& detail, int first, int second,
                   OrvBasStringMode mode) override;
    void Milestone(const atr_String& message, OrvBasStringMode mode) override;
    void Landmark(const atr_String& message, OrvBasStringMode mode) override;
    void Print(const atr_String& message, OrvBasStringMode mode) override;
    void Display(const atr_String& message, OrvBasStringMode mode) override;

    /// 1 while interrupted, else 0.
    [[nodiscard]] int Interrupted() override;
    /// Takes the call.
    void CommandDone() override;

    /// nex_PrimException "interrupted" while interrupted.
    void InterruptedThrow() override;

protected:
    virtual void Take(wip_Message message) = 0;

private:
    std::atomic<bool> _interrupted = false;
};

#endif
