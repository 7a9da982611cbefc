#ifndef ORV_UTF_UTF_SCALAR_H
#define ORV_UTF_UTF_SCALAR_H

#include <base/orv_Export.h>
#include <utf/utf_EngineeringData.h>

#include <type_traits>

/// One number with its kind. Who owns it: see utf_EngineeringData.
template <class T>
class utf_Scalar final : public utf_EngineeringData<T> {
public:
    /// The first of the list; 0 when it is empty.
    utf_Scalar(res_DataTypeEnm kind, const cow_List<T>& values, bool engineeringShear = false);
    /// One number, copied.
    utf_Scalar(res_DataTypeEnm kind, const T* value, bool engineeringShear = false);
    /// Wraps the caller's number.
    utf_Scalar(res_DataTypeEnm kind, T* value, bool engineeringShear = false);
    /// The same with the number told, for those who treat all classes alike: below 1 there is none, and `value` is 0.
    template <class U>
    requires std::is_same_v<std::remove_const_t<U>, T> utf_Scalar(res_DataTypeEnm kind, U* values, int count,
                                                                  bool engineeringShear = false)
        : utf_EngineeringData<T>(kind, values, count, engineeringShear) {}
    /// *A number here is the value, not a count.* A template so that a plain 0 is a number, not a pointer.
    template <class Number>
    requires std::is_arithmetic_v<Number> utf_Scalar(res_DataTypeEnm kind, Number value, bool engineeringShear = false)
        : utf_Scalar(kind, static_cast<const T*>(nullptr), engineeringShear) {
        *this->Components() = static_cast<T>(value);
    }

    [[nodiscard]] utf_Scalar* Copy() const override;

    /// The one component.
    [[nodiscard]] T value() const noexcept { return this->constGet(0); }

private:
    [[nodiscard]] const char* Name() const noexcept override { return "Scalar"; }
};

ORV_EXTERN_TEMPLATE(utf_Scalar<float>);
ORV_EXTERN_TEMPLATE(utf_Scalar<double>);

#endif
