#include <annC/annC_ViewportAnchor.h>
#include <base/cls_ClassRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>

bool annC_ViewportAnchor::IsEqual(const annC_Anchor& other) const {
    const auto& o = static_cast<const annC_ViewportAnchor&>(other);
    return _positionX == o._positionX && _positionY == o._positionY;
}

// ---- Persistence

unsigned annC_ViewportAnchor::DynTypeId() const { return TypeId(); }

void annC_ViewportAnchor::InitializeMetadata(cls_ClassRegistrar& registrar) {
    registrar.Class<annC_ViewportAnchor, annC_Anchor>("annC_ViewportAnchor", 203)
        .Add<double>("positionX")
        .Add<double>("positionY");
}

void annC_ViewportAnchor::DBWrite(const cls_WriteVisitor& visitor) const {
    annC_Anchor::DBWrite(visitor.Base(annC_Anchor::TypeId()));
    visitor.Write("positionX", _positionX);
    visitor.Write("positionY", _positionY);
}

annC_ViewportAnchor::annC_ViewportAnchor(const cls_ReadVisitor& visitor)
    : annC_Anchor(visitor.Base()),
      _positionX(visitor.Read("positionX", 0.0)),
      _positionY(visitor.Read("positionY", 0.0)) {}
