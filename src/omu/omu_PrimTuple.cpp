#include <base/cls_ClassRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <base/nex_PrimException.h>
#include <base/nex_Throw.h>
#include <omu/detail/omu_Depth.h>
#include <omu/detail/omu_Dismantling.h>
#include <omu/detail/omu_SequenceElement.h>
#include <omu/detail/omu_SequenceRange.h>
#include <omu/omu_ArgNumberErrorException.h>
#include <omu/omu_ArgTypeErrorException.h>
#include <omu/omu_PrimEnumBase.h>
#include <omu/omu_PrimTuple.h>
#include <omu/omu_PrimVisitor.h>

#include <algorithm>
#include <limits>

namespace {

constexpr char typeCharacter = '(';

/// `append` puts the text of one element behind the whole text.
template <class Append>
void AppendTuple(const omu_PrimTuple& tuple, std::string& text, const Append& append) {
    const omu_Depth level;
    text += '(';
    int printed = 0;
    for (const omu_Primitive& value : tuple) {
        if (printed != 0) text += ", ";
        append(value);
        ++printed;
    }
    text += printed == 1 ? ",)" : ")";
}

/// A counter of reads as stored: below 0, and so near the end of int that reads would run over it, it is refused.
int ReadCounter(const cls_ReadVisitor& visitor, const char* field) {
    const int value = visitor.Read(field, 0);
    if (value < 0 || value > std::numeric_limits<int>::max() / 2) nex_Throw(nex_StreamException("bad count in stream"));
    return value;
}

}  // namespace

omu_PrimTuple::omu_PrimTuple(char type, int size) : omu_PrimSequence(type), _size(std::max(size, 0)) {}

omu_PrimTuple::omu_PrimTuple(const omu_PrimTuple& other)
    : omu_PrimSequence(other), _reading(other._reading), _size(other._size), _command(other._command) {
    const omu_Depth level;
    _primVector.Reserve(other._primVector.Length());
    for (const Holder& each : other._primVector)
        _primVector.Append(each.IsNull() ? Holder() : Holder(each->Copy().release()));
}

omu_PrimTuple::~omu_PrimTuple() {
    omu_Dismantling here;
    for (const Holder& each : _primVector) here.PutAside(each);
    _primVector.Clear();
}

// ---- Elements

void omu_PrimTuple::Put(std::unique_ptr<omu_Primitive> value) {
    _primVector.Append(Holder(value.release()));
    _size = std::max(_size, _primVector.Length());
}

int omu_PrimTuple::Length() const { return _size; }

const omu_Primitive& omu_PrimTuple::operator[](int index) const {
    cow_Position("tuple", index, static_cast<std::size_t>(_size));
    const omu_Primitive* const value = Find(index);
    if (value == nullptr) nex_Throw(nex_PrimException(NullMessage()));
    return *value;
}

const omu_Primitive* omu_PrimTuple::Find(int index) const noexcept {
    return index >= 0 && index < _primVector.Length() ? _primVector.begin()[index].Get() : nullptr;
}

// ---- Texts

cow_String omu_PrimTuple::TypeString() const { return "tuple"; }

cow_String omu_PrimTuple::AsString(int) const {
    std::string text;
    AppendString(text);
    return text;
}

void omu_PrimTuple::AppendString(std::string& text) const {
    AppendTuple(*this, text, [&text](const omu_Primitive& value) { value.AppendString(text); });
}

cow_String omu_PrimTuple::AsRepr() const {
    std::string text;
    AppendTuple(*this, text, [&text](const omu_Primitive& value) { text += value.AsRepr().View(); });
    return text;
}

// ---- Operations

std::unique_ptr<omu_PrimTuple> omu_PrimTuple::MakeResult(int size) const {
    return std::make_unique<omu_PrimTuple>(typeCharacter, size);
}

const char* omu_PrimTuple::NullMessage() const { return "Tuple Index returned NULL"; }

void omu_PrimTuple::AppendCopies(const omu_PrimSequence& from, int first, int last) {
    const omu_Depth level;
    for (int i = first; i < last; ++i) {
        const omu_Primitive* const element = omu_SequenceElement(from, i);
        std::unique_ptr<omu_Primitive> copy = element != nullptr ? element->Copy() : nullptr;
        if (!copy) nex_Throw(nex_PrimException(NullMessage()));
        Put(std::move(copy));
    }
}

std::unique_ptr<omu_PrimSequence> omu_PrimTuple::Slice(int begin, int end) const {
    const omu_SliceRange range(begin, end, Length());
    std::unique_ptr<omu_PrimTuple> result = MakeResult(range.last - range.first);
    result->AppendCopies(*this, range.first, range.last);
    return result;
}

std::unique_ptr<omu_PrimSequence> omu_PrimTuple::Repeat(int count) const {
    std::unique_ptr<omu_PrimTuple> result = MakeResult(omu_RepeatedLength(Length(), count));
    while (result->_primVector.Length() < result->Length()) result->AppendCopies(*this, 0, Length());
    return result;
}

std::unique_ptr<omu_PrimSequence> omu_PrimTuple::Concat(const omu_PrimSequence* other) const {
    if (other == nullptr) nex_Throw(nex_PrimException(NullMessage()));
    std::unique_ptr<omu_PrimTuple> result = MakeResult(omu_JoinedLength(Length(), other->Length()));
    result->AppendCopies(*this, 0, Length());
    result->AppendCopies(*other, 0, other->Length());
    return result;
}

