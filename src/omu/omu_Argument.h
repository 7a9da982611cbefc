#ifndef ORV_OMU_OMU_ARGUMENT_H
#define ORV_OMU_OMU_ARGUMENT_H

#include <base/OrvBasUtlFilePath.h>
#include <base/atr_String.h>
#include <base/cow_2DArray.h>
#include <base/cow_List.h>
#include <base/cow_Map.h>
#include <base/omi_complex.h>
#include <base/orv_Export.h>
#include <omu/omu_Primitive.h>

#include <concepts>
#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

class omu_PrimArray;
class omu_PrimEnumBase;
class omu_PrimList;
class omu_PrimNone;
class omu_PrimNumber;
class omu_PrimTuple;
class omu_PrimType;
class omu_VelmorName;
template <class K>
class omu_PrimDictionary;

// How C++ values become scripting values (`omu_MakePrimitive`) and how scripting values are read into C++ ones
// (`omu_TakeArgument`). A bridge adds types of its own by overloads beside its types.

// ---- From C++

/// An omu_PrimNumber of the argument's type.
[[nodiscard]] ORV_EXPORT std::unique_ptr<omu_Primitive> omu_MakePrimitive(signed char value);
[[nodiscard]] ORV_EXPORT std::unique_ptr<omu_Primitive> omu_MakePrimitive(short value);
[[nodiscard]] ORV_EXPORT std::unique_ptr<omu_Primitive> omu_MakePrimitive(int value);
[[nodiscard]] ORV_EXPORT std::unique_ptr<omu_Primitive> omu_MakePrimitive(unsigned value);
[[nodiscard]] ORV_EXPORT std::unique_ptr<omu_Primitive> omu_MakePrimitive(float value);
[[nodiscard]] ORV_EXPORT std::unique_ptr<omu_Primitive> omu_MakePrimitive(double value);
/// An omu_PrimBoolean.
[[nodiscard]] ORV_EXPORT std::unique_ptr<omu_Primitive> omu_MakePrimitive(bool value);
/// An omu_PrimString, as the next three; null is the empty text.
[[nodiscard]] ORV_EXPORT std::unique_ptr<omu_Primitive> omu_MakePrimitive(const char* value);
[[nodiscard]] ORV_EXPORT std::unique_ptr<omu_Primitive> omu_MakePrimitive(const cow_String& value);
[[nodiscard]] ORV_EXPORT std::unique_ptr<omu_Primitive> omu_MakePrimitive(const OrvBasUtlFilePath& value);
[[nodiscard]] ORV_EXPORT std::unique_ptr<omu_Primitive> omu_MakePrimitive(const omu_VelmorName& value);
/// An omu_PrimTranslatedString.
[[nodiscard]] ORV_EXPORT std::unique_ptr<omu_Primitive> omu_MakePrimitive(const atr_String& value);
/// An omu_PrimComplex.
[[nodiscard]] ORV_EXPORT std::unique_ptr<omu_Primitive> omu_MakePrimitive(const omi_complex& value);
/// A copy.
[[nodiscard]] ORV_EXPORT std::unique_ptr<omu_Primitive> omu_MakePrimitive(const omu_Primitive& value);
/// An omu_PrimList of type '[' with the elements.
template <class T>
[[nodiscard]] std::unique_ptr<omu_Primitive> omu_MakePrimitive(const cow_List<T>& values);
/// An omu_PrimList with an omu_PrimList for each row.
template <class T>
[[nodiscard]] std::unique_ptr<omu_Primitive> omu_MakePrimitive(const cow_2DArray<T>& values);
/// An omu_PrimDictionary.
[[nodiscard]] ORV_EXPORT std::unique_ptr<omu_Primitive> omu_MakePrimitive(const cow_Map<cow_String, float>& values);

// What would silently become a number, a truth value or an empty text.
void omu_MakePrimitive(char) = delete;
void omu_MakePrimitive(std::nullptr_t) = delete;
template <class T>
void omu_MakePrimitive(T*) = delete;

/// What `Put` takes by value.
template <class V>
concept omu_Puttable = requires(const V& value) {
    { omu_MakePrimitive(value) } -> std::same_as<std::unique_ptr<omu_Primitive>>;
};

// ---- To C++. True when `found` is what the target reads; the target is left alone otherwise. The match is strict: a
// number is read only as the type it was made from, and no text is parsed.

