#include <annC/annC_Arrow.h>
#include <base/cls_ClassRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>

template <>
const omu_PrimEnum<annC_ArrowHeadStyleEnm>::Row* omu_PrimEnum<annC_ArrowHeadStyleEnm>::Table() {
    static constexpr Row rows[] = {
        {"ARROW", annC_ArrowHeadStyleEnm::ARROW},
        {"FILLED_ARROW", annC_ArrowHeadStyleEnm::FILLED_ARROW},
        {"HOLLOW_CIRCLE", annC_ArrowHeadStyleEnm::HOLLOW_CIRCLE},
        {"FILLED_CIRCLE", annC_ArrowHeadStyleEnm::FILLED_CIRCLE},
        {"HOLLOW_DIAMOND", annC_ArrowHeadStyleEnm::HOLLOW_DIAMOND},
        {"FILLED_DIAMOND", annC_ArrowHeadStyleEnm::FILLED_DIAMOND},
        {"HOLLOW_SQUARE", annC_ArrowHeadStyleEnm::HOLLOW_SQUARE},
        {"FILLED_SQUARE", annC_ArrowHeadStyleEnm::FILLED_SQUARE},
        {"NONE", annC_ArrowHeadStyleEnm::NONE},
        {},
    };
    return rows;
}

template <>
const omu_PrimEnum<annC_LineStyleEnm>::Row* omu_PrimEnum<annC_LineStyleEnm>::Table() {
    static constexpr Row rows[] = {
        {"SOLID", annC_LineStyleEnm::SOLID},   {"DASHED", annC_LineStyleEnm::DASHED},
        {"DOTTED", annC_LineStyleEnm::DOTTED}, {"DOT_DASH", annC_LineStyleEnm::DOT_DASH},
        {"NONE", annC_LineStyleEnm::NONE},     {},
    };
    return rows;
}

template <>
const omu_PrimEnum<annC_LineThicknessEnm>::Row* omu_PrimEnum<annC_LineThicknessEnm>::Table() {
    static constexpr Row rows[] = {
        {"VERY_THIN", annC_LineThicknessEnm::VERY_THIN},
        {"THIN", annC_LineThicknessEnm::THIN},
        {"MEDIUM", annC_LineThicknessEnm::MEDIUM},
        {"THICK", annC_LineThicknessEnm::THICK},
        {},
    };
    return rows;
}

annC_Arrow::annC_Arrow()
    : _startAnchor(NewAnchor()), _endAnchor(NewAnchor()), _color(DefaultColor()), _ownUid(cls_Uid::AllocateUid()) {}

std::unique_ptr<annC_Annotation> annC_Arrow::Copy() const { return std::make_unique<annC_Arrow>(*this); }

void annC_Arrow::NewUid() noexcept {
    annC_Annotation::NewUid();
    _ownUid = cls_Uid::AllocateUid();
}

void annC_Arrow::Translate(double dx, double dy) noexcept {
    _startPointX += dx;
    _startPointY += dy;
    _endPointX += dx;
    _endPointY += dy;
}

bool annC_Arrow::IsEqual(const annC_Annotation& other) const {
    const auto& o = static_cast<const annC_Arrow&>(other);
    return _startPointX == o._startPointX && _startPointY == o._startPointY && _endPointX == o._endPointX &&
           _endPointY == o._endPointY && IsSameAnchor(_startAnchor, o._startAnchor) &&
           IsSameAnchor(_endAnchor, o._endAnchor) && _startHeadStyle == o._startHeadStyle &&
           _endHeadStyle == o._endHeadStyle && _startGap == o._startGap && _endGap == o._endGap && _color == o._color &&
           _lineStyle == o._lineStyle && _lineThickness == o._lineThickness;
}

// ---- Persistence

unsigned annC_Arrow::DynTypeId() const { return TypeId(); }

void annC_Arrow::InitializeMetadata(cls_ClassRegistrar& registrar) {
    registrar.Class<annC_Arrow, annC_Annotation>("annC_Arrow", 203)
        .Add<double>("startPointX")
        .Add<double>("startPointY")
        .Add<double>("endPointX")
        .Add<double>("endPointY")
        .Add<annC_AnchorHld>("startAnchor")
        .Add<annC_AnchorHld>("endAnchor")
        .Add<annC_ArrowHeadStyleEnm>("startHeadStyle")
        .Add<annC_ArrowHeadStyleEnm>("endHeadStyle")
        .Add<double>("startGap")
        .Add<double>("endGap")
        .Add<cow_String>("color")
        .Add<annC_LineStyleEnm>("lineStyle")
        .Add<annC_LineThicknessEnm>("lineThickness");
}

void annC_Arrow::DBWrite(const cls_WriteVisitor& visitor) const {
    annC_Annotation::DBWrite(visitor.Base(annC_Annotation::TypeId()));
    visitor.Write("startPointX", _startPointX);
    visitor.Write("startPointY", _startPointY);
    visitor.Write("endPointX", _endPointX);
    visitor.Write("endPointY", _endPointY);
    visitor.Write("startAnchor", _startAnchor);
    visitor.Write("endAnchor", _endAnchor);
    visitor.Write("startHeadStyle", _startHeadStyle);
    visitor.Write("endHeadStyle", _endHeadStyle);
    visitor.Write("startGap", _startGap);
    visitor.Write("endGap", _endGap);
    visitor.Write("color", _color);
    visitor.Write("lineStyle", _lineStyle);
    visitor.Write("lineThickness", _lineThickness);
}

annC_Arrow::annC_Arrow(const cls_ReadVisitor& visitor)
    : annC_Annotation(visitor.Base()),
      _startPointX(visitor.Read("startPointX", 0.0)),
      _startPointY(visitor.Read("startPointY", 0.0)),
      _endPointX(visitor.Read("endPointX", 0.0)),
      _endPointY(visitor.Read("endPointY", 0.0)),
      _startAnchor(ReadAnchor(visitor, "startAnchor")),
      _endAnchor(ReadAnchor(visitor, "endAnchor")),
      _startHeadStyle(visitor.Read("startHeadStyle", annC_ArrowHeadStyleEnm::NONE)),
      _endHeadStyle(visitor.Read("endHeadStyle", annC_ArrowHeadStyleEnm::FILLED_ARROW)),
      _startGap(visitor.Read("startGap", 0.0)),
      _endGap(visitor.Read("endGap", 0.0)),
      _color(visitor.Read("color", DefaultColor())),
      _lineStyle(visitor.Read("lineStyle", annC_LineStyleEnm::SOLID)),
      _lineThickness(visitor.Read("lineThickness", annC_LineThicknessEnm::VERY_THIN)),
      _ownUid(cls_Uid::AllocateUid()) {}
