#ifndef ORV_G3D_G3D_COLORERROREXCEPTION_H
#define ORV_G3D_G3D_COLORERROREXCEPTION_H

#include <base/cow_String.h>
#include <base/nex_CmdException.h>
#include <base/orv_Export.h>

/// A name that no colour bears, which is its value; "ColorError" on the scripting side. Message and journal say "... is
/// not a valid color name.", with the name up to its first NUL, whatever bytes it has. A name kept in a stream comes
/// back with its message.
///
/// Persistent attribute: "m_Value".
using g3d_ColorErrorException = nex_CmdException<cow_String, 6>;

template <>
ORV_EXPORT cow_String g3d_ColorErrorException::MessageOf(const cow_String& value);
template <>
ORV_EXPORT const char* g3d_ColorErrorException::PythonType() const;
template <>
ORV_EXPORT void g3d_ColorErrorException::InitializeMetadata(cls_ClassRegistrar& registrar);
template <>
ORV_EXPORT void g3d_ColorErrorException::DBWrite(const cls_WriteVisitor& visitor) const;

#endif
