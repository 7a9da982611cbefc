#ifndef ORV_GSL_GSL_GETPOINT_H
#define ORV_GSL_GSL_GETPOINT_H

#include <base/orv_Export.h>
#include <gsl/gsl_Point.h>
#include <gsl/gsl_Vector.h>

class omu_PrimTuple;

/// The point whose coordinates are the elements of `coordinates`: three numbers of any kind. They are read as a command
/// reads arguments, which leaves the tuple's state of reading behind them.
///
/// Anything else gives the default point, (0, 0, 0); or, with `throws`, the exception of `omu_PrimTuple::End`: its
/// message names the tuple's `Command`, and the first argument that is no number or the wrong count.
[[nodiscard]] ORV_EXPORT gsl_Point gsl_GetPoint(omu_PrimTuple& coordinates, bool throws);

/// The same for a vector; anything else gives the default one, (0, 0, 1).
[[nodiscard]] ORV_EXPORT gsl_Vector gsl_GetVector(omu_PrimTuple& coordinates, bool throws);

#endif
