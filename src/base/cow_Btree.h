#ifndef ORV_BASE_COW_BTREE_H
#define ORV_BASE_COW_BTREE_H

#include <base/cow_Map.h>

/// The ordered map under its other name.
template <class K, class V>
using cow_Btree = cow_Map<K, V>;

#endif
