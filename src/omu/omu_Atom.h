#ifndef ORV_OMU_OMU_ATOM_H
#define ORV_OMU_OMU_ATOM_H

#include <base/cow_String.h>
#include <base/orv_Export.h>

#include <cstdint>

/// A text of the one table of the process, by its place there; 0 is no text. Made from a text it only looks; to add one
/// is `CreateAtom`.
///
/// The last stop of Omu empties the table: never keep an atom or its text beyond it.
/// Threads: there is no lock; the scripting thread only.
class ORV_EXPORT omu_Atom {
public:
    /// Adds the text to the table; one that is there already keeps its place. Looks at every text, as does the
    /// constructor.
    static omu_Atom CreateAtom(const cow_String& text);

    /// The place of exactly this text, 0 when it is not in the table.
    explicit omu_Atom(const cow_String& text);

    /// Any place, in the table or not.
    explicit omu_Atom(std::uint32_t index) noexcept : _index(index) {}

    /// The place in the table.
    [[nodiscard]] std::uint32_t Index() const noexcept { return _index; }

    /// The text, valid as long as the table; null at place 0. Throws nex_RangeException beyond the table.
    [[nodiscard]] const char* String() const;

    friend bool operator==(const omu_Atom&, const omu_Atom&) noexcept = default;

private:
    std::uint32_t _index;
};

#endif
