#ifndef ORV_UTF_DETAIL_UTF_QUATERNIONADAPTER_H
#define ORV_UTF_DETAIL_UTF_QUATERNIONADAPTER_H

#include <base/cow_List.h>
#include <base/orv_Export.h>
#include <utf/utf_Quaternion.h>

/// A quaternion behind lists of rows, the only form of a matrix that scripts have.
template <class T>
class utf_QuaternionAdapter {
public:
    explicit utf_QuaternionAdapter(const utf_Quaternion<T>& quaternion);

    /// From direction cosines, one list a row, whose *columns* are the axes; throws as that constructor of
    /// utf_Quaternion does. Rows of different lengths count as rows without elements.
    utf_QuaternionAdapter(res_DataTypeEnm kind, const cow_List<cow_List<T>>& rows);

    [[nodiscard]] const utf_Quaternion<T>& quaternion() const noexcept { return _quaternion; }

    /// utf_Quaternion::cosines (axes as *rows*), one list a row; no rows for a kind that is no quaternion's.
    [[nodiscard]] cow_List<cow_List<T>> cosines() const;

private:
    utf_Quaternion<T> _quaternion;
};

ORV_EXTERN_TEMPLATE(utf_QuaternionAdapter<float>);
ORV_EXTERN_TEMPLATE(utf_QuaternionAdapter<double>);

#endif
