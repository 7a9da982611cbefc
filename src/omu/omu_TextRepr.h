#ifndef ORV_OMU_OMU_TEXTREPR_H
#define ORV_OMU_OMU_TEXTREPR_H

#include <base/cow_String.h>
#include <base/omi_Singleton.h>
#include <base/orv_Export.h>

#include <limits>

class omu_TextRepr;
extern template class ORV_EXPORT omi_Singleton<omu_TextRepr>;

/// How the scripting bridge is to print objects: settings of the process, kept here for the bridge, which alone uses
/// them. They go back to their defaults at the last stop of the module.
///
/// Threads: the scripting thread only.
class ORV_EXPORT omu_TextRepr {
public:
    /// The one object; made on use.
    [[nodiscard]] static omu_TextRepr& Instance();

    /// 1 for the short form; see `IsSimpleStyle`.
    [[nodiscard]] int GetSimpleStyle() const noexcept { return _simpleStyle; }
    void SetSimpleStyle(int style) noexcept { _simpleStyle = style; }
    /// For 1 alone, not for other values than 0.
    [[nodiscard]] bool IsSimpleStyle() const noexcept { return _simpleStyle == 1; }

    /// Depth to which nested objects are printed.
    [[nodiscard]] int GetMaxRecursion() const noexcept { return _maxRecursion; }
    void SetMaxRecursion(int depth) noexcept { _maxRecursion = depth; }

    /// Elements of a sequence that are printed.
    [[nodiscard]] int GetMaxElementsInSequence() const noexcept { return _maxElementsInSequence; }
    void SetMaxElementsInSequence(int count) noexcept { _maxElementsInSequence = count; }

    /// Length of a printed text, in megabytes.
    [[nodiscard]] int GetMaxReprStringSize() const noexcept { return _maxReprStringSize; }
    void SetMaxReprStringSize(int megabytes) noexcept { _maxReprStringSize = megabytes; }

    /// What is smaller in magnitude prints as zero.
    [[nodiscard]] double GetZeroTolerance() const noexcept { return _zeroTolerance; }
    void SetZeroTolerance(double tolerance) noexcept { _zeroTolerance = tolerance; }

    /// Of printed floats.
    [[nodiscard]] int GetSignificantDigits() const noexcept { return _significantDigits; }
    void SetSignificantDigits(int digits) noexcept { _significantDigits = digits; }

    /// What is printed for an object beyond the depth: the text with its first "%s" replaced by the object's exposed
    /// type name, in single quotes ('Part object'); the text as it is for null. All other "%" stand for themselves.
    [[nodiscard]] cow_String GetMaxRecursionString(const char* exposedTypeName = nullptr) const;
    void SetMaxRecursionString(const cow_String& text) { _maxRecursionString = text; }

    /// Whether members and methods that are internal are printed.
    [[nodiscard]] bool GetInternalMembersAndMethods() const noexcept { return _internalMembersAndMethods; }
    void SetInternalMembersAndMethods(bool printed) noexcept { _internalMembersAndMethods = printed; }

    /// Whether members and methods are printed in order of their names.
    [[nodiscard]] bool GetSortedMembersAndMethods() const noexcept { return _sortedMembersAndMethods; }
    void SetSortedMembersAndMethods(bool sorted) noexcept { _sortedMembersAndMethods = sorted; }

private:
    friend class omi_Singleton<omu_TextRepr>;
    omu_TextRepr() = default;

    int _simpleStyle = 0;
    int _maxRecursion = 1;
    int _maxElementsInSequence = std::numeric_limits<int>::max();
    int _maxReprStringSize = 1;
    double _zeroTolerance = 1e-6;
    int _significantDigits = 3;
    cow_String _maxRecursionString = "%s object";
    bool _internalMembersAndMethods = false;
    bool _sortedMembersAndMethods = true;
};

#endif
