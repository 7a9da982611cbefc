#ifndef ORV_UTF_UTF_COMPONENTORDER_H
#define ORV_UTF_UTF_COMPONENTORDER_H

#include <base/orv_Export.h>

#include <span>

/// The orders in which programs keep the six components of a full symmetric tensor.
enum class utf_ComponentOrderEnm {
    Kind9,        ///< 11, 22, 33, 12, 13, 23: tensors of kind 9, and the flat routines
    XyYzZx,       ///< 11, 22, 33, 12, 23, 13: xx yy zz xy yz zx of many solvers
    Voigt,        ///< 11, 22, 33, 23, 13, 12
    PackedUpper,  ///< 11, 12, 22, 13, 23, 33: upper triangle by columns, as LAPACK's packed storage with UPLO = 'U'
};

/// Tensors of six components, packed one after another, from one order into another. In place when `out` is `in`; a
/// partial overlap is not allowed. Only moves numbers: shears stay tensor or engineering shears as they were. Throws
/// nex_PrimException, before anything is written, when the sizes differ or are no multiple of six, and for an
/// order that is not listed.
ORV_EXPORT void utf_Reorder(utf_ComponentOrderEnm from, utf_ComponentOrderEnm to, std::span<const double> in,
                            std::span<double> out);
ORV_EXPORT void utf_Reorder(utf_ComponentOrderEnm from, utf_ComponentOrderEnm to, std::span<const float> in,
                            std::span<float> out);

#endif
