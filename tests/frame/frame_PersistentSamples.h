#ifndef ORV_FRAME_FRAME_PERSISTENTSAMPLES_H
#define ORV_FRAME_FRAME_PERSISTENTSAMPLES_H

#include <annC/annC.h>
#include <base/cls_MetadataRegistrar.h>
#include <base/nex_CommandException.h>
#include <base/omu_xoObjVarray.h>
#include <g3d/g3d.h>
#include <gsl/gsl.h>
#include <idb/idb_Records.h>
#include <mdl/mdl.h>
#include <omu/omu.h>
#include <support/streams.h>
#include <support/values.h>

#include <functional>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

/// Objects of one persistent class.
struct PersistentSamples {
    std::string name;     ///< as registered
    unsigned id;          ///< of the class
    std::string written;  ///< the samples, one root each
    /// Reads all roots of a stream as objects of the class and gives what they write.
    std::function<std::string(const std::string&)> rewrite;
};

/// A text as an object: a class of the registrar without a C++ type.
template <unsigned id>
struct TextObject {
    static constexpr const char* field = id == cls_StringClass ? "STRING" : "TRSTRING";
    using Text = std::conditional_t<id == cls_StringClass, cow_String, atr_String>;
    Text text;

    explicit TextObject(const char* t) : text(t) {}
    static unsigned TypeId() { return id; }
    void DBWrite(const cls_WriteVisitor& v) const { v.Write(field, text); }
    explicit TextObject(const cls_ReadVisitor& v) : text(v.Read(field, Text())) {}
};

template <class T>
PersistentSamples SamplesOf(const cls_ClassRegistrar& registrar, const std::vector<std::shared_ptr<const T>>& objects) {
    bio_Ofilter out;
    for (const auto& object : objects) idb_WriteObject(out, registrar, *object);
    const unsigned id = cls_DynTypeId(*objects.front());
    return {registrar.Find(id)->Name().str(), id, out.Bytes(), [&registrar](const std::string& bytes) {
                bio_Ifilter in(bytes);
                bio_Ofilter again;
                while (in.Remaining() > 0) {
                    if constexpr (!std::is_abstract_v<T>)
                        idb_WriteObject(again, registrar, idb_ReadObject<T>(in, registrar));
                    else if (const auto object = idb_ReadShared<T>(in, registrar))  // null: only its base can read it
                        idb_WriteObject(again, registrar, *object);
                }
                return again.Bytes();
            }};
}

