#ifndef ORV_OMU_OMU_KEYWORDTYPEERROREXCEPTION_H
#define ORV_OMU_OMU_KEYWORDTYPEERROREXCEPTION_H

#include <base/cow_String.h>
#include <base/orv_Export.h>
#include <omu/omu_TypeErrorException.h>

class cls_ClassRegistrar;
class cls_ReadVisitor;
class cls_WriteVisitor;

/// A keyword argument of another type than its command reads.
///
/// "name; found float, expecting int" without a command text, "Part['name']; found float, expecting int" with one.
class ORV_EXPORT omu_KeywordTypeErrorException : public omu_TypeErrorException {
public:
    /// The keyword, the names of the types, the command.
    omu_KeywordTypeErrorException(const cow_String& keyword, const cow_String& expected, const cow_String& found,
                                  const cow_String& command);

    [[nodiscard]] omu_KeywordTypeErrorException* Copy() const override;
    [[noreturn]] void Propagate() const override;

    // ---- Persistence

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return omu_TypeId(0x02); }
    [[nodiscard]] unsigned DynTypeId() const override;
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    void DBWrite(const cls_WriteVisitor& visitor) const override;
    explicit omu_KeywordTypeErrorException(const cls_ReadVisitor& visitor);

private:
    cow_String _keyword;
    cow_String _expected;
    cow_String _found;
    cow_String _command;
};

#endif
