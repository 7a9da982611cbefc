#ifndef ORV_OMU_DETAIL_OMU_DISMANTLING_H
#define ORV_OMU_DETAIL_OMU_DISMANTLING_H

#include <base/cow_CountedHld.h>
#include <omu/omu_Primitive.h>

#include <vector>

/// Lives in the destructor of a value that holds others, while it lets go of them. Values inside of values die
/// recursively down to a small depth; what lies deeper is put aside and dies when the stack has unwound to the
/// outermost destructor. So any depth of nesting needs a bounded stack, and common values need no memory to die.
class omu_Dismantling {
public:
    omu_Dismantling() noexcept;
    ~omu_Dismantling();
    omu_Dismantling(const omu_Dismantling&) = delete;
    omu_Dismantling& operator=(const omu_Dismantling&) = delete;

    /// Keeps `value` alive for now where this destructor is a deep one. (Without memory for it the value dies
    /// recursively.)
    void PutAside(const cow_CountedHld<omu_Primitive>& value) noexcept;

private:
    std::vector<cow_CountedHld<omu_Primitive>> _aside;  // of the outermost one only
};

#endif