/// Samples of every class of which objects can be roots, once the library is started, and of a class of the tests' own
/// that has an attribute of every kind. What is written of them is kept in tests/data/golden.
inline std::vector<PersistentSamples> AllPersistentSamples() {
    const cls_ClassRegistrar& registrar = cls_MetadataRegistrar::Instance().Registrar();
    std::vector<PersistentSamples> all;
    const auto add = [&]<class T>(const T& first, const auto&... more) {
        all.push_back(SamplesOf<T>(registrar, {std::make_shared<T>(first), std::make_shared<T>(more)...}));
    };

    add(TextObject<cls_StringClass>("a \xC3\xA9\n"), TextObject<cls_StringClass>(""));
    add(TextObject<cls_TextClass>("translatable"));
    add(nex_CommandException("no such part"), nex_CommandException(""));

    // The samples of values, those of each class together.
    std::map<unsigned, std::vector<std::shared_ptr<const omu_Primitive>>> values;
    for (const Sample& sample : Samples()) values[sample.value->DynTypeId()].push_back(sample.value);
    for (const auto& [id, ofOneClass] : values) all.push_back(SamplesOf(registrar, ofOneClass));
    add(omu_TypeErrorException());
    add(omu_GenericTypeErrorException());
    add(omu_KeywordTypeErrorException("name", "int", "float", "Part"));
    add(omu_ArgTypeErrorException(2, "int", "float", ""));
    add(omu_ArgNumberErrorException(2, 3, "Part"));
    add(omu_KeywordErrorException("wdith", "Part; "));
    add(omu_AttributeErrorException(omu_AttribReadOnly, "name"), omu_AttributeErrorException(omu_AttribReadOnlyAll));
    add(omu_RangeErrorException("x", 0, omu_InclusiveLimit, 7, omu_NoLimit),
        omu_RangeErrorException("y", 0.1, omu_ExclusiveLimit, 1e300, omu_InclusiveLimit));
    add(omu_VelNameErrorException(omu_VelNameInvalidModel));
    add(g3d_ColorErrorException("Purplish"));

    const gsl_Point p(1.5, -0.0, 1e300), q(0.1, 5e-324, -3.0);
    gsl_PersistentVector ofKnownLength(1.0, 2.0, 2.0);
    (void)ofKnownLength.Length();
    const double rows[4][4] = {
        {0.6, -0.8, 0.0, 1e-3}, {0.8, 0.6, -0.0, 5.0}, {0.0, 0.0, 1.0, -7.5}, {0.0, 0.0, 0.0, 1.0}};
    const auto datum = [](auto d) {
        d.FlipDirection();
        d.SetOwnerFeatID(-9);
        d.SetParentIds({7U, 4294967295U});
        return d;
    };
    const gsl_StLine line = datum(gsl_StLine(p, gsl_Vector(0.0, 3.0, 0.0)));
    const gsl_Plane plane = datum(gsl_Plane(q, gsl_Vector(0.0, 3.0, 4.0)));
    const gsl_Dot dot(q, gsl_DotMethod::gsl_FROM_NODE);
    const auto array = [](const auto&... elements) {
        omu_xoObjVarray<std::common_type_t<std::remove_cvref_t<decltype(elements)>...>> a;
        (a.Append(elements), ...);
        return a;
    };
    add(p, q);
    add(ofKnownLength, gsl_PersistentVector(3.0, 4.0, 0.0));
    add(gsl_PersistentMatrix(), gsl_PersistentMatrix(gsl_Matrix(rows)));
    add(plane);
    add(dot, gsl_Dot(-4, 5));
    add(line);
    add(gsl_BBox(q, p), gsl_BBox());
    add(gsl_Segment(p, q));
    add(gsl_ModelSegment(gsl_Dot(-4, 5), dot), gsl_ModelSegment());
    add(array(line, gsl_StLine()));
    add(array(plane));
    add(array(dot, dot), omu_xoObjVarray<gsl_Dot>());
    add(g3d_Point(1.5F, -0.0F, 3e38F));
    add(g3d_Vector(0.1F, 1e-45F, -3.0F));

    const auto set = [](auto attribute, const auto& value) { return attribute = value; };
    add(mdl_PropAttr<double>(0.1), set(mdl_PropAttr<double>(), -1e-300));
    add(mdl_PropAttr<bool>(true));
    add(set(mdl_PropAttr<int>(), -70000), set(mdl_PropAttr<int>(1), mdl_PropAttributeStateEnm::FREED));
    add(set(mdl_PropAttr<cow_List<float>>(), cow_List<float>{0.1F, -2.0F}), mdl_PropAttr<cow_List<float>>());
    add(set(mdl_PropAttr<cow_List<cow_String>>(), cow_List<cow_String>{"steel", ""}));
    add(set(mdl_PropAttr<cow_List<int>>(), cow_List<int>{1, -2, 3}));

    const annC_NamedAnchor named(annC_RelativePositionEnm::TOP_RIGHT);
    const annC_AnchorHld shared(std::make_shared<annC_Point3DAnchor>(1.0, 2.0, 3.0));
    add(named);
    add(annC_ViewportAnchor(0.25, 1.5));
    add(annC_Point3DAnchor(1.0, -2.0, 3.5));
    annC_Arrow arrow;
    arrow.SetStartPointX(1.0);
    arrow.SetStartPointY(2.0);
    arrow.SetEndPointX(3.0);
    arrow.SetEndPointY(4.0);
    arrow.SetStartAnchor(shared);
    arrow.SetEndAnchor(shared);
    arrow.SetStartHeadStyle(annC_ArrowHeadStyleEnm::HOLLOW_SQUARE);
    arrow.SetEndHeadStyle(annC_ArrowHeadStyleEnm::FILLED_CIRCLE);
    arrow.SetStartGap(0.5);
    arrow.SetEndGap(0.25);
    arrow.SetColor("#FF8000");
    arrow.SetLineStyle(annC_LineStyleEnm::DASHED);
    arrow.SetLineThickness(annC_LineThicknessEnm::THICK);
    annC_Text text;
    text.SetText("Mises, MPa");
    text.SetOffsetX(-1.0);
    text.SetOffsetY(-2.0);
    text.SetAnchor(shared);
    text.SetReferencePoint(annC_AnchorHld(std::make_shared<annC_NamedAnchor>(named)));
    text.SetRotationAngle(90.0);
    text.SetFont("-*-times-bold-r-normal-*-*-140-");
    text.SetColor("Red");
    text.SetBackgroundStyle(annC_BackgroundStyleEnm::OTHER);
    text.SetBackgroundColor("Yellow");
    text.SetBox(true);
    text.SetJustification(annC_JustificationEnm::RIGHT);
    add(arrow);
    add(text);
    annC_AnnotationContainer container;
    container.Insert("greatest", annC_AnnotationHld(std::make_shared<annC_Arrow>(arrow)));
    container.Insert("title", annC_AnnotationHld(std::make_shared<annC_Text>(text)));
    container.Insert("again", container.ConstGet("title"));
    add(container, annC_AnnotationContainer());

    all.push_back(SamplesOf<Everything>(
        TestRegistrar(), {std::make_shared<Everything>(Everything::Filled()), std::make_shared<Everything>()}));
    return all;
}

#endif
