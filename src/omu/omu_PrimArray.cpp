#include <base/cls_ClassRegistrar.h>
#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <base/nex_PrimException.h>
#include <base/nex_Throw.h>
#include <omu/detail/omu_Depth.h>
#include <omu/detail/omu_SequenceElement.h>
#include <omu/detail/omu_SequenceRange.h>
#include <omu/detail/omu_WriteError.h>
#include <omu/omu_PrimArray.h>
#include <omu/omu_PrimArrayData.h>
#include <omu/omu_PrimVisitor.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

using Type = omu_PrimNumber::DataTypeEnm;

constexpr Type noType = static_cast<Type>(-1);

/// Of an array without elements: as many empty tuples print, and no more.
constexpr int mostEmptyTuples = 1 << 20;

const bool diagnostics = std::getenv("VLM_DBG_PRIMARRAY") != nullptr;

int NextSerialNumber() noexcept {
    static std::atomic<int> counter = 0;
    return ++counter;
}

template <class T>
constexpr Type typeOf = std::is_same_v<T, int>     ? omu_PrimNumber::INT
                        : std::is_same_v<T, float> ? omu_PrimNumber::FLOAT
                                                   : omu_PrimNumber::DOUBLE;

/// Calls `function` with a value of the C++ type of the elements.
template <class Function>
decltype(auto) ForType(Type type, const Function& function) {
    switch (type) {
        case omu_PrimNumber::FLOAT:
            return function(0.0F);
        case omu_PrimNumber::DOUBLE:
            return function(0.0);
        default:
            return function(0);
    }
}

template <class T>
T ValueAs(const omu_PrimNumber& number) {
    if (number.DataType() == omu_PrimNumber::UINT) return static_cast<T>(number.AsUint());
    if constexpr (std::is_same_v<T, int>)
        return number.AsInt();
    else if constexpr (std::is_same_v<T, float>)
        return number.AsFloat();
    else
        return number.AsDouble();
}

/// Of dimensions that are not negative, 1 of none; nothing beyond 2^31 - 1.
std::optional<int> Product(std::span<const int> dims) {
    if (std::ranges::find(dims, 0) != dims.end()) return 0;
    long long product = 1;
    for (const int dimension : dims) {
        product *= dimension;
        if (product > std::numeric_limits<int>::max()) return std::nullopt;
    }
    return static_cast<int>(product);
}

/// Elements of an array, which has none in no dimension.
std::optional<int> ElementCount(std::span<const int> dims) { return dims.empty() ? 0 : Product(dims); }

/// Puts all elements, row by row, behind `next`.
template <class T>
void AppendElements(const omu_PrimArray& from, T*& next) {
    ForType(from.ConstGetPrimNumberType(), [&from, &next](auto zero) {
        const auto* element = static_cast<const decltype(zero)*>(from.ConstGetData());
        for (int left = from.ConstGetNumElements(); left > 0; --left) *next++ = ValueAs<T>(omu_PrimNumber(*element++));
    });
}

/// The same of nested sequences. False, before anything goes beyond what `dims` multiply to, when they are not of these
/// dimensions.
template <class T>
bool AppendElements(const omu_PrimSequence& from, std::span<const int> dims, T*& next) {
    if (const auto* const array = dynamic_cast<const omu_PrimArray*>(&from)) {
        if (array->ConstGetNumElements() != Product(dims)) return false;
        AppendElements(*array, next);
        return true;
    }
    if (from.Length() != dims.front()) return false;
    for (int i = 0; i < dims.front(); ++i) {
        const omu_Primitive* const item = omu_SequenceElement(from, i);
        if (dims.size() > 1) {
            const auto* const child = dynamic_cast<const omu_PrimSequence*>(item);
            if (child == nullptr || !AppendElements(*child, dims.subspan(1), next)) return false;
        } else {
            const auto* const number = dynamic_cast<const omu_PrimNumber*>(item);
            if (number == nullptr) return false;
            *next++ = ValueAs<T>(*number);
        }
    }
    return true;
}

[[noreturn]] void ThrowBadCount() { nex_Throw(nex_StreamException("bad count in stream")); }

}  // namespace

// ---- Construction

omu_PrimArray::omu_PrimArray() : omu_PrimSequence('o'), _serialNumber(NextSerialNumber()) {}

