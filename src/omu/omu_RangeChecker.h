#ifndef ORV_OMU_OMU_RANGECHECKER_H
#define ORV_OMU_OMU_RANGECHECKER_H

#include <base/cow_String.h>
#include <base/orv_Export.h>

/// Checks of numeric arguments. Each returns when the value is in its range and throws omu_RangeErrorException, with
/// the argument's name and the range, when it is not. A NaN, as a value or as a limit, is outside of nothing.
///
/// A limit may be a sentinel that means "no limit":
///
/// |          | lower                                              | upper                                 |
/// |----------|----------------------------------------------------|---------------------------------------|
/// | `double` | the least positive normal, 2.2250738585072014e-308 | the greatest, 1.7976931348623157e+308 |
/// | `int`    | -2147483648                                        | 2147483647                            |
///
/// Sentinels change only the range that is told; they are compared with as any limit is. How a side is told:
///
/// - `double`: the sentinel as no limit, whether inclusive or not; any other limit as inclusive or exclusive;
/// - `int`: an inclusive limit always as inclusive, the sentinel too; an exclusive sentinel as no limit.
///
/// Mind the lower sentinel of `double`: it is the least positive number, not the least number.
class ORV_EXPORT omu_RangeChecker {
public:
    omu_RangeChecker() = delete;

    /// Above `limit`, or at it when inclusive. Throws for a value at or above the upper sentinel as well, and tells the
    /// lower limit only.
    static void CheckGreaterThan(const cow_String& name, int limit, bool inclusive, int value);
    static void CheckGreaterThan(const cow_String& name, double limit, bool inclusive, double value);

    /// Below `limit`, or at it when inclusive. Throws for a value at or below the lower sentinel as well, and tells the
    /// upper limit only: for `double` zero and all negative values are refused whatever the limit.
    static void CheckLessThan(const cow_String& name, int limit, bool inclusive, int value);
    static void CheckLessThan(const cow_String& name, double limit, bool inclusive, double value);

    /// Between the limits, either of which is in the range when it is inclusive.
    static void CheckInRange(const cow_String& name, int lower, bool lowerInclusive, int value, int upper,
                             bool upperInclusive);
    static void CheckInRange(const cow_String& name, double lower, bool lowerInclusive, double value, double upper,
                             bool upperInclusive);
};

#endif
