#include <base/nex_Throw.h>
#include <omu/omu_RangeChecker.h>
#include <omu/omu_RangeErrorException.h>

#include <limits>

namespace {

/// For `double` the least positive normal number.
template <class T>
constexpr T lowerSentinel = std::numeric_limits<T>::min();
template <class T>
constexpr T upperSentinel = std::numeric_limits<T>::max();

omu_RangeQualifierEnm Qualifier(int limit, bool inclusive, int sentinel) {
    if (inclusive) return omu_InclusiveLimit;
    return limit == sentinel ? omu_NoLimit : omu_ExclusiveLimit;
}

omu_RangeQualifierEnm Qualifier(double limit, bool inclusive, double sentinel) {
    if (limit == sentinel) return omu_NoLimit;
    return inclusive ? omu_InclusiveLimit : omu_ExclusiveLimit;
}

template <class T>
void Check(const cow_String& name, T lower, bool lowerInclusive, T value, T upper, bool upperInclusive) {
    const bool isBelow = lowerInclusive ? value < lower : value <= lower;
    const bool isAbove = upperInclusive ? value > upper : value >= upper;
    if (isBelow || isAbove)
        nex_Throw(omu_RangeErrorException(name, lower, Qualifier(lower, lowerInclusive, lowerSentinel<T>), upper,
                                          Qualifier(upper, upperInclusive, upperSentinel<T>)));
}

}  // namespace

void omu_RangeChecker::CheckGreaterThan(const cow_String& name, int limit, bool inclusive, int value) {
    Check(name, limit, inclusive, value, upperSentinel<int>, false);
}
void omu_RangeChecker::CheckGreaterThan(const cow_String& name, double limit, bool inclusive, double value) {
    Check(name, limit, inclusive, value, upperSentinel<double>, false);
}

void omu_RangeChecker::CheckLessThan(const cow_String& name, int limit, bool inclusive, int value) {
    Check(name, lowerSentinel<int>, false, value, limit, inclusive);
}
void omu_RangeChecker::CheckLessThan(const cow_String& name, double limit, bool inclusive, double value) {
    Check(name, lowerSentinel<double>, false, value, limit, inclusive);
}

void omu_RangeChecker::CheckInRange(const cow_String& name, int lower, bool lowerInclusive, int value, int upper,
                                    bool upperInclusive) {
    Check(name, lower, lowerInclusive, value, upper, upperInclusive);
}
void omu_RangeChecker::CheckInRange(const cow_String& name, double lower, bool lowerInclusive, double value,
                                    double upper, bool upperInclusive) {
    Check(name, lower, lowerInclusive, value, upper, upperInclusive);
}
