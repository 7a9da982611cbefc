#include <omu/omu_PrimTuple.h>
#include <wip/wip_RecordingReporter.h>

#include <string>
#include <utility>

// Not by a stream of the standard library: that would cut the text where memory runs out, without a word, and group
// digits by the locale.
std::string wip_RecordingReporter::Text() const {
    std::string lines;
    for (const wip_Message& each : _messages) {
        lines += std::to_string(static_cast<int>(each.kind)) + '|' + each.text.Text().str() + '|' +
                 each.detail.Text().str() + '|';
        for (const atr_String& text : each.list) lines += text.Text().str() + ',';
        lines += '|';
        for (const int number : each.numbers) lines += ' ' + std::to_string(number);
        lines += '|' + std::to_string(static_cast<int>(each.errorLevel)) + '|';
        if (each.data != nullptr) lines += each.data->AsString().str();
        lines += '|' + std::to_string(static_cast<int>(each.mode)) + '\n';
    }
    return lines;
}

void wip_RecordingReporter::Take(wip_Message message) { _messages.push_back(std::move(message)); }
