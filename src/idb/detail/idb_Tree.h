#ifndef ORV_IDB_DETAIL_IDB_TREE_H
#define ORV_IDB_DETAIL_IDB_TREE_H

#include <base/cls_ClassRegistrar.h>

#include <memory>
#include <memory_resource>
#include <new>
#include <utility>

/// Deepest nesting of mementos, the root included, that is read or written.
inline constexpr int idb_deepestMemento = 512;

/// Ends an object that lives in a tree's memory.
struct idb_Destroy {
    template <class T>
    void operator()(T* object) const noexcept {
        std::destroy_at(object);
    }
};
template <class T>
using idb_Owned = std::unique_ptr<T, idb_Destroy>;

/// Ends the object and makes another in its place.
template <class T, class... A>
[[nodiscard]] T* idb_Renew(T* object, A&&... arguments) {
    std::destroy_at(object);
    return std::construct_at(object, std::forward<A>(arguments)...);
}

/// What all mementos below one root share: the filter, the registrar, and their memory, which grows in blocks and is
/// given back at once with the root.
template <class Filter>
class idb_Tree {
public:
    idb_Tree(Filter& filter, const cls_ClassRegistrar& registrar) : _filter(filter), _registrar(registrar) {}

    [[nodiscard]] Filter& GetFilter() const noexcept { return _filter; }
    [[nodiscard]] const cls_ClassRegistrar& Registrar() const noexcept { return _registrar; }

    /// The registrar's answer, remembered for the usual case of many objects of one class in a row.
    [[nodiscard]] const cls_ClassMetadata* Find(unsigned classId) {
        if (!_hasLast || classId != _lastId) {
            _lastMetadata = _registrar.Find(classId);
            _lastId = classId;
            _hasLast = true;
        }
        return _lastMetadata;
    }

    [[nodiscard]] char* Allocate(std::size_t size) { return static_cast<char*>(_memory.allocate(size, 1)); }
    template <class T, class... A>
    [[nodiscard]] idb_Owned<T> Make(A&&... arguments) {
        return idb_Owned<T>(new (_memory.allocate(sizeof(T), alignof(T))) T(std::forward<A>(arguments)...));
    }

    /// Whether a class came somewhere in the tree that does not derive from the expected one.
    [[nodiscard]] bool HasMisfit() const noexcept { return _hasMisfit; }
    void SetMisfit() noexcept { _hasMisfit = true; }

private:
    Filter& _filter;
    const cls_ClassRegistrar& _registrar;
    const cls_ClassMetadata* _lastMetadata = nullptr;
    unsigned _lastId = 0;
    bool _hasLast = false;
    bool _hasMisfit = false;
    std::pmr::monotonic_buffer_resource _memory;
};

class bio_Ofilter;
class bio_Ifilter;
using idb_WriteTree = idb_Tree<bio_Ofilter>;
using idb_ReadTree = idb_Tree<bio_Ifilter>;

#endif
