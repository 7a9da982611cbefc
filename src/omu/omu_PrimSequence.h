#ifndef ORV_OMU_OMU_PRIMSEQUENCE_H
#define ORV_OMU_OMU_PRIMSEQUENCE_H

#include <base/orv_Export.h>
#include <omu/omu_Primitive.h>

#include <memory>

/// What has elements in an order: tuples, lists and arrays. Indices count from 0.
class ORV_EXPORT omu_PrimSequence : public omu_Primitive {
public:
    [[nodiscard]] cow_String TypeString() const override;

    // ---- Elements

    /// Number of elements.
    [[nodiscard]] virtual int Length() const = 0;

    /// Lends the element: how long, the class tells. Throws nex_RangeException outside 0..Length-1.
    [[nodiscard]] virtual const omu_Primitive& operator[](int index) const = 0;

    // ---- Operations: a new sequence with copies of elements

    /// The elements `begin` to `end` - 1. An end beyond the length becomes the length; then the length is added to a
    /// negative end, then to a negative begin, once each: (-2, 5) of five elements are the last two. Empty when begin
    /// is not below end by then; a begin that is still negative throws nex_RangeException.
    [[nodiscard]] virtual std::unique_ptr<omu_PrimSequence> Slice(int begin, int end) const = 0;

    /// `count` successive copies of the elements; empty for a negative count. Throws nex_PrimException, before
    /// anything is allocated, for more than 2^31 - 1 elements.
    [[nodiscard]] virtual std::unique_ptr<omu_PrimSequence> Repeat(int count) const = 0;

    /// The elements of this sequence, then those of `other`, which may be this one. Throws nex_PrimException for null
    /// and, before anything is allocated, for more than 2^31 - 1 elements.
    [[nodiscard]] virtual std::unique_ptr<omu_PrimSequence> Concat(const omu_PrimSequence* other) const = 0;

    // ---- Persistence: adds no attribute

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return omu_TypeId(0x20); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    void DBWrite(const cls_WriteVisitor& visitor) const override;

protected:
    using omu_Primitive::omu_Primitive;
    omu_PrimSequence(const cls_ReadVisitor& visitor, char fallback);
};

#endif
