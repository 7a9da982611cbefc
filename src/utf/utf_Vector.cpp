#include <base/nex_PrimException.h>
#include <base/nex_Throw.h>
#include <utf/utf_Quaternion.h>
#include <utf/utf_Vector.h>

#include <algorithm>
#include <cmath>
#include <utility>

template <class T>
utf_Vector<T>::utf_Vector(res_DataTypeEnm kind, const cow_List<T>& components, bool engineeringShear)
    : utf_EngineeringData<T>(kind, components, engineeringShear) {}

template <class T>
utf_Vector<T>::utf_Vector(res_DataTypeEnm kind, const T* components, bool engineeringShear)
    : utf_Vector(kind, components, 3, engineeringShear) {}

template <class T>
utf_Vector<T>::utf_Vector(res_DataTypeEnm kind, T* components, bool engineeringShear)
    : utf_Vector(kind, components, 3, engineeringShear) {}

template <class T>
utf_Vector<T>::utf_Vector(res_DataTypeEnm kind, bool engineeringShear) : utf_Vector(kind, 3, engineeringShear) {}

template <class T>
utf_Vector<T>::utf_Vector(res_DataTypeEnm kind, const T* components, int count, bool engineeringShear)
    : utf_EngineeringData<T>(kind, components, count, engineeringShear) {}

template <class T>
utf_Vector<T>::utf_Vector(res_DataTypeEnm kind, T* components, int count, bool engineeringShear)
    : utf_EngineeringData<T>(kind, components, count, engineeringShear) {}

template <class T>
utf_Vector<T>::utf_Vector(res_DataTypeEnm kind, int count, bool engineeringShear)
    : utf_EngineeringData<T>(kind, count, engineeringShear) {}

template <class T>
utf_Vector<T>* utf_Vector<T>::Copy() const {
    return new utf_Vector(*this);
}

template <class T>
T utf_Vector<T>::magnitude() const noexcept {
    double squares = 0.0;
    for (const T component : this->Span()) squares += double{component} * double{component};
    return static_cast<T>(std::sqrt(squares));
}

/// The first `size` components, v' = C v by the upper left block of that size.
template <class T>
void utf_Vector<T>::Turn(const T (&c)[3][3], int size) noexcept {
    T* const v = this->Components();
    const double old[3] = {v[0], v[1], size == 3 ? v[2] : T(0)};
    for (int i = 0; i < size; ++i) {
        double sum = 0.0;
        for (int j = 0; j < size; ++j) sum += double{c[i][j]} * old[j];
        v[i] = static_cast<T>(sum);
    }
}

template <class T>
void utf_Vector<T>::transform(const utf_Quat2dBase<T>& q) noexcept {
    T c[3][3];
    q.cosines(c);
    if (this->count() == 2 || this->count() == 3) Turn(c, 2);
}

template <class T>
void utf_Vector<T>::transform(const utf_Quat3dBase<T>& q) noexcept {
    T c[3][3];
    q.cosines(c);
    if (this->count() == 2 || this->count() == 3) Turn(c, this->count());
}

template <class T>
void utf_Vector<T>::transform(const utf_Quaternion<T>& q) {
    T c[3][3];
    q.cosines(c);
    if (this->count() == 2) {
        if (!(double{c[2][2]} > 0.99))
            nex_Throw(nex_PrimException("coss.ConstGet(2,2) > 0.99 || !\"Not a valid 2D transform\""));
        std::swap(c[0][1], c[1][0]);
        Turn(c, 2);
    } else if (this->count() == 3 && utf_Quaternion<T>::numComponents(q.type()) > 0) {
        Turn(c, 3);
    }
}

template class utf_Vector<float>;
template class utf_Vector<double>;
