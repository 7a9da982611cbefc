#ifndef ORV_OMU_OMU_PRIMEXPR_H
#define ORV_OMU_OMU_PRIMEXPR_H

#include <base/orv_Export.h>
#include <omu/omu_Primitive.h>

/// An expression of the scripting language, kept verbatim and never evaluated here.
class ORV_EXPORT omu_PrimExpr : public omu_Primitive {
public:
    /// An expression for the scripting side to evaluate; here it is only text.
    explicit omu_PrimExpr(const cow_String& expr) : omu_Primitive('e'), _expr(expr) {}

    /// The text.
    [[nodiscard]] const cow_String& Expr() const noexcept { return _expr; }

    /// "expression".
    [[nodiscard]] cow_String TypeString() const override;

    /// The expression, without quotes.
    [[nodiscard]] cow_String AsString(int mode = 0) const override;

    void Accept(omu_PrimVisitor* visitor) const override;
    [[nodiscard]] std::unique_ptr<omu_Primitive> Copy() const override;

    // ---- Persistence

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return omu_TypeId(0x1A); }
    [[nodiscard]] unsigned DynTypeId() const override;
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    void DBWrite(const cls_WriteVisitor& visitor) const override;
    explicit omu_PrimExpr(const cls_ReadVisitor& visitor);

protected:
    /// Same type character and same text.
    [[nodiscard]] bool IsEqual(const omu_Primitive& other) const override;

private:
    cow_String _expr;
};

#endif
