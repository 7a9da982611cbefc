#include <base/cls_ClassRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <g3d/g3d_Point.h>

void g3d_Point::InitializeMetadata(cls_ClassRegistrar& registrar) {
    registrar.Class<g3d_Point>("g3d_Point", 203).Add<float>("x").Add<float>("y").Add<float>("z").Add<float>("w");
}

void g3d_Point::DBWrite(const cls_WriteVisitor& visitor) const {
    visitor.Write("x", _x);
    visitor.Write("y", _y);
    visitor.Write("z", _z);
    visitor.Write("w", _w);
}

g3d_Point::g3d_Point(const cls_ReadVisitor& visitor)
    : _x(visitor.Read("x", 0.0F)),
      _y(visitor.Read("y", 0.0F)),
      _z(visitor.Read("z", 0.0F)),
      _w(visitor.Read("w", 1.0F)) {}
