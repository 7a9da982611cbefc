#include "host_Bridge.h"

#include "host_Array.h"
#include "host_Constants.h"

#include <base/nex_StreamException.h>
#include <base/nex_Throw.h>
#include <omu/omu_Visit.h>

#include <climits>
#include <cstring>
#include <string_view>

namespace {

using Primitive = std::unique_ptr<omu_Primitive>;

/// As deep as the library prints and copies.
constexpr int deepest = 150;

class Depth {
public:
    explicit Depth(int depth) : _depth(depth) {
        if (depth <= deepest) return;
        PyErr_Format(PyExc_RecursionError, "a value nested more than %d deep", deepest);
        throw py::error_already_set();
    }
    [[nodiscard]] int Next() const noexcept { return _depth + 1; }

private:
    int _depth;
};

Primitive Convert(py::handle object, int level);

// ---- From Python

Primitive ConvertInt(py::handle object) {
    int overflow = 0;
    const long long number = PyLong_AsLongLongAndOverflow(object.ptr(), &overflow);
    if (overflow == 0 && number >= INT_MIN && number <= INT_MAX) return omu_MakePrimitive(static_cast<int>(number));
    if (overflow == 0 && number > 0 && number <= UINT_MAX) return omu_MakePrimitive(static_cast<unsigned>(number));
    PyErr_SetString(PyExc_OverflowError, "an int beyond 32 bits");
    throw py::error_already_set();
}

Primitive ConvertSequence(std::unique_ptr<omu_PrimTuple> made, py::handle object, const Depth& depth) {
    // A tuple of the items, since converting them may run code that changes a list.
    for (const py::handle item : py::tuple(py::reinterpret_borrow<py::object>(object)))
        made->Put(Convert(item, depth.Next()));
    return made;
}

template <class K, class Key>
Primitive ConvertItems(const py::list& items, const Depth& depth, const Key& key) {
    auto made = std::make_unique<omu_PrimDictionary<K>>();
    for (const py::handle item : items)
        made->Put(Convert(py::tuple(py::reinterpret_borrow<py::object>(item))[1], depth.Next()),
                  key(py::tuple(py::reinterpret_borrow<py::object>(item))[0]));
    return made;
}

/// Null for keys that are neither all strings nor all integers of 32 bits.
Primitive ConvertDict(py::handle object, const Depth& depth) {
    const auto items = py::reinterpret_steal<py::list>(PyDict_Items(object.ptr()));
    const auto all = [&items](const auto& holds) {
        for (const py::handle item : items)
            if (!holds(py::handle(PyTuple_GET_ITEM(item.ptr(), 0)))) return false;
        return true;
    };
    if (all([](py::handle key) { return PyUnicode_Check(key.ptr()) != 0; }))
        return ConvertItems<cow_String>(items, depth, [](py::handle key) { return host_Text(key); });
    const auto isInt = [](py::handle key) {
        int overflow = 0;
        if (PyLong_Check(key.ptr()) == 0 || PyBool_Check(key.ptr()) != 0) return false;
        const long long number = PyLong_AsLongLongAndOverflow(key.ptr(), &overflow);
        return overflow == 0 && number >= INT_MIN && number <= INT_MAX;
    };
    if (all(isInt)) return ConvertItems<int>(items, depth, [](py::handle key) { return key.cast<int>(); });
    return nullptr;
}

template <class T>
Primitive MakeNumber(const void* at) {
    T number{};
    std::memcpy(&number, at, sizeof number);
    return std::make_unique<omu_PrimNumber>(number);
}

/// An exporter of numbers: arrays that the library can read where they lie are carried, a single number keeps its kind,
/// the rest goes the long way by Python's own conversion to lists. Null for what exports no numbers.
Primitive ConvertBuffer(py::handle object, const Depth& depth) {
    static constexpr struct {
        char format;
        Primitive (*make)(const void*);
    } kinds[] = {{'b', MakeNumber<signed char>}, {'h', MakeNumber<short>}, {'i', MakeNumber<int>},
                 {'I', MakeNumber<unsigned>},    {'f', MakeNumber<float>}, {'d', MakeNumber<double>}};

    if (host_InPlace(object)) return nullptr;
    const auto info = host_Request(object);
    if (!info) return nullptr;
    if (info->ndim == 0 && info->format.size() == 1)
        for (const auto& kind : kinds)
            if (kind.format == info->format.front()) return kind.make(info->ptr);
    const py::object lists = py::hasattr(object, "tolist")
                                 ? object.attr("tolist")()
                                 : py::memoryview(py::reinterpret_borrow<py::object>(object)).attr("tolist")();
    if (Py_TYPE(lists.ptr()) == Py_TYPE(object.ptr())) return nullptr;
    return Convert(lists, depth.Next());
}

Primitive Convert(py::handle object, int level) {
    const Depth depth(level);
    PyObject* const it = object.ptr();
    Primitive made;
    if (object.is_none())
        made = std::make_unique<omu_PrimNone>();
    else if (PyBool_Check(it) != 0)
        made = omu_MakePrimitive(it == Py_True);
    else if (PyLong_Check(it) != 0)
        made = ConvertInt(object);
    else if (PyFloat_Check(it) != 0)
        made = omu_MakePrimitive(PyFloat_AS_DOUBLE(it));
    else if (PyComplex_Check(it) != 0)
        made = omu_MakePrimitive(omi_complex(PyComplex_RealAsDouble(it), PyComplex_ImagAsDouble(it)));
    else if (PyUnicode_Check(it) != 0)
        made = omu_MakePrimitive(host_Text(object));
    else if (PyTuple_Check(it) != 0)
        made = ConvertSequence(std::make_unique<omu_PrimTuple>(), object, depth);
    else if (PyList_Check(it) != 0)
        made = ConvertSequence(std::make_unique<omu_PrimList>(), object, depth);
    else if (PyDict_Check(it) != 0)
        made = ConvertDict(object, depth);
    else if (const auto name = host_ConstantName(object))
        made = std::make_unique<omu_PrimEnumBase>(*name);
    else if (const auto* const own = host_Object<host_Value>(object))
        made = own->value->Copy();
    else if (const auto array = host_LibraryArray(object))
        made = array->Copy();
    else if (PyObject_CheckBuffer(it) != 0 && PyBytes_Check(it) == 0 && PyByteArray_Check(it) == 0)
        made = ConvertBuffer(object, depth);
    if (made == nullptr) made = std::make_unique<host_PrimObject>(py::reinterpret_borrow<py::object>(object));
    return made;
}

// ---- To Python

py::object Convert(const omu_Primitive& value, int level);

py::object ConvertNumber(const omu_PrimNumber& number) {
    if (number.DataType() == omu_PrimNumber::UINT) return py::int_(number.AsUint());
    if (number.IsType('f')) return py::float_(number.AsDouble());
    return py::int_(number.AsInt());
}

template <class Made>
Made ConvertElements(const omu_PrimTuple& tuple, const Depth& depth) {
    py::list made;
    for (const omu_Primitive& element : tuple) made.append(Convert(element, depth.Next()));
    return Made(std::move(made));
}

template <class K, class Key>
py::dict ConvertEntries(const omu_PrimDictionary<K>& dictionary, const Depth& depth, const Key& toKey) {
    py::dict made;
    for (const auto entry : dictionary) made[toKey(entry.first)] = Convert(entry.second, depth.Next());
    return made;
}

py::object Convert(const omu_Primitive& value, int level) {
    const Depth depth(level);
    if (const auto* const carried = dynamic_cast<const host_PrimObject*>(&value)) return carried->Object();
    py::object made;
    omu_Visit(
        value, [&](const omu_PrimNumber& number) { made = ConvertNumber(number); },
        [&](const omu_PrimString& text) { made = host_ToStr(text.Text()); },
        [&](const omu_PrimBoolean& boolean) { made = py::bool_(boolean.Value()); },
        [&](const omu_PrimNone&) { made = py::none(); },
        [&](const omu_PrimComplex& number) {
            made =
                py::reinterpret_steal<py::object>(PyComplex_FromDoubles(number.Value().real(), number.Value().imag()));
        },
        [&](const omu_PrimEnumBase& constant) { made = host_Constant(constant.StringValue()); },
        [&](const omu_PrimList& list) { made = ConvertElements<py::list>(list, depth); },
        [&](const omu_PrimTuple& tuple) { made = ConvertElements<py::tuple>(tuple, depth); },
        [&](const omu_PrimDictionary<int>& dictionary) {
            made = ConvertEntries(dictionary, depth, [](int key) { return py::int_(key); });
        },
        [&](const omu_PrimDictionary<cow_String>& dictionary) { made = ConvertEntries(dictionary, depth, host_ToStr); },
        [&](const omu_PrimArray& array) { made = py::cast(host_Array::Of(array)); },
        [&](const omu_Primitive& other) {
            made = py::cast(host_Value{std::shared_ptr<const omu_Primitive>(other.Copy())});
        });
    return made;
}

}  // namespace

