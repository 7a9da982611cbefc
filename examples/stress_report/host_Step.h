#ifndef ORV_STRESS_REPORT_HOST_STEP_H
#define ORV_STRESS_REPORT_HOST_STEP_H

#include <wip/wip_ProgressObj.h>
#include <wip/wip_WIP.h>

#include <string>

/// Does a part of a job, with its message, unless the user wants the job to stop: then it throws nex_PrimException.
template <class Work>
void host_Step(wip_ProgressObj& job, float part, const std::string& message, const Work& work) {
    wip_WIP::Instance().InterruptedThrow();
    job.Push(part, atr_String(message.c_str()));
    work();
    job.Pop(1);
}

#endif
