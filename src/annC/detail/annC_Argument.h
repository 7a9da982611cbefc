#ifndef ORV_ANNC_DETAIL_ANNC_ARGUMENT_H
#define ORV_ANNC_DETAIL_ANNC_ARGUMENT_H

#include <annC/annC_Anchor.h>
#include <base/cow_String.h>
#include <omu/omu_Argument.h>
#include <omu/omu_PrimEnum.h>

#include <array>
#include <memory>
#include <span>

// What the annotation commands read beside the types that all commands know. Each type of number is taken.

/// A number.
struct annC_NumberArgument {
    double value = 0.0;
};
bool omu_TakeArgument(const omu_Primitive& found, annC_NumberArgument& target);
template <>
inline constexpr const char* omu_ExpectedName<annC_NumberArgument> = "float";

/// A tuple or a list of two numbers.
struct annC_PointArgument {
    std::array<double, 2> value{};
};
bool omu_TakeArgument(const omu_Primitive& found, annC_PointArgument& target);
template <>
inline constexpr const char* omu_ExpectedName<annC_PointArgument> = "tuple of 2 numbers";

/// The name of an annC_RelativePositionEnm, a tuple of two numbers (fractions) or one of three (a point of the model).
struct annC_AnchorArgument {
    annC_AnchorHld value;
};
bool omu_TakeArgument(const omu_Primitive& found, annC_AnchorArgument& target);
template <>
inline constexpr const char* omu_ExpectedName<annC_AnchorArgument> = "named position or tuple of 2 or 3 numbers";

// ---- The reverse

/// Its number for an enumerator that is not listed.
template <class E>
std::unique_ptr<omu_Primitive> annC_MakeEnum(E value) {
    auto named = std::make_unique<omu_PrimEnum<E>>(omu_PrimEnum<E>::Value(0));
    if (named->SetValue(value)) return named;
    return omu_MakePrimitive(static_cast<int>(value));
}

std::unique_ptr<omu_Primitive> annC_MakePoint(const std::array<double, 2>& point);
/// None for what cannot be read: no anchor, an anchor of a host's own class.
std::unique_ptr<omu_Primitive> annC_MakeAnchor(const annC_AnchorHld& anchor);

/// Whether it is '#' and six hexadecimal digits, or else a name in g3d_ColorMap.
bool annC_IsColor(const cow_String& color);

// ---- Checks. Each throws omu_RangeErrorException with the keyword; a NaN is out of every range.

/// Within the limits, both inclusive.
void annC_CheckNumber(const cow_String& keyword, double value, double lower, double upper);
void annC_CheckFinite(const cow_String& keyword, std::span<const double> numbers);
void annC_CheckAnchor(const cow_String& keyword, const annC_AnchorHld& anchor);
/// Throws g3d_ColorErrorException for what is no colour.
void annC_CheckColor(const cow_String& color);

#endif
