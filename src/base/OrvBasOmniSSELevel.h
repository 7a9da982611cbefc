#ifndef ORV_BASE_ORVBASOMNISSELEVEL_H
#define ORV_BASE_ORVBASOMNISSELEVEL_H

#include <base/orv_Export.h>

/// Forces the processor level that the flat array routines go by, if environment variable VLM_SSE_LEVEL asks for one:
///
/// | value | level   |     | value | level  |
/// |-------|---------|-----|-------|--------|
/// | AVX   | 0x20000 |     | SSE41 | 0x2000 |
/// | SSE3  | 0x800   |     | SSE42 | 0x8000 |
/// | SSE2  | 0x200   |     | NONE  | 2      |
/// | SSSE3 | 0x1000  |     |       |        |
///
/// The whole value must match, case included; with any other value, or none, nothing is done or said.
/// A forced level is told on standard output once per process tree: unless VLM_SSE_LEVEL_NOTIFIED is set (to
/// whatever value, the empty one included), the notice is printed and that variable set to "1" for this process and
/// its children. Reads and writes the environment without a lock.
ORV_EXPORT void OrvBasOmniSetSSELevel();

/// The processor level in force: one of the values above. If none was forced so far, the first call detects what the
/// processor and the operating system can do, by the same scale; 2 on other processors than x86. A level above
/// 0x1FFFF selects the wide-vector code paths, any other the generic ones.
[[nodiscard]] ORV_EXPORT int OrvBasOmniGetSSELevel();

/// Whether the processor has AVX and the system saves its registers on a switch of threads, whatever level was forced.
[[nodiscard]] ORV_EXPORT bool OrvBasOmniHasAVX();

#endif
