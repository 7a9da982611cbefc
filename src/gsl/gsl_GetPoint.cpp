#include <gsl/gsl_GetPoint.h>
#include <omu/omu_PrimNumber.h>
#include <omu/omu_PrimTuple.h>

namespace {

template <class Coordinates>
Coordinates Read(omu_PrimTuple& coordinates, bool throws) {
    double xyz[3] = {};
    coordinates.Begin();
    for (double& each : xyz) {
        omu_PrimNumber number(0.0);
        coordinates.Get(number);
        each = number.DataType() == omu_PrimNumber::UINT ? number.AsUint() : number.AsDouble();
    }
    if (throws)
        coordinates.End();
    else if (coordinates.Error())
        return Coordinates();
    return Coordinates(xyz[0], xyz[1], xyz[2]);
}

}  // namespace

gsl_Point gsl_GetPoint(omu_PrimTuple& coordinates, bool throws) { return Read<gsl_Point>(coordinates, throws); }
gsl_Vector gsl_GetVector(omu_PrimTuple& coordinates, bool throws) { return Read<gsl_Vector>(coordinates, throws); }
