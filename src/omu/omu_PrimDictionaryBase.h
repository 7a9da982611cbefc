#ifndef ORV_OMU_OMU_PRIMDICTIONARYBASE_H
#define ORV_OMU_OMU_PRIMDICTIONARYBASE_H

#include <base/orv_Export.h>
#include <omu/omu_Primitive.h>

/// What dictionaries have in common whatever their keys.
class ORV_EXPORT omu_PrimDictionaryBase : public omu_Primitive {
public:
    /// What the dictionary stands for on the scripting side: 'O' for a plain dictionary of objects.
    [[nodiscard]] char Represents() const noexcept { return _represents; }

    /// Number of entries.
    [[nodiscard]] virtual int Length() const = 0;

    /// "dictionary".
    [[nodiscard]] cow_String TypeString() const override;

    // ---- Persistence

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return omu_TypeId(0x12); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    void DBWrite(const cls_WriteVisitor& visitor) const override;

protected:
    omu_PrimDictionaryBase(char type, char represents) noexcept : omu_Primitive(type), _represents(represents) {}
    explicit omu_PrimDictionaryBase(const cls_ReadVisitor& visitor);

private:
    char _represents;
};

#endif
