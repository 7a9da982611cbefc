#ifndef ORV_OMU_OMU_PRIMTRANSLATEDSTRING_H
#define ORV_OMU_OMU_PRIMTRANSLATEDSTRING_H

#include <base/atr_String.h>
#include <base/orv_Export.h>
#include <omu/omu_PrimString.h>

/// A text for people. It prints as a string does and is none in comparisons. Its own persistent part holds the text
/// once more.
class ORV_EXPORT omu_PrimTranslatedString : public omu_PrimString {
public:
    /// The text of `text`.
    explicit omu_PrimTranslatedString(const atr_String& text) : omu_PrimString('l', text.Text()) {}

    /// "tran_string".
    [[nodiscard]] cow_String TypeString() const override;

    void Accept(omu_PrimVisitor* visitor) const override;
    [[nodiscard]] std::unique_ptr<omu_Primitive> Copy() const override;

    // ---- Persistence

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return omu_TypeId(0x30); }
    [[nodiscard]] unsigned DynTypeId() const override;
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    void DBWrite(const cls_WriteVisitor& visitor) const override;
    explicit omu_PrimTranslatedString(const cls_ReadVisitor& visitor);
};

#endif
