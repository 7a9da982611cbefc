#include <omu/detail/omu_Depth.h>
#include <omu/detail/omu_SequenceElement.h>
#include <omu/detail/omu_WriteError.h>
#include <omu/getDimensionsFromSequence.h>
#include <omu/omu_PrimArray.h>

#include <utility>
#include <vector>

namespace {

using Type = omu_PrimNumber::DataTypeEnm;

constexpr Type noType = static_cast<Type>(-1);

bool IsIntegral(Type type) noexcept {
    return type == omu_PrimNumber::SCHAR || type == omu_PrimNumber::SHORT || type == omu_PrimNumber::INT ||
           type == omu_PrimNumber::UINT;
}

const char* NameOf(Type type) noexcept {
    const char* const name = omu_PrimArray::typeCode2string(type);
    return name != nullptr ? name : "(null)";
}

/// Counts one level more and makes its dimension the last. False when that is one too many.
bool AddLevel(int length, int& nd, cow_List<int>& dims, atr_String& reason) {
    if (nd < 0 || nd >= omu_deepestValue) {
        reason = nd < 0 ? "negative number of dimensions" : "sequence nested too deeply";
        return false;
    }
    std::vector<int> all(dims.begin(), dims.end());
    all.resize(static_cast<std::size_t>(nd) + 1);
    all.back() = length;
    dims = cow_List<int>(std::move(all));
    ++nd;
    return true;
}

/// The levels and the type of an array, as a walk over its elements would find them: levels within an empty one are
/// not met.
bool AddArray(const omu_PrimArray& array, int& nd, cow_List<int>& dims, Type& tc, atr_String& reason) {
    int level = 0;
    do {
        const int length = level < array.ConstGetNumDimensions() ? array.ConstGetDimension(level) : 0;
        if (!AddLevel(length, nd, dims, reason)) return false;
        if (length == 0) break;
    } while (++level < array.ConstGetNumDimensions());
    tc = array.ConstGetNumElements() != 0 ? array.ConstGetPrimNumberType() : omu_PrimNumber::INT;
    return true;
}

/// False, and `tc` as it was, when `widest` is no type.
bool Widen(Type& tc, Type widest) {
    if (widest < 0) return false;
    if (widest != tc && omu_PrimArray::Diagnostics())
        omu_WriteError("    getDimensionsFromSequence() tc changed to %s\n", NameOf(widest));
    tc = widest;
    return true;
}

/// The item i > 0 of a level, a sequence, against what the item 0 gave.
bool JoinChild(const omu_PrimSequence& child, int level, int i, int nd, const cow_List<int>& dims, Type& tc,
               atr_String& reason) {
    int ndTemp = level + 1;
    cow_List<int> dimsTemp;
    Type tcTemp = noType;
    if (!getDimensionsFromSequence(child, ndTemp, dimsTemp, tcTemp, reason, true)) return false;
    if (ndTemp != nd) {
        reason = atr("different num dims in child. nd=%d, ndTemp=%d, i=%d", nd, ndTemp, i);
        return false;
    }
    for (int j = level + 1; j < nd; ++j) {
        if (dimsTemp.ConstGet(j) == dims.ConstGet(j)) continue;
        reason = atr("different dims in child. dimThis=%d, j=%d", level, j);
        return false;
    }
    if (Widen(tc, widestType(tc, tcTemp))) return true;
    reason = "Could not fit type";
    return false;
}

}  // namespace

Type widestType(Type a, Type b) {
    if (a == b) return a;
    if (a < 0) return omu_PrimNumber::DOUBLE;
    if (a == omu_PrimNumber::FLOAT) return b == omu_PrimNumber::DOUBLE ? b : a;
    if (a == omu_PrimNumber::DOUBLE) return a;
    if (!IsIntegral(a)) return noType;
    if (b < 0) return omu_PrimNumber::FLOAT;
    if (IsIntegral(b)) return omu_PrimNumber::INT;
    return b == omu_PrimNumber::FLOAT || b == omu_PrimNumber::DOUBLE ? b : noType;
}

bool getDimensionsFromSequence(const omu_PrimSequence& sequence, int& nd, cow_List<int>& dims, Type& tc,
                               atr_String& reason, bool checkAll) {
    if (!omu_PrimArray::Diagnostics())  // which tell of each number of a walk
        if (const auto* const array = dynamic_cast<const omu_PrimArray*>(&sequence))
            return AddArray(*array, nd, dims, tc, reason);

    const int level = nd;
    const int length = sequence.Length();
    if (!AddLevel(length, nd, dims, reason)) return false;
    tc = noType;
    bool numbers = false;  // what the first item was
    for (int i = 0; i < length; ++i) {
        const omu_Primitive* const item = omu_SequenceElement(sequence, i);
        if (const auto* const child = dynamic_cast<const omu_PrimSequence*>(item)) {
            if (i == 0) {
                if (!getDimensionsFromSequence(*child, nd, dims, tc, reason, checkAll)) return false;
                continue;
            }
            if (numbers) {
                reason = "Types not consistent";
                return false;
            }
            if (!checkAll) return true;
            if (!JoinChild(*child, level, i, nd, dims, tc, reason)) return false;
        } else if (const auto* const number = dynamic_cast<const omu_PrimNumber*>(item)) {
            if (i == 0) {
                numbers = true;
                tc = number->DataType();
                if (omu_PrimArray::Diagnostics())
                    omu_WriteError("getDimensionsFromSequence() nd=%d, i=%d, tc set to %s\n", nd, i, NameOf(tc));
                continue;
            }
            if (!numbers) {
                reason = "Items. types not consistent.";
                return false;
            }
            if (!checkAll) return true;
            if (!Widen(tc, widestType(number->DataType(), tc))) {
                reason = atr("Items. tc==NO_TYPE. pn.DT=%d, tc=%d", static_cast<int>(number->DataType()),
                             static_cast<int>(tc));
                return false;
            }
        } else {
            reason = "Child not PrimSequence or PrimNumber";
            return false;
        }
    }
    if (length == 0) tc = omu_PrimNumber::INT;
    return true;
}
