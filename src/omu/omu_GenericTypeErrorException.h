#ifndef ORV_OMU_OMU_GENERICTYPEERROREXCEPTION_H
#define ORV_OMU_OMU_GENERICTYPEERROREXCEPTION_H

#include <base/orv_Export.h>
#include <omu/omu_TypeErrorException.h>

class cls_ClassRegistrar;
class cls_ReadVisitor;
class cls_WriteVisitor;

/// An operator of the scripting language got an operand that it does not take: "illegal argument type for built-in
/// operation".
class ORV_EXPORT omu_GenericTypeErrorException : public omu_TypeErrorException {
public:
    omu_GenericTypeErrorException();

    [[nodiscard]] omu_GenericTypeErrorException* Copy() const override;
    [[noreturn]] void Propagate() const override;

    // ---- Persistence

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return omu_TypeId(0x24); }
    [[nodiscard]] unsigned DynTypeId() const override;
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    void DBWrite(const cls_WriteVisitor& visitor) const override;
    explicit omu_GenericTypeErrorException(const cls_ReadVisitor& visitor);
};

#endif
