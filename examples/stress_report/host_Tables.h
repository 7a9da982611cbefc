#ifndef ORV_STRESS_REPORT_HOST_TABLES_H
#define ORV_STRESS_REPORT_HOST_TABLES_H

#include "frd_Model.h"
#include "host_Results.h"

#include <string>

/// The nodes with what the set has at them, as comma-separated values under a line of names: place, displacement,
/// Mises, Tresca and the principal values, descending, with their directions. A field without a value is empty; numbers
/// have nine significant digits and a decimal point, whatever the locale.
[[nodiscard]] std::string host_Csv(const frd_Model& model, const host_Set& set);

#endif
