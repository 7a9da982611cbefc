#ifndef ORV_FUZZ_FUZZ_VALUES_H
#define ORV_FUZZ_FUZZ_VALUES_H

#include "fuzz_Bytes.h"

#include <base/nex_CommandException.h>
#include <base/nex_PrimException.h>
#include <omu/omu.h>

#include <memory>

using fuzz_Value = std::unique_ptr<omu_Primitive>;

/// A scripting value of any class from the bytes, at most `levels` deep.
inline fuzz_Value fuzz_MakeValue(fuzz_Bytes& bytes, int levels);

/// An array of up to four dimensions, of few elements; nested sequences instead where the bytes say so.
inline fuzz_Value fuzz_MakeArray(fuzz_Bytes& bytes, int levels) {
    if (bytes.Flag()) {
        const fuzz_Value value = fuzz_MakeValue(bytes, levels);
        if (const auto* sequence = dynamic_cast<const omu_PrimSequence*>(value.get())) {
            try {
                return std::make_unique<omu_PrimArray>(*sequence);
            } catch (const nex_PrimException&) {
            }
        }
    }
    constexpr omu_PrimNumber::DataTypeEnm types[] = {omu_PrimNumber::INT, omu_PrimNumber::FLOAT,
                                                     omu_PrimNumber::DOUBLE};
    const auto type = types[bytes.Below(3)];
    const int dimensions = static_cast<int>(bytes.Below(5));
    std::vector<int> sizes;
    for (int i = 0; i < dimensions; ++i) sizes.push_back(static_cast<int>(bytes.Below(4)));
    double data[81] = {};
    for (double& number : data) {
        if (bytes.IsEmpty()) break;
        number = bytes.Double();
    }
    return std::make_unique<omu_PrimArray>(dimensions, cow_List<int>(sizes), type, data);
}

inline fuzz_Value fuzz_MakeValue(fuzz_Bytes& bytes, int levels) {
    const auto text = [&bytes] { return cow_String(bytes.Text()); };
    constexpr unsigned flat = 16, nested = 5;
    switch (bytes.Below(levels > 1 ? flat + nested : flat)) {
        default:
            return omu_MakePrimitive(static_cast<int>(bytes.Take<std::int8_t>()));
        case 1:
            return omu_MakePrimitive(bytes.Take<int>());
        case 2:
            return omu_MakePrimitive(bytes.Take<unsigned>());
        case 3:
            return omu_MakePrimitive(bytes.Take<short>());
        case 4:
            return omu_MakePrimitive(bytes.Take<signed char>());
        case 5:
            return omu_MakePrimitive(static_cast<float>(static_cast<int>(bytes.Take<std::int16_t>())) / 8.0F);
        case 6:
            return omu_MakePrimitive(bytes.Double());
        case 7:
            return omu_MakePrimitive(bytes.Flag());
        case 8: {
            const double real = bytes.Double();
            return omu_MakePrimitive(omi_complex(real, bytes.Double()));
        }
        case 9:
            return omu_MakePrimitive(text());
        case 10:
            return omu_MakePrimitive(atr_String(text()));
        case 11:
            return std::make_unique<omu_PrimNone>();
        case 12:
            return std::make_unique<omu_PrimType>(text());
        case 13:
            return std::make_unique<omu_PrimExpr>(text());
        case 14:
            if (bytes.Flag()) return std::make_unique<omu_PrimEnumBase>(text());
            return std::make_unique<omu_PrimBool<2>>(bytes.Flag() ? "ON" : "OFF");
        case 15:
            return std::make_unique<omu_PrimException>(nex_CommandException(text()));
        case flat: {
            auto tuple = std::make_unique<omu_PrimTuple>('(', static_cast<int>(bytes.Below(8)) / 7);  // an empty holder
            for (unsigned n = bytes.Below(6); n > 0; --n) tuple->Put(fuzz_MakeValue(bytes, levels - 1));
            return tuple;
        }
        case flat + 1: {
            auto list = std::make_unique<omu_PrimList>();
            for (unsigned n = bytes.Below(6); n > 0; --n) list->Put(fuzz_MakeValue(bytes, levels - 1));
            return list;
        }
        case flat + 2: {
            auto dictionary = std::make_unique<omu_PrimDictionary<int>>();
            for (unsigned n = bytes.Below(4); n > 0; --n) {
                const int key = bytes.Take<std::int8_t>();
                dictionary->Put(fuzz_MakeValue(bytes, levels - 1), key);
            }
            return dictionary;
        }
        case flat + 3: {
            auto dictionary = std::make_unique<omu_PrimDictionary<cow_String>>();
            for (unsigned n = bytes.Below(4); n > 0; --n) {
                const cow_String key = text();
                dictionary->Put(fuzz_MakeValue(bytes, levels - 1), key);
            }
            return dictionary;
        }
        case flat + 4:
            return fuzz_MakeArray(bytes, levels - 1);
    }
}

#endif
