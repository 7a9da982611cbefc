#ifndef ORV_WIP_WIP_ERRORLEVELENM_H
#define ORV_WIP_WIP_ERRORLEVELENM_H

/// How grave an error is: any number, on whose meaning a command and its front end agree. It is handed on as it is.
enum wip_errorLevelEnm : int {};

#endif
