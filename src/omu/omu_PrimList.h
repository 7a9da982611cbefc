#ifndef ORV_OMU_OMU_PRIMLIST_H
#define ORV_OMU_OMU_PRIMLIST_H

#include <base/orv_Export.h>
#include <omu/omu_PrimTuple.h>

/// A list. It prints in parentheses like a tuple, and equals a tuple only of its own type character. What `Slice`,
/// `Repeat` and `Concat` give are lists of that character; of an empty holder they say "List Index returned NULL".
class ORV_EXPORT omu_PrimList : public omu_PrimTuple {
public:
    /// `size` as for a tuple.
    explicit omu_PrimList(char type = '[', int size = 0) : omu_PrimTuple(type, size) {}

    /// The most elements its maker means it to have, 0 when nothing was said. Kept and stored; `Put` does not ask.
    [[nodiscard]] int MaxSize() const noexcept { return _maxSize; }
    void SetMaxSize(int maxSize) noexcept { _maxSize = maxSize; }

    [[nodiscard]] cow_String TypeString() const override;
    [[nodiscard]] std::unique_ptr<omu_Primitive> Copy() const override;
    void Accept(omu_PrimVisitor* visitor) const override;

    // ---- Persistence

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return omu_TypeId(0x15); }
    [[nodiscard]] unsigned DynTypeId() const override;
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    void DBWrite(const cls_WriteVisitor& visitor) const override;
    explicit omu_PrimList(const cls_ReadVisitor& visitor);

protected:
    [[nodiscard]] std::unique_ptr<omu_PrimTuple> MakeResult(int size) const override;
    [[nodiscard]] const char* NullMessage() const override;

private:
    int _maxSize = 0;
};

#endif
