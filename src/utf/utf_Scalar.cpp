#include <utf/utf_Scalar.h>

template <class T>
utf_Scalar<T>::utf_Scalar(res_DataTypeEnm kind, const cow_List<T>& values, bool engineeringShear)
    : utf_EngineeringData<T>(kind, values, 1, engineeringShear) {}

template <class T>
utf_Scalar<T>::utf_Scalar(res_DataTypeEnm kind, const T* value, bool engineeringShear)
    : utf_EngineeringData<T>(kind, value, 1, engineeringShear) {}

template <class T>
utf_Scalar<T>::utf_Scalar(res_DataTypeEnm kind, T* value, bool engineeringShear)
    : utf_EngineeringData<T>(kind, value, 1, engineeringShear) {}

template <class T>
utf_Scalar<T>* utf_Scalar<T>::Copy() const {
    return new utf_Scalar(*this);
}

template class utf_Scalar<float>;
template class utf_Scalar<double>;
