#include <base/nex_PrimException.h>
#include <omu/omu_Argument.h>
#include <omu/omu_PrimArray.h>
#include <omu/omu_PrimBoolean.h>
#include <omu/omu_PrimComplex.h>
#include <omu/omu_PrimDictionary.h>
#include <omu/omu_PrimEnumBase.h>
#include <omu/omu_PrimList.h>
#include <omu/omu_PrimNone.h>
#include <omu/omu_PrimNumber.h>
#include <omu/omu_PrimString.h>
#include <omu/omu_PrimTranslatedString.h>
#include <omu/omu_PrimType.h>
#include <omu/omu_VelmorName.h>

#include <utility>
#include <vector>

namespace {

template <class T>
std::unique_ptr<omu_Primitive> Number(T value) {
    return std::make_unique<omu_PrimNumber>(value);
}

/// A number of that kind and of the type character that goes with it.
template <class T, class Value>
bool TakeNumber(const omu_Primitive& found, omu_PrimNumber::DataTypeEnm kind,
                Value (omu_PrimNumber::*value)() const noexcept, T& target) {
    const auto* const number = dynamic_cast<const omu_PrimNumber*>(&found);
    const bool isReal = kind == omu_PrimNumber::FLOAT || kind == omu_PrimNumber::DOUBLE;
    if (number == nullptr || number->DataType() != kind || !number->IsType(isReal ? 'f' : 'i')) return false;
    target = (number->*value)();
    return true;
}

template <class Text>
bool TakeText(const omu_Primitive& found, Text& target) {
    const auto* const string = dynamic_cast<const omu_PrimString*>(&found);
    if (string == nullptr || !string->IsType('s')) return false;
    target = Text(string->Text());
    return true;
}

/// A value of the target's class; not one that is nested too deeply to be copied.
template <class P>
bool TakeCopy(const omu_Primitive& found, P& target) {
    const auto* const value = dynamic_cast<const P*>(&found);
    if (value == nullptr) return false;
    try {
        target = *value;
        return true;
    } catch (const nex_PrimException&) {
        return false;
    }
}

/// The elements of a tuple or a list, all of them, behind `elements`.
template <class T>
bool TakeElements(const omu_Primitive& found, std::vector<cow_Stored<T>>& elements) {
    const auto* const tuple = dynamic_cast<const omu_PrimTuple*>(&found);
    if (tuple == nullptr) return false;
    for (int i = 0; i < tuple->Length(); ++i) {
        const omu_Primitive* const element = tuple->Find(i);
        T value{};
        if (element == nullptr || !omu_TakeArgument(*element, value)) return false;
        elements.push_back(std::move(value));
    }
    return true;
}

template <class T>
bool TakeList(const omu_Primitive& found, cow_List<T>& target) {
    std::vector<cow_Stored<T>> elements;
    if (!TakeElements<T>(found, elements)) return false;
    target = cow_List<T>(std::move(elements));
    return true;
}

template <class T>
bool TakeRows(const omu_Primitive& found, cow_2DArray<T>& target) {
    const auto* const rows = dynamic_cast<const omu_PrimTuple*>(&found);
    if (rows == nullptr) return false;
    std::vector<T> elements;
    std::size_t columns = 0;
    for (int i = 0; i < rows->Length(); ++i) {
        const omu_Primitive* const row = rows->Find(i);
        const std::size_t before = elements.size();
        if (row == nullptr || !TakeElements<T>(*row, elements)) return false;
        if (i == 0) columns = elements.size();
        if (elements.size() - before != columns) return false;
    }
    target = cow_2DArray<T>(rows->Length(), static_cast<int>(columns), std::move(elements));
    return true;
}

}  // namespace

