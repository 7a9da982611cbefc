#ifndef ORV_BASE_RGX_H
#define ORV_BASE_RGX_H

#include <base/cow_List.h>
#include <base/cow_String.h>
#include <base/orv_Export.h>

/// Whether `pattern` occurs in `text`, anywhere unless it is anchored. Both are bytes. The time is linear in the text
/// and the memory is that of the pattern, whatever the text (there is no recursion and no going back).
///
/// A pattern is a sequence of
///
///     [abc]  [a-z]  [^...]    one byte of a set, or one outside it. `]` in the first place is itself, so is `-` in the
///                             first or the last place
///     \c                      the byte c, in a set too
///     c                       any other byte, itself
///
/// each of them once, with `*` any number of times, with `+` at least once. `^` before all of it stands for the
/// beginning of the text and `$` after it for the end. The empty pattern occurs in every text.
///
/// What other dialects read as an operator is refused rather than taken for itself: `. ? ( ) { } |` outside a set must
/// be quoted by a backslash, so must `^` and `$` in another place. A malformed pattern (a set without end, a range that
/// runs backwards, a repetition of nothing) is refused as well. Throws nex_PrimException.
[[nodiscard]] ORV_EXPORT bool rgx_match(const cow_String& pattern, const cow_String& text);

/// The parts of `text` between the occurrences of `at`, always one more than there are occurrences; parts may be empty.
[[nodiscard]] ORV_EXPORT cow_List<cow_String> rgx_split(const cow_String& text, char at);

#endif
