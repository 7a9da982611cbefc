#include "host_Array.h"

#include "host_Commands.h"
#include "host_Constants.h"

#include <base/nex_Throw.h>
#include <omu/omu_AttributeErrorException.h>
#include <omu/omu_PrimTuple.h>

#include <pybind11/stl.h>

#include <algorithm>
#include <climits>
#include <cstdint>
#include <exception>

namespace {

using Type = omu_PrimNumber::DataTypeEnm;

struct Format {
    Type type;
    const char* name;  // as Python's struct module knows it
    py::ssize_t size;
};
constexpr Format formats[] = {
    {omu_PrimNumber::INT, "i", 4}, {omu_PrimNumber::FLOAT, "f", 4}, {omu_PrimNumber::DOUBLE, "d", 8}};

const Format& FormatOf(Type type) {
    return *std::ranges::find_if(formats, [type](const Format& format) { return format.type == type; });
}

std::vector<py::ssize_t> Sizes(const std::vector<std::ptrdiff_t>& sizes) { return {sizes.begin(), sizes.end()}; }

/// The memory for as long as the array lives. Read-only: the library gives its memory for reading, and another's may be
/// read-only itself.
py::memoryview Memory(const host_Array& array) {
    const Format& format = FormatOf(array.view.type);
    return py::memoryview::from_buffer(array.view.data, format.size, format.name, Sizes(array.view.shape),
                                       Sizes(array.view.strides));
}

/// The buffer protocol of the memoryview, which refuses a consumer that asks for more than the memory is: to write, or
/// to read it without its strides.
int GetBuffer(PyObject* self, Py_buffer* view, int flags) {
    try {
        const py::memoryview memory = Memory(*host_Object<host_Array>(self));
        if (PyObject_GetBuffer(memory.ptr(), view, flags) != 0) return -1;
        view->internal = view->obj;  // the memoryview, whose shape and strides these are
        view->obj = py::handle(self).inc_ref().ptr();
        return 0;
    } catch (const std::exception& error) {
        view->obj = nullptr;
        PyErr_SetString(PyExc_BufferError, error.what());
        return -1;
    }
}

void ReleaseBuffer(PyObject*, Py_buffer* view) {
    Py_buffer lent = *view;
    lent.obj = static_cast<PyObject*>(view->internal);
    PyBuffer_Release(&lent);
}

void SetItem(host_Array& array, omu_Arguments& arguments) {
    omu_PrimNumber number(0);
    int at[4] = {};
    arguments.Begin();
    arguments.Get(number, "value");
    arguments.Get(at[0], "i");
    arguments.Optional();
    arguments.Get(at[1], "j");
    arguments.Get(at[2], "k");
    arguments.Get(at[3], "l");
    arguments.End("setItem");
    if (array.block == nullptr) nex_Throw(omu_AttributeErrorException(omu_AttribReadOnlyAll, ""));
    array.block->SetItem(number, at[0], at[1], at[2], at[3]);
}

}  // namespace

host_Array host_Array::Of(const omu_PrimArray& array) {
    auto block = array.ConstGetData() != nullptr
                     ? std::make_shared<omu_PrimArray>(array)
                     : std::make_shared<omu_PrimArray>(1, cow_List<int>{0}, omu_PrimNumber::INT, nullptr);
    omu_PrimArrayView view = block->View();
    return {std::move(view), std::move(block), nullptr};
}

omu_PrimArray host_Array::Copied() const {
    cow_List<int> dims;
    for (const std::ptrdiff_t length : view.shape) {
        if (length > INT_MAX) throw py::value_error("an array with a dimension beyond 2^31 - 1");
        dims.Append(static_cast<int>(length));
    }
    const py::bytes bytes = Memory(*this).attr("tobytes")();
    return {dims.Length(), dims, view.type, PyBytes_AS_STRING(bytes.ptr())};
}

