#ifndef ORV_BASE_COW_2DARRAY_H
#define ORV_BASE_COW_2DARRAY_H

#include <base/cow_List.h>

#include <span>
#include <utility>
#include <vector>

/// Throws nex_RangeException for a negative `rows` or `columns`, and for more than 2^31 - 1 elements; else the number
/// of elements.
[[nodiscard]] ORV_EXPORT int cow_2DArrayLength(int rows, int columns);

/// An array of `Rows()` x `Cols()` elements, row by row (row-major), both indices from 0, shared by its copies until
/// one of them writes.
///
/// A copy adds one to an atomic count. Only `Get` detaches: shared elements are copied first, all of them. A reference
/// from `Get` must not be kept across a copy of the array. The shape belongs to the object and is not shared; an array
/// that was moved from keeps shape and elements, as a copy does.
///
/// Threads: distinct arrays may be used on distinct threads, whether they share or not; one array is not to be written
/// while another thread uses it.
template <class T>
class cow_2DArray {
public:
    using value_type = cow_Stored<T>;

    /// 0 x 0; allocates nothing.
    cow_2DArray() noexcept = default;

    /// All elements value-initialised (numbers are 0). Throws nex_RangeException for a negative shape and for more than
    /// 2^31 - 1 elements.
    cow_2DArray(int rows, int columns)
        : cow_2DArray(rows, columns,
                      std::vector<value_type>(static_cast<std::size_t>(cow_2DArrayLength(rows, columns)))) {}

    /// Takes over `elements`, row by row. Throws nex_RangeException when their number is not rows x columns.
    cow_2DArray(int rows, int columns, std::vector<value_type> elements) : _rows(rows), _columns(columns) {
        const auto length = static_cast<std::size_t>(cow_2DArrayLength(rows, columns));
        if (elements.size() != length) cow_ThrowIndex("cow_2DArray", static_cast<long long>(elements.size()), length);
        _elements = cow_List<T>(std::move(elements));
    }
    cow_2DArray(const cow_2DArray&) noexcept = default;
    cow_2DArray& operator=(const cow_2DArray&) noexcept = default;
    ~cow_2DArray() = default;

    /// The shape.
    [[nodiscard]] int Rows() const noexcept { return _rows; }
    [[nodiscard]] int Cols() const noexcept { return _columns; }

    /// Throws nex_RangeException when `row` is outside 0..Rows-1 or `column` outside 0..Cols-1, as `Get` does.
    [[nodiscard]] const value_type& ConstGet(int row, int column) const {
        return _elements.ConstGet(Index(row, column));
    }
    /// Detaches; not when it throws.
    [[nodiscard]] value_type& Get(int row, int column) { return _elements.Get(Index(row, column)); }

    /// All elements, row by row, as one block.
    [[nodiscard]] std::span<const value_type> Span() const noexcept { return _elements.Span(); }

    /// Equal shapes and equal elements: 0 x 3 is not 3 x 0.
    friend bool operator==(const cow_2DArray& a, const cow_2DArray& b) {
        return a._rows == b._rows && a._columns == b._columns && a._elements == b._elements;
    }

private:
    [[nodiscard]] int Index(int row, int column) const {
        cow_Position("cow_2DArray row", row, static_cast<std::size_t>(_rows));
        cow_Position("cow_2DArray column", column, static_cast<std::size_t>(_columns));
        return row * _columns + column;
    }

    int _rows = 0;
    int _columns = 0;
    cow_List<T> _elements;
};

#endif
