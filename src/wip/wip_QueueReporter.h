#ifndef ORV_WIP_WIP_QUEUEREPORTER_H
#define ORV_WIP_WIP_QUEUEREPORTER_H

#include <base/orv_Export.h>
#include <wip/wip_MessageReporter.h>

#include <cstddef>
#include <deque>
#include <mutex>
#include <optional>

/// Collects the messages of worker threads, each of which attaches this one reporter, until the driving thread hands
/// them to its own:
///
///     wip_QueueReporter queue;
///     std::jthread worker([&] {
///         const wip_ScopedReporter attached(queue);
///         ...
///     });
///     while (...) queue.Drain(console);
///
/// Messages come out in the order in which they went in, so those of one thread in its order. Nothing is dropped: the
/// queue grows until it is drained. The questions are answered on the spot, by `SetInterrupted`, and not queued.
///
/// Threads: everything may be called from any thread. *A mutex guards the queue*; it is not held while a message is
/// sent on. This is the only lock that reporting takes after a thread's hub is made.
class ORV_EXPORT wip_QueueReporter : public wip_MessageReporter {
public:
    /// Sends on what the queue holds now, to `reporter`, on the calling thread, and returns the number of messages.
    /// What comes in meanwhile waits for the next time. When the reporter throws, that message is gone and all after
    /// it stay.
    int Drain(wip_WipReporter& reporter);

protected:
    void Take(wip_Message message) override;

private:
    [[nodiscard]] std::size_t Waiting();
    [[nodiscard]] std::optional<wip_Message> TakeFirst();

    std::mutex _mutex;
    std::deque<wip_Message> _messages;
};

#endif
