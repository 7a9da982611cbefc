#ifndef ORV_ANNC_ANNC_ARROW_H
#define ORV_ANNC_ANNC_ARROW_H

#include <annC/annC_Anchor.h>
#include <annC/annC_Annotation.h>
#include <annC/annC_TypeId.h>
#include <base/cls_Uid.h>
#include <base/cow_String.h>
#include <base/orv_Export.h>
#include <omu/omu_PrimEnum.h>

#include <memory>

/// What an arrow has at an end. Scripts know the values of these enumerations by the names here.
enum class annC_ArrowHeadStyleEnm : int {
    ARROW = 0,
    FILLED_ARROW = 1,
    HOLLOW_CIRCLE = 2,
    FILLED_CIRCLE = 3,
    HOLLOW_DIAMOND = 4,
    FILLED_DIAMOND = 5,
    HOLLOW_SQUARE = 6,
    FILLED_SQUARE = 7,
    NONE = 8
};
template <>
ORV_EXPORT const omu_PrimEnum<annC_ArrowHeadStyleEnm>::Row* omu_PrimEnum<annC_ArrowHeadStyleEnm>::Table();

/// *Not listed in the order of the values*: DASHED, 2, comes before DOTTED, 1, here and in the table of names.
enum class annC_LineStyleEnm : int { SOLID = 0, DASHED = 2, DOTTED = 1, DOT_DASH = 3, NONE = 4 };
template <>
ORV_EXPORT const omu_PrimEnum<annC_LineStyleEnm>::Row* omu_PrimEnum<annC_LineStyleEnm>::Table();

/// The width of a line; in millimetres by `g3d_Utils::ConvertLineThickness`.
enum class annC_LineThicknessEnm : int { VERY_THIN = 0, THIN = 1, MEDIUM = 2, THICK = 3 };
template <>
ORV_EXPORT const omu_PrimEnum<annC_LineThicknessEnm>::Row* omu_PrimEnum<annC_LineThicknessEnm>::Table();

/// A line from one anchored point to another, with a head, a gap and an anchor of its own at each end.
class ORV_EXPORT annC_Arrow : public annC_Annotation {
public:
    /// Both ends at anchors of their own in the bottom left corner, offsets and gaps 0; no head at the start, a filled
    /// arrowhead at the end; white, solid, very thin.
    annC_Arrow();

    [[nodiscard]] std::unique_ptr<annC_Annotation> Copy() const override;

    /// The identity besides `Uid`, renewed with it.
    [[nodiscard]] cls_Uid OwnUid() const noexcept { return _ownUid; }
    void NewUid() noexcept override;

    /// Adds dx to both x and dy to both y.
    void Translate(double dx, double dy) noexcept override;

    // ---- Attributes

    /// The start as an offset from its anchor.
    [[nodiscard]] double StartPointX() const noexcept { return _startPointX; }
    void SetStartPointX(double startPointX) noexcept { _startPointX = startPointX; }
    [[nodiscard]] double StartPointY() const noexcept { return _startPointY; }
    void SetStartPointY(double startPointY) noexcept { _startPointY = startPointY; }

    /// The end as an offset from its anchor.
    [[nodiscard]] double EndPointX() const noexcept { return _endPointX; }
    void SetEndPointX(double endPointX) noexcept { _endPointX = endPointX; }
    [[nodiscard]] double EndPointY() const noexcept { return _endPointY; }
    void SetEndPointY(double endPointY) noexcept { _endPointY = endPointY; }

    /// Shared handles, which may be null.
    [[nodiscard]] const annC_AnchorHld& StartAnchor() const noexcept { return _startAnchor; }
    void SetStartAnchor(const annC_AnchorHld& startAnchor) noexcept { _startAnchor = startAnchor; }
    [[nodiscard]] const annC_AnchorHld& EndAnchor() const noexcept { return _endAnchor; }
    void SetEndAnchor(const annC_AnchorHld& endAnchor) noexcept { _endAnchor = endAnchor; }

