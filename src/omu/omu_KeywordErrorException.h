#ifndef ORV_OMU_OMU_KEYWORDERROREXCEPTION_H
#define ORV_OMU_OMU_KEYWORDERROREXCEPTION_H

#include <base/cow_String.h>
#include <base/orv_Export.h>
#include <omu/omu_TypeErrorException.h>

class cls_ClassRegistrar;
class cls_ReadVisitor;
class cls_WriteVisitor;

/// A keyword that its command does not know: "keyword error on name" behind the command text. Nothing is put between
/// the two, so a command text carries its own separator ("Part; ").
class ORV_EXPORT omu_KeywordErrorException : public omu_TypeErrorException {
public:
    /// The keyword that the command does not know.
    omu_KeywordErrorException(const cow_String& keyword, const cow_String& command);

    [[nodiscard]] omu_KeywordErrorException* Copy() const override;
    [[noreturn]] void Propagate() const override;

    // ---- Persistence

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return omu_TypeId(0x05); }
    [[nodiscard]] unsigned DynTypeId() const override;
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    void DBWrite(const cls_WriteVisitor& visitor) const override;
    explicit omu_KeywordErrorException(const cls_ReadVisitor& visitor);

private:
    cow_String _keyword;
    cow_String _command;
};

#endif
