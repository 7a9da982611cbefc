#include <annC/annC_NamedAnchor.h>
#include <base/cls_ClassRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>

template <>
const omu_PrimEnum<annC_RelativePositionEnm>::Row* omu_PrimEnum<annC_RelativePositionEnm>::Table() {
    static constexpr Row rows[] = {
        {"BOTTOM_LEFT", annC_RelativePositionEnm::BOTTOM_LEFT},
        {"BOTTOM_CENTER", annC_RelativePositionEnm::BOTTOM_CENTER},
        {"BOTTOM_RIGHT", annC_RelativePositionEnm::BOTTOM_RIGHT},
        {"CENTER_LEFT", annC_RelativePositionEnm::CENTER_LEFT},
        {"CENTER", annC_RelativePositionEnm::CENTER},
        {"CENTER_RIGHT", annC_RelativePositionEnm::CENTER_RIGHT},
        {"TOP_LEFT", annC_RelativePositionEnm::TOP_LEFT},
        {"TOP_CENTER", annC_RelativePositionEnm::TOP_CENTER},
        {"TOP_RIGHT", annC_RelativePositionEnm::TOP_RIGHT},
        {},
    };
    return rows;
}

bool annC_NamedAnchor::IsEqual(const annC_Anchor& other) const {
    return _position == static_cast<const annC_NamedAnchor&>(other)._position;
}

// ---- Persistence

unsigned annC_NamedAnchor::DynTypeId() const { return TypeId(); }

void annC_NamedAnchor::InitializeMetadata(cls_ClassRegistrar& registrar) {
    registrar.Class<annC_NamedAnchor, annC_Anchor>("annC_NamedAnchor", 203).Add<annC_RelativePositionEnm>("position");
}

void annC_NamedAnchor::DBWrite(const cls_WriteVisitor& visitor) const {
    annC_Anchor::DBWrite(visitor.Base(annC_Anchor::TypeId()));
    visitor.Write("position", _position);
}

annC_NamedAnchor::annC_NamedAnchor(const cls_ReadVisitor& visitor)
    : annC_Anchor(visitor.Base()), _position(visitor.Read("position", annC_RelativePositionEnm::BOTTOM_LEFT)) {}
