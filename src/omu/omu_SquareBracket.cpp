#include <omu/omu_QuoteText.h>
#include <omu/omu_SquareBracket.h>

#include <string>

omu_SquareBracket::omu_SquareBracket(int index) : _text("[" + cow_String(std::to_string(index)) + "]") {}
omu_SquareBracket::omu_SquareBracket(const cow_String& key) : _text("[" + omu_QuoteText(key) + "]") {}
omu_SquareBracket::omu_SquareBracket(const char* key) : omu_SquareBracket(cow_String(key)) {}
