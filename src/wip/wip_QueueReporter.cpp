#include <wip/wip_QueueReporter.h>

#include <utility>

int wip_QueueReporter::Drain(wip_WipReporter& reporter) {
    int sent = 0;
    for (std::size_t left = Waiting(); left > 0; --left) {
        const std::optional<wip_Message> message = TakeFirst();
        if (!message) break;  // another thread drains too
        message->SendTo(reporter);
        ++sent;
    }
    return sent;
}

void wip_QueueReporter::Take(wip_Message message) {
    using enum wip_MessageKindEnm;
    if (message.kind == Interrupted || message.kind == InterruptedThrow) return;
    const std::scoped_lock lock(_mutex);
    _messages.push_back(std::move(message));
}

std::size_t wip_QueueReporter::Waiting() {
    const std::scoped_lock lock(_mutex);
    return _messages.size();
}

std::optional<wip_Message> wip_QueueReporter::TakeFirst() {
    const std::scoped_lock lock(_mutex);
    if (_messages.empty()) return std::nullopt;
    std::optional<wip_Message> first(std::move(_messages.front()));
    _messages.pop_front();
    return first;
}
