#ifndef ORV_BASE_COW_STACK_H
#define ORV_BASE_COW_STACK_H

#include <base/detail/cow_Range.h>
#include <base/detail/cow_Shared.h>
#include <base/orv_Export.h>

#include <utility>
#include <vector>

/// Writes one line that names the operation to standard error, and stops the process.
[[noreturn]] ORV_EXPORT void cow_AbortOnEmptyStack(const char* operation) noexcept;

/// A stack, shared by its copies until one of them writes.
///
/// A copy adds one to an atomic count. `Push`, `Pop` and `Top` detach: shared elements are copied first, all of them.
/// `ConstTop` never copies. A reference from `Top` must not be kept across a copy of the stack, nor any reference
/// across `Push`, `Pop` or `Clear`.
///
/// An empty stack has no top: `Top`, `ConstTop` and `Pop` then stop the process (std::abort) after a line on standard
/// error. Who uses the stack keeps a bottom element or asks `IsEmpty`.
///
/// Threads: distinct stacks may be used on distinct threads, whether they share or not; one stack is not to be written
/// while another thread uses it.
template <class T>
class cow_Stack {
public:
    using value_type = cow_Stored<T>;

    /// Allocates nothing.
    cow_Stack() noexcept = default;

    /// Number of elements, and whether that is 0.
    [[nodiscard]] int Size() const noexcept { return Elements() != nullptr ? static_cast<int>(Elements()->size()) : 0; }
    [[nodiscard]] bool IsEmpty() const noexcept { return Size() == 0; }

    /// The last element pushed. Stops the process when there is none.
    [[nodiscard]] const value_type& ConstTop() const {
        if (IsEmpty()) cow_AbortOnEmptyStack("ConstTop");
        return Elements()->back();
    }
    /// Detaches.
    [[nodiscard]] value_type& Top() {
        if (IsEmpty()) cow_AbortOnEmptyStack("Top");
        return _elements.Write().back();
    }

    /// Detaches. `element` may be an element of this stack.
    void Push(const T& element) {
        T own(element);  // first: writing may leave behind what `element` refers into
        _elements.Write().push_back(std::move(own));
    }
    /// Detaches.
    void Pop() {
        if (IsEmpty()) cow_AbortOnEmptyStack("Pop");
        _elements.Write().pop_back();
    }
    /// Drops this stack's share of the elements.
    void Clear() noexcept { _elements.Reset(); }

private:
    [[nodiscard]] const std::vector<value_type>* Elements() const noexcept { return _elements.Read(); }

    cow_Shared<std::vector<value_type>> _elements;  // the top is the last one
};

#endif
