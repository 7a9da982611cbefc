#ifndef ORV_OMU_OMU_PRIMARRAY_H
#define ORV_OMU_OMU_PRIMARRAY_H

#include <base/atr_String.h>
#include <base/cow_List.h>
#include <base/orv_Export.h>
#include <omu/getDimensionsFromSequence.h>
#include <omu/omu_PrimArrayView.h>
#include <omu/omu_PrimNumber.h>
#include <omu/omu_PrimSequence.h>

#include <cstddef>
#include <memory>
#include <unordered_map>

class omu_PrimArrayData;

/// A rectangular array of INT, FLOAT or DOUBLE numbers in up to 150 dimensions, in one block of memory, the last index
/// running fastest. As a sequence it has the outermost dimension for its length; its elements are numbers when it has
/// one dimension, else arrays of one dimension less.
///
/// Copies, and the arrays that `operator[]` and `Index` give, share the block: what `SetItem` writes through one shows
/// in all. `FromDimsAndData` and assignment part an array from the others. An array of no dimensions has no elements;
/// so has one with a dimension of 0.
///
/// Threads: `operator[]` keeps what it lends, so that it counts as writing; `SetItem` writes all arrays that share.
class ORV_EXPORT omu_PrimArray : public omu_PrimSequence {
public:
    /// Type of the elements.
    using DataTypeEnm = omu_PrimNumber::DataTypeEnm;

    /// No dimensions, and no type yet (-1).
    omu_PrimArray();

    /// The numbers of nested sequences in the type that `getDimensionsFromSequence` finds (which see: integers of
    /// several kinds are INT), each converted as by `SetItem`. An array handed over as a sequence is copied as by the
    /// copy constructor. Throws nex_PrimException:
    ///  - "omu_PrimArray from sequence failed - dimensions. " and the reason,
    ///  - "PrimArray only INT, FLOAT, DOUBLE allowed", when all are SHORT, all SCHAR or all UINT,
    ///  - "omu_PrimArray from sequence failed - DimsAndData", when there is no memory,
    ///  - "omu_PrimArray from sequence failed - copyValues", when the sequence changed its mind.
    explicit omu_PrimArray(const omu_PrimSequence& sequence);

    /// A copy of the block, which holds as many numbers as the dimensions multiply to; null for zeros. As
    /// `FromDimsAndData`, but what is false there throws nex_PrimException with the reason.
    omu_PrimArray(int nd, const cow_List<int>& dims, const double* data);
    omu_PrimArray(int nd, const cow_List<int>& dims, const float* data);
    omu_PrimArray(int nd, const cow_List<int>& dims, const int* data);
    /// The same from bytes, which need no alignment.
    omu_PrimArray(int nd, const cow_List<int>& dims, DataTypeEnm type, const void* bytes);

    omu_PrimArray(const omu_PrimArray& other);
    /// Keeps the serial number. `other` may be lent by this array.
    omu_PrimArray& operator=(const omu_PrimArray& other);
    ~omu_PrimArray() override;

    /// Gives this array a block of its own: the first `nd` of `dims`, outermost first, and a copy of `data`, or zeros
    /// for null. False, the array unchanged and `reason` (where there is one) told, for a negative `nd` and for more
    /// elements than 2^31 - 1 or than there is memory for ("PrimArray can't allocate memory for array (data)").
    /// Throws nex_PrimException: "PrimArray only INT, FLOAT, DOUBLE allowed" for another type, "PrimArray negative
    /// dimensions are not allowed", and when `dims` has fewer than `nd` entries or `nd` is more than 150.
    [[nodiscard]] bool FromDimsAndData(int nd, const cow_List<int>& dims, const void* data, DataTypeEnm type,
                                       atr_String* reason = nullptr);

    // ---- Shape

    /// 0 for an array that was never given a shape.
    [[nodiscard]] int ConstGetNumDimensions() const noexcept { return _state.dims.Length(); }
    /// Throws nex_RangeException outside 0..dimensions-1.
    [[nodiscard]] int ConstGetDimension(int i) const { return _state.dims.ConstGet(i); }
    /// Of all dimensions together.
    [[nodiscard]] int ConstGetNumElements() const noexcept;
    /// Bytes of all elements.
    [[nodiscard]] std::size_t ConstGetArraySize() const noexcept;
    /// Bytes of one element: 4, 8 for DOUBLE, 0 without a type.
    [[nodiscard]] std::size_t ConstGetItemSize() const noexcept;
    /// INT, FLOAT, DOUBLE, or -1.
    [[nodiscard]] DataTypeEnm ConstGetPrimNumberType() const noexcept { return _state.type; }
    /// Of the first element: int, float or double. Null for an array that was never given a shape.
    [[nodiscard]] const void* ConstGetData() const noexcept;
    [[nodiscard]] omu_PrimArrayView View() const;

    /// The outermost dimension, 0 without one.
    [[nodiscard]] int Length() const override;

    // ---- What bridges know of it: kept with each array, not shared. Slices and sub-arrays take it over.

    /// The type character of the scripting side, NUL at first.
    void SetPyType(char type) noexcept { _state.origin.pyType = type; }
    [[nodiscard]] char ConstGetPyType() const noexcept { return _state.origin.pyType; }
    /// Whether it came from an n-dimensional array of the scripting side, not from nested sequences.
    void SetIsVlmNDarray(bool is) noexcept { _state.origin.isVlmNDarray = is; }
    [[nodiscard]] bool IsVlmNDarray() const noexcept { return _state.origin.isVlmNDarray; }
    /// Whether column 0 holds integers although the type is a floating one. Does not change how it prints.
    void SetColZeroIsInt(bool is) noexcept { _state.origin.colZeroIsInt = is; }
    [[nodiscard]] bool ColZeroIsInt() const noexcept { return _state.origin.colZeroIsInt; }

