#include <annC/annC_TextIntObj.h>
#include <annC/detail/annC_IntObjImpl.h>

template <>
std::span<const annC_Attribute<annC_Text>> annC_Attributes<annC_Text>() {
    using A = annC_Text;
    static const annC_Attribute<A> attributes[] = {
        annC_MakeAttribute<A, annC_StringKind>(A::textCmd(), &A::Text, &A::SetText),
        annC_MakePointAttribute(A::offsetCmd(), &A::OffsetX, &A::OffsetY, &A::SetOffsetX, &A::SetOffsetY),
        annC_MakeAttribute<A, annC_AnchorKind>(A::anchorCmd(), &A::Anchor, &A::SetAnchor),
        annC_MakeAttribute<A, annC_AnchorKind>(A::referencePointCmd(), &A::ReferencePoint, &A::SetReferencePoint),
        annC_MakeAttribute<A, annC_AngleKind>(A::rotationAngleCmd(), &A::RotationAngle, &A::SetRotationAngle),
        annC_MakeAttribute<A, annC_StringKind>(A::fontCmd(), &A::Font, &A::SetFont),
        annC_MakeAttribute<A, annC_ColorKind>(A::colorCmd(), &A::Color, &A::SetColor),
        annC_MakeAttribute<A, annC_EnumKind<annC_BackgroundStyleEnm>>(A::backgroundStyleCmd(), &A::BackgroundStyle,
                                                                      &A::SetBackgroundStyle),
        annC_MakeAttribute<A, annC_ColorKind>(A::backgroundColorCmd(), &A::BackgroundColor, &A::SetBackgroundColor),
        annC_MakeAttribute<A, annC_BoolKind>(A::boxCmd(), &A::Box, &A::SetBox),
        annC_MakeAttribute<A, annC_EnumKind<annC_JustificationEnm>>(A::justificationCmd(), &A::Justification,
                                                                    &A::SetJustification),
    };
    return attributes;
}

template class annC_IntObj<annC_Text>;

void annC_TextIntObj::Translate(omu_Arguments& arguments) {
    annC_Text& text = *Annotation();
    const auto [x, y] =
        Translated(arguments, annC_Text::translateCmd(), annC_Text::offsetCmd(), {text.OffsetX(), text.OffsetY()});
    text.SetOffsetX(x);
    text.SetOffsetY(y);
}
