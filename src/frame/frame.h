#ifndef ORV_FRAME_FRAME_H
#define ORV_FRAME_FRAME_H

#include <frame/OrvLumAnn.h>
#include <frame/OrvLumG3d.h>
#include <frame/OrvLumGeom.h>
#include <frame/OrvLumGeom_Version.h>
#include <frame/OrvLumGsl.h>
#include <frame/OrvLumIdb.h>
#include <frame/OrvLumMdl.h>
#include <frame/OrvLumOmu.h>
#include <frame/OrvLumUtf.h>
#include <frame/OrvLumWip.h>

#endif
