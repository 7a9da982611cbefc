#ifndef ORV_BASE_NEX_CMDEXCEPTION_H
#define ORV_BASE_NEX_CMDEXCEPTION_H

#include <base/nex_CommandException.h>

#include <concepts>
#include <utility>

class cls_ClassRegistrar;
class cls_ReadVisitor;
class cls_WriteVisitor;

/// A command exception that carries a value. `Code` is its class identifier and tells exceptions with the same kind of
/// value apart. A value that is text is the message as well; any other leaves the message empty.
///
/// A module that names one of these, by an alias, specialises `MessageOf`, `PythonType` and `JournalMessage` where the
/// defaults do not suit, and `InitializeMetadata` and `DBWrite` when it registers the class.
template <class Payload, int Code>
class __attribute__((visibility("default"))) nex_CmdException : public nex_CommandException {
public:
    /// The message is made from the value.
    explicit nex_CmdException(Payload value) : nex_CommandException(MessageOf(value)), _value(std::move(value)) {}

    /// What was thrown.
    [[nodiscard]] const Payload& Value() const noexcept { return _value; }

    [[nodiscard]] nex_CmdException* Copy() const override { return new nex_CmdException(*this); }
    [[noreturn]] void Propagate() const override { throw *this; }
    [[nodiscard]] const char* PythonType() const override { return nex_CommandException::PythonType(); }
    [[nodiscard]] atr_String JournalMessage(OrvBasStringMode mode) const override {
        return nex_CommandException::JournalMessage(mode);
    }

    // ---- Persistence: as the message, until the class is registered as derived from nex_CommandException and
    // `DBWrite` specialised to write the value as "m_Value", which is what is read. The reader is a template parameter
    // only so that its header is not needed here.

    [[nodiscard]] static unsigned TypeId() noexcept { return static_cast<unsigned>(Code); }
    [[nodiscard]] unsigned DynTypeId() const override { return TypeId(); }

    /// Reads what `DBWrite` wrote.
    template <std::same_as<cls_ReadVisitor> Reader>
    explicit nex_CmdException(const Reader& reader) : nex_CmdException(reader.Read("m_Value", Payload())) {}

    void DBWrite(const cls_WriteVisitor& visitor) const override { nex_CommandException::DBWrite(visitor); }

    /// Defined for the classes that are registered, by specialisation.
    static void InitializeMetadata(cls_ClassRegistrar& registrar);

private:
    [[nodiscard]] static cow_String MessageOf(const Payload& value) {
        if constexpr (std::convertible_to<Payload, cow_String>)
            return value;
        else if constexpr (std::same_as<Payload, atr_String>)
            return value.Text();
        else
            return {};
    }

    Payload _value;
};

#endif