    /// What is drawn at either end.
    [[nodiscard]] annC_ArrowHeadStyleEnm StartHeadStyle() const noexcept { return _startHeadStyle; }
    void SetStartHeadStyle(annC_ArrowHeadStyleEnm startHeadStyle) noexcept { _startHeadStyle = startHeadStyle; }
    [[nodiscard]] annC_ArrowHeadStyleEnm EndHeadStyle() const noexcept { return _endHeadStyle; }
    void SetEndHeadStyle(annC_ArrowHeadStyleEnm endHeadStyle) noexcept { _endHeadStyle = endHeadStyle; }

    /// How far from the start point the line begins.
    [[nodiscard]] double StartGap() const noexcept { return _startGap; }
    void SetStartGap(double startGap) noexcept { _startGap = startGap; }
    /// How far from the end point the line ends.
    [[nodiscard]] double EndGap() const noexcept { return _endGap; }
    void SetEndGap(double endGap) noexcept { _endGap = endGap; }

    /// A colour's name or #RRGGBB.
    [[nodiscard]] const cow_String& Color() const noexcept { return _color; }
    void SetColor(const cow_String& color) noexcept { _color = color; }

    /// The look of the line between the ends.
    [[nodiscard]] annC_LineStyleEnm LineStyle() const noexcept { return _lineStyle; }
    void SetLineStyle(annC_LineStyleEnm lineStyle) noexcept { _lineStyle = lineStyle; }
    [[nodiscard]] annC_LineThicknessEnm LineThickness() const noexcept { return _lineThickness; }
    void SetLineThickness(annC_LineThicknessEnm lineThickness) noexcept { _lineThickness = lineThickness; }

    // ---- Names in scripts: the command, its keywords, the methods

    /// Each gives the name that scripts use.
    [[nodiscard]] static constexpr const char* constructorCmd() noexcept { return "Arrow"; }
    [[nodiscard]] static constexpr const char* startPointCmd() noexcept { return "startPoint"; }
    [[nodiscard]] static constexpr const char* endPointCmd() noexcept { return "endPoint"; }
    [[nodiscard]] static constexpr const char* startAnchorCmd() noexcept { return "startAnchor"; }
    [[nodiscard]] static constexpr const char* endAnchorCmd() noexcept { return "endAnchor"; }
    [[nodiscard]] static constexpr const char* startHeadStyleCmd() noexcept { return "startHeadStyle"; }
    [[nodiscard]] static constexpr const char* endHeadStyleCmd() noexcept { return "endHeadStyle"; }
    [[nodiscard]] static constexpr const char* startGapCmd() noexcept { return "startGap"; }
    [[nodiscard]] static constexpr const char* endGapCmd() noexcept { return "endGap"; }
    [[nodiscard]] static constexpr const char* colorCmd() noexcept { return "color"; }
    [[nodiscard]] static constexpr const char* lineStyleCmd() noexcept { return "lineStyle"; }
    [[nodiscard]] static constexpr const char* lineThicknessCmd() noexcept { return "lineThickness"; }
    [[nodiscard]] static constexpr const char* translateStartPointCmd() noexcept { return "translateStartPoint"; }
    [[nodiscard]] static constexpr const char* translateEndPointCmd() noexcept { return "translateEndPoint"; }

    // ---- Persistence

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return annC_TypeId(6); }
    [[nodiscard]] unsigned DynTypeId() const override;
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    void DBWrite(const cls_WriteVisitor& visitor) const override;
    /// An enumerator that is not listed is kept as the number it is.
    explicit annC_Arrow(const cls_ReadVisitor& visitor);

private:
    [[nodiscard]] bool IsEqual(const annC_Annotation& other) const override;

    double _startPointX = 0.0;
    double _startPointY = 0.0;
    double _endPointX = 0.0;
    double _endPointY = 0.0;
    annC_AnchorHld _startAnchor;
    annC_AnchorHld _endAnchor;
    annC_ArrowHeadStyleEnm _startHeadStyle = annC_ArrowHeadStyleEnm::NONE;
    annC_ArrowHeadStyleEnm _endHeadStyle = annC_ArrowHeadStyleEnm::FILLED_ARROW;
    double _startGap = 0.0;
    double _endGap = 0.0;
    cow_String _color;
    annC_LineStyleEnm _lineStyle = annC_LineStyleEnm::SOLID;
    annC_LineThicknessEnm _lineThickness = annC_LineThicknessEnm::VERY_THIN;
    cls_Uid _ownUid;
};

#endif
