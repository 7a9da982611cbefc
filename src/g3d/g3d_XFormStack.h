#ifndef ORV_G3D_G3D_XFORMSTACK_H
#define ORV_G3D_G3D_XFORMSTACK_H

#include <base/orv_Export.h>
#include <g3d/g3d_XForm.h>

#include <cstddef>
#include <vector>

/// Accumulated matrices, as a scene graph is walked: the top is the product of everything pushed since the last
/// `Reset`, what was pushed last being applied to a point first. The capacity is fixed, so the reference that `Top`
/// gives stays good until its entry is written again.
///
/// What an operation REQUIRES is asserted in debug builds; in others a breach has the result told there.
class ORV_EXPORT g3d_XFormStack {
public:
    /// Room for `capacity` entries, for one when that is below 1. The lowest is the identity and is on the stack
    /// already. Throws what allocating does.
    explicit g3d_XFormStack(int capacity);

    // Copied, never moved from: the entries of a moved-from stack would be gone.
    g3d_XFormStack(const g3d_XFormStack&) = default;
    g3d_XFormStack& operator=(const g3d_XFormStack&) = default;
    ~g3d_XFormStack() = default;

    /// Puts top times `xform` on top; `xform` may be the stack's own top. REQUIRES an entry on the stack (else the
    /// missing one counts as the identity) and room for another (else nothing happens).
    void Push(const g3d_XForm& xform) noexcept;

    /// Takes the top away, also the last. REQUIRES an entry (else nothing happens).
    void Pop() noexcept;

    /// REQUIRES an entry (else the identity).
    [[nodiscard]] const g3d_XForm& Top() const noexcept;

    /// Writes the top entry, as given. REQUIRES an entry (else nothing happens).
    void Replace(const g3d_XForm& xform) noexcept;

    /// One entry, as given.
    void Reset(const g3d_XForm& xform) noexcept;

    /// Same capacity, same number of entries on the stack, and these equal.
    [[nodiscard]] bool operator==(const g3d_XFormStack& other) const noexcept;

private:
    std::vector<g3d_XForm> _entries;  ///< as many as the capacity; those above the top are leftovers
    std::size_t _count = 1;           ///< on the stack
};

#endif
