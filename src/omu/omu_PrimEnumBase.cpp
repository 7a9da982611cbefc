#include <base/cls_ClassRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <base/nex_Throw.h>
#include <omu/omu_EnumErrorException.h>
#include <omu/omu_PrimEnumBase.h>
#include <omu/omu_PrimVisitor.h>

#include <string>

namespace {

constexpr char typeCharacter = 'c';

}  // namespace

omu_PrimEnumBase::omu_PrimEnumBase(const cow_String& name) : omu_Primitive(typeCharacter), _stringValue(name) {}

cow_String omu_PrimEnumBase::TypeString() const {
    const cow_Map<cow_String, unsigned> values = PermissibleValues();
    int left = values.Length();
    if (left == 0) return _stringValue;
    std::string text;
    for (const auto& [name, value] : values) {
        text += name.View();
        --left;
        if (left > 0) text += left > 1 ? ", " : " or ";
    }
    return text;
}

cow_String omu_PrimEnumBase::AsString(int) const { return _stringValue; }

void omu_PrimEnumBase::Accept(omu_PrimVisitor* visitor) const { visitor->VisitEnum(*this); }
std::unique_ptr<omu_Primitive> omu_PrimEnumBase::Copy() const { return std::make_unique<omu_PrimEnumBase>(*this); }
unsigned omu_PrimEnumBase::DynTypeId() const { return TypeId(); }

bool omu_PrimEnumBase::SetValue(const char*) { return false; }
cow_Map<cow_String, unsigned> omu_PrimEnumBase::PermissibleValues() const { return {}; }

bool omu_PrimEnumBase::SetValue(const cow_String& name) {
    return name.View().find('\0') == std::string_view::npos && SetValue(name.c_str());
}

cow_String omu_PrimEnumBase::PermissibleValuesAsString() const {
    std::string text;
    for (const auto& [name, value] : PermissibleValues()) {
        if (!text.empty()) text += ", ";
        text += name.str() + ": " + std::to_string(value);
    }
    return "{" + text + "}";
}

bool omu_PrimEnumBase::IsEqual(const omu_Primitive& other) const {
    const auto* const value = SameKind<omu_PrimEnumBase>(other);
    return value != nullptr && _stringValue == value->_stringValue;
}

void omu_PrimEnumBase::ThrowCommand(const atr_String& message) { nex_Throw(omu_EnumErrorException(message)); }

// ---- Persistence

void omu_PrimEnumBase::InitializeMetadata(cls_ClassRegistrar& registrar) {
    registrar.Class<omu_PrimEnumBase, omu_Primitive>("omu_PrimEnumBase", omu_MetadataNumber)
        .Add<cow_String>("stringValue");
}

void omu_PrimEnumBase::DBWrite(const cls_WriteVisitor& visitor) const {
    omu_Primitive::DBWrite(visitor.Base(omu_Primitive::TypeId()));
    visitor.Write("stringValue", _stringValue);
}

omu_PrimEnumBase::omu_PrimEnumBase(const cls_ReadVisitor& visitor) : omu_PrimEnumBase(visitor, "") {}

omu_PrimEnumBase::omu_PrimEnumBase(const cls_ReadVisitor& visitor, const char* fallback)
    : omu_Primitive(visitor.Base(), typeCharacter), _stringValue(visitor.Read("stringValue", cow_String(fallback))) {}