/// A number of exactly the target's type.
[[nodiscard]] ORV_EXPORT bool omu_TakeArgument(const omu_Primitive& found, signed char& target);
[[nodiscard]] ORV_EXPORT bool omu_TakeArgument(const omu_Primitive& found, short& target);
[[nodiscard]] ORV_EXPORT bool omu_TakeArgument(const omu_Primitive& found, int& target);
[[nodiscard]] ORV_EXPORT bool omu_TakeArgument(const omu_Primitive& found, unsigned& target);
[[nodiscard]] ORV_EXPORT bool omu_TakeArgument(const omu_Primitive& found, float& target);
[[nodiscard]] ORV_EXPORT bool omu_TakeArgument(const omu_Primitive& found, double& target);
/// A number of any kind, taken over with its kind.
[[nodiscard]] ORV_EXPORT bool omu_TakeArgument(const omu_Primitive& found, omu_PrimNumber& target);
/// A Boolean, or an enumeration named ON or OFF.
[[nodiscard]] ORV_EXPORT bool omu_TakeArgument(const omu_Primitive& found, bool& target);
/// A string, as the two after the next. A translated string is none.
[[nodiscard]] ORV_EXPORT bool omu_TakeArgument(const omu_Primitive& found, cow_String& target);
/// A translated string.
[[nodiscard]] ORV_EXPORT bool omu_TakeArgument(const omu_Primitive& found, atr_String& target);
/// A string, as a path.
[[nodiscard]] ORV_EXPORT bool omu_TakeArgument(const omu_Primitive& found, OrvBasUtlFilePath& target);
/// Not checked against the rules for names.
[[nodiscard]] ORV_EXPORT bool omu_TakeArgument(const omu_Primitive& found, omu_VelmorName& target);
/// A complex number.
[[nodiscard]] ORV_EXPORT bool omu_TakeArgument(const omu_Primitive& found, omi_complex& target);
/// Any enumeration whose name is among the permissible ones of the target.
[[nodiscard]] ORV_EXPORT bool omu_TakeArgument(const omu_Primitive& found, omu_PrimEnumBase& target);
/// A None; sets the target.
[[nodiscard]] ORV_EXPORT bool omu_TakeArgument(const omu_Primitive& found, omu_PrimNone& target);
/// A type.
[[nodiscard]] ORV_EXPORT bool omu_TakeArgument(const omu_Primitive& found, omu_PrimType& target);
/// A tuple or a list; a list is read as a tuple of its type character.
[[nodiscard]] ORV_EXPORT bool omu_TakeArgument(const omu_Primitive& found, omu_PrimTuple& target);
/// A list.
[[nodiscard]] ORV_EXPORT bool omu_TakeArgument(const omu_Primitive& found, omu_PrimList& target);
/// An array, or a tuple or list that an array can be made of.
[[nodiscard]] ORV_EXPORT bool omu_TakeArgument(const omu_Primitive& found, omu_PrimArray& target);
/// A dictionary with such keys.
[[nodiscard]] ORV_EXPORT bool omu_TakeArgument(const omu_Primitive& found, omu_PrimDictionary<int>& target);
[[nodiscard]] ORV_EXPORT bool omu_TakeArgument(const omu_Primitive& found, omu_PrimDictionary<cow_String>& target);
/// A tuple or a list, each element of which the element type reads.
[[nodiscard]] ORV_EXPORT bool omu_TakeArgument(const omu_Primitive& found, cow_List<int>& target);
[[nodiscard]] ORV_EXPORT bool omu_TakeArgument(const omu_Primitive& found, cow_List<float>& target);
[[nodiscard]] ORV_EXPORT bool omu_TakeArgument(const omu_Primitive& found, cow_List<double>& target);
[[nodiscard]] ORV_EXPORT bool omu_TakeArgument(const omu_Primitive& found, cow_List<bool>& target);
[[nodiscard]] ORV_EXPORT bool omu_TakeArgument(const omu_Primitive& found, cow_List<cow_String>& target);
[[nodiscard]] ORV_EXPORT bool omu_TakeArgument(const omu_Primitive& found, cow_List<atr_String>& target);
/// A tuple or list of rows of equal length, each as for a list. No rows: 0 x 0.
[[nodiscard]] ORV_EXPORT bool omu_TakeArgument(const omu_Primitive& found, cow_2DArray<double>& target);
[[nodiscard]] ORV_EXPORT bool omu_TakeArgument(const omu_Primitive& found, cow_2DArray<cow_String>& target);
/// A dictionary with string keys whose values are all of kind FLOAT.
[[nodiscard]] ORV_EXPORT bool omu_TakeArgument(const omu_Primitive& found, cow_Map<cow_String, float>& target);

