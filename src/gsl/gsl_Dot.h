#ifndef ORV_GSL_GSL_DOT_H
#define ORV_GSL_GSL_DOT_H

#include <base/omu_xoObjVarray.h>
#include <base/orv_Export.h>
#include <gsl/gsl_Point.h>
#include <gsl/gsl_TypeId.h>
#include <omu/omu_PrimEnum.h>

#include <memory>

class cls_ClassRegistrar;
class cls_ReadVisitor;
class cls_WriteVisitor;
class ftr_FeatureList;

/// How a reference point was defined. Scripts know the values by these names.
enum class gsl_DotMethod : int {
    gsl_FROM_POINT = 0,
    gsl_FROM_VERTEX = 1,
    gsl_FROM_DATUM_POINT = 2,
    gsl_FROM_EDGE_PARAM = 3,
    gsl_FROM_FACE_DIM = 4,
    gsl_FROM_EDGE_VTX = 5,
    gsl_FROM_FACE_VTX = 6,
    gsl_FROM_IP_VTX_ONTO_EDGE = 7,
    gsl_FROM_IP_CENTER_OF_EDGE = 8,
    gsl_FROM_IP_MIDPT_OF_EDGE = 9,
    gsl_FROM_NODE = 10,
    gsl_DOT_INVALID = 11,
    gsl_FROM_DATUM_CSYS_ORIGIN = 12
};
template <>
ORV_EXPORT const omu_PrimEnum<gsl_DotMethod>::Row* omu_PrimEnum<gsl_DotMethod>::Table();

/// A reference point of a model, which remembers how it was defined and on what: an instance and an entity of it.
///
/// The application derives its own dots, which follow its features: they override `Regenerate`, and `Copy`,
/// `DynTypeId` and `DBWrite` so that holders and streams keep their class.
class ORV_EXPORT gsl_Dot {
public:
    /// At the origin, from a point, both identifiers 0.
    gsl_Dot() noexcept = default;
    /// At the origin, from a point, with these identifiers.
    gsl_Dot(int instanceId, int entityId) noexcept : _instanceId(instanceId), _entityId(entityId) {}
    /// At `point`, both identifiers 0.
    explicit gsl_Dot(const gsl_Point& point, gsl_DotMethod method = gsl_DotMethod::gsl_FROM_POINT) noexcept
        : _point(point), _method(method) {}

    gsl_Dot(const gsl_Dot&) = default;
    gsl_Dot& operator=(const gsl_Dot&) = default;
    virtual ~gsl_Dot() = default;
    /// A copy of the object's own class.
    [[nodiscard]] virtual std::unique_ptr<gsl_Dot> Copy() const;

    /// The place.
    [[nodiscard]] const gsl_Point& Point() const noexcept { return _point; }
    /// Moves the point; its identity stays.
    void SetValues(double x, double y, double z) noexcept { _point.SetPos({x, y, z}); }

    /// How it was defined.
    [[nodiscard]] gsl_DotMethod GetMethod() const noexcept { return _method; }

    /// The instance identifier.
    [[nodiscard]] int OwnerFeatID() const noexcept { return _instanceId; }
    /// The identifier of the entity, beside that of the instance.
    [[nodiscard]] int EntityId() const noexcept { return _entityId; }

    /// Takes the place that the model's features now give. A plain dot depends on none: nothing happens, and the
    /// address is not looked at.
    virtual void Regenerate(const ftr_FeatureList* features);

    /// Whether the dynamic class is `typeId` or descends from it, as the process's class registry knows: false for a
    /// class that is not registered, other than with itself.
    [[nodiscard]] bool IsA(unsigned typeId) const;

    // ---- Persistence

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return gsl_TypeId(5); }
    [[nodiscard]] virtual unsigned DynTypeId() const;
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    virtual void DBWrite(const cls_WriteVisitor& visitor) const;
    /// A method that is not listed is kept as the number it is.
    explicit gsl_Dot(const cls_ReadVisitor& visitor);

private:
    gsl_Point _point;
    gsl_DotMethod _method = gsl_DotMethod::gsl_FROM_POINT;
    int _instanceId = 0;
    int _entityId = 0;
};

template <>
struct omu_xoObjVarrayTraits<gsl_Dot> {
    static constexpr const char* name = "gsl_DotArray";
    static constexpr unsigned typeId = gsl_TypeId(14);
};

#endif
