#include <omu/omu_PrimTuple.h>
#include <wip/wip_RecordingReporter.h>

#include <sstream>
#include <utility>

std::string wip_RecordingReporter::Text() const {
    std::ostringstream lines;
    for (const wip_Message& each : _messages) {
        lines << static_cast<int>(each.kind) << '|' << each.text.Text() << '|' << each.detail.Text() << '|';
        for (const atr_String& text : each.list) lines << text.Text() << ',';
        lines << '|';
        for (const int number : each.numbers) lines << ' ' << number;
        lines << '|' << each.errorLevel << '|';
        if (each.data != nullptr) lines << each.data->AsString();
        lines << '|' << each.mode << '\n';
    }
    return lines.str();
}

void wip_RecordingReporter::Take(wip_Message message) { _messages.push_back(std::move(message)); }
