#ifndef ORV_GSL_GSL_H
#define ORV_GSL_GSL_H

#include <gsl/gsl_BBox.h>
#include <gsl/gsl_Dot.h>
#include <gsl/gsl_GetPoint.h>
#include <gsl/gsl_Matrix.h>
#include <gsl/gsl_ModelSegment.h>
#include <gsl/gsl_PersistentMatrix.h>
#include <gsl/gsl_PersistentVector.h>
#include <gsl/gsl_Plane.h>
#include <gsl/gsl_Point.h>
#include <gsl/gsl_PrintIndented.h>
#include <gsl/gsl_Real.h>
#include <gsl/gsl_SameCoordinates.h>
#include <gsl/gsl_Segment.h>
#include <gsl/gsl_StLine.h>
#include <gsl/gsl_TypeId.h>
#include <gsl/gsl_Util.h>
#include <gsl/gsl_Vector.h>

#endif
