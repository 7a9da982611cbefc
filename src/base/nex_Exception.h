#ifndef ORV_BASE_NEX_EXCEPTION_H
#define ORV_BASE_NEX_EXCEPTION_H

#include <base/cow_String.h>
#include <base/nex_SourceLocation.h>
#include <base/orv_Export.h>

#include <exception>

/// Root of all exceptions of the library: one message text, and the place that threw it.
///
/// An exception that has to outlive its catch block is kept by `Copy` and thrown again by `Propagate`. Both act on the
/// dynamic class, so every derived class overrides both; one that forgets is kept and thrown as its base.
class ORV_EXPORT nex_Exception : public std::exception {
public:
    /// Without a place.
    explicit nex_Exception(cow_String message) noexcept;
    nex_Exception(const nex_Exception&) noexcept = default;
    nex_Exception& operator=(const nex_Exception&) noexcept = default;
    ~nex_Exception() override;

    /// The message alone, without the place, up to its first NUL.
    [[nodiscard]] const char* what() const noexcept override;

    /// Where nex_Throw was called; an empty file and line 0 for an exception that was not thrown by it.
    [[nodiscard]] const nex_SourceLocation& Where() const noexcept { return _where; }
    void SetWhere(const nex_SourceLocation& where) noexcept { _where = where; }

    /// A new object of the dynamic class, with the same data. The caller owns it.
    [[nodiscard]] virtual nex_Exception* Copy() const;

    /// Throws a copy of the dynamic class.
    [[noreturn]] virtual void Propagate() const;

    /// The class identifier; 0 for the classes that have none, which are all that are not command exceptions.
    [[nodiscard]] virtual unsigned DynTypeId() const;

protected:
    /// The whole message, of which `what` shows what is before the first NUL.
    [[nodiscard]] const cow_String& WholeMessage() const noexcept { return _message; }

private:
    cow_String _message;
    nex_SourceLocation _where;
};

#endif
