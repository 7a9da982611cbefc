#ifndef ORV_BASE_CLS_XO1DARRAYLIST_H
#define ORV_BASE_CLS_XO1DARRAYLIST_H

#include <base/cow_List.h>

/// The list under the name by which arrays of persistent objects are handed over.
template <class T>
using cls_xo1DArrayList = cow_List<T>;

#endif
