#ifndef ORV_OMU_DETAIL_OMU_WRITEERROR_H
#define ORV_OMU_DETAIL_OMU_WRITEERROR_H

/// Writes to standard error as printf does and flushes at once, so that the text is there whatever happens next. Names
/// are arguments, never part of the format; as for any "%s", a name ends at its first NUL.
#if defined(__GNUC__)
[[gnu::format(printf, 1, 2)]]
#endif
void omu_WriteError(const char* format, ...);

#endif