std::unique_ptr<omu_Primitive> host_FromPython(py::handle object) { return Convert(object, 0); }

py::object host_ToPython(const omu_Primitive& value) { return Convert(value, 0); }

py::str host_ToStr(const cow_String& text) {
    return py::reinterpret_steal<py::str>(
        py::handle(PyUnicode_DecodeUTF8(text.c_str(), text.Length(), "surrogateescape")));
}

cow_String host_Text(py::handle str) {
    const auto bytes =
        py::reinterpret_steal<py::bytes>(PyUnicode_AsEncodedString(str.ptr(), "utf-8", "surrogateescape"));
    if (!bytes) throw py::error_already_set();
    return cow_String(std::string_view(bytes));
}

omu_Arguments host_Arguments(const py::args& positional, const py::kwargs& keywords) {
    omu_Arguments arguments;
    for (const py::handle value : positional) arguments.Put(host_FromPython(value));
    for (const auto& [keyword, value] : keywords) arguments.Put(host_FromPython(value), host_Text(keyword));
    return arguments;
}

// ---- Carried objects

cow_String host_PrimObject::TypeString() const { return host_Text(py::type::of(_object).attr("__name__")); }

cow_String host_PrimObject::AsString(int) const { return host_Text(py::repr(_object)); }

void host_PrimObject::Accept(omu_PrimVisitor*) const {}

std::unique_ptr<omu_Primitive> host_PrimObject::Copy() const { return std::make_unique<host_PrimObject>(*this); }

unsigned host_PrimObject::DynTypeId() const { return omu_TypeId(0x1E); }

void host_PrimObject::DBWrite(const cls_WriteVisitor&) const {
    nex_Throw(nex_StreamException("class cannot be written to a stream"));
}

bool host_PrimObject::IsEqual(const omu_Primitive& other) const {
    const auto* const carried = dynamic_cast<const host_PrimObject*>(&other);
    return carried != nullptr && carried->_object.is(_object);
}
