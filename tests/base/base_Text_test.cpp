// Protects the texts: bytes compare and survive as bytes, numbers print the same in every locale, messages have any
// length, and patterns and encodings are read strictly.
#include <base/OrvBasProgramName.h>
#include <base/OrvBasUtlFilePath.h>
#include <base/atr_String.h>
#include <base/cow_String.h>
#include <base/nex_PrimException.h>
#include <base/rgx.h>

#include <gmock/gmock.h>

#include <algorithm>
#include <bit>
#include <clocale>
#include <limits>
#include <random>

namespace {

std::string RandomText(std::mt19937_64& random, const std::string& letters, std::size_t longest) {
    std::string text(random() % (longest + 1), ' ');
    for (char& letter : text) letter = letters[random() % letters.size()];
    return text;
}

TEST(base_String, FollowsStdString) {
    std::mt19937_64 random(7);
    const std::string letters{"ab\0\x7f\x80\xff", 6};
    for (int round = 0; round < 3000; ++round) {
        const std::string a = RandomText(random, letters, 4);
        const std::string b = RandomText(random, letters, 4);
        SCOPED_TRACE(testing::PrintToString(a) + " " + testing::PrintToString(b));
        const cow_String x(a);
        const cow_String y(b);
        EXPECT_EQ(x.str(), a);
        EXPECT_EQ(x.Length(), static_cast<int>(a.size()));
        EXPECT_EQ(x == y, a == b);
        EXPECT_TRUE((x <=> y) == (a <=> b));
        EXPECT_EQ((x + y).str(), a + b);
        EXPECT_EQ(x == b.c_str(), a == b.c_str());
        EXPECT_EQ(std::hash<cow_String>()(x + y), std::hash<cow_String>()(cow_String(a + b)));
    }
}

TEST(base_String, IsEmptyInEveryWay) {
    const char* const null = nullptr;
    for (const cow_String& text : {cow_String(), cow_String(null), cow_String(""), cow_String(std::string())}) {
        EXPECT_STREQ(text.c_str(), "");
        EXPECT_TRUE(text == null && text == "" && text.str().empty() && text.Length() == 0);
    }
    EXPECT_EQ(OrvBasUtlFilePath("a/b"), OrvBasUtlFilePath(cow_String("a/") + "b"));
    static_assert(!std::is_constructible_v<cow_String, char> && !std::is_constructible_v<cow_String, bool>);
    static_assert(!std::is_convertible_v<double, cow_String>);
}

TEST(base_String, PrintsNumbersAsPrintfDoes) {
    std::mt19937_64 random(11);
    const auto expectAsPrinted = [](double value) { EXPECT_EQ(atr_String(cow_String(value)), atr("%.15g", value)); };
    using Limits = std::numeric_limits<double>;
    for (const double value : {0.0, -0.0, 1e15, 1e-5, 123456789012345678.0, Limits::max(), Limits::denorm_min(),
                               -Limits::infinity(), Limits::quiet_NaN()})
        expectAsPrinted(value);
    constexpr std::uint64_t belowTwo = ~(std::uint64_t{1} << 62);  // neither infinite nor NaN
    for (int round = 0; round < 1000; ++round) expectAsPrinted(std::bit_cast<double>(random() & belowTwo));
}

TEST(base_Message, HasAnyLengthAndTakesNoStringObject) {
    EXPECT_EQ(atr("plain 100%%"), atr_String("plain 100%"));
    EXPECT_EQ(atr("%s|%5.2f|%d|%c|%lu", "text", 2.5F, -3, 'x', 4UL), atr_String("text| 2.50|-3|x|4"));
    const char* const null = nullptr;
    EXPECT_EQ(atr("%s", null), atr_String("(null)"));
    EXPECT_EQ(atr(null), atr_String());
    const std::string big(3'000'000, 'y');
    EXPECT_EQ(atr("<%s>", big.c_str()).Text().str(), "<" + big + ">");
    static_assert(!atr_Printable<cow_String> && !atr_Printable<std::string>);
}

TEST(base_Message, ConvertsToTheLocale) {
    // The text, what the "C" locale makes of it, and the number of '?' that strict decoding puts in whatever the
    // locale.
    const std::tuple<std::string, std::string, int> cases[] = {
        {std::string("a\0b", 3), std::string("a\0b", 3), 0},
        {"gr\xC5\xB1\xC5\x9F", "gr??", 0},  // not Latin-1, which Windows has in the C locale
        {"\xE2\x82\xAC \xF0\x9F\x98\x80", "? ?", 0},
        {"\xED\x9F\xBF\xEE\x80\x80\xF4\x8F\xBF\xBF", "???", 0},  // the bounds of what is a character
        {"\x80x\xBF", "?x?", 2},                                 // continuation without a lead
        {"\xC0\xAF\xE0\x80\xAF", "?????", 5},                    // overlong
        {"\xED\xA0\x80\xFF", "????", 4},                         // a surrogate, and no byte of any character
        {"\xF4\x90\x80\x80", "????", 4},                         // above U+10FFFF
        {"\xE2\x82x\xF0\x9F\x98", "?x?", 2},                     // cut off by another character and by the end
    };
    const std::string before = std::setlocale(LC_ALL, nullptr);
    for (const auto& [text, inC, malformed] : cases) {
        const atr_String message{cow_String(text)};
        SCOPED_TRACE(testing::PrintToString(text));
        EXPECT_EQ(message.Convert(OrvBasStringMode(0)), message);
        EXPECT_EQ(message.Convert(OrvBasStringMode(7)), message);
        ASSERT_NE(std::setlocale(LC_ALL, "C"), nullptr);
        EXPECT_EQ(message.Convert(OrvBasStringMode(1)).Text().str(), inC);
        if (std::setlocale(LC_ALL, "C.UTF-8") == nullptr) continue;
        const std::string inUtf8 = message.Convert(OrvBasStringMode(1)).Text().str();
        EXPECT_EQ(std::count(inUtf8.begin(), inUtf8.end(), '?'), malformed);
        EXPECT_EQ(inUtf8, malformed == 0 ? text : inC);
    }
    std::setlocale(LC_ALL, before.c_str());
}

/// One step of a pattern as written, and the letters of the test texts that it takes.
struct Step {
    std::string_view written;
    std::string_view letters;
    char repeat = ' ';
};

/// Matching by trial and error: plainly right, and only fit for short texts.
bool MatchesHere(std::span<const Step> steps, std::string_view text, bool toEnd) {
    if (steps.empty()) return !toEnd || text.empty();
    const auto& [written, letters, repeat] = steps.front();
    const auto later = steps.subspan(1);
    if (repeat == '*' && MatchesHere(later, text, toEnd)) return true;
    if (text.empty() || letters.find(text.front()) == std::string_view::npos) return false;
    return MatchesHere(later, text.substr(1), toEnd) || (repeat != ' ' && MatchesHere(steps, text.substr(1), toEnd));
}

TEST(base_Pattern, MatchesAsTrialAndErrorDoes) {
    const std::string letters = "abcd-.]\\";
    const Step steps[] = {
        {"a", "a"},           {"-", "-"},           {"\\.", "."},         {"\\\\", "\\"},
        {"[ab]", "ab"},       {"[^a]", "bcd-.]\\"}, {"[a-c]", "abc"},     {"[b-]", "b-"},
        {"[-c]", "-c"},       {"[]a]", "]a"},       {"[\\]\\-d]", "]-d"}, {"[^\\\\.]", "abcd-]"},
        {"[a-\\c.]", "abc."},
    };
    std::mt19937_64 random(13);
    for (int round = 0; round < 20000; ++round) {
        const bool fromBegin = random() % 3 == 0;
        const bool toEnd = random() % 3 == 0;
        std::vector<Step> chosen(random() % 5);
        std::string pattern(fromBegin ? "^" : "");
        for (Step& step : chosen) {
            step = steps[random() % std::size(steps)];
            step.repeat = "  *+"[random() % 4];
            pattern += step.written;
            if (step.repeat != ' ') pattern += step.repeat;
        }
        if (toEnd) pattern += '$';
        const std::string text = RandomText(random, letters, 8);
        bool occurs = false;
        for (std::size_t at = 0; at <= (fromBegin ? 0 : text.size()); ++at)
            occurs = occurs || MatchesHere(chosen, std::string_view(text).substr(at), toEnd);
        EXPECT_EQ(rgx_match(pattern, text), occurs) << pattern << " in " << text;
    }
}

TEST(base_Pattern, ReadsSetsOfBytes) {
    EXPECT_FALSE(rgx_match("[^]x]", "]x"));
    EXPECT_TRUE(rgx_match("^[^0-9]", "\xE9t\xE9"));
    EXPECT_TRUE(rgx_match("[\x80-\xFF]", "a\xC3"));
    EXPECT_TRUE(rgx_match(std::string("[\0]", 3), std::string("a\0b", 3)));
    for (const char* pattern :
         {"[", "[a", "[]", "[z-a]", "a\\", "*", "a**", "^*", "a|b", "(a)", ".", "a?", "a$b", "a^", "{"})
        EXPECT_THROW((void)rgx_match(pattern, "a"), nex_PrimException) << pattern;
}

TEST(base_Pattern, IsLinearOnLongText) {
    const cow_String text(std::string(10'000'000, 'a'));
    EXPECT_FALSE(rgx_match("[^a]", text));
    EXPECT_FALSE(rgx_match("a*a*a*b", text)) << "would never end by trial and error";
    EXPECT_TRUE(rgx_match("[^b]$", text));
}

TEST(base_Split, IsUndoneByJoining) {
    std::mt19937_64 random(17);
    for (int round = 0; round < 500; ++round) {
        const std::string text = RandomText(random, "ab..", 10);
        const cow_List<cow_String> parts = rgx_split(text, '.');
        EXPECT_EQ(parts.Length(), std::count(text.begin(), text.end(), '.') + 1);
        std::string joined;
        for (const cow_String& part : parts) joined += part.str() + ".";
        EXPECT_EQ(joined, text + ".");  // with as many parts as counted, none holds a dot
    }
}

TEST(base_Process, HasAName) { EXPECT_THAT(OrvBasProgramName().str(), testing::AnyOf("base_tests", "base_tests.exe")); }

}  // namespace
