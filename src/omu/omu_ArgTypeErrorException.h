#ifndef ORV_OMU_OMU_ARGTYPEERROREXCEPTION_H
#define ORV_OMU_OMU_ARGTYPEERROREXCEPTION_H

#include <base/cow_String.h>
#include <base/orv_Export.h>
#include <omu/omu_TypeErrorException.h>

class cls_ClassRegistrar;
class cls_ReadVisitor;
class cls_WriteVisitor;

/// A positional argument of another type than its command reads.
///
/// "arg2; found float, expecting int" without a command text, "Part[1]; found float, expecting int" with one: the
/// number counts from 1 in the first form, from 0 in the second.
class ORV_EXPORT omu_ArgTypeErrorException : public omu_TypeErrorException {
public:
    /// `argument` counts from 1.
    omu_ArgTypeErrorException(int argument, const cow_String& expected, const cow_String& found,
                              const cow_String& command);

    [[nodiscard]] omu_ArgTypeErrorException* Copy() const override;
    [[noreturn]] void Propagate() const override;

    // ---- Persistence

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return omu_TypeId(0x03); }
    [[nodiscard]] unsigned DynTypeId() const override;
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    void DBWrite(const cls_WriteVisitor& visitor) const override;
    explicit omu_ArgTypeErrorException(const cls_ReadVisitor& visitor);

private:
    int _argument;
    cow_String _expected;
    cow_String _found;
    cow_String _command;
};

#endif
