#include <base/bio_Ifilter.h>
#include <base/nex_StreamException.h>
#include <base/nex_Throw.h>

#include <cstring>
#include <utility>

bio_Ifilter::bio_Ifilter(std::string bytes) noexcept : _bytes(std::move(bytes)) {}

void bio_Ifilter::ThrowEnd() { nex_Throw(nex_StreamException("unexpected end of stream")); }

void bio_Ifilter::Read(cow_String& value) {
    const auto size = static_cast<std::size_t>(ReadCount(1));
    value = cow_String(std::string(Take(size), size));
}

void bio_Ifilter::ReadRaw(void* bytes, std::size_t size) {
    const char* from = Take(size);
    if (size != 0) std::memcpy(bytes, from, size);
}

int bio_Ifilter::ReadCount(std::size_t leastBytesPerElement) {
    int count = 0;
    Read(count);
    if (count < 0 || static_cast<std::size_t>(count) > Remaining() / leastBytesPerElement)
        nex_Throw(nex_StreamException("bad count in stream"));
    return count;
}

void bio_Ifilter::EnterMarker(const bio_Marker& marker) { _objects.try_emplace(marker.number); }

void bio_Ifilter::SetObject(const bio_Marker& marker, unsigned classId, std::shared_ptr<void> object) {
    Entry& entry = _objects[marker.number];
    if (!entry.object) entry = {classId, std::move(object)};
}

std::shared_ptr<void> bio_Ifilter::FindObject(const bio_Marker& marker, unsigned classId) const {
    const auto found = _objects.find(marker.number);
    return found != _objects.end() && found->second.classId == classId ? found->second.object : nullptr;
}
