#include <omu/omu_PrimTuple.h>
#include <wip/wip_Message.h>
#include <wip/wip_WipReporter.h>

void wip_Message::SendTo(wip_WipReporter& reporter) const {
    switch (kind) {
        using enum wip_MessageKindEnm;
        case Error:
            return reporter.Error(text, errorLevel, mode);
        case Warning:
            return reporter.Warning(text, mode);
        case ErrorList:
            return reporter.ErrorList(list, errorLevel, mode);
        case WarningList:
            return reporter.WarningList(list, mode);
        case FacilityMessage: {
            omu_PrimTuple own = data != nullptr ? *data : omu_PrimTuple();
            return reporter.FacilityMessage(text, numbers[0], numbers[1], numbers[2], own, mode);
        }
        case Verbose:
            return reporter.Verbose(text, mode);
        case PercentMilestone:
            return reporter.Milestone(text, numbers[0], mode);
        case DetailMilestone:
            return reporter.Milestone(text, detail, numbers[0], numbers[1], mode);
        case Milestone:
            return reporter.Milestone(text, mode);
        case Landmark:
            return reporter.Landmark(text, mode);
        case Print:
            return reporter.Print(text, mode);
        case Display:
            return reporter.Display(text, mode);
        case Interrupted:
            return static_cast<void>(reporter.Interrupted());
        case CommandDone:
            return reporter.CommandDone();
        case InterruptedThrow:
            return reporter.InterruptedThrow();
    }
}
