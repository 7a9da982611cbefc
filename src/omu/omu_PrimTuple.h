#ifndef ORV_OMU_OMU_PRIMTUPLE_H
#define ORV_OMU_OMU_PRIMTUPLE_H

#include <base/cow_CountedHld.h>
#include <base/cow_List.h>
#include <base/orv_Export.h>
#include <omu/omu_Argument.h>
#include <omu/omu_PrimSequence.h>

#include <cstddef>
#include <iterator>
#include <string>
#include <utility>

/// A tuple: values in an order, owned; and an argument list that a command reads in the order of its declaration.
///
/// A tuple has a size and at most so many elements: what was not put yet, or was put as a null pointer, is an empty
/// holder. Texts and iteration leave empty holders out, `Length` counts them, `operator[]` and copying elements refuse
/// them. A copy copies the elements and the state of reading.
///
/// Values nested to any depth can be made and die; printing, copying, comparing, writing those nested deeper than 150
/// throws nex_PrimException.
///
/// Reading: `Begin`, then one `Get` for each argument, `Optional` before the first that may be missing, last `End`:
///
///     int count = 0;
///     double width = 1.0;
///     arguments.Begin();
///     arguments.Get(count);
///     arguments.Optional();
///     arguments.Get(width);
///     arguments.End("Resize");
///
/// A read never throws. The first that fails is recorded, those after it read nothing, and `End` throws it.
class ORV_EXPORT omu_PrimTuple : public omu_PrimSequence {
public:
    /// `size`: for how many elements; negative counts as 0.
    explicit omu_PrimTuple(char type = '(', int size = 0);
    omu_PrimTuple(const omu_PrimTuple& other);
    omu_PrimTuple(omu_PrimTuple&&) = default;
    omu_PrimTuple& operator=(const omu_PrimTuple& other) { return *this = omu_PrimTuple(other); }
    omu_PrimTuple& operator=(omu_PrimTuple&&) = default;
    ~omu_PrimTuple() override;

    // ---- Elements

    /// Appends behind the elements that were put; beyond the size, the tuple grows. The value is copied or, as listed
    /// at `omu_MakePrimitive`, becomes one.
    template <omu_Puttable V>
    void Put(const V& value) {
        Put(omu_MakePrimitive(value));
    }
    /// Takes over `value`; null is an empty holder.
    void Put(std::unique_ptr<omu_Primitive> value);
    void Put(omu_Primitive* value) { Put(std::unique_ptr<omu_Primitive>(value)); }

    /// The size, however few were put.
    [[nodiscard]] int Length() const override;

    /// The element until the tuple changes. Throws nex_PrimException for an empty holder.
    [[nodiscard]] const omu_Primitive& operator[](int index) const override;

    /// The same without exceptions: null for an empty holder and outside 0..Length-1.
    [[nodiscard]] const omu_Primitive* Find(int index) const noexcept;

    class Iterator;
    /// The elements in order, without empty holders: `for (const omu_Primitive& value : tuple)`.
    [[nodiscard]] Iterator begin() const noexcept;
    [[nodiscard]] Iterator end() const noexcept;

    // ---- Texts

    [[nodiscard]] cow_String TypeString() const override;

    /// "()", "(1,)", "(1, 2.0, 'a')", whatever the type character.
    [[nodiscard]] cow_String AsString(int mode = 0) const override;
    void AppendString(std::string& text) const override;

    /// The same of the representations of the elements.
    [[nodiscard]] cow_String AsRepr() const override;

    // ---- Operations. The new tuple has type '('; an empty holder among the elements throws nex_PrimException
    // ("Tuple Index returned NULL").

    [[nodiscard]] std::unique_ptr<omu_PrimSequence> Slice(int begin, int end) const override;
    [[nodiscard]] std::unique_ptr<omu_PrimSequence> Repeat(int count) const override;
    [[nodiscard]] std::unique_ptr<omu_PrimSequence> Concat(const omu_PrimSequence* other) const override;
    [[nodiscard]] std::unique_ptr<omu_Primitive> Copy() const override;
    void Accept(omu_PrimVisitor* visitor) const override;

    // ---- Reading as an argument list

    /// Back to the first argument; forgets what was recorded.
    virtual void Begin();

    /// The reads from here on may find nothing.
    void Optional() noexcept { _reading.isOptional = true; }

    /// Reads the next argument into `value`, whose type decides what it may be (`omu_Argument.h`). Recorded as an
    /// error, and `value` left alone, when it is anything else. Nothing is read, and nothing recorded, behind the last
    /// argument and after an error. The counters advance in every case.
    template <omu_Readable T>
    void Get(T& value) {
        ReadNext(omu_ArgumentSlot(value));
    }