double host_Array::At(py::ssize_t row, py::ssize_t column) const {
    const void* const at = static_cast<const char*>(view.data) + row * view.strides[0] + column * view.strides[1];
    switch (view.type) {
        case omu_PrimNumber::DOUBLE:
            return *static_cast<const double*>(at);
        case omu_PrimNumber::FLOAT:
            return static_cast<double>(*static_cast<const float*>(at));
        default:
            return *static_cast<const int*>(at);
    }
}

bool omu_TakeArgument(const omu_Primitive& found, host_Array& target) {
    if (const auto* const carried = dynamic_cast<const host_PrimObject*>(&found)) {
        auto array = host_InPlace(carried->Object());
        if (array) target = std::move(*array);
        return array.has_value();
    }
    omu_PrimArray array;
    if (!omu_TakeArgument(found, array)) return false;
    target = host_Array::Of(array);
    return true;
}

std::shared_ptr<const py::buffer_info> host_Request(py::handle object) {
    if (PyObject_CheckBuffer(object.ptr()) == 0) return nullptr;
    try {
        return std::make_shared<const py::buffer_info>(py::reinterpret_borrow<py::buffer>(object).request());
    } catch (const py::error_already_set&) {
        return nullptr;
    }
}

std::optional<host_Array> host_InPlace(py::handle object) {
    auto info = host_Request(object);
    if (!info || info->ndim == 0) return std::nullopt;
    const auto* const format = std::ranges::find_if(
        formats, [&info](const Format& known) { return info->format == known.name && info->itemsize == known.size; });
    if (format == std::end(formats)) return std::nullopt;
    const auto isAligned = [format](auto position) { return position % format->size == 0; };
    if (!isAligned(static_cast<py::ssize_t>(reinterpret_cast<std::uintptr_t>(info->ptr) % 8)) ||
        !std::ranges::all_of(info->strides, isAligned))
        return std::nullopt;
    omu_PrimArrayView view{info->ptr, format->type, {}, {}};
    view.shape.assign(info->shape.begin(), info->shape.end());
    view.strides.assign(info->strides.begin(), info->strides.end());
    return host_Array{std::move(view), nullptr, std::move(info)};
}

std::shared_ptr<omu_PrimArray> host_LibraryArray(py::handle object) {
    const auto* const array = host_Object<host_Array>(object);
    return array != nullptr ? array->block : nullptr;
}

void host_AddArrays(py::module_& module) {
    const auto tupleOf = [](const std::vector<std::ptrdiff_t>& numbers) { return py::tuple(py::cast(numbers)); };
    const py::custom_type_setup exportsMemory([](PyHeapTypeObject* type) {
        type->as_buffer = {&GetBuffer, &ReleaseBuffer};
        type->ht_type.tp_as_buffer = &type->as_buffer;
    });
    host_Class<host_Array>(module, "Array", exportsMemory, "Array(numbers): numbers where they lie")
        .def(py::init(host_Command([](omu_Arguments& arguments) {
            auto array = std::make_shared<host_Array>();
            arguments.Begin();
            arguments.Get(*array, "numbers");
            arguments.End("Array");
            return array;
        })))
        .def_property_readonly(
            "address", [](const host_Array& array) { return reinterpret_cast<std::uintptr_t>(array.view.data); })
        .def_property_readonly("shape", [tupleOf](const host_Array& array) { return tupleOf(array.view.shape); })
        .def_property_readonly("strides", [tupleOf](const host_Array& array) { return tupleOf(array.view.strides); })
        .def_property_readonly(
            "type", [](const host_Array& array) { return host_ToPython(omu_PrimEnum<Type>(array.view.type)); })
        .def("setItem", host_Method<host_Array>(SetItem), "setItem(value, i, j=0, k=0, l=0)")
        .def("copy", [](const host_Array& array) { return host_Array::Of(array.Copied()); })
        .def("__repr__", [](const host_Array& array) { return host_ToStr(array.ToLibrary().AsRepr()); })
        .def(
            "__eq__", [](const host_Array& a, const host_Array& b) { return a.ToLibrary() == b.ToLibrary(); },
            py::is_operator());
}
