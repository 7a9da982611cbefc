#include <base/cls_ClassRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <omu/omu_PrimString.h>
#include <omu/omu_PrimVisitor.h>
#include <omu/omu_QuoteText.h>

cow_String omu_PrimString::TypeString() const { return "string"; }
cow_String omu_PrimString::AsString(int) const { return omu_QuoteText(_text); }
void omu_PrimString::AppendString(std::string& text) const { omu_AppendQuoted(text, _text.View()); }

bool omu_PrimString::IsEqual(const omu_Primitive& other) const {
    const auto* const string = SameKind<omu_PrimString>(other);
    return string != nullptr && _text == string->_text;
}

void omu_PrimString::Accept(omu_PrimVisitor* visitor) const { visitor->VisitString(*this); }
std::unique_ptr<omu_Primitive> omu_PrimString::Copy() const { return std::make_unique<omu_PrimString>(*this); }
unsigned omu_PrimString::DynTypeId() const { return TypeId(); }

// ---- Persistence

void omu_PrimString::InitializeMetadata(cls_ClassRegistrar& registrar) {
    registrar.Class<omu_PrimString, omu_Primitive>("omu_PrimString", omu_MetadataNumber).Add<cow_String>("string");
}

void omu_PrimString::DBWrite(const cls_WriteVisitor& visitor) const {
    omu_Primitive::DBWrite(visitor.Base(omu_Primitive::TypeId()));
    visitor.Write("string", _text);
}

omu_PrimString::omu_PrimString(const cls_ReadVisitor& visitor) : omu_PrimString(visitor, 's') {}

omu_PrimString::omu_PrimString(const cls_ReadVisitor& visitor, char type)
    : omu_Primitive(visitor.Base(), type), _text(visitor.Read("string", cow_String())) {}
