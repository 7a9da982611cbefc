#ifndef ORV_OMU_OMU_PRIMTYPE_H
#define ORV_OMU_OMU_PRIMTYPE_H

#include <base/orv_Export.h>
#include <omu/omu_Primitive.h>

/// A type of the scripting language, by its name.
class ORV_EXPORT omu_PrimType : public omu_Primitive {
public:
    /// The name of a type of the scripting side.
    explicit omu_PrimType(const cow_String& name) : omu_Primitive('t'), _typeString(name) {}

    /// As given: not `TypeString()`.
    [[nodiscard]] const cow_String& Name() const noexcept { return _typeString; }

    /// The name followed by "Type"; "type" when the name is empty.
    [[nodiscard]] cow_String TypeString() const override;

    /// The name followed by "Type", also when the name is empty.
    [[nodiscard]] cow_String AsString(int mode = 0) const override;

    void Accept(omu_PrimVisitor* visitor) const override;
    [[nodiscard]] std::unique_ptr<omu_Primitive> Copy() const override;

    // ---- Persistence

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return omu_TypeId(0x1F); }
    [[nodiscard]] unsigned DynTypeId() const override;
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    void DBWrite(const cls_WriteVisitor& visitor) const override;
    explicit omu_PrimType(const cls_ReadVisitor& visitor);

protected:
    /// Same type character and same name.
    [[nodiscard]] bool IsEqual(const omu_Primitive& other) const override;

private:
    cow_String _typeString;
};

#endif
