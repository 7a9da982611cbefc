#ifndef ORV_BASE_NEX_PRIMEXCEPTION_H
#define ORV_BASE_NEX_PRIMEXCEPTION_H

#include <base/nex_Exception.h>
#include <base/orv_Export.h>

/// A broken precondition or an operation that cannot be done; the message is the condition that does not hold, or a
/// plain sentence.
class ORV_EXPORT nex_PrimException : public nex_Exception {
public:
    /// From a message; see nex_Exception.
    using nex_Exception::nex_Exception;

    [[nodiscard]] nex_PrimException* Copy() const override;
    [[noreturn]] void Propagate() const override;
};

#endif
