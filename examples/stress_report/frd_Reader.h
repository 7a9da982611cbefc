#ifndef ORV_STRESS_REPORT_FRD_READER_H
#define ORV_STRESS_REPORT_FRD_READER_H

#include "frd_Model.h"

#include <functional>
#include <iosfwd>
#include <stdexcept>
#include <string>

/// Why a text is no complete result file; tells the line.
class frd_Error : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Reads the text of an ASCII result file of CalculiX (`.frd`), in its short or long format. Fields are taken by
/// their columns, never by blanks: neighbours touch when the second is negative.
///
/// What the file may hold and this reader does not know (blocks, element types, results not given at nodes or at nodes
/// without a place) is left out, with a note on `notes`. Throws frd_Error when the file is no such file, is in a binary
/// format, ends early, contradicts its own counts, or has elements at nodes that it does not place. Positions must be
/// finite; a result may be infinite or not a number, also where the solver could only print asterisks.
///
/// `progress`, when there is one, is told from time to time which part of the text is read; what it throws passes
/// through.
[[nodiscard]] frd_Model frd_Read(const std::string& text, std::ostream& notes,
                                 const std::function<void(float part)>& progress = {});

#endif
