#include <base/OrvBasTimeCounter.h>
#include <gsl/gsl_Util.h>

template class omi_Singleton<gsl_Util>;

gsl_Util& gsl_Util::Instance() { return omi_Singleton<gsl_Util>::Instance(); }

gsl_Util::gsl_Util() : _creationTime(OrvBasTimeCounter()) {}
