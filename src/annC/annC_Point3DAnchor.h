#ifndef ORV_ANNC_ANNC_POINT3DANCHOR_H
#define ORV_ANNC_ANNC_POINT3DANCHOR_H

#include <annC/annC_Anchor.h>
#include <annC/annC_TypeId.h>
#include <base/orv_Export.h>

/// A point of the model, in model units: the annotation follows it as the camera moves. Any number is kept.
class ORV_EXPORT annC_Point3DAnchor : public annC_Anchor {
public:
    annC_Point3DAnchor() noexcept = default;
    /// At a point of the model.
    annC_Point3DAnchor(double positionX, double positionY, double positionZ) noexcept
        : _positionX(positionX), _positionY(positionY), _positionZ(positionZ) {}

    /// Model coordinates.
    [[nodiscard]] double PositionX() const noexcept { return _positionX; }
    void SetPositionX(double positionX) noexcept { _positionX = positionX; }
    [[nodiscard]] double PositionY() const noexcept { return _positionY; }
    void SetPositionY(double positionY) noexcept { _positionY = positionY; }
    [[nodiscard]] double PositionZ() const noexcept { return _positionZ; }
    void SetPositionZ(double positionZ) noexcept { _positionZ = positionZ; }

    // ---- Persistence

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return annC_TypeId(4); }
    [[nodiscard]] unsigned DynTypeId() const override;
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    void DBWrite(const cls_WriteVisitor& visitor) const override;
    explicit annC_Point3DAnchor(const cls_ReadVisitor& visitor);

private:
    [[nodiscard]] bool IsEqual(const annC_Anchor& other) const override;

    double _positionX = 0.0;
    double _positionY = 0.0;
    double _positionZ = 0.0;
};

#endif
