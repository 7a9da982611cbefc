#ifndef ORV_WIP_WIP_WIPBASE_H
#define ORV_WIP_WIP_WIPBASE_H

#include <base/OrvBasStringMode.h>
#include <base/atr_String.h>
#include <base/cow_List.h>
#include <base/orv_Export.h>
#include <wip/wip_errorLevelEnm.h>

class omu_PrimTuple;
class wip_WipReporter;

/// Hands each message on to the one reporter that is attached; it does not own it. The hub of a thread is its wip_WIP.
///
/// The message operations forward their arguments unchanged to the operation of the same name and parameters of
/// wip_WipReporter, where their meaning is told, and pass on what that throws. Without a reporter each of them throws
/// nex_PrimException with the message "WipReporter != 0".
class ORV_EXPORT wip_WIPBase {
public:
    wip_WIPBase() noexcept = default;
    wip_WIPBase(const wip_WIPBase&) = delete;
    wip_WIPBase& operator=(const wip_WIPBase&) = delete;

    // ---- The reporter

    /// Attaches `reporter` in the place of any other; null detaches.
    virtual void SetWipReporter(wip_WipReporter* reporter);
    virtual ~wip_WIPBase();

    /// Detaches `reporter`, if it is the one attached; does nothing otherwise.
    void RemoveWipReporter(const wip_WipReporter* reporter) noexcept;

    /// Null when none is attached.
    [[nodiscard]] wip_WipReporter* GetWipReporter() const noexcept { return _reporter; }

    // ---- Messages

    /// Each forwards to the reporter; see wip_WipReporter. Throws nex_PrimException, "WipReporter != 0", without one.
    void Error(const atr_String& message, wip_errorLevelEnm level, OrvBasStringMode mode) const;
    void Warning(const atr_String& message, OrvBasStringMode mode) const;
    void ErrorList(const cow_List<atr_String>& messages, wip_errorLevelEnm level, OrvBasStringMode mode) const;
    void WarningList(const cow_List<atr_String>& messages, OrvBasStringMode mode) const;
    void FacilityMessage(const atr_String& message, int level, int first, int second, omu_PrimTuple& data,
                         OrvBasStringMode mode) const;
    void Verbose(const atr_String& message, OrvBasStringMode mode) const;
    void Milestone(const atr_String& message, int percent, OrvBasStringMode mode) const;
    void Milestone(const atr_String& message, const atr_String& detail, int first, int second,
                   OrvBasStringMode mode) const;
    void Milestone(const atr_String& message, OrvBasStringMode mode) const;
    void Landmark(const atr_String& message, OrvBasStringMode mode) const;
    void Print(const atr_String& message, OrvBasStringMode mode) const;
    void Display(const atr_String& message, OrvBasStringMode mode) const;
    [[nodiscard]] int Interrupted() const;
    void CommandDone() const;
    void InterruptedThrow() const;

private:
    [[nodiscard]] wip_WipReporter& Reporter() const;

    wip_WipReporter* _reporter = nullptr;
};

#endif
