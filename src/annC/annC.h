#ifndef ORV_ANNC_ANNC_H
#define ORV_ANNC_ANNC_H

#include <annC/annC_Anchor.h>
#include <annC/annC_Annotation.h>
#include <annC/annC_AnnotationClient.h>
#include <annC/annC_AnnotationContainer.h>
#include <annC/annC_Arrow.h>
#include <annC/annC_ArrowIntObj.h>
#include <annC/annC_Draw.h>
#include <annC/annC_DrawList.h>
#include <annC/annC_IntObj.h>
#include <annC/annC_NamedAnchor.h>
#include <annC/annC_Point3DAnchor.h>
#include <annC/annC_ResolveAnchor.h>
#include <annC/annC_Text.h>
#include <annC/annC_TextIntObj.h>
#include <annC/annC_TypeId.h>
#include <annC/annC_ViewportAnchor.h>

#endif
