#include <base/detail/cow_Range.h>
#include <base/nex_PrimException.h>
#include <base/nex_RangeException.h>
#include <base/nex_Throw.h>

#include <string>

void cow_ThrowIndex(const char* container, long long index, std::size_t length) {
    nex_Throw(nex_RangeException(std::string(container) + ": index " + std::to_string(index) + " in a length of " +
                                 std::to_string(length)));
}

void cow_ThrowKey() { nex_Throw(nex_RangeException("cow_Map: no such key")); }

void cow_ThrowNull() { nex_Throw(nex_PrimException("!IsNull()")); }
