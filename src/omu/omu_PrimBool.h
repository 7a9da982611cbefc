#ifndef ORV_OMU_OMU_PRIMBOOL_H
#define ORV_OMU_OMU_PRIMBOOL_H

#include <base/orv_Export.h>
#include <omu/omu_PrimEnum.h>

/// "ON" is true, "OFF" is false.
template <>
ORV_EXPORT const omu_PrimEnum<bool, 2>::Row* omu_PrimEnum<bool, 2>::Table();

template <int N>
class omu_PrimBool;

/// A truth value that scripts write as ON or OFF. Unlike other enumerations it has a class identifier of its own and so
/// reads back as itself anywhere.
template <>
class ORV_EXPORT omu_PrimBool<2> : public omu_PrimEnum<bool, 2> {
public:
    using omu_PrimEnum<bool, 2>::omu_PrimEnum;

    void Accept(omu_PrimVisitor* visitor) const override;
    [[nodiscard]] std::unique_ptr<omu_Primitive> Copy() const override;

    // ---- Persistence: no field of its own

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return omu_TypeId(0x25); }
    [[nodiscard]] unsigned DynTypeId() const override;
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    void DBWrite(const cls_WriteVisitor& visitor) const override;
    explicit omu_PrimBool(const cls_ReadVisitor& visitor);
};

#endif
