#ifndef ORV_OMU_OMU_ATTRIBUTEERROREXCEPTION_H
#define ORV_OMU_OMU_ATTRIBUTEERROREXCEPTION_H

#include <base/cow_String.h>
#include <base/nex_CommandException.h>
#include <base/orv_Export.h>
#include <omu/omu_TypeId.h>

class cls_ClassRegistrar;
class cls_ReadVisitor;
class cls_WriteVisitor;

/// What is wrong with an attribute, with the message that it gives.
enum omu_AttribErrorEnm : int {
    omu_AttribReadOnlyAll = 0,  ///< "read-only attributes"
    omu_AttribReadOnly = 1,     ///< the text, then " is read-only"
    omu_AttribText = 2          ///< the text
};

/// An attribute that cannot be set or read; "AttributeError" in scripting. A kind that is not listed prints as "Error
/// message not implemented yet".
class ORV_EXPORT omu_AttributeErrorException : public nex_CommandException {
public:
    /// The message belongs to the kind; `text` is what it names.
    explicit omu_AttributeErrorException(omu_AttribErrorEnm kind, const cow_String& text = cow_String());

    /// What went wrong.
    [[nodiscard]] omu_AttribErrorEnm Kind() const noexcept { return _kind; }

    [[nodiscard]] omu_AttributeErrorException* Copy() const override;
    [[noreturn]] void Propagate() const override;
    [[nodiscard]] const char* PythonType() const override;

    // ---- Persistence

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return omu_TypeId(0x06); }
    [[nodiscard]] unsigned DynTypeId() const override;
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    void DBWrite(const cls_WriteVisitor& visitor) const override;
    explicit omu_AttributeErrorException(const cls_ReadVisitor& visitor);

private:
    omu_AttribErrorEnm _kind;
    cow_String _text;
};

#endif
