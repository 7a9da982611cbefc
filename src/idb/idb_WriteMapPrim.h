#ifndef ORV_IDB_IDB_WRITEMAPPRIM_H
#define ORV_IDB_IDB_WRITEMAPPRIM_H

#include <base/bio_Ofilter.h>
#include <base/cls_Collection.h>

#include <iterator>

/// A map from key to value. Written at destruction: count, count again, then (key, value) pairs in key order.
template <class K, class T>
class idb_WriteMapPrim final : public cls_WriteMapPrim<K, T> {
public:
    /// Writes to `out` when it is destroyed.
    explicit idb_WriteMapPrim(bio_Ofilter* out) : _out(out) {}
    ~idb_WriteMapPrim() override {
        if (_out == nullptr) return;
        const auto count = static_cast<std::size_t>(std::distance(_values.begin(), _values.end()));
        _out->WriteCount(count);
        _out->WriteCount(count);
        for (const auto& [key, value] : _values) {
            _out->Write(key);
            _out->Write(value);
        }
    }

    void Write(const K& key, const T& value) override { _values.Insert(key, value); }
    void Write(const cow_Map<K, T>& values) override {
        if (_values.Length() == 0)
            _values = values;
        else
            for (const auto& [key, value] : values) _values.Insert(key, value);
    }
    void Abandon() noexcept override { _out = nullptr; }

private:
    bio_Ofilter* _out;
    cow_Map<K, T> _values;
};

/// By integers.
template <class T>
using idb_WriteMapInt2Prim = idb_WriteMapPrim<int, T>;
/// By strings.
template <class T>
using idb_WriteMapString2Prim = idb_WriteMapPrim<cow_String, T>;

#endif
