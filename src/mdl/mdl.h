#ifndef ORV_MDL_MDL_H
#define ORV_MDL_MDL_H

#include <mdl/mdl_PropAttr.h>
#include <mdl/mdl_PropAttributeGet.h>
#include <mdl/mdl_PropAttributeGetFromTuple.h>
#include <mdl/mdl_PropAttributeStateEnm.h>
#include <mdl/mdl_PropagationStatusEnm.h>
#include <mdl/mdl_TypeId.h>

#endif
