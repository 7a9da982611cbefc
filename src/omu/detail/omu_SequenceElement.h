#ifndef ORV_OMU_DETAIL_OMU_SEQUENCEELEMENT_H
#define ORV_OMU_DETAIL_OMU_SEQUENCEELEMENT_H

class omu_PrimSequence;
class omu_Primitive;

/// The element, null where the sequence throws for it: outside its length, or an empty holder.
[[nodiscard]] const omu_Primitive* omu_SequenceElement(const omu_PrimSequence& sequence, int index);

#endif
