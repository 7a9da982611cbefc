#ifndef ORV_ANNC_ANNC_TEXT_H
#define ORV_ANNC_ANNC_TEXT_H

#include <annC/annC_Anchor.h>
#include <annC/annC_Annotation.h>
#include <annC/annC_TypeId.h>
#include <base/cls_Uid.h>
#include <base/cow_String.h>
#include <base/orv_Export.h>
#include <omu/omu_PrimEnum.h>

#include <memory>

/// What is behind a text: nothing, the viewport's own background, or a colour. Scripts know the values of these
/// enumerations by the names here.
enum class annC_BackgroundStyleEnm : int { TRANSPARENT = 0, MATCH = 1, OTHER = 2 };
template <>
ORV_EXPORT const omu_PrimEnum<annC_BackgroundStyleEnm>::Row* omu_PrimEnum<annC_BackgroundStyleEnm>::Table();

/// How the lines of a text stand to each other.
enum class annC_JustificationEnm : int { LEFT = 0, CENTER = 1, RIGHT = 2 };
template <>
ORV_EXPORT const omu_PrimEnum<annC_JustificationEnm>::Row* omu_PrimEnum<annC_JustificationEnm>::Table();

/// A text, of one line or more, which lies with a reference point of its own at an offset from an anchor.
class ORV_EXPORT annC_Text : public annC_Annotation {
public:
    /// Empty, anchored in the bottom left corner by its own bottom left corner, offsets and rotation 0; in white
    /// "-*-helvetica-medium-r-normal-*-*-120-" on a transparent background whose colour is black; no box;
    /// left-justified.
    annC_Text();

    [[nodiscard]] std::unique_ptr<annC_Annotation> Copy() const override;

    /// The identity besides `Uid`, renewed with it.
    [[nodiscard]] cls_Uid OwnUid() const noexcept { return _ownUid; }
    void NewUid() noexcept override;

    /// Adds to the offsets.
    void Translate(double dx, double dy) noexcept override;

    // ---- Attributes

    /// The text; '\n' ends a line.
    [[nodiscard]] const cow_String& Text() const noexcept { return _text; }
    void SetText(const cow_String& text) noexcept { _text = text; }

    /// From the anchor to the reference point.
    [[nodiscard]] double OffsetX() const noexcept { return _offsetX; }
    void SetOffsetX(double offsetX) noexcept { _offsetX = offsetX; }
    [[nodiscard]] double OffsetY() const noexcept { return _offsetY; }
    void SetOffsetY(double offsetY) noexcept { _offsetY = offsetY; }

    /// A shared handle, which may be null.
    [[nodiscard]] const annC_AnchorHld& Anchor() const noexcept { return _anchor; }
    void SetAnchor(const annC_AnchorHld& anchor) noexcept { _anchor = anchor; }

    /// The point of the text's own rectangle that lies at the offset from the anchor: an anchor whose viewport is that
    /// rectangle.
    [[nodiscard]] const annC_AnchorHld& ReferencePoint() const noexcept { return _referencePoint; }
    void SetReferencePoint(const annC_AnchorHld& referencePoint) noexcept { _referencePoint = referencePoint; }

    /// Counterclockwise about the reference point, in degrees.
    [[nodiscard]] double RotationAngle() const noexcept { return _rotationAngle; }
    void SetRotationAngle(double angleDegrees) noexcept { _rotationAngle = angleDegrees; }

    /// An X logical font description.
    [[nodiscard]] const cow_String& Font() const noexcept { return _font; }
    void SetFont(const cow_String& font) noexcept { _font = font; }

    /// A colour's name or #RRGGBB.
    [[nodiscard]] const cow_String& Color() const noexcept { return _color; }
    void SetColor(const cow_String& color) noexcept { _color = color; }

    /// What is behind the text.
    [[nodiscard]] annC_BackgroundStyleEnm BackgroundStyle() const noexcept { return _backgroundStyle; }
    void SetBackgroundStyle(annC_BackgroundStyleEnm backgroundStyle) noexcept { _backgroundStyle = backgroundStyle; }

    /// Of the background style OTHER: a colour's name or #RRGGBB.
    [[nodiscard]] const cow_String& BackgroundColor() const noexcept { return _backgroundColor; }
    void SetBackgroundColor(const cow_String& backgroundColor) noexcept { _backgroundColor = backgroundColor; }

    /// Whether a frame is drawn around the text.
    [[nodiscard]] bool Box() const noexcept { return _box; }
    void SetBox(bool box) noexcept { _box = box; }

    /// Of the lines against each other.
    [[nodiscard]] annC_JustificationEnm Justification() const noexcept { return _justification; }
    void SetJustification(annC_JustificationEnm justification) noexcept { _justification = justification; }

    // ---- Names in scripts: the command, its keywords, the method

    /// Each gives the name that scripts use.
    [[nodiscard]] static constexpr const char* constructorCmd() noexcept { return "Text"; }
    [[nodiscard]] static constexpr const char* textCmd() noexcept { return "text"; }
    [[nodiscard]] static constexpr const char* offsetCmd() noexcept { return "offset"; }
    [[nodiscard]] static constexpr const char* anchorCmd() noexcept { return "anchor"; }
    [[nodiscard]] static constexpr const char* referencePointCmd() noexcept { return "referencePoint"; }
    [[nodiscard]] static constexpr const char* rotationAngleCmd() noexcept { return "rotationAngle"; }
    [[nodiscard]] static constexpr const char* fontCmd() noexcept { return "font"; }
    [[nodiscard]] static constexpr const char* colorCmd() noexcept { return "color"; }
    [[nodiscard]] static constexpr const char* backgroundStyleCmd() noexcept { return "backgroundStyle"; }
    [[nodiscard]] static constexpr const char* backgroundColorCmd() noexcept { return "backgroundColor"; }
    [[nodiscard]] static constexpr const char* boxCmd() noexcept { return "box"; }
    [[nodiscard]] static constexpr const char* justificationCmd() noexcept { return "justification"; }
    [[nodiscard]] static constexpr const char* translateCmd() noexcept { return "translate"; }

    // ---- Persistence

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return annC_TypeId(7); }
    [[nodiscard]] unsigned DynTypeId() const override;
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    void DBWrite(const cls_WriteVisitor& visitor) const override;
    /// An enumerator that is not listed is kept as the number it is.
    explicit annC_Text(const cls_ReadVisitor& visitor);

private:
    [[nodiscard]] bool IsEqual(const annC_Annotation& other) const override;

    cow_String _text;
    double _offsetX = 0.0;
    double _offsetY = 0.0;
    annC_AnchorHld _anchor;
    annC_AnchorHld _referencePoint;
    double _rotationAngle = 0.0;
    cow_String _font;
    cow_String _color;
    annC_BackgroundStyleEnm _backgroundStyle = annC_BackgroundStyleEnm::TRANSPARENT;
    cow_String _backgroundColor;
    bool _box = false;
    annC_JustificationEnm _justification = annC_JustificationEnm::LEFT;
    cls_Uid _ownUid;
};

#endif
