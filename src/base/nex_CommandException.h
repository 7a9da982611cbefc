#ifndef ORV_BASE_NEX_COMMANDEXCEPTION_H
#define ORV_BASE_NEX_COMMANDEXCEPTION_H

#include <base/OrvBasStringMode.h>
#include <base/atr_String.h>
#include <base/nex_Exception.h>
#include <base/orv_Export.h>

class cls_ClassRegistrar;
class cls_ReadVisitor;
class cls_WriteVisitor;

/// A scripting command that failed, with what the scripting layer needs to raise it there.
class ORV_EXPORT nex_CommandException : public nex_Exception {
public:
    /// From a message; see nex_Exception.
    using nex_Exception::nex_Exception;

    [[nodiscard]] nex_CommandException* Copy() const override;
    [[noreturn]] void Propagate() const override;

    /// Name of the exception type on the scripting side; static text. Here "RuntimeError".
    [[nodiscard]] virtual const char* PythonType() const;

    /// The text for the user's journal, in the encoding of `mode`. Here the whole message.
    [[nodiscard]] virtual atr_String JournalMessage(OrvBasStringMode mode) const;

    // ---- Persistence: the message. A derived class that is registered as derived from this one persists as itself.

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return 0x1A0002; }
    [[nodiscard]] unsigned DynTypeId() const override;
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    virtual void DBWrite(const cls_WriteVisitor& visitor) const;
    explicit nex_CommandException(const cls_ReadVisitor& visitor);
};

#endif
