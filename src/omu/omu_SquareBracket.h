#ifndef ORV_OMU_OMU_SQUAREBRACKET_H
#define ORV_OMU_OMU_SQUAREBRACKET_H

#include <base/cow_String.h>
#include <base/orv_Export.h>

/// The text of a subscript, as it stands behind the name of what it selects from.
class ORV_EXPORT omu_SquareBracket {
public:
    /// An index in decimal: [3].
    explicit omu_SquareBracket(int index);
    /// A key as a string of the scripting language (omu_QuoteText): ['name'].
    explicit omu_SquareBracket(const cow_String& key);
    explicit omu_SquareBracket(const char* key);

    /// The text with its brackets.
    [[nodiscard]] const cow_String& AsString() const noexcept { return _text; }

private:
    cow_String _text;
};

#endif
