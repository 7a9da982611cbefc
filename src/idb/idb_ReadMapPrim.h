#ifndef ORV_IDB_IDB_READMAPPRIM_H
#define ORV_IDB_IDB_READMAPPRIM_H

#include <base/bio_Ifilter.h>
#include <base/cls_Collection.h>
#include <base/nex_RangeException.h>
#include <base/nex_StreamException.h>
#include <base/nex_Throw.h>
#include <idb/idb_ReadListPrim.h>

#include <map>
#include <utility>

/// The count of a map, which stands on the stream twice. Throws nex_StreamException when the two differ.
[[nodiscard]] inline int idb_ReadMapCount(bio_Ifilter& in, std::size_t leastBytesPerEntry) {
    const int count = in.ReadCount(leastBytesPerEntry);
    if (in.ReadCount(leastBytesPerEntry) != count) nex_Throw(nex_StreamException("bad count in stream"));
    return count;
}

/// The cursor of a map reader (rules: cls_Collection).
template <class Map>
class idb_MapCursor {
public:
    bool Next(const Map& map) {
        _current = _isOn ? std::next(_current) : map.begin();
        return _isOn = _current != map.end();
    }
    /// Throws nex_RangeException off the entries.
    [[nodiscard]] const auto& Current() const {
        if (!_isOn) nex_Throw(nex_RangeException("no current entry"));
        return *_current;
    }

private:
    decltype(std::declval<const Map&>().begin()) _current{};
    bool _isOn = false;
};

/// A map from key to value, read whole at construction; a repeated key replaces.
template <class K, class T>
class idb_ReadMapPrim final : public cls_ReadMapPrim<K, T> {
public:
    /// Reads all entries at once. Throws nex_StreamException for counts that differ or that the bytes cannot hold.
    explicit idb_ReadMapPrim(bio_Ifilter& in) {
        for (int left = idb_ReadMapCount(in, idb_LeastSize<K> + idb_LeastSize<T>); left > 0; --left) {
            K key{};
            T value{};
            in.Read(key);
            in.Read(value);
            _values.Insert(key, value);
        }
    }

    bool Next() override { return _cursor.Next(_values); }
    [[nodiscard]] K ReadKey() const override { return _cursor.Current().first; }
    [[nodiscard]] T Read() const override { return _cursor.Current().second; }
    [[nodiscard]] int Size() const override { return _values.Length(); }
    [[nodiscard]] const cow_Map<K, T>& Values() const override { return _values; }

private:
    cow_Map<K, T> _values;
    idb_MapCursor<cow_Map<K, T>> _cursor;
};

/// By integers.
template <class T>
using idb_ReadMapInt2Prim = idb_ReadMapPrim<int, T>;
/// By strings.
template <class T>
using idb_ReadMapString2Prim = idb_ReadMapPrim<cow_String, T>;

#endif
