#include <annC/annC_Text.h>
#include <base/cls_ClassRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>

template <>
const omu_PrimEnum<annC_BackgroundStyleEnm>::Row* omu_PrimEnum<annC_BackgroundStyleEnm>::Table() {
    static constexpr Row rows[] = {
        {"TRANSPARENT", annC_BackgroundStyleEnm::TRANSPARENT},
        {"MATCH", annC_BackgroundStyleEnm::MATCH},
        {"OTHER", annC_BackgroundStyleEnm::OTHER},
        {},
    };
    return rows;
}

template <>
const omu_PrimEnum<annC_JustificationEnm>::Row* omu_PrimEnum<annC_JustificationEnm>::Table() {
    static constexpr Row rows[] = {
        {"LEFT", annC_JustificationEnm::LEFT},
        {"CENTER", annC_JustificationEnm::CENTER},
        {"RIGHT", annC_JustificationEnm::RIGHT},
        {},
    };
    return rows;
}

namespace {

const cow_String& DefaultFont() {
    static const cow_String font("-*-helvetica-medium-r-normal-*-*-120-");
    return font;
}

const cow_String& DefaultBackgroundColor() {
    static const cow_String black("Black");
    return black;
}

}  // namespace

annC_Text::annC_Text()
    : _anchor(NewAnchor()),
      _referencePoint(NewAnchor()),
      _font(DefaultFont()),
      _color(DefaultColor()),
      _backgroundColor(DefaultBackgroundColor()),
      _ownUid(cls_Uid::AllocateUid()) {}

std::unique_ptr<annC_Annotation> annC_Text::Copy() const { return std::make_unique<annC_Text>(*this); }

void annC_Text::NewUid() noexcept {
    annC_Annotation::NewUid();
    _ownUid = cls_Uid::AllocateUid();
}

void annC_Text::Translate(double dx, double dy) noexcept {
    _offsetX += dx;
    _offsetY += dy;
}

bool annC_Text::IsEqual(const annC_Annotation& other) const {
    const auto& o = static_cast<const annC_Text&>(other);
    return _text == o._text && _offsetX == o._offsetX && _offsetY == o._offsetY && IsSameAnchor(_anchor, o._anchor) &&
           IsSameAnchor(_referencePoint, o._referencePoint) && _rotationAngle == o._rotationAngle && _font == o._font &&
           _color == o._color && _backgroundStyle == o._backgroundStyle && _backgroundColor == o._backgroundColor &&
           _box == o._box && _justification == o._justification;
}

// ---- Persistence

unsigned annC_Text::DynTypeId() const { return TypeId(); }

void annC_Text::InitializeMetadata(cls_ClassRegistrar& registrar) {
    registrar.Class<annC_Text, annC_Annotation>("annC_Text", 203)
        .Add<cow_String>("text")
        .Add<double>("offsetX")
        .Add<double>("offsetY")
        .Add<annC_AnchorHld>("anchor")
        .Add<annC_AnchorHld>("referencePoint")
        .Add<double>("rotationAngle")
        .Add<cow_String>("font")
        .Add<cow_String>("color")
        .Add<annC_BackgroundStyleEnm>("backgroundStyle")
        .Add<cow_String>("backgroundColor")
        .Add<bool>("box")
        .Add<annC_JustificationEnm>("justification");
}

void annC_Text::DBWrite(const cls_WriteVisitor& visitor) const {
    annC_Annotation::DBWrite(visitor.Base(annC_Annotation::TypeId()));
    visitor.Write("text", _text);
    visitor.Write("offsetX", _offsetX);
    visitor.Write("offsetY", _offsetY);
    visitor.Write("anchor", _anchor);
    visitor.Write("referencePoint", _referencePoint);
    visitor.Write("rotationAngle", _rotationAngle);
    visitor.Write("font", _font);
    visitor.Write("color", _color);
    visitor.Write("backgroundStyle", _backgroundStyle);
    visitor.Write("backgroundColor", _backgroundColor);
    visitor.Write("box", _box);
    visitor.Write("justification", _justification);
}

annC_Text::annC_Text(const cls_ReadVisitor& visitor)
    : annC_Annotation(visitor.Base()),
      _text(visitor.Read("text", cow_String())),
      _offsetX(visitor.Read("offsetX", 0.0)),
      _offsetY(visitor.Read("offsetY", 0.0)),
      _anchor(ReadAnchor(visitor, "anchor")),
      _referencePoint(ReadAnchor(visitor, "referencePoint")),
      _rotationAngle(visitor.Read("rotationAngle", 0.0)),
      _font(visitor.Read("font", DefaultFont())),
      _color(visitor.Read("color", DefaultColor())),
      _backgroundStyle(visitor.Read("backgroundStyle", annC_BackgroundStyleEnm::TRANSPARENT)),
      _backgroundColor(visitor.Read("backgroundColor", DefaultBackgroundColor())),
      _box(visitor.Read("box", false)),
      _justification(visitor.Read("justification", annC_JustificationEnm::LEFT)),
      _ownUid(cls_Uid::AllocateUid()) {}
