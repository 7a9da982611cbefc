#ifndef ORV_BASE_COW_LIST_H
#define ORV_BASE_COW_LIST_H

#include <base/detail/cow_Range.h>
#include <base/detail/cow_Shared.h>

#include <cstddef>
#include <initializer_list>
#include <span>
#include <utility>
#include <vector>

/// A list in one block of memory, indexed from 0, shared by its copies until one of them writes.
///
/// A copy adds one to an atomic count. `Append`, `Reserve`, `Get` and the non-const `[]` detach: when the elements are
/// shared they are copied first, all of them, and the other lists keep the old ones. `ConstGet`, the const `[]`,
/// iteration and `Span` never copy. Beware of the non-const `[]`: on a list that is not const it detaches even where
/// the element is only read; use `ConstGet` there. `Clear` drops this list's share and copies nothing.
///
/// A reference from `Get` writes past the sharing. It must not be kept across a copy of the list (the copy would change
/// with it), and no reference, iterator or span survives `Append`, `Reserve`, `Clear` or an assignment.
///
/// Threads: distinct lists may be used on distinct threads, whether they share or not; one list is not to be written
/// while another thread uses it.
///
/// `cow_List<bool>` keeps a byte an element and gives references to `unsigned char`: 0 or 1, as long as nothing else is
/// written through them.
template <class T>
class cow_List {
public:
    using value_type = cow_Stored<T>;

    /// Allocates nothing.
    cow_List() noexcept = default;
    /// Of these elements.
    cow_List(std::initializer_list<T> elements) {
        Reserve(static_cast<int>(elements.size()));
        for (const T& element : elements) Append(element);
    }

    /// Takes over the elements of `elements` without copying them when it is moved in.
    explicit cow_List(std::vector<value_type> elements) {
        if (!elements.empty()) _elements = cow_Shared(std::move(elements));
    }

    /// Number of elements; of 2^31 and more only `Span` tells it.
    [[nodiscard]] int Length() const noexcept { return static_cast<int>(Span().size()); }

    /// Throws nex_RangeException outside 0..Length-1, as every access by index here.
    [[nodiscard]] const value_type& ConstGet(int index) const {
        const std::span<const value_type> all = Span();
        return all[cow_Position("cow_List", index, all.size())];
    }
    /// Detaches; not when it throws.
    [[nodiscard]] value_type& Get(int index) {
        const std::size_t position = cow_Position("cow_List", index, Span().size());
        return _elements.Write()[position];
    }
    /// As `ConstGet`, and as `Get`, which detaches.
    [[nodiscard]] const value_type& operator[](int index) const { return ConstGet(index); }
    [[nodiscard]] value_type& operator[](int index) { return Get(index); }

    [[nodiscard]] const value_type* begin() const noexcept { return Span().data(); }
    [[nodiscard]] const value_type* end() const noexcept { return begin() + Span().size(); }

    /// All elements in order, as one block.
    [[nodiscard]] std::span<const value_type> Span() const noexcept {
        const std::vector<value_type>* const all = _elements.Read();
        return all != nullptr ? std::span<const value_type>(*all) : std::span<const value_type>();
    }

    /// Detaches. `element` may be an element of this list, or hold a copy of this list.
    void Append(const T& element) {
        T own(element);  // first: writing may leave behind what `element` refers into
        _elements.Write().push_back(std::move(own));
    }

    /// Detaches, and makes room for `capacity` elements in all; a capacity below the length does nothing more.
    void Reserve(int capacity) {
        if (capacity > Length()) _elements.Write().reserve(static_cast<std::size_t>(capacity));
    }

    /// Drops this list's share of the elements.
    void Clear() noexcept { _elements.Reset(); }

    /// Equal lengths and equal elements, whether shared or not: a list with a NaN is not equal to itself.
    friend bool operator==(const cow_List& a, const cow_List& b) {
        const std::span<const value_type> left = a.Span();
        const std::span<const value_type> right = b.Span();
        if (left.size() != right.size()) return false;
        for (std::size_t i = 0; i < left.size(); ++i)
            if (!(left[i] == right[i])) return false;
        return true;
    }

private:
    cow_Shared<std::vector<value_type>> _elements;
};

#endif
