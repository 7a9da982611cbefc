#ifndef ORV_WIP_WIP_CONSOLEREPORTER_H
#define ORV_WIP_WIP_CONSOLEREPORTER_H

#include <base/orv_Export.h>
#include <wip/wip_MessageReporter.h>

#include <functional>
#include <iosfwd>
#include <limits>
#include <string>

/// Shows progress as a bar on one line of a terminal, and prints the other messages, each on lines of its own:
///
///     [#########...........]  45%  0:12 elapsed  0:15 left  Meshing the rib
///
/// - The bar appears with the first milestone after the last job, whose clock starts there; a milestone without a
///   percent, once percents were reported, starts another job. One with an empty message ends the job: the bar stays
///   as it then is, and the next output begins a new line.
/// - The time left takes the rest to go as fast as what is done; "-:--" at 0 percent and from 100 hours.
/// - Rate limit: two drawings of the bar are an interval apart (inclusive), across jobs. Only the end of a job whose
///   bar was drawn, and a line printed above a bar, draw it at once.
/// - Quiet when not on a terminal: then no bar at all, and the clock is not asked.
/// - Errors and warnings are printed after "Error: " or "Warning: "; landmarks, prints and displays as they are;
///   verbose messages not at all; those of facilities as wip_WipReporter routes them.
///
/// The bar's line has 79 characters, counted as code points; control characters of the message, U+0080 to U+009F among
/// them, become blanks there, and malformed ones '?' (atr_String).
///
/// For the calls of one thread.
class ORV_EXPORT wip_ConsoleReporter : public wip_MessageReporter {
public:
    /// Seconds since any moment, never less than before.
    using Clock = std::function<double()>;

    /// To standard error.
    wip_ConsoleReporter();

    /// `stream` must outlive this object; `terminal`: whether it ends at one.
    wip_ConsoleReporter(std::ostream& stream, bool terminal, double intervalSeconds = 0.1,
                        Clock clock = SteadyClockSeconds);

    /// Whether standard error is a terminal.
    [[nodiscard]] static bool IsOnTerminal() noexcept;

    /// Seconds since some moment, never running back.
    [[nodiscard]] static double SteadyClockSeconds();

    void FacilityMessage(const atr_String& message, int level, int first, int second, omu_PrimTuple& data,
                         OrvBasStringMode mode) override;

protected:
    void Take(wip_Message message) override;

private:
    void TakeMilestone(const wip_Message& milestone);
    void EndJob();
    void DrawBar(double now);
    void PrintLine(const char* prefix, const atr_String& text, OrvBasStringMode mode);

    std::ostream& _stream;
    bool _terminal;
    double _intervalSeconds;
    Clock _clock;

    // The job
    bool _running = false;
    double _startSeconds = 0.0;
    int _percent = 0;
    bool _counted = false;  // a percent was reported
    wip_Message _caption;   // the last milestone

    // The terminal
    bool _barStands = false;  // on its last line
    double _drawnSeconds = -std::numeric_limits<double>::infinity();
};

#endif
