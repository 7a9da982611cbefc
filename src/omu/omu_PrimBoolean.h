#ifndef ORV_OMU_OMU_PRIMBOOLEAN_H
#define ORV_OMU_OMU_PRIMBOOLEAN_H

#include <base/orv_Export.h>
#include <omu/omu_Primitive.h>

/// True or False.
class ORV_EXPORT omu_PrimBoolean : public omu_Primitive {
public:
    /// Prints as what it was made from.
    explicit omu_PrimBoolean(bool value) noexcept : omu_Primitive('b'), _value(value) {}
    /// A text would silently become true.
    template <class T>
    explicit omu_PrimBoolean(T*) = delete;

    /// The truth value.
    [[nodiscard]] bool Value() const noexcept { return _value; }

    /// "Boolean".
    [[nodiscard]] cow_String TypeString() const override;

    /// "True" or "False".
    [[nodiscard]] cow_String AsString(int mode = 0) const override;

    void Accept(omu_PrimVisitor* visitor) const override;
    [[nodiscard]] std::unique_ptr<omu_Primitive> Copy() const override;

    // ---- Persistence

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return omu_TypeId(0x31); }
    [[nodiscard]] unsigned DynTypeId() const override;
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    void DBWrite(const cls_WriteVisitor& visitor) const override;
    explicit omu_PrimBoolean(const cls_ReadVisitor& visitor);

protected:
    /// Compares the flag with the other's flag, the other being a Boolean *or a None* (which has one that says whether
    /// it is set). False for anything else.
    [[nodiscard]] bool IsEqual(const omu_Primitive& other) const override;

private:
    bool _value;
};

#endif
