#ifndef ORV_BASE_ORVBASTIMECOUNTER_H
#define ORV_BASE_ORVBASTIMECOUNTER_H

#include <base/orv_Export.h>

#include <cstdint>

/// Milliseconds of a clock that never goes back. Only differences mean something.
[[nodiscard]] ORV_EXPORT std::int64_t OrvBasTimeCounter() noexcept;

#endif