std::unique_ptr<omu_Primitive> omu_MakePrimitive(signed char value) { return Number(value); }
std::unique_ptr<omu_Primitive> omu_MakePrimitive(short value) { return Number(value); }
std::unique_ptr<omu_Primitive> omu_MakePrimitive(int value) { return Number(value); }
std::unique_ptr<omu_Primitive> omu_MakePrimitive(unsigned value) { return Number(value); }
std::unique_ptr<omu_Primitive> omu_MakePrimitive(float value) { return Number(value); }
std::unique_ptr<omu_Primitive> omu_MakePrimitive(double value) { return Number(value); }
std::unique_ptr<omu_Primitive> omu_MakePrimitive(bool value) { return std::make_unique<omu_PrimBoolean>(value); }
std::unique_ptr<omu_Primitive> omu_MakePrimitive(const char* value) { return omu_MakePrimitive(cow_String(value)); }
std::unique_ptr<omu_Primitive> omu_MakePrimitive(const cow_String& value) {
    return std::make_unique<omu_PrimString>(value);
}
std::unique_ptr<omu_Primitive> omu_MakePrimitive(const OrvBasUtlFilePath& value) {
    return omu_MakePrimitive(value.Path());
}
std::unique_ptr<omu_Primitive> omu_MakePrimitive(const omu_VelmorName& value) {
    return omu_MakePrimitive(value.AsString());
}
std::unique_ptr<omu_Primitive> omu_MakePrimitive(const atr_String& value) {
    return std::make_unique<omu_PrimTranslatedString>(value);
}
std::unique_ptr<omu_Primitive> omu_MakePrimitive(const omi_complex& value) {
    return std::make_unique<omu_PrimComplex>(value);
}
std::unique_ptr<omu_Primitive> omu_MakePrimitive(const omu_Primitive& value) { return value.Copy(); }
std::unique_ptr<omu_Primitive> omu_MakePrimitive(const cow_Map<cow_String, float>& values) {
    auto dictionary = std::make_unique<omu_PrimDictionary<cow_String>>();
    for (const auto& [key, value] : values) dictionary->Put(value, key);
    return dictionary;
}

bool omu_TakeArgument(const omu_Primitive& found, signed char& target) {
    return TakeNumber(found, omu_PrimNumber::SCHAR, &omu_PrimNumber::AsSchar, target);
}
bool omu_TakeArgument(const omu_Primitive& found, short& target) {
    return TakeNumber(found, omu_PrimNumber::SHORT, &omu_PrimNumber::AsShort, target);
}
bool omu_TakeArgument(const omu_Primitive& found, int& target) {
    return TakeNumber(found, omu_PrimNumber::INT, &omu_PrimNumber::AsInt, target);
}
bool omu_TakeArgument(const omu_Primitive& found, unsigned& target) {
    return TakeNumber(found, omu_PrimNumber::UINT, &omu_PrimNumber::AsUint, target);
}
bool omu_TakeArgument(const omu_Primitive& found, float& target) {
    return TakeNumber(found, omu_PrimNumber::FLOAT, &omu_PrimNumber::AsFloat, target);
}
bool omu_TakeArgument(const omu_Primitive& found, double& target) {
    return TakeNumber(found, omu_PrimNumber::DOUBLE, &omu_PrimNumber::AsDouble, target);
}

bool omu_TakeArgument(const omu_Primitive& found, omu_PrimNumber& target) { return TakeCopy(found, target); }

bool omu_TakeArgument(const omu_Primitive& found, bool& target) {
    if (const auto* const boolean = dynamic_cast<const omu_PrimBoolean*>(&found); boolean != nullptr) {
        if (!found.IsType('b')) return false;
        target = boolean->Value();
        return true;
    }
    const auto* const constant = dynamic_cast<const omu_PrimEnumBase*>(&found);
    if (constant == nullptr || (constant->StringValue() != "ON" && constant->StringValue() != "OFF")) return false;
    target = constant->StringValue() == "ON";
    return true;
}

bool omu_TakeArgument(const omu_Primitive& found, cow_String& target) { return TakeText(found, target); }
bool omu_TakeArgument(const omu_Primitive& found, OrvBasUtlFilePath& target) { return TakeText(found, target); }
bool omu_TakeArgument(const omu_Primitive& found, omu_VelmorName& target) { return TakeText(found, target); }

