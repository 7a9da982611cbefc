#include <base/cow_2DArray.h>
#include <utf/detail/utf_QuaternionAdapter.h>

#include <utility>
#include <vector>

namespace {

template <class T>
cow_2DArray<T> ArrayOf(const cow_List<cow_List<T>>& rows) {
    const int width = rows.Length() > 0 ? rows.ConstGet(0).Length() : 0;
    std::vector<T> elements;
    for (const cow_List<T>& row : rows) {
        if (row.Length() != width) return cow_2DArray<T>(rows.Length(), 0);
        elements.insert(elements.end(), row.begin(), row.end());
    }
    return cow_2DArray<T>(rows.Length(), width, std::move(elements));
}

}  // namespace

template <class T>
utf_QuaternionAdapter<T>::utf_QuaternionAdapter(const utf_Quaternion<T>& quaternion) : _quaternion(quaternion) {}

template <class T>
utf_QuaternionAdapter<T>::utf_QuaternionAdapter(res_DataTypeEnm kind, const cow_List<cow_List<T>>& rows)
    : _quaternion(kind, ArrayOf(rows)) {}

template <class T>
cow_List<cow_List<T>> utf_QuaternionAdapter<T>::cosines() const {
    const cow_2DArray<T> c = _quaternion.cosines();
    cow_List<cow_List<T>> rows;
    rows.Reserve(c.Rows());
    for (int i = 0; i < c.Rows(); ++i) rows.Append({c.ConstGet(i, 0), c.ConstGet(i, 1), c.ConstGet(i, 2)});
    return rows;
}

template class utf_QuaternionAdapter<float>;
template class utf_QuaternionAdapter<double>;
