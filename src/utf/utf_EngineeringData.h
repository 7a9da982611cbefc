#ifndef ORV_UTF_UTF_ENGINEERINGDATA_H
#define ORV_UTF_UTF_ENGINEERINGDATA_H

#include <base/aio_ostream.h>
#include <base/cow_List.h>
#include <base/orv_Export.h>
#include <base/res_DataTypeEnm.h>

#include <cstddef>
#include <memory>
#include <span>

/// A value of a result field: a kind and a flat array of numbers (float or double) whose number and order the kind
/// fixes. Base of tensors, vectors, scalars and quaternions.
///
/// An object *owns* its numbers, or *wraps* an array of the caller, who must keep that array alive and sees what is
/// written to it:
///
/// | operation                                     | the object afterwards                                        |
/// |-----------------------------------------------|--------------------------------------------------------------|
/// | construction from a pointer to non-const      | wraps, nothing is copied                                     |
/// | all other construction, copies among it       | owns                                                         |
/// | assignment (of a temporary too), `set`        | owns; an array it wrapped before is left as it is            |
/// | construction by move                          | as the source: the object has only changed place             |
///
/// Up to six owned numbers live inside the object, so that values returned by value allocate nothing. Objects that are
/// moved from may be assigned to and destroyed.
template <class T>
class utf_EngineeringData {
public:
    // ---- Construction. A count below 1 is 0; a null pointer gives zeros that the object owns. `engineeringShear`: the
    // shears among the numbers are twice the tensor's.

    /// Owns a copy of the values.
    utf_EngineeringData(res_DataTypeEnm kind, const cow_List<T>& values, bool engineeringShear = false);
    utf_EngineeringData(res_DataTypeEnm kind, const T* values, int count, bool engineeringShear = false);

    /// Wraps `values` (see above).
    utf_EngineeringData(res_DataTypeEnm kind, T* values, int count, bool engineeringShear = false);

    /// `count` zeros.
    utf_EngineeringData(res_DataTypeEnm kind, int count, bool engineeringShear = false);

    utf_EngineeringData(const utf_EngineeringData& other);
    utf_EngineeringData(utf_EngineeringData&& other) noexcept;
    utf_EngineeringData& operator=(const utf_EngineeringData& other);
    /// Copies the numbers of a source that wraps (out of memory then ends the process).
    utf_EngineeringData& operator=(utf_EngineeringData&& other) noexcept;
    virtual ~utf_EngineeringData() = default;

    /// A new object of the dynamic class that owns the same numbers. The caller owns the object.
    [[nodiscard]] virtual utf_EngineeringData* Copy() const;

    // ---- Queries

    /// What the constructor was given; whether the components are owned or a caller's.
    [[nodiscard]] res_DataTypeEnm type() const noexcept { return _kind; }
    [[nodiscard]] int count() const noexcept { return _count; }
    [[nodiscard]] bool ownsComponents() const noexcept { return _ownsComponents; }
    [[nodiscard]] bool engineeringShear() const noexcept { return _engineeringShear; }

    /// Number `i`, from 0; never throws: 0 outside 0..count-1.
    [[nodiscard]] T constGet(int i) const noexcept { return i >= 0 && i < _count ? _components[i] : T(0); }

    /// All numbers in order, in place: valid while the object (or the array it wraps) stays as it is.
    [[nodiscard]] std::span<const T> Span() const noexcept { return {_components, static_cast<std::size_t>(_count)}; }

    /// The same as a new list.
    [[nodiscard]] cow_List<T> data() const;

    // ---- Change

    /// `count` new numbers, which the object owns; kind and flag stay. `values` may point into the old ones.
    void set(const T* values, int count);

    // ---- Output

    /// `indent` blanks, the name of the class and ": ", each number and a blank, a newline; then flushes. Numbers are
    /// written as the stream stands.
    void Print(aio_ostream& out, int indent) const;

protected:
    /// What is kept inside the object.
    static constexpr int InlineCount = 6;

    /// The first `count` of `values`, zeros for those that are missing.
    utf_EngineeringData(res_DataTypeEnm kind, const cow_List<T>& values, int count, bool engineeringShear);

    /// Never null. Owned numbers are followed by zeros up to `InlineCount`, so that the six of any kind can be read; of
    /// a wrapped array there is what the caller has.
    [[nodiscard]] const T* Components() const noexcept { return _components; }
    [[nodiscard]] T* Components() noexcept { return _components; }

private:
    [[nodiscard]] virtual const char* Name() const noexcept;
    void Take(utf_EngineeringData& other) noexcept;

    res_DataTypeEnm _kind;
    T* _components;
    int _count;
    bool _ownsComponents;
    bool _engineeringShear;
    T _inPlace[InlineCount] = {};
    std::unique_ptr<T[]> _heap;  // when there are more
};

ORV_EXTERN_TEMPLATE(utf_EngineeringData<float>);
ORV_EXTERN_TEMPLATE(utf_EngineeringData<double>);

#endif
