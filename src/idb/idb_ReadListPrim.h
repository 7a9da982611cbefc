#ifndef ORV_IDB_IDB_READLISTPRIM_H
#define ORV_IDB_IDB_READLISTPRIM_H

#include <base/bio_Ifilter.h>
#include <base/cls_Collection.h>
#include <base/nex_StreamException.h>
#include <base/nex_Throw.h>

#include <type_traits>
#include <utility>
#include <vector>

/// Least bytes of a value on a stream.
template <class T>
inline constexpr std::size_t idb_LeastSize = std::is_arithmetic_v<T> ? sizeof(T) : 4;

/// A list of values or a 2-D array, read whole at construction. Throws nex_StreamException for a negative count or
/// number of columns and for more values than the stream holds.
template <class T>
class idb_ReadListPrim final : public cls_ReadListPrim<T> {
public:
    /// Reads all values at once. Throws nex_StreamException for a count that the bytes cannot hold.
    explicit idb_ReadListPrim(bio_Ifilter& in) {
        const int count = in.ReadCount(idb_LeastSize<T>);
        in.Read(_columns);
        if (_columns < 0 || static_cast<std::size_t>(count) > in.Remaining() / idb_LeastSize<T>)
            nex_Throw(nex_StreamException("bad count in stream"));
        if constexpr (std::is_arithmetic_v<T>) {
            _values = cow_List<T>(in.ReadBlock<T>(static_cast<std::size_t>(count)));
        } else {
            std::vector<T> values(static_cast<std::size_t>(count));
            for (T& value : values) in.Read(value);
            _values = cow_List<T>(std::move(values));
        }
    }

    bool Next() override {
        if (++_cursor < _values.Length()) return true;
        _cursor = -1;
        return false;
    }
    [[nodiscard]] T Read() const override { return _values.ConstGet(_cursor); }
    int Read(T* values, int n) override {
        int done = 0;
        while (done < n && _cursor + 1 < _values.Length()) values[done++] = _values.ConstGet(++_cursor);
        return done;
    }
    [[nodiscard]] int Size() const override { return _values.Length(); }
    [[nodiscard]] int Columns() const override { return _columns; }
    [[nodiscard]] const cow_List<T>& Values() const override { return _values; }

private:
    cow_List<T> _values;
    int _columns = 1;
    int _cursor = -1;
};

#endif
