#include <base/cow_2DArray.h>
#include <base/nex_RangeException.h>
#include <base/nex_Throw.h>

#include <limits>
#include <string>

int cow_2DArrayLength(int rows, int columns) {
    if (rows < 0 || columns < 0 || (columns > 0 && rows > std::numeric_limits<int>::max() / columns))
        nex_Throw(nex_RangeException("cow_2DArray: no array of " + std::to_string(rows) + " x " +
                                     std::to_string(columns) + " elements"));
    return rows * columns;
}
