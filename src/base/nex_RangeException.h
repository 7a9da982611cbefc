#ifndef ORV_BASE_NEX_RANGEEXCEPTION_H
#define ORV_BASE_NEX_RANGEEXCEPTION_H

#include <base/nex_Exception.h>
#include <base/orv_Export.h>

/// An index or a key outside a container.
class ORV_EXPORT nex_RangeException : public nex_Exception {
public:
    /// From a message; see nex_Exception.
    using nex_Exception::nex_Exception;

    [[nodiscard]] nex_RangeException* Copy() const override;
    [[noreturn]] void Propagate() const override;
};

#endif
