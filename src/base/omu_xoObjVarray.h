#ifndef ORV_BASE_OMU_XOOBJVARRAY_H
#define ORV_BASE_OMU_XOOBJVARRAY_H

#include <base/cls_ClassRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <base/cow_List.h>

/// Under which name and type identifier an array of T is registered. The module that owns T specialises it, beside T:
///
///     template <>
///     struct omu_xoObjVarrayTraits<gsl_Plane> {
///         static constexpr const char* name = "gsl_PlaneArray";
///         static constexpr unsigned typeId = ...;
///     };
template <class T>
struct omu_xoObjVarrayTraits;

/// A persistent array of persistent objects that grows at its end. The elements are shared between copies until one of
/// them is changed (see `cow_List`). An index outside 0 to Length() - 1 throws nex_RangeException.
///
/// The growth ratio is an attribute that is kept, stored and read back; the elements' memory grows as the standard
/// containers see fit.
template <class T>
class omu_xoObjVarray {
public:
    omu_xoObjVarray() = default;

    /// As of the list of elements; the ratio is kept and used for nothing.
    [[nodiscard]] int Length() const { return _data.Length(); }
    [[nodiscard]] const T& operator[](int i) const { return _data.ConstGet(i); }
    [[nodiscard]] double GrowthRatio() const noexcept { return _growthRatio; }

    /// For writing: detaches from copies. Do not keep the reference across a copy of the array.
    [[nodiscard]] T& operator[](int i) { return _data.Get(i); }

    /// Puts a copy behind all others.
    void Append(const T& element) { _data.Append(element); }

    // ---- Persistence

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return omu_xoObjVarrayTraits<T>::typeId; }
    [[nodiscard]] unsigned DynTypeId() const noexcept { return TypeId(); }

    static void InitializeMetadata(cls_ClassRegistrar& registrar) {
        registrar.Class<omu_xoObjVarray<T>>(omu_xoObjVarrayTraits<T>::name, 800)
            .template Add<double>("growthRatio_")
            .template Add<cow_List<T>>("data_");
    }

    void DBWrite(const cls_WriteVisitor& visitor) const {
        visitor.Write("growthRatio_", _growthRatio);
        visitor.Write("data_", _data);
    }

    explicit omu_xoObjVarray(const cls_ReadVisitor& visitor)
        : _growthRatio(visitor.Read("growthRatio_", 2.0)), _data(visitor.Read("data_", cow_List<T>())) {}

private:
    double _growthRatio = 2.0;
    cow_List<T> _data;
};

#endif