omu_PrimArray::omu_PrimArray(const omu_PrimSequence& sequence) : omu_PrimArray() {
    if (const auto* const array = dynamic_cast<const omu_PrimArray*>(&sequence)) {
        *this = *array;
        return;
    }
    int nd = 0;
    cow_List<int> dims;
    DataTypeEnm type = noType;
    atr_String reason;
    if (!getDimensionsFromSequence(sequence, nd, dims, type, reason, true))
        nex_Throw(nex_PrimException("omu_PrimArray from sequence failed - dimensions. " + reason.Text().str()));
    if (!FromDimsAndData(nd, dims, nullptr, type))
        nex_Throw(nex_PrimException("omu_PrimArray from sequence failed - DimsAndData"));
    const bool copied = ForType(type, [&](auto zero) {
        auto* next = Elements<decltype(zero)>();
        return AppendElements(sequence, dims.Span(), next);
    });
    if (!copied) nex_Throw(nex_PrimException("omu_PrimArray from sequence failed - copyValues"));
    if (diagnostics) omu_WriteError("omu_PrimArray() 6 ##%03d\n", _serialNumber);
}

omu_PrimArray::omu_PrimArray(int nd, const cow_List<int>& dims, const double* data) : omu_PrimArray() {
    Make(nd, dims, data, omu_PrimNumber::DOUBLE);
}
omu_PrimArray::omu_PrimArray(int nd, const cow_List<int>& dims, const float* data) : omu_PrimArray() {
    Make(nd, dims, data, omu_PrimNumber::FLOAT);
}
omu_PrimArray::omu_PrimArray(int nd, const cow_List<int>& dims, const int* data) : omu_PrimArray() {
    Make(nd, dims, data, omu_PrimNumber::INT);
}
omu_PrimArray::omu_PrimArray(int nd, const cow_List<int>& dims, DataTypeEnm type, const void* bytes) : omu_PrimArray() {
    Make(nd, dims, bytes, type);
}

omu_PrimArray::omu_PrimArray(const omu_PrimArray& other)
    : omu_PrimSequence(other), _state(other._state), _serialNumber(NextSerialNumber()) {}

omu_PrimArray& omu_PrimArray::operator=(const omu_PrimArray& other) {
    omu_PrimSequence::operator=(other);
    _state = State(other._state);
    _lent.clear();  // `other` may be among them
    return *this;
}

omu_PrimArray::~omu_PrimArray() = default;

bool omu_PrimArray::FromDimsAndData(int nd, const cow_List<int>& dims, const void* data, DataTypeEnm type,
                                    atr_String* reason) {
    const auto fail = [reason](const char* text) {
        if (reason != nullptr) *reason = text;
        return false;
    };
    if (nd < 0) return fail("PrimArray negative number of dimensions");
    if (type < omu_PrimNumber::INT || type > omu_PrimNumber::DOUBLE)
        nex_Throw(nex_PrimException("PrimArray only INT, FLOAT, DOUBLE allowed"));
    if (nd > dims.Length()) nex_Throw(nex_PrimException("PrimArray fewer dimensions than their number"));
    if (nd > omu_deepestValue) nex_Throw(nex_PrimException("PrimArray too many dimensions"));
    const std::span<const int> shape = dims.Span().first(static_cast<std::size_t>(nd));
    if (std::ranges::any_of(shape, [](int dimension) { return dimension < 0; }))
        nex_Throw(nex_PrimException("PrimArray negative dimensions are not allowed"));

    constexpr const char* noMemory = "PrimArray can't allocate memory for array (data)";
    const std::optional<int> count = ElementCount(shape);
    if (!count) return fail(noMemory);
    State made = _state;
    made.type = type;
    made.firstElement = 0;
    const std::size_t itemSize = ForType(type, [](auto zero) { return sizeof(zero); });
    made.dims = cow_List<int>(std::vector<int>(shape.begin(), shape.end()));
    made.data = std::make_shared<omu_PrimArrayData>(static_cast<std::size_t>(*count) * itemSize);
    if (made.data->Bytes() == nullptr) return fail(noMemory);
    if (data != nullptr) std::memcpy(made.data->Bytes(), data, made.data->Count());
    _state = std::move(made);
    _lent.clear();
    return true;
}

void omu_PrimArray::Make(int nd, const cow_List<int>& dims, const void* data, DataTypeEnm type) {
    atr_String reason;
    if (!FromDimsAndData(nd, dims, data, type, &reason)) nex_Throw(nex_PrimException(reason.Text().str()));
}

