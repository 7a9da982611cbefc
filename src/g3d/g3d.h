#ifndef ORV_G3D_G3D_H
#define ORV_G3D_G3D_H

#include <g3d/g3d_BoundingVolume.h>
#include <g3d/g3d_Camera.h>
#include <g3d/g3d_ClipResultEnum.h>
#include <g3d/g3d_Color.h>
#include <g3d/g3d_ColorArray.h>
#include <g3d/g3d_ColorErrorException.h>
#include <g3d/g3d_ColorMap.h>
#include <g3d/g3d_ColorText.h>
#include <g3d/g3d_ContourScale.h>
#include <g3d/g3d_ContrastRatio.h>
#include <g3d/g3d_FrustumPlanes.h>
#include <g3d/g3d_GeomUtils.h>
#include <g3d/g3d_InterpolateCameras.h>
#include <g3d/g3d_Plane.h>
#include <g3d/g3d_Point.h>
#include <g3d/g3d_RGB.h>
#include <g3d/g3d_Ray.h>
#include <g3d/g3d_SavedViewIdEnum.h>
#include <g3d/g3d_Spectrum.h>
#include <g3d/g3d_Sphere.h>
#include <g3d/g3d_Storage.h>
#include <g3d/g3d_TypeId.h>
#include <g3d/g3d_Utils.h>
#include <g3d/g3d_Vector.h>
#include <g3d/g3d_Viewport.h>
#include <g3d/g3d_XForm.h>
#include <g3d/g3d_XFormStack.h>

#endif
