#ifndef ORV_GSL_GSL_COORDTREEPT_H
#define ORV_GSL_GSL_COORDTREEPT_H

#include <gsl/gsl_Point.h>

/// A point of a coordinate tree: coordinates and identity, and the index its caller gave it. Indices need not differ.
struct gsl_CoordTreePt {
    /// Coordinates and identity, and the caller's index.
    gsl_Point point;
    unsigned index = 0;
};

#endif
