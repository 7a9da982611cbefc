#include <annC/annC_NamedAnchor.h>
#include <annC/annC_Point3DAnchor.h>
#include <annC/annC_ViewportAnchor.h>
#include <annC/detail/annC_Argument.h>
#include <base/nex_Throw.h>
#include <g3d/g3d_ColorErrorException.h>
#include <g3d/g3d_ColorMap.h>
#include <omu/omu_PrimNone.h>
#include <omu/omu_PrimNumber.h>
#include <omu/omu_PrimTuple.h>
#include <omu/omu_RangeChecker.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <limits>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace {

constexpr double greatest = std::numeric_limits<double>::max();
constexpr double infinity = std::numeric_limits<double>::infinity();

/// The elements of a tuple or a list of numbers.
std::optional<std::vector<double>> NumbersOf(const omu_Primitive& found) {
    const auto* const tuple = dynamic_cast<const omu_PrimTuple*>(&found);
    if (tuple == nullptr) return std::nullopt;
    std::vector<double> numbers;
    numbers.reserve(static_cast<std::size_t>(tuple->Length()));
    for (int i = 0; i < tuple->Length(); ++i) {
        annC_NumberArgument number;
        const omu_Primitive* const element = tuple->Find(i);
        if (element == nullptr || !omu_TakeArgument(*element, number)) return std::nullopt;
        numbers.push_back(number.value);
    }
    return numbers;
}

std::unique_ptr<omu_Primitive> MakeTuple(std::span<const double> numbers) {
    auto tuple = std::make_unique<omu_PrimTuple>();
    for (const double number : numbers) tuple->Put(number);
    return tuple;
}

/// None of a named anchor, and of what is no anchor of this module.
std::vector<double> CoordinatesOf(const annC_AnchorHld& anchor) {
    if (const auto* const at = dynamic_cast<const annC_ViewportAnchor*>(anchor.Get()); at != nullptr)
        return {at->PositionX(), at->PositionY()};
    if (const auto* const at = dynamic_cast<const annC_Point3DAnchor*>(anchor.Get()); at != nullptr)
        return {at->PositionX(), at->PositionY(), at->PositionZ()};
    return {};
}

}  // namespace

// ---- Reading

bool omu_TakeArgument(const omu_Primitive& found, annC_NumberArgument& target) {
    const auto* const number = dynamic_cast<const omu_PrimNumber*>(&found);
    if (number == nullptr) return false;
    target.value = number->DataType() == omu_PrimNumber::UINT ? number->AsUint() : number->AsDouble();
    return true;
}

bool omu_TakeArgument(const omu_Primitive& found, annC_PointArgument& target) {
    const auto numbers = NumbersOf(found);
    if (!numbers || numbers->size() != 2) return false;
    target.value = {(*numbers)[0], (*numbers)[1]};
    return true;
}

bool omu_TakeArgument(const omu_Primitive& found, annC_AnchorArgument& target) {
    omu_PrimEnum<annC_RelativePositionEnm> position(annC_RelativePositionEnm::BOTTOM_LEFT);
    if (omu_TakeArgument(found, static_cast<omu_PrimEnumBase&>(position))) {
        target.value = annC_AnchorHld(std::make_shared<annC_NamedAnchor>(position.Value()));
        return true;
    }
    const auto numbers = NumbersOf(found);
    if (!numbers || numbers->size() < 2 || numbers->size() > 3) return false;
    const std::vector<double>& at = *numbers;
    target.value = at.size() == 2 ? annC_AnchorHld(std::make_shared<annC_ViewportAnchor>(at[0], at[1]))
                                  : annC_AnchorHld(std::make_shared<annC_Point3DAnchor>(at[0], at[1], at[2]));
    return true;
}

// ---- The reverse

std::unique_ptr<omu_Primitive> annC_MakePoint(const std::array<double, 2>& point) { return MakeTuple(point); }

std::unique_ptr<omu_Primitive> annC_MakeAnchor(const annC_AnchorHld& anchor) {
    if (const auto* const named = dynamic_cast<const annC_NamedAnchor*>(anchor.Get()); named != nullptr)
        return annC_MakeEnum(named->Position());
    const std::vector<double> coordinates = CoordinatesOf(anchor);
    if (coordinates.empty()) return std::make_unique<omu_PrimNone>();
    return MakeTuple(coordinates);
}

bool annC_IsColor(const cow_String& color) {
    const std::string_view text = color.View();
    if (!text.starts_with('#')) return g3d_ColorMap::Instance().IsMember(color);
    const auto isHexadecimal = [](unsigned char c) { return std::isxdigit(c) != 0; };
    return text.size() == 7 && std::all_of(text.begin() + 1, text.end(), isHexadecimal);
}

// ---- Checks

void annC_CheckNumber(const cow_String& keyword, double value, double lower, double upper) {
    omu_RangeChecker::CheckInRange(keyword, lower, true, std::isnan(value) ? infinity : value, upper, true);
}

void annC_CheckFinite(const cow_String& keyword, std::span<const double> numbers) {
    for (const double number : numbers) annC_CheckNumber(keyword, number, -greatest, greatest);
}

void annC_CheckAnchor(const cow_String& keyword, const annC_AnchorHld& anchor) {
    annC_CheckFinite(keyword, CoordinatesOf(anchor));
}

void annC_CheckColor(const cow_String& color) {
    if (!annC_IsColor(color)) nex_Throw(g3d_ColorErrorException(color));
}
