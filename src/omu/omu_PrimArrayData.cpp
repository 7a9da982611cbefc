#include <omu/omu_PrimArrayData.h>

#include <algorithm>
#include <cstdlib>

// calloc, since it leaves zeros to the system that nobody writes over: a large array costs what is used of it.
// NOLINTBEGIN(cppcoreguidelines-no-malloc)

omu_PrimArrayData::omu_PrimArrayData(std::size_t count)
    : _bytes(std::calloc(std::max(count, std::size_t(1)), 1)), _count(count) {}

void omu_PrimArrayData::Free::operator()(void* bytes) const noexcept { std::free(bytes); }

// NOLINTEND(cppcoreguidelines-no-malloc)