std::unique_ptr<omu_PrimArray> omu_PrimArray::OfLength(int length, DataTypeEnm type) const {
    auto result = std::make_unique<omu_PrimArray>();
    result->_state.origin = _state.origin;
    if (type == noType) return result;
    cow_List<int> dims = _state.dims;
    if (dims.Length() != 0) dims.Get(0) = length;
    result->Make(dims.Length(), dims, nullptr, type);
    return result;
}

// ---- Shape

int omu_PrimArray::ConstGetNumElements() const noexcept { return *ElementCount(_state.dims.Span()); }

std::size_t omu_PrimArray::ConstGetArraySize() const noexcept {
    return static_cast<std::size_t>(ConstGetNumElements()) * ConstGetItemSize();
}

std::size_t omu_PrimArray::ConstGetItemSize() const noexcept {
    if (_state.type == noType) return 0;
    return ForType(_state.type, [](auto zero) { return sizeof(zero); });
}

template <class T>
T* omu_PrimArray::Elements() const noexcept {
    return _state.data ? static_cast<T*>(_state.data->Bytes()) + _state.firstElement : nullptr;
}

const void* omu_PrimArray::ConstGetData() const noexcept {
    return ForType(_state.type, [this](auto zero) -> const void* { return Elements<const decltype(zero)>(); });
}

omu_PrimArrayView omu_PrimArray::View() const {
    const std::span<const int> dims = _state.dims.Span();
    omu_PrimArrayView view{ConstGetData(), _state.type, {dims.begin(), dims.end()}, {}};
    view.strides.resize(dims.size());
    auto stride = static_cast<std::ptrdiff_t>(ConstGetNumElements() != 0 ? ConstGetItemSize() : 0);
    for (std::size_t d = dims.size(); d-- > 0;) {
        view.strides[d] = stride;
        stride *= dims[d];
    }
    return view;
}

int omu_PrimArray::Length() const { return ConstGetNumDimensions() != 0 ? ConstGetDimension(0) : 0; }

std::size_t omu_PrimArray::RowElements() const noexcept {
    const int length = ConstGetNumDimensions() != 0 ? _state.dims.Span().front() : 0;
    return length != 0 ? static_cast<std::size_t>(ConstGetNumElements() / length) : 0;
}

// ---- Items

std::size_t omu_PrimArray::Position(int i, int j, int k, int l) const {
    const std::array<int, 4> indices = {i, j, k, l};
    const std::span<const int> dims = _state.dims.Span();
    std::size_t position = 0;
    for (std::size_t d = 0; d < std::max(dims.size(), indices.size()); ++d) {
        const int index = d < indices.size() ? indices[d] : 0;
        const std::size_t length = d < dims.size() ? static_cast<std::size_t>(dims[d]) : dims.empty() ? 0 : 1;
        position = position * length + cow_Position("array", index, length);
    }
    return position;
}

omu_PrimNumber omu_PrimArray::ConstGetItem(int i, int j, int k, int l) const {
    const std::size_t position = Position(i, j, k, l);
    return ForType(_state.type,
                   [this, position](auto zero) { return omu_PrimNumber(Elements<decltype(zero)>()[position]); });
}

double omu_PrimArray::ConstGetDouble(int i, int j, int k, int l) const { return ConstGetItem(i, j, k, l).AsDouble(); }
int omu_PrimArray::ConstGetInt(int i, int j, int k, int l) const { return ConstGetItem(i, j, k, l).AsInt(); }

void omu_PrimArray::SetItem(const omu_PrimNumber& number, int i, int j, int k, int l) {
    const std::size_t position = Position(i, j, k, l);
    ForType(_state.type, [this, position, &number](auto zero) {
        Elements<decltype(zero)>()[position] = ValueAs<decltype(zero)>(number);
    });
}

// ---- As a sequence

const omu_Primitive& omu_PrimArray::operator[](int index) const {
    cow_Position("array", index, static_cast<std::size_t>(Length()));
    std::unique_ptr<omu_Primitive>& lent = _lent[index];
    if (!lent)
        lent = Index(index);
    else if (ConstGetNumDimensions() == 1)
        static_cast<omu_PrimNumber&>(*lent) = ConstGetItem(index);
    else
        static_cast<omu_PrimArray&>(*lent)._state.origin = _state.origin;
    return *lent;
}

