#include <base/nex_Exception.h>
#include <omu/detail/omu_SequenceElement.h>
#include <omu/omu_PrimSequence.h>

const omu_Primitive* omu_SequenceElement(const omu_PrimSequence& sequence, int index) {
    try {
        return &sequence[index];
    } catch (const nex_Exception&) {
        return nullptr;
    }
}
