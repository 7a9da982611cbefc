#include <base/atr_String.h>
#include <base/cls_ClassRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <g3d/g3d_ColorErrorException.h>

template <>
cow_String g3d_ColorErrorException::MessageOf(const cow_String& value) {
    return atr("%s is not a valid color name.", value.c_str()).Text();
}

template <>
const char* g3d_ColorErrorException::PythonType() const {
    return "ColorError";
}

template <>
void g3d_ColorErrorException::InitializeMetadata(cls_ClassRegistrar& registrar) {
    registrar.Class<g3d_ColorErrorException, nex_CommandException>("g3d_ColorErrorException", 1)
        .WithoutBasePart()  // the message is made from the name
        .Add<cow_String>("m_Value");
}

template <>
void g3d_ColorErrorException::DBWrite(const cls_WriteVisitor& visitor) const {
    visitor.Write("m_Value", Value());
}
