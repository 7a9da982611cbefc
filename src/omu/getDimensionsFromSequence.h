#ifndef ORV_OMU_GETDIMENSIONSFROMSEQUENCE_H
#define ORV_OMU_GETDIMENSIONSFROMSEQUENCE_H

#include <base/atr_String.h>
#include <base/cow_List.h>
#include <base/orv_Export.h>
#include <omu/omu_PrimNumber.h>

class omu_PrimSequence;

/// The type that holds a new item of type `a` beside what has type `b` so far; -1 is "no type yet". The first rule that
/// holds:
///  1. equal types: that type, be it SHORT;
///  2. a negative: DOUBLE;
///  3. a FLOAT: DOUBLE beside DOUBLE, else FLOAT;
///  4. a DOUBLE: DOUBLE;
///  5. a integral (SCHAR, SHORT, INT, UINT): beside a negative b FLOAT (an integer met before any type is known widens
///     to FLOAT, not to INT), beside an integral one INT, beside FLOAT or DOUBLE that one.
/// -1 for numbers that name no type.
[[nodiscard]] ORV_EXPORT omu_PrimNumber::DataTypeEnm widestType(omu_PrimNumber::DataTypeEnm a,
                                                                omu_PrimNumber::DataTypeEnm b);

/// What array the nested sequences of numbers would fill. With `level` = nd on entry (0 for a sequence by itself): `nd`
/// becomes the number of dimensions, `dims` the dimensions, outermost first, of which those before `level` are kept,
/// and `tc` the widest type of the numbers; the numbers of one row are combined item first, those of rows in order. An
/// empty sequence has type INT. Numbers all of SHORT, SCHAR or UINT keep their type, which no array can have.
///
/// With `checkAll` false only the first item of each level is looked at (a second one only for whether it is a number
/// or a sequence, as the first is).
///
/// False, with `reason`, when the numbers fill no rectangle, something is neither a number nor a sequence (an empty
/// holder included), a number names no type, `nd` is negative, or there are more than 150 levels; `nd`, `dims` and `tc`
/// are then what they had become. Throws nothing.
ORV_EXPORT bool getDimensionsFromSequence(const omu_PrimSequence& sequence, int& nd, cow_List<int>& dims,
                                          omu_PrimNumber::DataTypeEnm& tc, atr_String& reason, bool checkAll);

#endif
