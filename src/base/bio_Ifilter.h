#ifndef ORV_BASE_BIO_IFILTER_H
#define ORV_BASE_BIO_IFILTER_H

#include <base/bio_Marker.h>
#include <base/cow_String.h>
#include <base/detail/bio_Encoding.h>
#include <base/orv_Export.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

/// The reading end of a model stream (layout: bio_Ofilter); owns the bytes. Takes any bytes: every read is checked
/// against what remains, and a count is checked before anything is allocated for it. Failures are
/// nex_StreamException.
class ORV_EXPORT bio_Ifilter {
public:
    /// Reads from the first of these bytes.
    explicit bio_Ifilter(std::string bytes) noexcept;
    bio_Ifilter(const bio_Ifilter&) = delete;
    bio_Ifilter& operator=(const bio_Ifilter&) = delete;

    /// Bytes read so far.
    [[nodiscard]] std::size_t Position() const noexcept { return _position; }
    /// Goes back, or forth again, to a position that was read before.
    void Seek(std::size_t position) noexcept { _position = std::min(position, _bytes.size()); }
    /// Bytes that are left.
    [[nodiscard]] std::size_t Remaining() const noexcept { return _bytes.size() - _position; }

    /// Each throws "unexpected end of stream" when the bytes do not suffice, and then leaves its target alone. A
    /// bool is true for any byte but 0.
    void Read(bool& value);
    void Read(int& value);
    void Read(unsigned& value);
    void Read(float& value);
    void Read(double& value);
    void Read(cow_String& value);
    void ReadRaw(void* bytes, std::size_t size);
    /// Values that stand one after the other.
    template <class T>
    [[nodiscard]] std::vector<T> ReadBlock(std::size_t count);

    /// The next `size` bytes in place; they stay valid as long as the filter.
    [[nodiscard]] const char* Take(std::size_t size);
    /// A count of things that take at least so many bytes each on the stream: throws "bad count in stream" when it
    /// is negative or more than can still come.
    [[nodiscard]] int ReadCount(std::size_t leastBytesPerElement);

    /// Reads an object number.
    [[nodiscard]] bio_Marker LookUpMarker();
    /// Makes the object known, so that later references to its number can resolve to it.
    void EnterMarker(const bio_Marker& marker);
    /// Enters the object that was made for a number. The first one stays.
    void SetObject(const bio_Marker& marker, unsigned classId, std::shared_ptr<void> object);
    /// The object made for the number if it is of that very class, else null: a forged number cannot turn one object
    /// into something else.
    [[nodiscard]] std::shared_ptr<void> FindObject(const bio_Marker& marker, unsigned classId) const;

private:
    struct Entry {
        unsigned classId = 0;
        std::shared_ptr<void> object;
    };
    [[noreturn]] static void ThrowEnd();

    std::string _bytes;
    std::size_t _position = 0;
    std::unordered_map<unsigned, Entry> _objects;
};

inline const char* bio_Ifilter::Take(std::size_t size) {
    if (size > Remaining()) ThrowEnd();
    const char* bytes = _bytes.data() + _position;
    _position += size;
    return bytes;
}

inline void bio_Ifilter::Read(bool& value) { value = *Take(1) != 0; }
inline void bio_Ifilter::Read(int& value) { value = bio_Load<int>(Take(sizeof value)); }
inline void bio_Ifilter::Read(unsigned& value) { value = bio_Load<unsigned>(Take(sizeof value)); }
inline void bio_Ifilter::Read(float& value) { value = bio_Load<float>(Take(sizeof value)); }
inline void bio_Ifilter::Read(double& value) { value = bio_Load<double>(Take(sizeof value)); }

template <class T>
std::vector<T> bio_Ifilter::ReadBlock(std::size_t count) {
    if (count > Remaining() / sizeof(T)) ThrowEnd();
    const char* bytes = Take(count * sizeof(T));
    std::vector<T> values;
    values.reserve(count);
    // By way of a small buffer, since a vector made of that size would be zeroed first.
    T chunk[512];
    while (values.size() < count) {
        const std::size_t n = std::min(count - values.size(), std::size(chunk));
        bio_LoadBlock(chunk, bytes, n);
        values.insert(values.end(), chunk, chunk + n);
        bytes += n * sizeof(T);
    }
    return values;
}

inline bio_Marker bio_Ifilter::LookUpMarker() {
    bio_Marker marker;
    Read(marker.number);
    if (marker.number != 0) marker.size = sizeof marker.number;
    return marker;
}

#endif
