#ifndef ORV_IDB_IDB_WRITELISTPRIM_H
#define ORV_IDB_IDB_WRITELISTPRIM_H

#include <base/bio_Ofilter.h>
#include <base/cls_Collection.h>

#include <type_traits>

/// A list of values, or a 2-D array row after row. Written at destruction: count, columns, then each value.
template <class T>
class idb_WriteListPrim final : public cls_WriteListPrim<T> {
public:
    /// Writes to `out` when it is destroyed.
    idb_WriteListPrim(bio_Ofilter* out, int columns) : _out(out), _columns(columns) {}
    ~idb_WriteListPrim() override {
        if (_out == nullptr) return;
        _out->WriteCount(_values.Span().size());
        _out->Write(_columns);
        if constexpr (std::is_arithmetic_v<T> && !std::is_same_v<T, bool>)
            _out->WriteBlock(_values.Span());
        else
            for (const auto& value : _values) WriteValue(value);
    }

    void Write(const T& value) override { _values.Append(value); }
    void Write(const T* values, int n) override {
        if (_values.Span().empty()) _values.Reserve(n);  // later ones let it grow as it does
        for (int i = 0; i < n; ++i) _values.Append(values[i]);
    }
    void Write(const cow_List<T>& values) override {
        if (_values.Length() == 0)
            _values = values;
        else
            for (const auto& value : values) _values.Append(value);
    }
    void Abandon() noexcept override { _out = nullptr; }

private:
    void WriteValue(const T& value) { _out->Write(value); }

    bio_Ofilter* _out;
    int _columns;
    cow_List<T> _values;
};

#endif
