#ifndef ORV_OMU_OMU_TYPEERROREXCEPTION_H
#define ORV_OMU_OMU_TYPEERROREXCEPTION_H

#include <base/cow_String.h>
#include <base/nex_CommandException.h>
#include <base/orv_Export.h>
#include <omu/omu_TypeId.h>

class cls_ClassRegistrar;
class cls_ReadVisitor;
class cls_WriteVisitor;

/// An argument that a command cannot take; the root of the errors that scripting knows as "TypeError". This class
/// itself says nothing: its message is empty.
///
/// What holds for every exception of this module: the message is made at construction, once, and is what both `what`
/// and `JournalMessage` give (the latter in the encoding asked for). Names, keywords, command texts and type names are
/// data in it, whatever '%' they hold; of one that holds a NUL the bytes before it are printed.
class ORV_EXPORT omu_TypeErrorException : public nex_CommandException {
public:
    omu_TypeErrorException();
    omu_TypeErrorException(const omu_TypeErrorException&) noexcept = default;
    omu_TypeErrorException& operator=(const omu_TypeErrorException&) noexcept = default;
    ~omu_TypeErrorException() override = default;

    [[nodiscard]] omu_TypeErrorException* Copy() const override;
    [[noreturn]] void Propagate() const override;
    [[nodiscard]] const char* PythonType() const override;

    // ---- Persistence

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return omu_TypeId(0x01); }
    [[nodiscard]] unsigned DynTypeId() const override;
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    void DBWrite(const cls_WriteVisitor& visitor) const override;
    explicit omu_TypeErrorException(const cls_ReadVisitor& visitor);

protected:
    /// For the derived classes, which have a message.
    explicit omu_TypeErrorException(cow_String message) noexcept;
};

#endif