    /// Withdraws the read that failed, so that the same argument can be read as another type. Whether it did. To be
    /// called right after it.
    virtual bool Alternative();

    /// Whether `End` would throw: an error is recorded, there are fewer arguments than required reads or more than
    /// reads.
    [[nodiscard]] virtual bool Error() const;

    /// Whether the most recent read recorded an error.
    [[nodiscard]] bool ErrorOnPrevious() const noexcept { return _reading.errorOnPrevious; }

    /// Closes the reading. Throws the first that holds: omu_ArgTypeErrorException for the recorded error,
    /// omu_ArgNumberErrorException for too few arguments, the same for too many. `command` names the command in the
    /// message; where it is empty, `Command` does.
    virtual void End(const cow_String& command = cow_String());

    /// The text for `End` where the caller gives none. Not stored.
    [[nodiscard]] const cow_String& Command() const noexcept { return _command; }
    void SetCommand(const cow_String& command) { _command = command; }

    // ---- Persistence

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return omu_TypeId(0x19); }
    [[nodiscard]] unsigned DynTypeId() const override;
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    void DBWrite(const cls_WriteVisitor& visitor) const override;
    explicit omu_PrimTuple(const cls_ReadVisitor& visitor);

protected:
    using Holder = cow_CountedHld<omu_Primitive>;

    /// Same type character, same length, and equal elements in the same places; two empty holders are equal. Neither
    /// the other's class nor the state of reading counts.
    [[nodiscard]] bool IsEqual(const omu_Primitive& other) const override;

    /// What the operations fill, and what they say of an empty holder.
    [[nodiscard]] virtual std::unique_ptr<omu_PrimTuple> MakeResult(int size) const;
    [[nodiscard]] virtual const char* NullMessage() const;

    omu_PrimTuple(const cls_ReadVisitor& visitor, char fallback);

    struct Reading {
        int cursor = 0;    ///< index of the next positional argument
        int reqcount = 0;  ///< reads that were not optional
        int argcount = 0;  ///< all reads
        bool isOptional = false;
        int errorArg = 0;  ///< number of the failed read, from 1; 0 without an error
        cow_String typeFound;
        cow_String typeExpected;
        int numGets = 0;               ///< reads since `Begin`
        bool errorOnPrevious = false;  ///< not stored
    };

    /// One read of the next positional argument.
    void ReadNext(const omu_ArgumentSlot& slot);
    /// Whether `found`, null for an empty holder, went into the slot; if not, the type texts tell why.
    bool Take(const omu_Primitive* found, const omu_ArgumentSlot& slot);
    /// Counts one read, or takes the count of the last one back.
    void Count(int change) noexcept;
    void ClearError() noexcept;

    Reading _reading;

private:
    void AppendCopies(const omu_PrimSequence& from, int first, int last);

    cow_List<Holder> _primVector;
    int _size;
    cow_String _command;
};

/// Over the elements of a tuple.
class omu_PrimTuple::Iterator {
public:
    using iterator_category = std::forward_iterator_tag;
    using value_type = omu_Primitive;
    using difference_type = std::ptrdiff_t;
    using pointer = const omu_Primitive*;
    using reference = const omu_Primitive&;

    Iterator() noexcept = default;
    /// At the first holder from `at` on that is not empty.
    Iterator(const Holder* at, const Holder* end) noexcept : _at(at), _end(end) { SkipEmpty(); }

    [[nodiscard]] reference operator*() const noexcept { return *_at->Get(); }
    [[nodiscard]] pointer operator->() const noexcept { return _at->Get(); }
    Iterator& operator++() noexcept {
        ++_at;
        SkipEmpty();
        return *this;
    }
    Iterator operator++(int) noexcept { return std::exchange(*this, ++Iterator(*this)); }
    friend bool operator==(const Iterator& a, const Iterator& b) noexcept { return a._at == b._at; }

private:
    void SkipEmpty() noexcept {
        while (_at != _end && _at->IsNull()) ++_at;
    }

    const Holder* _at = nullptr;
    const Holder* _end = nullptr;
};

inline omu_PrimTuple::Iterator omu_PrimTuple::begin() const noexcept {
    return {_primVector.begin(), _primVector.end()};
}
inline omu_PrimTuple::Iterator omu_PrimTuple::end() const noexcept { return {_primVector.end(), _primVector.end()}; }

#endif
