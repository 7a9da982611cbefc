#ifndef ORV_IDB_IDB_AGENTBLOB_H
#define ORV_IDB_IDB_AGENTBLOB_H

#include <base/cls_Collection.h>
#include <base/orv_Export.h>

#include <vector>

class bio_Ofilter;
class bio_Ifilter;

/// A growable buffer of bytes with one position for reading and writing. Numbers in it are little-endian.
class ORV_EXPORT idb_AgentBlob final : public cls_AgentBlob {
public:
    /// For writing: capacity 1024, position 0, length 0. Written at destruction: length, bytes. `out` may be null.
    explicit idb_AgentBlob(bio_Ofilter* out);
    /// For reading: takes length and bytes from the filter; the capacity is the length, the position 0. Throws
    /// nex_StreamException when the stream holds fewer.
    explicit idb_AgentBlob(bio_Ifilter& in);
    ~idb_AgentBlob() override;

    /// `n` counts elements. While position + bytes >= capacity the capacity grows by 1024, so a write that would
    /// just fill the buffer grows it too; new capacity is zero. Throws std::bad_alloc beyond 4 GiB.
    void Write(const void* bytes, unsigned n) override;
    void WriteIntArray(const int* values, unsigned n) override;
    void WriteDoubleArray(const double* values, unsigned n) override;
    /// All elements lie within the capacity (not the length), or 0 is given and nothing read.
    unsigned Read(void* bytes, unsigned n) override;
    unsigned ReadIntArray(int* values, unsigned n) override;
    unsigned ReadDoubleArray(double* values, unsigned n) override;

    /// The highest position written, or the bytes read from the stream.
    [[nodiscard]] unsigned Length() const override;
    /// Bytes that fit, and where the next element is read or written.
    [[nodiscard]] unsigned Capacity() const noexcept { return static_cast<unsigned>(_buffer.size()); }
    [[nodiscard]] unsigned Position() const noexcept { return _position; }
    /// True for a blob that is being written.
    [[nodiscard]] bool NeedsDeletion() const override;
    /// Any position. Beyond the length, the bytes between are zero once something is written there.
    void Seek(unsigned position) override;
    /// Forgets what was written.
    void Abandon() noexcept override;

private:
    char* Reserve(std::size_t size);
    const char* Available(std::size_t size);
    template <class T>
    void WriteArray(const T* values, unsigned n);
    template <class T>
    unsigned ReadArray(T* values, unsigned n);

    bio_Ofilter* _out = nullptr;
    std::vector<char> _buffer;
    unsigned _position = 0;
    unsigned _length = 0;
    bool _isForWriting;
};

#endif
