#include <base/bio_Ifilter.h>
#include <base/bio_Ofilter.h>
#include <base/detail/bio_Encoding.h>
#include <idb/idb_AgentBlob.h>

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>

namespace {
constexpr std::size_t growth = 1024;
}

idb_AgentBlob::idb_AgentBlob(bio_Ofilter* out) : _out(out), _buffer(growth), _isForWriting(true) {}

idb_AgentBlob::idb_AgentBlob(bio_Ifilter& in) : _isForWriting(false) {
    in.Read(_length);
    const char* bytes = in.Take(_length);
    _buffer.assign(bytes, bytes + _length);
}

idb_AgentBlob::~idb_AgentBlob() {
    if (_out == nullptr) return;
    _out->Write(_length);
    _out->WriteRaw(_buffer.data(), _length);
}

/// Room for `size` bytes at the position, which moves behind them.
char* idb_AgentBlob::Reserve(std::size_t size) {
    const std::size_t end = _position + size;
    if (end > std::numeric_limits<unsigned>::max() - growth) throw std::bad_alloc();
    if (end >= _buffer.size()) _buffer.resize(_buffer.size() + ((end - _buffer.size()) / growth + 1) * growth);
    char* at = _buffer.data() + _position;
    _position = static_cast<unsigned>(end);
    _length = std::max(_length, _position);
    return at;
}

/// The `size` bytes at the position, which moves behind them; null when they do not lie within the capacity.
const char* idb_AgentBlob::Available(std::size_t size) {
    if (_position > _buffer.size() || size > _buffer.size() - _position) return nullptr;
    const char* at = _buffer.data() + _position;
    _position += static_cast<unsigned>(size);
    return at;
}

void idb_AgentBlob::Write(const void* bytes, unsigned n) {
    char* at = Reserve(n);
    if (n != 0) std::memcpy(at, bytes, n);
}

template <class T>
void idb_AgentBlob::WriteArray(const T* values, unsigned n) {
    char* at = Reserve(std::size_t{n} * sizeof(T));
    for (unsigned i = 0; i < n; ++i) bio_Store(at + i * sizeof(T), values[i]);
}

template <class T>
unsigned idb_AgentBlob::ReadArray(T* values, unsigned n) {
    const char* at = Available(std::size_t{n} * sizeof(T));
    if (at == nullptr) return 0;
    for (unsigned i = 0; i < n; ++i) values[i] = bio_Load<T>(at + i * sizeof(T));
    return n;
}

unsigned idb_AgentBlob::Read(void* bytes, unsigned n) {
    const char* at = Available(n);
    if (at == nullptr) return 0;
    if (n != 0) std::memcpy(bytes, at, n);
    return n;
}

void idb_AgentBlob::WriteIntArray(const int* values, unsigned n) { WriteArray(values, n); }
void idb_AgentBlob::WriteDoubleArray(const double* values, unsigned n) { WriteArray(values, n); }
unsigned idb_AgentBlob::ReadIntArray(int* values, unsigned n) { return ReadArray(values, n); }
unsigned idb_AgentBlob::ReadDoubleArray(double* values, unsigned n) { return ReadArray(values, n); }

unsigned idb_AgentBlob::Length() const { return _length; }
bool idb_AgentBlob::NeedsDeletion() const { return _isForWriting; }
void idb_AgentBlob::Seek(unsigned position) { _position = position; }
void idb_AgentBlob::Abandon() noexcept { _out = nullptr; }
