#include <annC/annC_Point3DAnchor.h>
#include <base/cls_ClassRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>

bool annC_Point3DAnchor::IsEqual(const annC_Anchor& other) const {
    const auto& o = static_cast<const annC_Point3DAnchor&>(other);
    return _positionX == o._positionX && _positionY == o._positionY && _positionZ == o._positionZ;
}

// ---- Persistence

unsigned annC_Point3DAnchor::DynTypeId() const { return TypeId(); }

void annC_Point3DAnchor::InitializeMetadata(cls_ClassRegistrar& registrar) {
    registrar.Class<annC_Point3DAnchor, annC_Anchor>("annC_Point3DAnchor", 203)
        .Add<double>("positionX")
        .Add<double>("positionY")
        .Add<double>("positionZ");
}

void annC_Point3DAnchor::DBWrite(const cls_WriteVisitor& visitor) const {
    annC_Anchor::DBWrite(visitor.Base(annC_Anchor::TypeId()));
    visitor.Write("positionX", _positionX);
    visitor.Write("positionY", _positionY);
    visitor.Write("positionZ", _positionZ);
}

annC_Point3DAnchor::annC_Point3DAnchor(const cls_ReadVisitor& visitor)
    : annC_Anchor(visitor.Base()),
      _positionX(visitor.Read("positionX", 0.0)),
      _positionY(visitor.Read("positionY", 0.0)),
      _positionZ(visitor.Read("positionZ", 0.0)) {}
