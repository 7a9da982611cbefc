#ifndef ORV_OMU_OMU_PRIMCOMPLEX_H
#define ORV_OMU_OMU_PRIMCOMPLEX_H

#include <base/omi_complex.h>
#include <base/orv_Export.h>
#include <omu/omu_Primitive.h>

/// A complex number.
class ORV_EXPORT omu_PrimComplex : public omu_Primitive {
public:
    /// The number.
    explicit omu_PrimComplex(const omi_complex& value) noexcept : omu_Primitive('x'), _value(value) {}

    /// The number.
    [[nodiscard]] const omi_complex& Value() const noexcept { return _value; }

    /// "complex".
    [[nodiscard]] cow_String TypeString() const override;

    /// 1.5+2j, 1.5-2j, 0+0j, with up to 15 significant digits a part. A zero or NaN imaginary part loses its sign
    /// (1+0j), a zero real part keeps it (-0+1j).
    [[nodiscard]] cow_String AsString(int mode = 0) const override;

    void Accept(omu_PrimVisitor* visitor) const override;
    [[nodiscard]] std::unique_ptr<omu_Primitive> Copy() const override;

    // ---- Persistence

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return omu_TypeId(0x22); }
    [[nodiscard]] unsigned DynTypeId() const override;
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    void DBWrite(const cls_WriteVisitor& visitor) const override;
    explicit omu_PrimComplex(const cls_ReadVisitor& visitor);

protected:
    /// Same type character, equal parts; a NaN equals nothing.
    [[nodiscard]] bool IsEqual(const omu_Primitive& other) const override;

private:
    omi_complex _value;
};

#endif
