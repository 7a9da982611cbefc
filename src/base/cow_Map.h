#ifndef ORV_BASE_COW_MAP_H
#define ORV_BASE_COW_MAP_H

#include <base/cow_List.h>
#include <base/detail/cow_Range.h>
#include <base/detail/cow_Shared.h>

#include <map>
#include <utility>

/// A map ordered by `<` of its keys, shared by its copies until one of them writes.
///
/// A copy adds one to an atomic count. `Insert`, `Get` and a `Remove` that finds its key detach: a shared map is copied
/// first, as a whole. `ConstGet`, `IsMember`, `Keys` and iteration never copy the map. A reference from `Get` must not
/// be kept across a copy of the map; a detached map is another one, so iterators and references of the old one are not
/// to be mixed with it.
///
/// Threads: distinct maps may be used on distinct threads, whether they share or not; one map is not to be written
/// while another thread uses it.
template <class K, class V>
class cow_Map {
public:
    using const_iterator = typename std::map<K, V>::const_iterator;

    /// Allocates nothing.
    cow_Map() noexcept = default;

    /// Number of entries.
    [[nodiscard]] int Length() const noexcept {
        return _map.Read() != nullptr ? static_cast<int>(_map.Read()->size()) : 0;
    }
    /// Whether there is an entry with that key.
    [[nodiscard]] bool IsMember(const K& key) const { return Find(key) != nullptr; }

    /// Throws nex_RangeException when the key is absent, as `Get` does.
    [[nodiscard]] const V& ConstGet(const K& key) const {
        const V* const value = Find(key);
        if (value == nullptr) cow_ThrowKey();
        return *value;
    }
    /// Detaches; not when it throws.
    [[nodiscard]] V& Get(const K& key) {
        if (!IsMember(key)) cow_ThrowKey();
        const K own(key);  // as in Insert
        return _map.Write().find(own)->second;
    }

    /// All keys in order.
    [[nodiscard]] cow_List<K> Keys() const {
        cow_List<K> keys;
        keys.Reserve(Length());
        for (const auto& [key, value] : *this) keys.Append(key);
        return keys;
    }

    /// Pairs of key and value in the order of the keys.
    [[nodiscard]] const_iterator begin() const noexcept {
        return _map.Read() ? _map.Read()->begin() : const_iterator();
    }
    [[nodiscard]] const_iterator end() const noexcept { return _map.Read() ? _map.Read()->end() : const_iterator(); }

    /// Detaches. Replaces the value of a key that is there. Both arguments may refer into this map, or hold a copy of
    /// it.
    void Insert(const K& key, const V& value) {
        K ownKey(key);  // first: writing may leave behind what the arguments refer into
        V ownValue(value);
        _map.Write().insert_or_assign(std::move(ownKey), std::move(ownValue));
    }

    /// Whether the key was there. An absent key changes nothing and detaches nothing.
    bool Remove(const K& key) {
        if (!IsMember(key)) return false;
        const K ownKey(key);  // as in Insert. NOLINT(performance-unnecessary-copy-initialization)
        return _map.Write().erase(ownKey) != 0;
    }

    /// Equal keys with equal values, whether shared or not.
    friend bool operator==(const cow_Map& a, const cow_Map& b) {
        if (a.Length() != b.Length()) return false;
        for (auto left = a.begin(), right = b.begin(); left != a.end(); ++left, ++right)
            if (!(left->first == right->first && left->second == right->second)) return false;
        return true;
    }

private:
    [[nodiscard]] const V* Find(const K& key) const {
        if (_map.Read() == nullptr) return nullptr;
        const auto found = _map.Read()->find(key);
        return found != _map.Read()->end() ? &found->second : nullptr;
    }

    cow_Shared<std::map<K, V>> _map;
};

#endif
