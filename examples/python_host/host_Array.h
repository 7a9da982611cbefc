#ifndef ORV_PYTHON_HOST_HOST_ARRAY_H
#define ORV_PYTHON_HOST_HOST_ARRAY_H

#include "host_Bridge.h"

#include <omu/omu_PrimArray.h>
#include <omu/omu_PrimArrayView.h>

#include <memory>
#include <optional>

/// Numbers where they lie: in a block of the library or in the memory of a Python object that exports it (an array of
/// numpy, a memoryview). Nothing is copied, and what owns the memory lives as long as this does. To Python it is the
/// class Array, which exports the same memory read-only.
struct host_Array {
    omu_PrimArrayView view;
    std::shared_ptr<omu_PrimArray> block;             ///< null for the memory of another
    std::shared_ptr<const py::buffer_info> exporter;  ///< null for a block of the library

    /// Shares the block; one without a shape becomes an empty one of a dimension.
    [[nodiscard]] static host_Array Of(const omu_PrimArray& array);

    /// A block of its own with these numbers. Throws ValueError for a dimension that an int does not hold.
    [[nodiscard]] omu_PrimArray Copied() const;
    /// An array of the library: of this block, or a copy of what is another's.
    [[nodiscard]] omu_PrimArray ToLibrary() const { return block != nullptr ? *block : Copied(); }

    /// Of a DOUBLE, FLOAT or INT array of two dimensions; within them.
    [[nodiscard]] double At(py::ssize_t row, py::ssize_t column) const;
};

/// Arrays of the library, exporters of int, float or double in the machine's own form, sequences of numbers (these are
/// copied).
bool omu_TakeArgument(const omu_Primitive& found, host_Array& target);
template <>
inline constexpr const char* omu_ExpectedName<host_Array> = "array";

/// What an object exports; nothing for one that refuses.
[[nodiscard]] std::shared_ptr<const py::buffer_info> host_Request(py::handle object);

/// The array of an exporter that can be read where it lies: aligned numbers in one of the three types, at least one
/// dimension.
[[nodiscard]] std::optional<host_Array> host_InPlace(py::handle object);

/// The block behind an object of class Array; null for all else.
[[nodiscard]] std::shared_ptr<omu_PrimArray> host_LibraryArray(py::handle object);

#endif
