#ifndef ORV_GSL_GSL_PRINTINDENTED_H
#define ORV_GSL_GSL_PRINTINDENTED_H

#include <base/aio_ostream.h>
#include <base/orv_Export.h>

#include <initializer_list>

/// A label and the number behind it.
struct gsl_LabelledNumber {
    /// The two.
    const char* label;
    double value;
};

/// One line for the `Print` of a geometry class: `indentation` blanks (none when negative), then each label and its
/// number with 15 significant digits ("%.15g" with a decimal point), then a newline. Flags, precision, width and locale
/// of the stream are neither looked at nor changed. Does not flush.
ORV_EXPORT void gsl_PrintIndented(aio_ostream& out, int indentation, std::initializer_list<gsl_LabelledNumber> line);

#endif
