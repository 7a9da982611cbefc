#include <base/detail/atr_TakeCharacter.h>
#include <wip/wip_ConsoleReporter.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <iostream>
#include <limits>
#include <string>
#include <string_view>
#include <utility>

#if defined(_WIN32)
#include <io.h>
#else
#include <unistd.h>
#endif

namespace {

constexpr std::size_t lineColumns = 79;

/// "3:07", "1:03:07".
std::string Duration(double seconds) {
    if (!(seconds >= 0.0 && seconds < 360000.0)) return "-:--";
    const int whole = static_cast<int>(seconds);
    char text[16];
    if (whole < 3600)
        std::snprintf(text, sizeof text, "%d:%02d", whole / 60, whole % 60);
    else
        std::snprintf(text, sizeof text, "%d:%02d:%02d", whole / 3600, whole / 60 % 60, whole % 60);
    return text;
}

std::string Encoded(const atr_String& text, OrvBasStringMode mode) { return text.Convert(mode).Text().str(); }

/// So many characters: without those that do not fit, with blanks for control characters and at the end, and with '?'
/// for what is no character.
std::string Caption(const wip_Message& milestone, std::size_t columns) {
    std::string line;
    for (std::string_view rest = milestone.text.Text().View(); !rest.empty() && columns > 0; --columns) {
        const std::string_view from = rest;
        const char32_t character = atr_TakeCharacter(rest);
        if (character == atr_invalidCharacter)
            line += '?';
        else if (character < 0x20 || (character >= 0x7F && character < 0xA0))
            line += ' ';
        else
            line += from.substr(0, from.size() - rest.size());
    }
    line.append(columns, ' ');
    return Encoded(atr_String(cow_String(std::move(line))), milestone.mode);
}

}  // namespace

wip_ConsoleReporter::wip_ConsoleReporter() : wip_ConsoleReporter(std::cerr, IsOnTerminal()) {}

wip_ConsoleReporter::wip_ConsoleReporter(std::ostream& stream, bool terminal, double intervalSeconds, Clock clock)
    : _stream(stream), _terminal(terminal), _intervalSeconds(intervalSeconds), _clock(std::move(clock)) {}

bool wip_ConsoleReporter::IsOnTerminal() noexcept {
#if defined(_WIN32)
    return _isatty(2) != 0;
#else
    return isatty(STDERR_FILENO) != 0;
#endif
}

double wip_ConsoleReporter::SteadyClockSeconds() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

void wip_ConsoleReporter::FacilityMessage(const atr_String& message, int level, int /*first*/, int /*second*/,
                                          omu_PrimTuple& /*data*/, OrvBasStringMode mode) {
    RouteByLevel(message, level, mode);
}

void wip_ConsoleReporter::Take(wip_Message message) {
    switch (message.kind) {
        using enum wip_MessageKindEnm;
        case Error:
            return PrintLine("Error: ", message.text, message.mode);
        case Warning:
            return PrintLine("Warning: ", message.text, message.mode);
        case ErrorList:
            for (const atr_String& text : message.list) PrintLine("Error: ", text, message.mode);
            return;
        case WarningList:
            for (const atr_String& text : message.list) PrintLine("Warning: ", text, message.mode);
            return;
        case Landmark:
        case Print:
        case Display:
            return PrintLine("", message.text, message.mode);
        case PercentMilestone:
        case DetailMilestone:
        case Milestone:
            return TakeMilestone(message);
        case FacilityMessage:
        case Verbose:
        case Interrupted:
        case CommandDone:
        case InterruptedThrow:
            return;
    }
}

void wip_ConsoleReporter::TakeMilestone(const wip_Message& milestone) {
    if (!_terminal) return;
    const bool hasPercent = milestone.kind == wip_MessageKindEnm::PercentMilestone;
    if (!hasPercent && milestone.text.Length() == 0) return EndJob();
    const double now = _clock();
    if (!_running || (_counted && !hasPercent)) {
        _running = true;
        _startSeconds = now;
        _percent = 0;
        _counted = false;
    }
    if (hasPercent) _percent = std::clamp(milestone.numbers[0], 0, 100);
    _counted = _counted || hasPercent;
    _caption = milestone;
    if (now - _drawnSeconds >= _intervalSeconds) DrawBar(now);
}

void wip_ConsoleReporter::EndJob() {
    if (_barStands) {
        DrawBar(_clock());
        _stream << '\n' << std::flush;
    }
    _running = _barStands = false;
}

void wip_ConsoleReporter::DrawBar(double now) {
    const double elapsed = now - _startSeconds;
    const double left = _percent > 0 ? elapsed * (100 - _percent) / _percent : std::numeric_limits<double>::quiet_NaN();
    const int filled = _percent / 5;
    char numbers[lineColumns + 1];
    std::snprintf(numbers, sizeof numbers, "[%.*s%.*s] %3d%%  %s elapsed  %s left  ", filled, "####################",
                  20 - filled, "....................", _percent, Duration(elapsed).c_str(), Duration(left).c_str());
    std::string line = numbers;
    line += Caption(_caption, lineColumns - line.size());
    _stream << '\r' << line << std::flush;
    _barStands = true;
    _drawnSeconds = now;
}

void wip_ConsoleReporter::PrintLine(const char* prefix, const atr_String& text, OrvBasStringMode mode) {
    if (_barStands) _stream << '\r' << std::string(lineColumns, ' ') << '\r';
    _stream << prefix << Encoded(text, mode) << '\n' << std::flush;
    if (_barStands) DrawBar(_clock());
}
