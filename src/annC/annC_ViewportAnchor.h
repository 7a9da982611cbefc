#ifndef ORV_ANNC_ANNC_VIEWPORTANCHOR_H
#define ORV_ANNC_ANNC_VIEWPORTANCHOR_H

#include <annC/annC_Anchor.h>
#include <annC/annC_TypeId.h>
#include <base/orv_Export.h>

/// A point at fractions of the viewport's width and height: (0, 0) is the bottom left corner, (1, 1) the top right one.
/// Fractions beyond 0..1 lie outside the viewport; any number is kept.
class ORV_EXPORT annC_ViewportAnchor : public annC_Anchor {
public:
    annC_ViewportAnchor() noexcept = default;
    /// At fractions of the viewport's width and height.
    annC_ViewportAnchor(double positionX, double positionY) noexcept : _positionX(positionX), _positionY(positionY) {}

    /// Fractions of the viewport's width and height, from its lower left corner.
    [[nodiscard]] double PositionX() const noexcept { return _positionX; }
    void SetPositionX(double positionX) noexcept { _positionX = positionX; }
    [[nodiscard]] double PositionY() const noexcept { return _positionY; }
    void SetPositionY(double positionY) noexcept { _positionY = positionY; }

    // ---- Persistence

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return annC_TypeId(3); }
    [[nodiscard]] unsigned DynTypeId() const override;
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    void DBWrite(const cls_WriteVisitor& visitor) const override;
    explicit annC_ViewportAnchor(const cls_ReadVisitor& visitor);

private:
    [[nodiscard]] bool IsEqual(const annC_Anchor& other) const override;

    double _positionX = 0.0;
    double _positionY = 0.0;
};

#endif
