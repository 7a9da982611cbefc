#include <base/cls_ClassRegistrar.h>
#include <base/cls_MetadataRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <gsl/gsl_Dot.h>

template <>
const omu_PrimEnum<gsl_DotMethod>::Row* omu_PrimEnum<gsl_DotMethod>::Table() {
    static constexpr Row rows[] = {
        {"gsl_FROM_POINT", gsl_DotMethod::gsl_FROM_POINT},
        {"gsl_FROM_VERTEX", gsl_DotMethod::gsl_FROM_VERTEX},
        {"gsl_FROM_DATUM_POINT", gsl_DotMethod::gsl_FROM_DATUM_POINT},
        {"gsl_FROM_EDGE_PARAM", gsl_DotMethod::gsl_FROM_EDGE_PARAM},
        {"gsl_FROM_FACE_DIM", gsl_DotMethod::gsl_FROM_FACE_DIM},
        {"gsl_FROM_EDGE_VTX", gsl_DotMethod::gsl_FROM_EDGE_VTX},
        {"gsl_FROM_FACE_VTX", gsl_DotMethod::gsl_FROM_FACE_VTX},
        {"gsl_FROM_IP_VTX_ONTO_EDGE", gsl_DotMethod::gsl_FROM_IP_VTX_ONTO_EDGE},
        {"gsl_FROM_IP_CENTER_OF_EDGE", gsl_DotMethod::gsl_FROM_IP_CENTER_OF_EDGE},
        {"gsl_FROM_IP_MIDPT_OF_EDGE", gsl_DotMethod::gsl_FROM_IP_MIDPT_OF_EDGE},
        {"gsl_FROM_NODE", gsl_DotMethod::gsl_FROM_NODE},
        {"gsl_DOT_INVALID", gsl_DotMethod::gsl_DOT_INVALID},
        {"gsl_FROM_DATUM_CSYS_ORIGIN", gsl_DotMethod::gsl_FROM_DATUM_CSYS_ORIGIN},
        {},
    };
    return rows;
}

std::unique_ptr<gsl_Dot> gsl_Dot::Copy() const { return std::make_unique<gsl_Dot>(*this); }

void gsl_Dot::Regenerate(const ftr_FeatureList* /*features*/) {}

bool gsl_Dot::IsA(unsigned typeId) const {
    return cls_MetadataRegistrar::Instance().Registrar().Inherits(DynTypeId(), typeId);
}

// ---- Persistence

unsigned gsl_Dot::DynTypeId() const { return TypeId(); }

void gsl_Dot::InitializeMetadata(cls_ClassRegistrar& registrar) {
    registrar.Class<gsl_Dot>("gsl_Dot", 203)
        .Add<gsl_Point>("_point")
        .Add<gsl_DotMethod>("_method")
        .Add<int>("_instanceId")
        .Add<int>("_entityId");
}

void gsl_Dot::DBWrite(const cls_WriteVisitor& visitor) const {
    visitor.Write("_point", _point);
    visitor.Write("_method", _method);
    visitor.Write("_instanceId", _instanceId);
    visitor.Write("_entityId", _entityId);
}

gsl_Dot::gsl_Dot(const cls_ReadVisitor& visitor)
    : _point(visitor.Read("_point", gsl_Point())),
      _method(visitor.Read("_method", gsl_DotMethod::gsl_FROM_POINT)),
      _instanceId(visitor.Read("_instanceId", 0)),
      _entityId(visitor.Read("_entityId", 0)) {}
