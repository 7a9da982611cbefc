#ifndef ORV_BASE_BIO_OFILTER_H
#define ORV_BASE_BIO_OFILTER_H

#include <base/cow_List.h>
#include <base/cow_String.h>
#include <base/orv_Export.h>

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <unordered_map>

/// The writing end of a model stream; grows in memory. Everything is little-endian, fixed width, without padding or
/// alignment:
///
/// | value                                               | bytes                                       |
/// |-----------------------------------------------------|---------------------------------------------|
/// | `int`, `unsigned`, class, count, length, object no. | 4                                           |
/// | `float`, `double`                                   | 4, 8 (IEEE)                                 |
/// | `bool`                                              | 1: 0 or 1                                   |
/// | string                                              | `int` length, then its bytes                |
///
/// Writing never throws, since collections write from destructors: a filter that cannot take more (out of memory, a
/// string or collection of 2^31 bytes or elements or more, mementos nested too deeply) stops taking anything, the
/// length or count included, and says so by `Good()`. Objects are numbered within one filter: write a model through one
/// filter.
class ORV_EXPORT bio_Ofilter {
public:
    bio_Ofilter() = default;
    bio_Ofilter(const bio_Ofilter&) = delete;
    bio_Ofilter& operator=(const bio_Ofilter&) = delete;

    /// All bytes written so far.
    [[nodiscard]] const std::string& Bytes() const noexcept { return _bytes; }
    /// Whether everything was taken so far.
    [[nodiscard]] bool Good() const noexcept { return _failure == nullptr; }
    /// Why the filter stopped; empty while it is good.
    [[nodiscard]] const char* Failure() const noexcept { return _failure == nullptr ? "" : _failure; }
    /// Stops the filter. The first reason stays; the text must be a literal.
    void Fail(const char* reason) noexcept {
        if (_failure == nullptr) _failure = reason;
    }

    /// Appends the value, or nothing once the filter has stopped.
    void Write(bool value) noexcept;
    void Write(int value) noexcept;
    void Write(unsigned value) noexcept;
    void Write(float value) noexcept;
    void Write(double value) noexcept;
    void Write(const cow_String& value) noexcept;
    void WriteRaw(const void* bytes, std::size_t size) noexcept;
    /// A length or a count, as an `int`; stops the filter instead from 2^31 on.
    void WriteCount(std::size_t count) noexcept;

    /// The values of a list one after the other, as one block where the machine's own layout is that of the stream.
    void WriteBlock(std::span<const int> values) noexcept;
    void WriteBlock(std::span<const unsigned> values) noexcept;
    void WriteBlock(std::span<const float> values) noexcept;
    void WriteBlock(std::span<const double> values) noexcept;

    /// Makes room for that many more bytes at once; only saves time.
    void Reserve(std::size_t size) noexcept;

    /// The object's number: 0 for null, else 1, 2, ... in order of first appearance on this stream.
    [[nodiscard]] unsigned NumberOf(const void* object) noexcept;
    /// Appends `NumberOf(object)`.
    void WritePointer(const void* object) noexcept { Write(NumberOf(object)); }
    /// Keeps a written shared object alive until the filter is gone, so that its address, and with it its number,
    /// is not given to another object meanwhile.
    void Hold(const std::shared_ptr<const void>& object);
    /// The address stands for that object no more; the next object at the same place gets a number of its own. For
    /// objects that are written by value and may be gone before the next. A held object keeps its number.
    void Forget(const void* object) noexcept;

private:
    template <class T>
    void WriteScalar(T value) noexcept;
    template <class T>
    void WriteScalars(std::span<const T> values) noexcept;

    std::string _bytes;
    std::unordered_map<const void*, unsigned> _numbers;
    std::unordered_map<const void*, std::shared_ptr<const void>> _held;
    unsigned _lastNumber = 0;
    const char* _failure = nullptr;
};

#endif
