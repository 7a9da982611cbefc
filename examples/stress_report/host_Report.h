#ifndef ORV_STRESS_REPORT_HOST_REPORT_H
#define ORV_STRESS_REPORT_HOST_REPORT_H

#include "frd_Model.h"
#include "host_Limit.h"
#include "host_Scene.h"

#include <gsl/gsl_Point.h>
#include <gsl/gsl_Vector.h>

#include <iosfwd>
#include <vector>

/// What the report is to look at, beside the model.
struct host_Questions {
    std::vector<gsl_Point> probes;
    gsl_Vector direction;  ///< of the gaps
    host_Limit limit;
};

/// Counts, boxes, bodies, extremes, gaps and probes, as text for people. Tells its progress; stops with what the
/// thread's reporter throws when the user wants it to.
void host_Report(std::ostream& out, const frd_Model& model, const std::vector<host_Face>& skin,
                 const host_Questions& questions);

#endif
