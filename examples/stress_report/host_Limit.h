#ifndef ORV_STRESS_REPORT_HOST_LIMIT_H
#define ORV_STRESS_REPORT_HOST_LIMIT_H

#include <mdl/mdl_PropAttr.h>

#include <string>

/// The allowable Mises stress of a model, in the unit of its stresses, kept in model files. One that a loaded model
/// brings along is UNCHANGED, one that the user gives SET.
using host_Limit = mdl_PropAttr<double>;

/// As a script would give it: a number above 0 sets the limit, the name "FREED" takes it back. Throws std::exception
/// with the reason for any other text.
void host_GiveLimit(host_Limit& limit, const std::string& text);

/// Throws std::runtime_error for one that is in force and not a finite number above 0.
void host_CheckLimit(const host_Limit& limit);

/// "UNCHANGED" and so on.
[[nodiscard]] std::string host_StateName(const host_Limit& limit);

#endif