std::unique_ptr<omu_Primitive> omu_PrimArray::Index(int index) const {
    if (ConstGetNumDimensions() > 1) return SubArray(index);
    return std::make_unique<omu_PrimNumber>(ConstGetItem(index));
}

std::unique_ptr<omu_PrimArray> omu_PrimArray::SubArray(int index) const {
    const std::size_t row = cow_Position("array", index, static_cast<std::size_t>(Length()));
    const std::span<const int> inner = _state.dims.Span().subspan(1);
    auto result = std::make_unique<omu_PrimArray>();
    result->_state = _state;
    result->_state.dims = cow_List<int>(std::vector<int>(inner.begin(), inner.end()));
    result->_state.firstElement += row * RowElements();
    return result;
}

std::unique_ptr<omu_PrimSequence> omu_PrimArray::Slice(int begin, int end) const {
    const omu_SliceRange range(begin, end, Length());
    std::unique_ptr<omu_PrimArray> result = OfLength(range.last - range.first, _state.type);
    ForType(_state.type, [&](auto zero) {
        const auto* const first = Elements<decltype(zero)>() + static_cast<std::size_t>(range.first) * RowElements();
        std::copy_n(first, result->ConstGetNumElements(), result->Elements<decltype(zero)>());
    });
    return result;
}

std::unique_ptr<omu_PrimSequence> omu_PrimArray::Repeat(int count) const {
    std::unique_ptr<omu_PrimArray> result = OfLength(omu_RepeatedLength(Length(), count), _state.type);
    ForType(_state.type, [&](auto zero) {
        auto* next = result->Elements<decltype(zero)>();
        const auto* const end = next + result->ConstGetNumElements();
        while (next != end) next = std::copy_n(Elements<decltype(zero)>(), ConstGetNumElements(), next);
    });
    return result;
}

std::unique_ptr<omu_PrimSequence> omu_PrimArray::Concat(const omu_PrimSequence* other) const {
    if (other == nullptr) nex_Throw(nex_PrimException("PrimArray to join is missing"));
    const omu_PrimArray second(*other);
    const std::span<const int> dims = _state.dims.Span();
    const std::span<const int> dimsSecond = second._state.dims.Span();
    if (dims.size() != dimsSecond.size() ||
        (!dims.empty() && !std::ranges::equal(dims.subspan(1), dimsSecond.subspan(1))))
        nex_Throw(nex_PrimException("PrimArrays to join differ in their dimensions"));
    const DataTypeEnm wider = std::max(_state.type, second._state.type);
    std::unique_ptr<omu_PrimArray> result = OfLength(omu_JoinedLength(Length(), second.Length()), wider);
    ForType(wider, [&](auto zero) {
        auto* next = result->Elements<decltype(zero)>();
        AppendElements(*this, next);
        AppendElements(second, next);
    });
    return result;
}

cow_String omu_PrimArray::TypeString() const { return "array"; }

cow_String omu_PrimArray::AsString(int) const {
    std::string text;
    AppendString(text);
    return text;
}

void omu_PrimArray::AppendString(std::string& text) const {
    if (ConstGetNumDimensions() == 0) {
        text += "()";
        return;
    }
    const std::span<const int> dims = _state.dims.Span();
    if (const auto empty = std::ranges::find(dims, 0);
        empty != dims.end() && Product({dims.begin(), empty}).value_or(mostEmptyTuples + 1) > mostEmptyTuples)
        nex_Throw(nex_PrimException("PrimArray without elements too large to print"));
    ForType(_state.type, [this, &text](auto zero) {
        const auto* next = Elements<const decltype(zero)>();
        AppendLevel(text, 0, next);
    });
}

template <class T>
void omu_PrimArray::AppendLevel(std::string& text, int level, const T*& next) const {
    const omu_Depth depth;
    const int length = ConstGetDimension(level);
    const bool numbers = level + 1 == ConstGetNumDimensions();
    text += '(';
    for (int i = 0; i < length; ++i) {
        if (i != 0) text += ", ";
        if (numbers)
            omu_PrimNumber(*next++).AppendString(text);
        else
            AppendLevel(text, level + 1, next);
    }
    text += length == 1 ? ",)" : ")";
}

