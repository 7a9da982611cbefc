#ifndef ORV_OMU_OMU_ARGNUMBERERROREXCEPTION_H
#define ORV_OMU_OMU_ARGNUMBERERROREXCEPTION_H

#include <base/cow_String.h>
#include <base/orv_Export.h>
#include <omu/omu_TypeErrorException.h>

class cls_ClassRegistrar;
class cls_ReadVisitor;
class cls_WriteVisitor;

/// A command got fewer or more arguments than it reads.
///
/// "Part; not all required arguments specified; expected 2, got 1", or "too many arguments" when fewer are expected
/// than given; without a command text the message begins at the second part. Equal counts are told as too few.
class ORV_EXPORT omu_ArgNumberErrorException : public omu_TypeErrorException {
public:
    /// Numbers of arguments, and the command that says them.
    omu_ArgNumberErrorException(int expected, int given, const cow_String& command);

    [[nodiscard]] omu_ArgNumberErrorException* Copy() const override;
    [[noreturn]] void Propagate() const override;

    // ---- Persistence

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return omu_TypeId(0x04); }
    [[nodiscard]] unsigned DynTypeId() const override;
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    void DBWrite(const cls_WriteVisitor& visitor) const override;
    explicit omu_ArgNumberErrorException(const cls_ReadVisitor& visitor);

private:
    int _expected;
    int _given;
    cow_String _command;
};

#endif