/// What messages call that which a target of type T reads. A bridge specialises it for its types.
template <class T>
inline constexpr const char* omu_ExpectedName = nullptr;
template <>
inline constexpr const char* omu_ExpectedName<signed char> = "int";
template <>
inline constexpr const char* omu_ExpectedName<short> = "int";
template <>
inline constexpr const char* omu_ExpectedName<int> = "int";
template <>
inline constexpr const char* omu_ExpectedName<unsigned> = "int";
template <>
inline constexpr const char* omu_ExpectedName<float> = "float";
template <>
inline constexpr const char* omu_ExpectedName<double> = "float";
template <>
inline constexpr const char* omu_ExpectedName<bool> = "Boolean";
template <>
inline constexpr const char* omu_ExpectedName<cow_String> = "string";
template <>
inline constexpr const char* omu_ExpectedName<OrvBasUtlFilePath> = "string";
template <>
inline constexpr const char* omu_ExpectedName<omu_VelmorName> = "string";
template <>
inline constexpr const char* omu_ExpectedName<atr_String> = "tran_string";
template <>
inline constexpr const char* omu_ExpectedName<omi_complex> = "complex";
template <class T>
inline constexpr const char* omu_ExpectedName<cow_List<T>> = "tuple";
template <class T>
inline constexpr const char* omu_ExpectedName<cow_2DArray<T>> = "tuple";
template <>
inline constexpr const char* omu_ExpectedName<cow_Map<cow_String, float>> = "dictionary with string keys";

/// What `Get` reads.
template <class T>
concept omu_Readable = (std::derived_from<T, omu_Primitive> || omu_ExpectedName<T> != nullptr) &&
                       requires(const omu_Primitive& found, T& target) {
    { omu_TakeArgument(found, target) } -> std::same_as<bool>;
};

/// The target of one read, whatever its type.
class omu_ArgumentSlot {
public:
    /// Refers to a target that must outlive it.
    template <omu_Readable T>
    explicit omu_ArgumentSlot(T& target) noexcept
        : _target(&target),
          _take([](const omu_Primitive& found, void* t) { return omu_TakeArgument(found, *static_cast<T*>(t)); }),
          _expected([](const void* t) -> cow_String {
              if constexpr (std::derived_from<T, omu_Primitive>)
                  return static_cast<const T*>(t)->TypeString();
              else
                  return omu_ExpectedName<T>;
          }) {}

    /// Reads `found` into the target; false, and nothing changed, when it is not what the target reads.
    [[nodiscard]] bool Take(const omu_Primitive& found) const { return _take(found, _target); }
    /// What a message calls the target's type.
    [[nodiscard]] cow_String Expected() const { return _expected(_target); }

private:
    void* _target;
    bool (*_take)(const omu_Primitive&, void*);
    cow_String (*_expected)(const void*);
};

// ---- Lists

/// An omu_PrimList of type '[' with these elements.
[[nodiscard]] ORV_EXPORT std::unique_ptr<omu_Primitive> omu_MakeList(
    std::vector<std::unique_ptr<omu_Primitive>> elements);

template <class T>
std::unique_ptr<omu_Primitive> omu_MakePrimitive(const cow_List<T>& values) {
    std::vector<std::unique_ptr<omu_Primitive>> elements;
    elements.reserve(values.Span().size());
    // The cast: a list of bool keeps bytes.
    for (const auto& value : values) elements.push_back(omu_MakePrimitive(static_cast<const T&>(value)));
    return omu_MakeList(std::move(elements));
}

template <class T>
std::unique_ptr<omu_Primitive> omu_MakePrimitive(const cow_2DArray<T>& values) {
    std::vector<std::unique_ptr<omu_Primitive>> rows;
    for (int row = 0; row < values.Rows(); ++row) {
        std::vector<std::unique_ptr<omu_Primitive>> elements;
        for (int column = 0; column < values.Cols(); ++column)
            elements.push_back(omu_MakePrimitive(static_cast<const T&>(values.ConstGet(row, column))));
        rows.push_back(omu_MakeList(std::move(elements)));
    }
    return omu_MakeList(std::move(rows));
}

#endif