bool omu_PrimArray::IsEqual(const omu_Primitive& other) const {
    const auto* const array = SameKind<omu_PrimArray>(other);
    if (array == nullptr || _state.type != array->_state.type || !(_state.dims == array->_state.dims)) return false;
    return ForType(_state.type, [this, array](auto zero) {
        const auto* const first = Elements<const decltype(zero)>();
        return std::equal(first, first + ConstGetNumElements(), array->Elements<const decltype(zero)>());
    });
}

void omu_PrimArray::Accept(omu_PrimVisitor* visitor) const { visitor->VisitArray(*this); }
std::unique_ptr<omu_Primitive> omu_PrimArray::Copy() const { return std::make_unique<omu_PrimArray>(*this); }
unsigned omu_PrimArray::DynTypeId() const { return TypeId(); }

// ---- Diagnostics

const char* omu_PrimArray::typeCode2string(DataTypeEnm type) noexcept {
    switch (type) {
        case omu_PrimNumber::INT:
            return "omu_PrimNumber::INT";
        case omu_PrimNumber::FLOAT:
            return "omu_PrimNumber::FLOAT";
        case omu_PrimNumber::DOUBLE:
            return "omu_PrimNumber::DOUBLE";
        default:
            return nullptr;
    }
}

bool omu_PrimArray::Diagnostics() noexcept { return diagnostics; }

// ---- Persistence

void omu_PrimArray::InitializeMetadata(cls_ClassRegistrar& registrar) {
    registrar.Class<omu_PrimArray, omu_PrimSequence>("omu_PrimArray", omu_MetadataNumber)
        .Add<cow_List<int>>("dims")
        .Add<DataTypeEnm>("typeCode")
        .Add<char>("pyType")
        .Add<cow_List<int>>("intData")
        .Add<cow_List<float>>("floatData")
        .Add<cow_List<double>>("doubleData")
        .Add<bool>("isVlmNDarray")
        .Add<bool>("colZeroIsInt");
}

void omu_PrimArray::DBWrite(const cls_WriteVisitor& visitor) const {
    omu_PrimSequence::DBWrite(visitor.Base(omu_PrimSequence::TypeId()));
    visitor.Write("dims", _state.dims);
    visitor.Write("typeCode", _state.type);
    visitor.Write("pyType", _state.origin.pyType);
    visitor.Write("intData", Stored<int>());
    visitor.Write("floatData", Stored<float>());
    visitor.Write("doubleData", Stored<double>());
    visitor.Write("isVlmNDarray", _state.origin.isVlmNDarray);
    visitor.Write("colZeroIsInt", _state.origin.colZeroIsInt);
}

template <class T>
cow_List<T> omu_PrimArray::Stored() const {
    if (_state.type != typeOf<T>) return {};
    const T* const first = Elements<const T>();
    return cow_List<T>(std::vector<T>(first, first + ConstGetNumElements()));
}

omu_PrimArray::omu_PrimArray(const cls_ReadVisitor& visitor)
    : omu_PrimSequence(visitor.Base(), 'o'), _serialNumber(NextSerialNumber()) {
    const auto dims = visitor.Read("dims", cow_List<int>());
    const auto type = visitor.Read("typeCode", noType);
    _state.origin.pyType = visitor.Read("pyType", '\0');
    if (type == omu_PrimNumber::INT)
        TakeStored(dims, visitor.Read("intData", cow_List<int>()));
    else if (type == omu_PrimNumber::FLOAT)
        TakeStored(dims, visitor.Read("floatData", cow_List<float>()));
    else if (type == omu_PrimNumber::DOUBLE)
        TakeStored(dims, visitor.Read("doubleData", cow_List<double>()));
    else if (type != noType || dims.Length() != 0)
        ThrowBadCount();
    _state.origin.isVlmNDarray = visitor.Read("isVlmNDarray", false);
    _state.origin.colZeroIsInt = visitor.Read("colZeroIsInt", false);
}

template <class T>
void omu_PrimArray::TakeStored(const cow_List<int>& dims, const cow_List<T>& values) {
    const std::span<const int> shape = dims.Span();
    const bool possible = dims.Length() <= omu_deepestValue &&
                          std::ranges::none_of(shape, [](int dimension) { return dimension < 0; }) &&
                          ElementCount(shape) == values.Length();
    if (!possible || !FromDimsAndData(dims.Length(), dims, values.begin(), typeOf<T>)) ThrowBadCount();
}
