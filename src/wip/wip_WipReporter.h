#ifndef ORV_WIP_WIP_WIPREPORTER_H
#define ORV_WIP_WIP_WIPREPORTER_H

#include <base/OrvBasStringMode.h>
#include <base/atr_String.h>
#include <base/cow_List.h>
#include <base/orv_Export.h>
#include <wip/wip_errorLevelEnm.h>

class omu_PrimTuple;

/// Where messages end: a front end implements it and attaches it to the wip_WIP of each thread whose messages it wants
/// (see wip_ScopedReporter). What it does with a message is its own business; what it throws passes through the code
/// that reports.
///
/// `mode` says in which encoding the message is wanted (`atr_String::Convert`); a percent is that of the whole job.
///
/// The virtual functions are called by their place in this order: it must not change.
class ORV_EXPORT wip_WipReporter {
public:
    virtual ~wip_WipReporter() = default;

    /// Something failed, or may surprise; the list forms are of messages that belong together.
    virtual void Error(const atr_String& message, wip_errorLevelEnm level, OrvBasStringMode mode) = 0;
    virtual void Warning(const atr_String& message, OrvBasStringMode mode) = 0;
    virtual void ErrorList(const cow_List<atr_String>& messages, wip_errorLevelEnm level, OrvBasStringMode mode) = 0;
    virtual void WarningList(const cow_List<atr_String>& messages, OrvBasStringMode mode) = 0;

    /// A message of a facility of the host, with two integers and data whose meaning is the facility's. Here it goes
    /// by its level:
    ///
    /// | level            | goes to                     |
    /// |------------------|-----------------------------|
    /// | 0, 1, 2, 3       | `Warning`                   |
    /// | 4                | `Milestone` without percent |
    /// | 7                | `Landmark`                  |
    /// | 8                | `Verbose`                   |
    /// | below 0, 5, 6, 9 | nowhere                     |
    /// | and above        |                             |
    virtual void FacilityMessage(const atr_String& message, int level, int first, int second, omu_PrimTuple& data,
                                 OrvBasStringMode mode);

    /// Details for those who ask for them.
    virtual void Verbose(const atr_String& message, OrvBasStringMode mode) = 0;

    /// The job has come so far, in percent.
    virtual void Milestone(const atr_String& message, int percent, OrvBasStringMode mode) = 0;
    /// The meaning of the two integers is up to who sends them.
    virtual void Milestone(const atr_String& message, const atr_String& detail, int first, int second,
                           OrvBasStringMode mode) = 0;
    /// A job begins, or does something else; an empty message: it is finished.
    virtual void Milestone(const atr_String& message, OrvBasStringMode mode) = 0;

    /// A landmark of the job's log, a line of output, a text to be shown to the user.
    virtual void Landmark(const atr_String& message, OrvBasStringMode mode) = 0;
    virtual void Print(const atr_String& message, OrvBasStringMode mode) = 0;
    virtual void Display(const atr_String& message, OrvBasStringMode mode) = 0;

    /// Whether the user wants the command to stop; 0: no.
    [[nodiscard]] virtual int Interrupted() = 0;
    /// A command has ended.
    virtual void CommandDone() = 0;
    /// Throws, if the user wants the command to stop.
    virtual void InterruptedThrow() = 0;

protected:
    /// The table at `FacilityMessage`, for reporters that come back to it.
    void RouteByLevel(const atr_String& message, int level, OrvBasStringMode mode);
};

#endif
