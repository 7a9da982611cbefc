#ifndef ORV_WIP_WIP_MESSAGE_H
#define ORV_WIP_WIP_MESSAGE_H

#include <base/OrvBasStringMode.h>
#include <base/atr_String.h>
#include <base/cow_List.h>
#include <base/orv_Export.h>
#include <wip/wip_errorLevelEnm.h>

#include <array>
#include <memory>

class omu_PrimTuple;
class wip_WipReporter;

/// The operations of wip_WipReporter; the numbers are their places there.
enum class wip_MessageKindEnm : int {
    Error = 1,
    Warning = 2,
    ErrorList = 3,
    WarningList = 4,
    FacilityMessage = 5,
    Verbose = 6,
    PercentMilestone = 7,
    DetailMilestone = 8,
    Milestone = 9,
    Landmark = 10,
    Print = 11,
    Display = 12,
    Interrupted = 13,
    CommandDone = 14,
    InterruptedThrow = 15
};

/// One call of a reporter, kept as a value: to look at, or to make again later or on another thread.
///
/// | kind                   | fields in use besides `kind` and `mode`                        |
/// |------------------------|----------------------------------------------------------------|
/// | Error                  | text, errorLevel                                               |
/// | ErrorList, WarningList | list; errorLevel of an ErrorList                               |
/// | FacilityMessage        | text, numbers (level, first, second), data (a copy of its own) |
/// | PercentMilestone       | text, numbers (percent)                                        |
/// | DetailMilestone        | text, detail, numbers (first, second)                          |
/// | the last three         | none, nor `mode`                                               |
/// | all others             | text                                                           |
///
/// Copies share texts and data, which do not change; they may be used on distinct threads.
struct ORV_EXPORT wip_Message {
    /// Which of them are in use: see the table.
    wip_MessageKindEnm kind = wip_MessageKindEnm::Print;
    atr_String text{};
    atr_String detail{};
    cow_List<atr_String> list{};
    std::array<int, 3> numbers{};
    wip_errorLevelEnm errorLevel{};
    std::shared_ptr<const omu_PrimTuple> data{};
    OrvBasStringMode mode{};

    /// Makes the call to `reporter`. It gets its own copy of the data, an empty tuple for none; what `Interrupted`
    /// answers is dropped. Nothing happens for a kind that is none.
    void SendTo(wip_WipReporter& reporter) const;
};

#endif
