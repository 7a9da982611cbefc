#ifndef ORV_SUPPORT_STREAMS_H
#define ORV_SUPPORT_STREAMS_H

#include <base/bio_Ifilter.h>
#include <base/bio_Ofilter.h>
#include <base/cls_ClassRegistrar.h>
#include <idb/idb_ReadObject.h>
#include <idb/idb_WriteObject.h>

#include <string>

/// The bytes of one object written as a root.
template <class T>
std::string Written(const cls_ClassRegistrar& registrar, const T& object) {
    bio_Ofilter out;
    idb_WriteObject(out, registrar, object);
    return out.Bytes();
}

/// The object that one root of these bytes gives.
template <class T>
T ReadBack(const cls_ClassRegistrar& registrar, std::string bytes) {
    bio_Ifilter in(std::move(bytes));
    return idb_ReadObject<T>(in, registrar);
}

/// Written and read back; the test that compares it with the original is the round trip.
template <class T>
T RoundTrip(const cls_ClassRegistrar& registrar, const T& object) {
    return ReadBack<T>(registrar, Written(registrar, object));
}

/// "01 ff 0a" for bytes, and the reverse (blanks and line ends are skipped).
inline std::string ToHex(const std::string& bytes) {
    static constexpr char digits[] = "0123456789abcdef";
    std::string text;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (!text.empty()) text += ' ';
        text += digits[byte >> 4];
        text += digits[byte & 15];
    }
    return text;
}
inline std::string FromHex(const std::string& text) {
    std::string bytes;
    std::string digits;
    for (const char c : text) {
        if (c == ' ' || c == '\n') continue;
        digits += c;
        if (digits.size() < 2) continue;
        bytes += static_cast<char>(std::stoi(digits, nullptr, 16));
        digits.clear();
    }
    return bytes;
}

#endif
