#ifndef ORV_OMU_OMU_PRIMSTRING_H
#define ORV_OMU_OMU_PRIMSTRING_H

#include <base/orv_Export.h>
#include <omu/omu_Primitive.h>

/// A text: any bytes.
class ORV_EXPORT omu_PrimString : public omu_Primitive {
public:
    /// The text, to be printed in quotes.
    explicit omu_PrimString(const cow_String& text) : omu_PrimString('s', text) {}

    /// Without quotes.
    [[nodiscard]] const cow_String& Text() const noexcept { return _text; }

    /// "string".
    [[nodiscard]] cow_String TypeString() const override;

    /// Quoted: `omu_QuoteText`.
    [[nodiscard]] cow_String AsString(int mode = 0) const override;
    void AppendString(std::string& text) const override;

    void Accept(omu_PrimVisitor* visitor) const override;
    [[nodiscard]] std::unique_ptr<omu_Primitive> Copy() const override;

    // ---- Persistence

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return omu_TypeId(0x18); }
    [[nodiscard]] unsigned DynTypeId() const override;
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    void DBWrite(const cls_WriteVisitor& visitor) const override;
    explicit omu_PrimString(const cls_ReadVisitor& visitor);

protected:
    omu_PrimString(char type, const cow_String& text) : omu_Primitive(type), _text(text) {}
    omu_PrimString(const cls_ReadVisitor& visitor, char type);

    /// Same type character and same bytes: a string never equals a translated string.
    [[nodiscard]] bool IsEqual(const omu_Primitive& other) const override;

    void SetText(const cow_String& text) { _text = text; }

private:
    cow_String _text;
};

#endif
