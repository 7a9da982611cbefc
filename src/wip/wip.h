#ifndef ORV_WIP_WIP_H
#define ORV_WIP_WIP_H

#include <wip/wip_ConsoleReporter.h>
#include <wip/wip_Message.h>
#include <wip/wip_MessageReporter.h>
#include <wip/wip_Progress.h>
#include <wip/wip_ProgressObj.h>
#include <wip/wip_ProgressState.h>
#include <wip/wip_QueueReporter.h>
#include <wip/wip_RecordingReporter.h>
#include <wip/wip_ScopedReporter.h>
#include <wip/wip_WIP.h>
#include <wip/wip_WIPBase.h>
#include <wip/wip_WipReporter.h>
#include <wip/wip_errorLevelEnm.h>

#endif