    /// Each array that is made gets the next number of the process; shown in diagnostics only.
    [[nodiscard]] int SerialNumber() const noexcept { return _serialNumber; }

    // ---- Items. Throws nex_RangeException for an index outside its dimension; beyond the last dimension an index is
    // 0. In more than four dimensions only items whose further indices are 0 are reached.

    /// The item at these indices, and its number as a double.
    [[nodiscard]] omu_PrimNumber ConstGetItem(int i, int j = 0, int k = 0, int l = 0) const;
    [[nodiscard]] double ConstGetDouble(int i, int j = 0, int k = 0, int l = 0) const;
    /// FLOAT and DOUBLE as `omu_PrimNumber::AsInt`.
    [[nodiscard]] int ConstGetInt(int i, int j = 0, int k = 0, int l = 0) const;
    /// Writes the number as `AsInt`, `AsFloat` or `AsDouble` of it. An unsigned one, whose double is 0, is written by
    /// its unsigned value; what is above 2^31 - 1 becomes an int with the same bits.
    void SetItem(const omu_PrimNumber& number, int i, int j = 0, int k = 0, int l = 0);

    // ---- As a sequence

    /// Lends an omu_PrimNumber or an omu_PrimArray until this array is assigned, reshaped or destroyed. A number is
    /// what the item was at the latest `operator[]` for it.
    [[nodiscard]] const omu_Primitive& operator[](int index) const override;
    /// The same for the caller to keep: a number, or an array that shares the block.
    [[nodiscard]] std::unique_ptr<omu_Primitive> Index(int index) const;

    // The results are arrays of the same type with blocks of their own, along the outermost dimension. No memory:
    // nex_PrimException.

    [[nodiscard]] std::unique_ptr<omu_PrimSequence> Slice(int begin, int end) const override;
    [[nodiscard]] std::unique_ptr<omu_PrimSequence> Repeat(int count) const override;
    /// `other` is an array or converts to one; both have the same number of dimensions and agree in all but the
    /// outermost, else nex_PrimException. The result has the wider of the types.
    [[nodiscard]] std::unique_ptr<omu_PrimSequence> Concat(const omu_PrimSequence* other) const override;

    /// "array".
    [[nodiscard]] cow_String TypeString() const override;

    /// As tuples of numbers print: "(1, 2, 3)", "((1.5,), (2.0,))", "()". Throws nex_PrimException for an array without
    /// elements that would print as more than 2^20 empty tuples.
    [[nodiscard]] cow_String AsString(int mode = 0) const override;
    void AppendString(std::string& text) const override;

    void Accept(omu_PrimVisitor* visitor) const override;
    /// Shares the block.
    [[nodiscard]] std::unique_ptr<omu_Primitive> Copy() const override;

    // ---- Diagnostics

    /// "omu_PrimNumber::INT" and so on; null for types that no array has.
    [[nodiscard]] static const char* typeCode2string(DataTypeEnm type) noexcept;

    /// Whether the environment had VLM_DBG_PRIMARRAY, of any value, when the library was loaded: then the conversion of
    /// sequences tells on standard error what it finds.
    [[nodiscard]] static bool Diagnostics() noexcept;

    // ---- Persistence. Copies do not share their blocks any more when they are read back.

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return omu_TypeId(0x21); }
    [[nodiscard]] unsigned DynTypeId() const override;
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    void DBWrite(const cls_WriteVisitor& visitor) const override;
    /// Throws nex_StreamException unless the dimensions are possible ones, the type is one an array has, and there are
    /// as many numbers of it as the dimensions multiply to.
    explicit omu_PrimArray(const cls_ReadVisitor& visitor);

protected:
    /// Same type character, element type, dimensions and elements: an array with a NaN is not equal to itself.
    [[nodiscard]] bool IsEqual(const omu_Primitive& other) const override;

private:
    /// What bridges know.
    struct Origin {
        char pyType = '\0';
        bool isVlmNDarray = false;
        bool colZeroIsInt = false;
    };

    /// All that a copy takes over.
    struct State {
        cow_List<int> dims;
        DataTypeEnm type = static_cast<DataTypeEnm>(-1);
        std::shared_ptr<omu_PrimArrayData> data;
        std::size_t firstElement = 0;  // of the block
        Origin origin;
    };

    template <class T>
    [[nodiscard]] T* Elements() const noexcept;
    [[nodiscard]] std::size_t Position(int i, int j, int k, int l) const;
    [[nodiscard]] std::size_t RowElements() const noexcept;

    void Make(int nd, const cow_List<int>& dims, const void* data, DataTypeEnm type);
    [[nodiscard]] std::unique_ptr<omu_PrimArray> OfLength(int length, DataTypeEnm type) const;
    [[nodiscard]] std::unique_ptr<omu_PrimArray> SubArray(int index) const;

    template <class T>
    void AppendLevel(std::string& text, int level, const T*& next) const;

    template <class T>
    [[nodiscard]] cow_List<T> Stored() const;
    template <class T>
    void TakeStored(const cow_List<int>& dims, const cow_List<T>& values);

    State _state;
    int _serialNumber;
    mutable std::unordered_map<int, std::unique_ptr<omu_Primitive>> _lent;
};

#endif
