#ifndef ORV_ANNC_ANNC_NAMEDANCHOR_H
#define ORV_ANNC_ANNC_NAMEDANCHOR_H

#include <annC/annC_Anchor.h>
#include <annC/annC_TypeId.h>
#include <base/orv_Export.h>
#include <omu/omu_PrimEnum.h>

/// A place of a rectangle. Scripts know the values by these names.
enum class annC_RelativePositionEnm : int {
    BOTTOM_LEFT = 0,
    BOTTOM_CENTER = 1,
    BOTTOM_RIGHT = 2,
    CENTER_LEFT = 3,
    CENTER = 4,
    CENTER_RIGHT = 5,
    TOP_LEFT = 6,
    TOP_CENTER = 7,
    TOP_RIGHT = 8
};
template <>
ORV_EXPORT const omu_PrimEnum<annC_RelativePositionEnm>::Row* omu_PrimEnum<annC_RelativePositionEnm>::Table();

/// A corner, the middle of a side or the middle of the viewport.
class ORV_EXPORT annC_NamedAnchor : public annC_Anchor {
public:
    /// At one of the named places.
    explicit annC_NamedAnchor(annC_RelativePositionEnm position = annC_RelativePositionEnm::BOTTOM_LEFT) noexcept
        : _position(position) {}

    /// The place.
    [[nodiscard]] annC_RelativePositionEnm Position() const noexcept { return _position; }
    void SetPosition(annC_RelativePositionEnm position) noexcept { _position = position; }

    // ---- Persistence

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return annC_TypeId(2); }
    [[nodiscard]] unsigned DynTypeId() const override;
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    void DBWrite(const cls_WriteVisitor& visitor) const override;
    /// A position that is not listed is kept as the number it is.
    explicit annC_NamedAnchor(const cls_ReadVisitor& visitor);

private:
    [[nodiscard]] bool IsEqual(const annC_Anchor& other) const override;

    annC_RelativePositionEnm _position = annC_RelativePositionEnm::BOTTOM_LEFT;
};

#endif
