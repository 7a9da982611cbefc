#ifndef ORV_BASE_OMI_COMPLEX_H
#define ORV_BASE_OMI_COMPLEX_H

#include <complex>

/// A complex number of the scripting layer.
using omi_complex = std::complex<double>;

#endif