bool omu_TakeArgument(const omu_Primitive& found, atr_String& target) {
    const auto* const string = dynamic_cast<const omu_PrimTranslatedString*>(&found);
    if (string == nullptr || !string->IsType('l')) return false;
    target = atr_String(string->Text());
    return true;
}

bool omu_TakeArgument(const omu_Primitive& found, omi_complex& target) {
    const auto* const complex = dynamic_cast<const omu_PrimComplex*>(&found);
    if (complex == nullptr) return false;
    target = complex->Value();
    return true;
}

bool omu_TakeArgument(const omu_Primitive& found, omu_PrimEnumBase& target) {
    const auto* const constant = dynamic_cast<const omu_PrimEnumBase*>(&found);
    return constant != nullptr && target.SetValue(constant->StringValue());
}

bool omu_TakeArgument(const omu_Primitive& found, omu_PrimNone& target) {
    if (dynamic_cast<const omu_PrimNone*>(&found) == nullptr) return false;
    target.Set();
    return true;
}

bool omu_TakeArgument(const omu_Primitive& found, omu_PrimType& target) { return TakeCopy(found, target); }
bool omu_TakeArgument(const omu_Primitive& found, omu_PrimTuple& target) { return TakeCopy(found, target); }
bool omu_TakeArgument(const omu_Primitive& found, omu_PrimList& target) { return TakeCopy(found, target); }
bool omu_TakeArgument(const omu_Primitive& found, omu_PrimDictionary<int>& target) { return TakeCopy(found, target); }
bool omu_TakeArgument(const omu_Primitive& found, omu_PrimDictionary<cow_String>& target) {
    return TakeCopy(found, target);
}

bool omu_TakeArgument(const omu_Primitive& found, omu_PrimArray& target) {
    if (TakeCopy(found, target)) return true;
    const auto* const tuple = dynamic_cast<const omu_PrimTuple*>(&found);
    if (tuple == nullptr) return false;
    try {
        target = omu_PrimArray(*tuple);
        return true;
    } catch (const nex_PrimException&) {
        return false;
    }
}

bool omu_TakeArgument(const omu_Primitive& found, cow_List<int>& target) { return TakeList(found, target); }
bool omu_TakeArgument(const omu_Primitive& found, cow_List<float>& target) { return TakeList(found, target); }
bool omu_TakeArgument(const omu_Primitive& found, cow_List<double>& target) { return TakeList(found, target); }
bool omu_TakeArgument(const omu_Primitive& found, cow_List<bool>& target) { return TakeList(found, target); }
bool omu_TakeArgument(const omu_Primitive& found, cow_List<cow_String>& target) { return TakeList(found, target); }
bool omu_TakeArgument(const omu_Primitive& found, cow_List<atr_String>& target) { return TakeList(found, target); }
bool omu_TakeArgument(const omu_Primitive& found, cow_2DArray<double>& target) { return TakeRows(found, target); }
bool omu_TakeArgument(const omu_Primitive& found, cow_2DArray<cow_String>& target) { return TakeRows(found, target); }

bool omu_TakeArgument(const omu_Primitive& found, cow_Map<cow_String, float>& target) {
    const auto* const dictionary = dynamic_cast<const omu_PrimDictionary<cow_String>*>(&found);
    if (dictionary == nullptr) return false;
    cow_Map<cow_String, float> values;
    for (const auto& [key, element] : *dictionary) {
        float value = 0.0F;
        if (!omu_TakeArgument(element, value)) return false;
        values.Insert(key, value);
    }
    target = values;
    return true;
}

std::unique_ptr<omu_Primitive> omu_MakeList(std::vector<std::unique_ptr<omu_Primitive>> elements) {
    auto list = std::make_unique<omu_PrimList>('[', static_cast<int>(elements.size()));
    for (std::unique_ptr<omu_Primitive>& element : elements) list->Put(std::move(element));
    return list;
}
