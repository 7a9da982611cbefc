#ifndef ORV_BASE_NEX_THROW_H
#define ORV_BASE_NEX_THROW_H

#include <base/nex_Exception.h>

#include <concepts>

/// Throws `exception` as its static class E, marked with the caller's place (`nex_Exception::Where`). The message is
/// not touched: the place is for a debugger or a log, not for the person who reads the message.
template <std::derived_from<nex_Exception> E>
[[noreturn]] void nex_Throw(E exception, nex_SourceLocation where = nex_SourceLocation::Current()) {
    exception.SetWhere(where);
    throw exception;
}

#endif
