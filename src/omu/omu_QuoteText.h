#ifndef ORV_OMU_OMU_QUOTETEXT_H
#define ORV_OMU_OMU_QUOTETEXT_H

#include <base/cow_String.h>
#include <base/orv_Export.h>

#include <string>
#include <string_view>

/// `text` as a string of the scripting language: 'text', with every backslash doubled and every newline as the two
/// characters \n. The quote is the apostrophe, and an apostrophe inside becomes \'; but a text that holds an apostrophe
/// and no double quote is enclosed in double quotes and its apostrophes stay. All other bytes stay as they are.
[[nodiscard]] ORV_EXPORT cow_String omu_QuoteText(const cow_String& text);

/// The same, put behind `text`. `bytes` are not part of it.
ORV_EXPORT void omu_AppendQuoted(std::string& text, std::string_view bytes);

#endif