std::unique_ptr<omu_Primitive> omu_PrimTuple::Copy() const { return std::make_unique<omu_PrimTuple>(*this); }
void omu_PrimTuple::Accept(omu_PrimVisitor* visitor) const { visitor->VisitTuple(*this); }

bool omu_PrimTuple::IsEqual(const omu_Primitive& other) const {
    const auto* const tuple = SameKind<omu_PrimTuple>(other);
    if (tuple == nullptr || Length() != tuple->Length()) return false;
    const omu_Depth level;
    const int put = std::max(_primVector.Length(), tuple->_primVector.Length());
    for (int i = 0; i < put; ++i) {
        const omu_Primitive* const a = Find(i);
        const omu_Primitive* const b = tuple->Find(i);
        if (a == nullptr || b == nullptr ? a != b : *a != *b) return false;
    }
    return true;
}

// ---- Reading

void omu_PrimTuple::Begin() { _reading = {}; }

void omu_PrimTuple::ReadNext(const omu_ArgumentSlot& slot) {
    _reading.errorOnPrevious = false;
    if (_reading.cursor < _size && _reading.errorArg == 0 && !Take(Find(_reading.cursor), slot)) {
        _reading.errorArg = _reading.cursor + 1;
        _reading.errorOnPrevious = true;
    }
    ++_reading.cursor;
    Count(1);
}

bool omu_PrimTuple::Take(const omu_Primitive* found, const omu_ArgumentSlot& slot) {
    if (found != nullptr && slot.Take(*found)) return true;
    _reading.typeExpected = slot.Expected();
    if (found == nullptr)
        _reading.typeFound = "None";
    else
        _reading.typeFound =
            dynamic_cast<const omu_PrimEnumBase*>(found) != nullptr ? found->AsString(0) : found->TypeString();
    return false;
}

void omu_PrimTuple::Count(int change) noexcept {
    _reading.numGets += change;
    _reading.argcount += change;
    if (!_reading.isOptional) _reading.reqcount += change;
}

void omu_PrimTuple::ClearError() noexcept {
    _reading.errorArg = 0;
    _reading.typeFound = cow_String();
    _reading.typeExpected = cow_String();
    _reading.errorOnPrevious = false;
}

bool omu_PrimTuple::Alternative() {
    if (_reading.errorArg == 0 || _reading.errorArg != _reading.cursor) return false;
    --_reading.cursor;
    Count(-1);
    ClearError();
    return true;
}

bool omu_PrimTuple::Error() const {
    return _reading.errorArg != 0 || _size < _reading.reqcount || _size > _reading.argcount;
}

void omu_PrimTuple::End(const cow_String& command) {
    const cow_String& name = command == "" ? _command : command;
    if (_reading.errorArg != 0)
        nex_Throw(omu_ArgTypeErrorException(_reading.errorArg, _reading.typeExpected, _reading.typeFound, name));
    if (_size < _reading.reqcount) nex_Throw(omu_ArgNumberErrorException(_reading.reqcount, _size, name));
    if (_size > _reading.argcount) nex_Throw(omu_ArgNumberErrorException(_reading.argcount, _size, name));
}

// ---- Persistence

unsigned omu_PrimTuple::DynTypeId() const { return TypeId(); }

void omu_PrimTuple::InitializeMetadata(cls_ClassRegistrar& registrar) {
    registrar.Class<omu_PrimTuple, omu_PrimSequence>("omu_PrimTuple", omu_MetadataNumber)
        .Add<cow_List<Holder>>("primVector")
        .Add<int>("size")
        .Add<int>("cursor")
        .Add<int>("reqcount")
        .Add<int>("argcount")
        .Add<bool>("isOptional")
        .Add<int>("errorArg")
        .Add<cow_String>("typeFound")
        .Add<cow_String>("typeExpected")
        .Add<int>("numGets");
}

void omu_PrimTuple::DBWrite(const cls_WriteVisitor& visitor) const {
    const omu_Depth level;
    omu_PrimSequence::DBWrite(visitor.Base(omu_PrimSequence::TypeId()));
    visitor.Write("primVector", _primVector);
    visitor.Write("size", _size);
    visitor.Write("cursor", _reading.cursor);
    visitor.Write("reqcount", _reading.reqcount);
    visitor.Write("argcount", _reading.argcount);
    visitor.Write("isOptional", _reading.isOptional);
    visitor.Write("errorArg", _reading.errorArg);
    visitor.Write("typeFound", _reading.typeFound);
    visitor.Write("typeExpected", _reading.typeExpected);
    visitor.Write("numGets", _reading.numGets);
}

omu_PrimTuple::omu_PrimTuple(const cls_ReadVisitor& visitor) : omu_PrimTuple(visitor, typeCharacter) {}

omu_PrimTuple::omu_PrimTuple(const cls_ReadVisitor& visitor, char fallback)
    : omu_PrimSequence(visitor.Base(), fallback),
      _primVector(visitor.Read("primVector", cow_List<Holder>())),
      _size(std::max(visitor.Read("size", 0), _primVector.Length())) {
    _reading.cursor = ReadCounter(visitor, "cursor");
    _reading.reqcount = ReadCounter(visitor, "reqcount");
    _reading.argcount = ReadCounter(visitor, "argcount");
    _reading.isOptional = visitor.Read("isOptional", false);
    _reading.errorArg = ReadCounter(visitor, "errorArg");
    _reading.typeFound = visitor.Read("typeFound", cow_String());
    _reading.typeExpected = visitor.Read("typeExpected", cow_String());
    _reading.numGets = ReadCounter(visitor, "numGets");
}
