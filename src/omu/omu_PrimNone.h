#ifndef ORV_OMU_OMU_PRIMNONE_H
#define ORV_OMU_OMU_PRIMNONE_H

#include <base/orv_Export.h>
#include <omu/omu_Primitive.h>

/// No value. Its flag says whether somebody said so.
class ORV_EXPORT omu_PrimNone : public omu_Primitive {
public:
    /// Not set.
    omu_PrimNone() noexcept : omu_Primitive('n') {}

    /// The flag; once set it stays.
    [[nodiscard]] bool IsSet() const noexcept { return _isSet; }
    void Set() noexcept { _isSet = true; }

    /// Both "None", set or not.
    [[nodiscard]] cow_String TypeString() const override;
    [[nodiscard]] cow_String AsString(int mode = 0) const override;

    void Accept(omu_PrimVisitor* visitor) const override;
    [[nodiscard]] std::unique_ptr<omu_Primitive> Copy() const override;

    // ---- Persistence

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return omu_TypeId(0x1D); }
    [[nodiscard]] unsigned DynTypeId() const override;
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    void DBWrite(const cls_WriteVisitor& visitor) const override;
    explicit omu_PrimNone(const cls_ReadVisitor& visitor);

protected:
    /// As for omu_PrimBoolean: a None that is set *equals a true Boolean*, one that is not equals a false one.
    [[nodiscard]] bool IsEqual(const omu_Primitive& other) const override;

private:
    bool _isSet = false;
};

#endif
