// Scripting values of every class, nested at will: their texts, their copies, what a stream makes of them, and the
// arrays that nested sequences become.

#include "fuzz_Values.h"

#include <base/cls_MetadataRegistrar.h>
#include <base/nex_RangeException.h>
#include <base/nex_StreamException.h>
#include <support/streams.h>

#include <cmath>
#include <optional>

namespace {

/// Dimensions of the rectangle that nested sequences of numbers fill, as a definition of it says.
std::optional<std::vector<int>> Rectangle(const omu_Primitive& value) {
    if (dynamic_cast<const omu_PrimNumber*>(&value) != nullptr) return std::vector<int>{};
    const auto* sequence = dynamic_cast<const omu_PrimSequence*>(&value);
    if (sequence == nullptr) return std::nullopt;
    std::optional<std::vector<int>> inner;
    for (int i = 0; i < sequence->Length(); ++i) {
        if (const auto* tuple = dynamic_cast<const omu_PrimTuple*>(sequence); tuple != nullptr && !tuple->Find(i))
            return std::nullopt;
        const auto dims = Rectangle((*sequence)[i]);
        if (!dims || (inner && *dims != *inner)) return std::nullopt;
        inner = dims;
    }
    std::vector<int> dims{sequence->Length()};
    if (inner) dims.insert(dims.end(), inner->begin(), inner->end());
    return dims;
}

/// Whether the array holds the numbers of the sequences, converted to its type.
bool HasNumbersOf(const omu_PrimArray& array, const omu_Primitive& item, const omu_Primitive& source) {
    if (const auto* number = dynamic_cast<const omu_PrimNumber*>(&source)) {
        const bool isUnsigned = number->DataType() == omu_PrimNumber::UINT;
        double expected = isUnsigned ? number->AsUint() : number->AsDouble();
        if (array.ConstGetPrimNumberType() == omu_PrimNumber::INT)
            expected = isUnsigned ? static_cast<int>(number->AsUint()) : number->AsInt();
        if (array.ConstGetPrimNumberType() == omu_PrimNumber::FLOAT)
            expected = static_cast<double>(static_cast<float>(expected));
        const double found = dynamic_cast<const omu_PrimNumber&>(item).AsDouble();
        return found == expected || (std::isnan(found) && std::isnan(expected));
    }
    const auto& from = dynamic_cast<const omu_PrimSequence&>(source);
    const auto& to = dynamic_cast<const omu_PrimSequence&>(item);
    if (to.Length() != from.Length()) return false;
    for (int i = 0; i < from.Length(); ++i)
        if (!HasNumbersOf(array, to[i], from[i])) return false;
    return true;
}

void CheckArray(const omu_PrimSequence& sequence) {
    int nd = 0;
    cow_List<int> dims;
    auto type = static_cast<omu_PrimNumber::DataTypeEnm>(-1);
    atr_String reason;
    const bool fits = getDimensionsFromSequence(sequence, nd, dims, type, reason, true);
    const auto expected = Rectangle(sequence);
    if (expected && expected->size() > 150) return;  // refused for its depth
    fuzz_Require(fits == expected.has_value(), "sequences that fill a rectangle are an array");
    if (!fits) return;
    fuzz_Require(nd == dims.Length() && dims == cow_List<int>(*expected), "the dimensions of the rectangle");
    // An array is copied as it is, in the type that it has without elements too.
    if (dynamic_cast<const omu_PrimArray*>(&sequence) != nullptr) return;
    bool isMade = true;
    try {
        const omu_PrimArray array(sequence);
        fuzz_Require(array.ConstGetNumDimensions() == nd && array.Length() == sequence.Length(), "the array's shape");
        fuzz_Require(array.ConstGetPrimNumberType() == type, "the array's type");
        fuzz_Require(HasNumbersOf(array, array, sequence), "the array's numbers");
    } catch (const nex_PrimException&) {
        isMade = false;
    }
    const bool hasArrays =
        type == omu_PrimNumber::INT || type == omu_PrimNumber::FLOAT || type == omu_PrimNumber::DOUBLE;
    fuzz_Require(isMade == hasArrays, "arrays are of INT, FLOAT and DOUBLE");
}

void CheckOperations(const omu_PrimSequence& sequence, fuzz_Bytes& bytes) {
    const int length = sequence.Length();
    const int begin = bytes.Take<std::int8_t>();
    const int end = bytes.Take<std::int8_t>();
    const int count = static_cast<int>(bytes.Below(4)) - 1;
    const auto act = [](const auto& make) -> std::unique_ptr<omu_PrimSequence> {
        try {
            return make();
        } catch (const nex_PrimException&) {   // an empty holder, or arrays of other dimensions
        } catch (const nex_RangeException&) {  // a begin that is still negative
        }
        return nullptr;
    };
    if (const auto slice = act([&] { return sequence.Slice(begin, end); })) {
        int last = std::min(end, length), first = begin;
        if (last < 0) last += length;
        if (first < 0) first += length;
        fuzz_Require(slice->Length() == std::max(0, last - first), "the length of a slice");
        if (slice->Length() > 0) fuzz_Require((*slice)[0].AsString() == sequence[first].AsString(), "a slice's first");
    }
    if (const auto repeated = act([&] { return sequence.Repeat(count); }))
        fuzz_Require(repeated->Length() == length * std::max(count, 0), "the length of a repetition");
    const auto doubled = act([&] { return sequence.Concat(&sequence); });
    const auto twice = act([&] { return sequence.Repeat(2); });
    fuzz_Require((doubled == nullptr) == (twice == nullptr), "twice or doubled");
    if (doubled) fuzz_Require(doubled->AsString() == twice->AsString(), "doubled is twice");
}

void Check(const omu_Primitive& value, fuzz_Bytes& bytes) {
    const cow_String text = value.AsString();
    static_cast<void>(value.AsRepr());
    static_cast<void>(value.TypeString());
    const bool isItself = value == value;
    fuzz_Require(isItself != (value != value), "!= is the opposite of ==");

    const fuzz_Value copy = value.Copy();
    fuzz_Require(copy->AsString() == text && copy->DynTypeId() == value.DynTypeId(), "a copy is of the same class");
    fuzz_Require((*copy == value) == isItself && (value == *copy) == isItself, "a copy is equal unless it has a NaN");

    const cls_ClassRegistrar& registrar = cls_MetadataRegistrar::Instance().Registrar();
    const std::string stream = Written(registrar, value);
    bio_Ifilter in(stream);
    const auto read = idb_ReadShared<omu_Primitive>(in, registrar);
    fuzz_Require(read->AsString() == text && (*read == value) == isItself, "a value comes back from a stream");
    fuzz_Require(Written(registrar, *read) == stream, "and writes the same bytes again");

    if (const auto* sequence = dynamic_cast<const omu_PrimSequence*>(&value)) {
        CheckArray(*sequence);
        CheckOperations(*sequence, bytes);
    }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz_StartLibrary();
    fuzz_Bytes bytes(data, size);
    const unsigned wrappers = bytes.Below(200);
    const bool isWrapped = bytes.Flag();
    fuzz_Value value = fuzz_MakeValue(bytes, 12);
    for (unsigned i = 0; isWrapped && i < wrappers; ++i) {
        auto outer = std::make_unique<omu_PrimTuple>();
        outer->Put(std::move(value));
        value = std::move(outer);
    }
    try {
        Check(*value, bytes);
    } catch (const nex_PrimException&) {
        fuzz_Require(isWrapped && wrappers > 130, "values that are not deep are refused by nobody");
    } catch (const nex_StreamException&) {
        fuzz_Require(isWrapped && wrappers > 130, "values that are not deep can be written");
    }
    return 0;
}
