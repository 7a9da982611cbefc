#include <annC/annC_ArrowIntObj.h>
#include <annC/detail/annC_IntObjImpl.h>

template <>
std::span<const annC_Attribute<annC_Arrow>> annC_Attributes<annC_Arrow>() {
    using A = annC_Arrow;
    using HeadKind = annC_EnumKind<annC_ArrowHeadStyleEnm>;
    static const annC_Attribute<A> attributes[] = {
        annC_MakePointAttribute(A::startPointCmd(), &A::StartPointX, &A::StartPointY, &A::SetStartPointX,
                                &A::SetStartPointY),
        annC_MakePointAttribute(A::endPointCmd(), &A::EndPointX, &A::EndPointY, &A::SetEndPointX, &A::SetEndPointY),
        annC_MakeAttribute<A, annC_AnchorKind>(A::startAnchorCmd(), &A::StartAnchor, &A::SetStartAnchor),
        annC_MakeAttribute<A, annC_AnchorKind>(A::endAnchorCmd(), &A::EndAnchor, &A::SetEndAnchor),
        annC_MakeAttribute<A, HeadKind>(A::startHeadStyleCmd(), &A::StartHeadStyle, &A::SetStartHeadStyle),
        annC_MakeAttribute<A, HeadKind>(A::endHeadStyleCmd(), &A::EndHeadStyle, &A::SetEndHeadStyle),
        annC_MakeAttribute<A, annC_GapKind>(A::startGapCmd(), &A::StartGap, &A::SetStartGap),
        annC_MakeAttribute<A, annC_GapKind>(A::endGapCmd(), &A::EndGap, &A::SetEndGap),
        annC_MakeAttribute<A, annC_ColorKind>(A::colorCmd(), &A::Color, &A::SetColor),
        annC_MakeAttribute<A, annC_EnumKind<annC_LineStyleEnm>>(A::lineStyleCmd(), &A::LineStyle, &A::SetLineStyle),
        annC_MakeAttribute<A, annC_EnumKind<annC_LineThicknessEnm>>(A::lineThicknessCmd(), &A::LineThickness,
                                                                    &A::SetLineThickness),
    };
    return attributes;
}

template class annC_IntObj<annC_Arrow>;

void annC_ArrowIntObj::TranslateStartPoint(omu_Arguments& arguments) {
    annC_Arrow& arrow = *Annotation();
    const auto [x, y] = Translated(arguments, annC_Arrow::translateStartPointCmd(), annC_Arrow::startPointCmd(),
                                   {arrow.StartPointX(), arrow.StartPointY()});
    arrow.SetStartPointX(x);
    arrow.SetStartPointY(y);
}

void annC_ArrowIntObj::TranslateEndPoint(omu_Arguments& arguments) {
    annC_Arrow& arrow = *Annotation();
    const auto [x, y] = Translated(arguments, annC_Arrow::translateEndPointCmd(), annC_Arrow::endPointCmd(),
                                   {arrow.EndPointX(), arrow.EndPointY()});
    arrow.SetEndPointX(x);
    arrow.SetEndPointY(y);
}
