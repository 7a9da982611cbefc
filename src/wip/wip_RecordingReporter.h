#ifndef ORV_WIP_WIP_RECORDINGREPORTER_H
#define ORV_WIP_WIP_RECORDINGREPORTER_H

#include <base/orv_Export.h>
#include <wip/wip_MessageReporter.h>

#include <string>
#include <vector>

/// Keeps every call in order, the questions too: for tests of code that reports. For the calls of one thread.
class ORV_EXPORT wip_RecordingReporter : public wip_MessageReporter {
public:
    /// In order of arrival.
    [[nodiscard]] const std::vector<wip_Message>& Messages() const noexcept { return _messages; }
    /// A line for each call with all it carried, to compare: place of the operation among those of wip_WipReporter,
    /// text, detail, list, numbers, error level, data, mode.
    ///
    ///     7|Meshing||| 25 0 0|0||0
    [[nodiscard]] std::string Text() const;

    /// Forgets all messages.
    void Clear() noexcept { _messages.clear(); }

protected:
    void Take(wip_Message message) override;

private:
    std::vector<wip_Message> _messages;
};

#endif
