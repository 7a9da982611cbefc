#ifndef ORV_BASE_ORVBASPROGRAMNAME_H
#define ORV_BASE_ORVBASPROGRAMNAME_H

#include <base/cow_String.h>
#include <base/orv_Export.h>

/// The name by which the process was started, without its folders; empty where the system does not tell.
[[nodiscard]] ORV_EXPORT cow_String OrvBasProgramName();

#endif
