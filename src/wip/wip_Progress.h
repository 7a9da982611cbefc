#ifndef ORV_WIP_WIP_PROGRESS_H
#define ORV_WIP_WIP_PROGRESS_H

#include <base/atr_String.h>
#include <base/cow_Stack.h>
#include <base/omi_Singleton.h>
#include <base/orv_Export.h>
#include <wip/wip_ProgressState.h>

class wip_Progress;
extern template class ORV_EXPORT omi_Singleton<wip_Progress>;

/// How far the job of this process has come, through any nesting of its steps; each change goes as a milestone to the
/// reporter of the calling thread (see wip_WIP).
///
/// The job is a stack of levels. The base level runs from 0 to 1. `Push(f)` opens a level over the fraction f of the
/// level on top, from where that one has got to; the fractions given to `Update` are those of the level on top:
///
///     Push(0.5)    |-------------------|                     0 .. 0.5 of the job
///     Push(0.5)    |---------|                               0 .. 0.25
///     Update(1.0)            ^  25 percent
///     Pop(1)                 ^  25 percent: the level below stands where the finished one ended
///     Update(0.75)                ^  37 percent
///
/// The steps of a job mostly open and close their levels by a wip_ProgressObj.
///
/// Fractions are single precision, each operation rounded once. A fraction f must satisfy 0 <= f <= 1 (inclusive;
/// NaN does not): else the operation returns false, changes nothing and reports nothing.
///
/// Everything that reports throws nex_PrimException "WipReporter != 0" when the calling thread has no reporter, and
/// passes on what the reporter throws. The levels have been changed then as if the report had succeeded, but the
/// tracker stays "cleared" if it was. A reporter may use the tracker while it is called.
///
/// Threads: no lock. One thread at a time drives the tracker, and its reporter gets the reports.
class ORV_EXPORT wip_Progress {
public:
    /// The same as `omi_Singleton<wip_Progress>::Instance()`.
    [[nodiscard]] static wip_Progress& Instance();

    wip_Progress(const wip_Progress&) = delete;
    wip_Progress& operator=(const wip_Progress&) = delete;

    // ---- The whole job

    /// Back to the base level alone, at 0 and without a message; the tracker is "cleared". Reports nothing.
    void Clear();

    /// `Clear`, then sets the base level's message and sends it as a milestone without a percent.
    void Initialize(const atr_String& message);

    /// `Clear`, then sends the empty message as a milestone without a percent.
    void Finish();

    // ---- Levels

    /// Opens a level over `fraction` of the level on top, with its message: from its current c to
    /// min(c + (end - start) * fraction, end), so never past its end. Reports nothing.
    bool Push(float fraction);

    /// `Push(fraction)`, then `Update(message)` of the new level.
    bool Push(float fraction, const atr_String& message);

    /// Closes so many levels, at most all but the base level. The level then on top has come to where the last one
    /// closed ends (even if that one stood short of its end), and reports. False, and nothing done, for `levels` < 1
    /// and when only the base level is open.
    bool Pop(int levels);

    // ---- How far the level on top has come

    /// To start + (end - start) * fraction, at most its end, and reports. It may go back.
    bool Update(float fraction);

    /// `done` of `count` steps: `Update(done / count)`. At or beyond the count, so also of 0 steps, `Update(1)`.
    /// False, and nothing done, when either is negative.
    bool Update(int done, int count);

    /// The same as `Update(fraction)` with a new message.
    bool Update(float fraction, const atr_String& message);

    /// A new message: reports it with the percent as it stands; while "cleared", without a percent.
    void Update(const atr_String& message);

    // ---- Queries

    /// The fraction done of the level on top, not of the job: 0 for a level of no width.
    [[nodiscard]] float CurrentProgress() const { return _levels.ConstTop().Fraction(); }

    /// The message of the level on top.
    [[nodiscard]] atr_String CurrentMessage() const { return _levels.ConstTop().message; }

    /// Number of levels above the base level.
    [[nodiscard]] int Depth() const noexcept { return _levels.Size() - 1; }

    /// Whether a percent was reported since the last `Clear`: the tracker is not "cleared".
    [[nodiscard]] bool HasProgress() const noexcept { return !_cleared; }

private:
    friend class omi_Singleton<wip_Progress>;
    wip_Progress() { Clear(); }

    void ReportMessage();
    void ReportPercent();

    cow_Stack<wip_ProgressState> _levels;  // never empty, never shared: a write copies no level
    bool _cleared = true;
};

#endif
