#include <base/bio_Ofilter.h>
#include <base/detail/bio_Encoding.h>

#include <bit>
#include <limits>
#include <new>
#include <stdexcept>
#include <utility>

void bio_Ofilter::WriteRaw(const void* bytes, std::size_t size) noexcept {
    if (!Good() || size == 0) return;
    try {
        _bytes.append(static_cast<const char*>(bytes), size);
    } catch (const std::bad_alloc&) {
        Fail(bio_outOfMemory);
    } catch (const std::length_error&) {
        Fail(bio_outOfMemory);
    }
}

template <class T>
void bio_Ofilter::WriteScalar(T value) noexcept {
    char bytes[sizeof(T)];
    bio_Store(bytes, value);
    WriteRaw(bytes, sizeof bytes);
}

template <class T>
void bio_Ofilter::WriteScalars(std::span<const T> values) noexcept {
    if constexpr (std::endian::native == std::endian::little) {
        WriteRaw(values.data(), values.size_bytes());
    } else {
        for (const T value : values) WriteScalar(value);
    }
}

void bio_Ofilter::Write(bool value) noexcept {
    const char byte = value ? 1 : 0;
    WriteRaw(&byte, 1);
}
void bio_Ofilter::Write(int value) noexcept { WriteScalar(value); }
void bio_Ofilter::Write(unsigned value) noexcept { WriteScalar(value); }
void bio_Ofilter::Write(float value) noexcept { WriteScalar(value); }
void bio_Ofilter::Write(double value) noexcept { WriteScalar(value); }

void bio_Ofilter::Write(const cow_String& value) noexcept {
    WriteCount(value.View().size());
    WriteRaw(value.View().data(), value.View().size());
}

void bio_Ofilter::WriteCount(std::size_t count) noexcept {
    if (count > static_cast<std::size_t>(std::numeric_limits<int>::max()))
        Fail("too long for a stream");
    else
        Write(static_cast<int>(count));
}

void bio_Ofilter::WriteBlock(std::span<const int> values) noexcept { WriteScalars(values); }
void bio_Ofilter::WriteBlock(std::span<const unsigned> values) noexcept { WriteScalars(values); }
void bio_Ofilter::WriteBlock(std::span<const float> values) noexcept { WriteScalars(values); }
void bio_Ofilter::WriteBlock(std::span<const double> values) noexcept { WriteScalars(values); }

void bio_Ofilter::Reserve(std::size_t size) noexcept {
    try {
        if (Good()) _bytes.reserve(_bytes.size() + size);
    } catch (...) {  // then it grows as it goes
    }
}

unsigned bio_Ofilter::NumberOf(const void* object) noexcept {
    if (object == nullptr || !Good()) return 0;
    try {
        const auto [entry, isNew] = _numbers.try_emplace(object, _lastNumber + 1);
        if (isNew) ++_lastNumber;
        return entry->second;
    } catch (const std::bad_alloc&) {
        Fail(bio_outOfMemory);
        return 0;
    }
}

void bio_Ofilter::Hold(const std::shared_ptr<const void>& object) {
    if (object) _held.try_emplace(object.get(), object);
}

void bio_Ofilter::Forget(const void* object) noexcept {
    if (!_held.contains(object)) _numbers.erase(object);
}
