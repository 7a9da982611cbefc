#ifndef ORV_BASE_NEX_STREAMEXCEPTION_H
#define ORV_BASE_NEX_STREAMEXCEPTION_H

#include <base/nex_Exception.h>
#include <base/orv_Export.h>

/// A stream that cannot be read or written: its bytes end early, contradict themselves or name what is not known.
class ORV_EXPORT nex_StreamException : public nex_Exception {
public:
    /// From a message; see nex_Exception.
    using nex_Exception::nex_Exception;

    [[nodiscard]] nex_StreamException* Copy() const override;
    [[noreturn]] void Propagate() const override;
};

#endif
