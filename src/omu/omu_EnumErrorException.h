#ifndef ORV_OMU_OMU_ENUMERROREXCEPTION_H
#define ORV_OMU_OMU_ENUMERROREXCEPTION_H

#include <base/atr_String.h>
#include <base/nex_CmdException.h>

/// A value or name that an enumeration lacks; "RuntimeError" in scripting. Its value is the message as a format with
/// arguments; it is stored as the plain nex_CommandException that it is to everybody else, with its text.
using omu_EnumErrorException = nex_CmdException<atr_String, static_cast<int>(nex_CommandException::TypeId())>;

#endif
