#include <base/cls_ClassRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <omu/omu_PrimComplex.h>
#include <omu/omu_PrimVisitor.h>

#include <cmath>

cow_String omu_PrimComplex::TypeString() const { return "complex"; }

cow_String omu_PrimComplex::AsString(int) const {
    const double re = std::isnan(_value.real()) ? std::fabs(_value.real()) : _value.real();
    const bool negative = _value.imag() < 0.0;
    const double im = negative ? _value.imag() : std::fabs(_value.imag());
    return cow_String(re) + (negative ? "" : "+") + cow_String(im) + "j";
}

bool omu_PrimComplex::IsEqual(const omu_Primitive& other) const {
    const auto* const number = SameKind<omu_PrimComplex>(other);
    return number != nullptr && _value == number->_value;
}

void omu_PrimComplex::Accept(omu_PrimVisitor* visitor) const { visitor->VisitComplex(*this); }
std::unique_ptr<omu_Primitive> omu_PrimComplex::Copy() const { return std::make_unique<omu_PrimComplex>(*this); }
unsigned omu_PrimComplex::DynTypeId() const { return TypeId(); }

// ---- Persistence

void omu_PrimComplex::InitializeMetadata(cls_ClassRegistrar& registrar) {
    registrar.Class<omu_PrimComplex, omu_Primitive>("omu_PrimComplex", omu_MetadataNumber)
        .Add<double>("complexNumRe")
        .Add<double>("complexNumIm");
}

void omu_PrimComplex::DBWrite(const cls_WriteVisitor& visitor) const {
    omu_Primitive::DBWrite(visitor.Base(omu_Primitive::TypeId()));
    visitor.Write("complexNumRe", _value.real());
    visitor.Write("complexNumIm", _value.imag());
}

omu_PrimComplex::omu_PrimComplex(const cls_ReadVisitor& visitor)
    : omu_Primitive(visitor.Base(), 'x'),
      _value(visitor.Read("complexNumRe", 0.0), visitor.Read("complexNumIm", 0.0)) {}
