// Protects the names: which names each kind lets through and how it refuses the others, that the byte tables and the
// patterns are the same rule, and what the repairs make of names from elsewhere.

#include <base/rgx.h>
#include <omu/omu_VelNameErrorException.h>
#include <omu/omu_VelmorName.h>

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace {

constexpr int accepted = -1;

/// The error that refuses `name`, or `accepted`.
int Refusal(const auto& name, int kind) {
    try {
        EXPECT_EQ(omu_VelmorName(name, static_cast<omu_VelmorNameEnum>(kind)).AsString(), cow_String(name));
        return accepted;
    } catch (const omu_VelNameErrorException& refused) {
        return refused.Kind();
    }
}

/// The rules read out one by one, with the patterns for the character rules.
int ExpectedRefusal(const std::string& name, int kind) {
    const auto matches = [&](const char* pattern) { return rgx_match(pattern, name); };
    const auto holds = [&](char byte) { return name.find(byte) != std::string::npos; };
    const auto isOneOf = [](char byte, const char* set) { return std::string(set).find(byte) != std::string::npos; };
    if (name.empty()) return 1;
    const int error = kind == 1 || kind == 4 ? 2 : kind == 2 || kind == 5 ? 3 : 0;
    if (name.size() > (kind == 7 ? 256U : kind < 3 ? 80U : 38U)) return error;
    if (error == 0 && !matches(omu_VelmorName::firstCharacterPattern)) return error;
    if (error == 0 && (holds('.') || holds('\\'))) return error;
    if (error == 2 && (name[0] == '-' || matches(omu_VelmorName::jobNamePattern))) return error;
    if (error == 3 && matches(omu_VelmorName::modelNamePattern)) return error;
    if (holds('"')) return error;
    if (kind < 3) return accepted;
    const char* const ends = kind == 4 ? "_" : "_ ";
    if (isOneOf(name.front(), ends) || isOneOf(name.back(), ends)) return error;
    for (const char c : name)
        if (static_cast<unsigned char>(c) < 32) return error;
    if (kind == 7 && (name[0] == '-' || holds(','))) return error;
    return accepted;
}

TEST(omu_VelmorName, RefusesWhatTheRulesAndThePatternsRefuse) {
    const auto expectSame = [](const std::string& name) {
        for (int kind = 0; kind < 8; ++kind)
            ASSERT_EQ(Refusal(name, kind), ExpectedRefusal(name, kind)) << kind << ' ' << testing::PrintToString(name);
    };
    const char* const none = nullptr;
    EXPECT_EQ(Refusal(none, 4), 1);
    for (const int noKind : {8, -1}) EXPECT_EQ(Refusal(none, noKind) + Refusal("\"._ ", noKind), 2 * accepted);
    EXPECT_EQ(Refusal("2D part", 2) + Refusal("a:b c", 5), 2 * accepted);
    expectSame("");
    for (int byte = 0; byte < 256; ++byte) {
        const auto c = static_cast<char>(byte);
        for (const std::string& name :
             {std::string{c}, std::string{c, 'a'}, std::string{'a', c}, std::string{'a', c, 'a'}})
            expectSame(name);
    }
    for (const std::size_t length : {37U, 38U, 39U, 79U, 80U, 81U, 255U, 256U, 257U, 10'000'000U})
        expectSame(std::string(length, 'x'));

    constexpr unsigned seed = 61;
    SCOPED_TRACE(seed);
    std::mt19937_64 random(seed);
    for (int round = 0; round < 4000; ++round) {
        std::string name(1 + random() % 45, ' ');
        // Mostly letters, so that neither answer is rare.
        for (char& c : name) c = static_cast<char>(random() % 40 == 0 ? random() % 256 : 'a' + random() % 26);
        expectSame(name);
    }
}

TEST(omu_VelmorName, RepairsToAGuiName) {
    const std::string longest(38, 'x');
    const std::string oneMore = "N1" + longest.substr(1);
    // Name, replacement, result; no result where the repair fails and the name stays.
    const std::tuple<std::string, const char*, const char*> cases[] = {
        {"_a.b", "......", "ab"},
        {"___", "......", nullptr},
        {"", "NQDBLT", nullptr},
        {"9\"a.b\\c ", "NQDBLT", "N9QaDbBcT"},
        {" a_", "NQDBLT", "LaT"},
        {"12a", ".", "a"},
        {"12_\"a\"_", nullptr, "a"},
        {"1a.", "N", "N1a"},
        {"fine name", "......", "fine name"},
        {longest + "_", "......", longest.c_str()},
        {"1" + longest, "N.....", oneMore.c_str()},
        {"1a", "7.....", nullptr},      // digits before digits without end
        {"a\"b", ".\\.\"..", nullptr},  // from one fault to the other and back
        {"_a.b_", "...._.", "_ab_"},    // ends at the fault that is replaced by itself
        {"\"a", "._...._", "a"},        // a replacement that is another fault is repaired in its turn
    };
    for (const auto& [name, replacement, result] : cases) {
        SCOPED_TRACE(name);
        cow_String repaired(name);
        EXPECT_EQ(omu_VelmorName::MakeLegalGuiName(repaired, replacement), result != nullptr);
        EXPECT_EQ(repaired, result == nullptr ? name : result);
    }

    constexpr unsigned seed = 62;
    SCOPED_TRACE(seed);
    std::mt19937_64 random(seed);
    const std::string letters = "ab17\"._\\ -";
    for (int round = 0; round < 5000; ++round) {
        std::string name(random() % 60, ' ');
        for (char& c : name) c = letters[random() % letters.size()];
        cow_String repaired(name);
        if (omu_VelmorName::MakeLegalGuiName(repaired, round % 2 == 0 ? "NQ.BLT" : nullptr))
            EXPECT_TRUE(Refusal(repaired.str(), 3) == accepted || repaired.Length() == 39) << name;
        else
            EXPECT_EQ(repaired.str(), name);
    }
}

TEST(omu_VelmorName, QuotesPartsAndMakesFileNames) {
    const std::pair<const char*, const char*> quoted[] = {
        {"", ""},
        {"a.b c.d", "a.\"b c\".d"},
        {"a.\"b c\".\"\"", "a.\"b c\".\"\""},
        {"\"b.c d\"", "\"b.\"c d\"\""},
        {"..a=1.", "..\"a=1\"."},
        {"it's,x:1", "\"it's,x:1\""},
        {"a-b_c\"", "a-b_c\""},
        {"\" ", "\"\" \""},
    };
    for (const auto& [name, result] : quoted) EXPECT_EQ(omu_VelmorName::QuoteIfNeeded(name), result);

    const cow_String name("a:b*c!#$%&'(),/<=>?[]{}~ \\\"|.-_");
    EXPECT_EQ(omu_VelmorName::MakeLegalFileName(name), "a-b-c------------------- \\\"|.-_");

    std::string big(10'000'000, '.');
    for (std::size_t i = 0; i < big.size(); i += 3) big[i] = ' ';
    EXPECT_EQ(omu_VelmorName::QuoteIfNeeded(big).Length(), 10'000'000 + 2 * 3'333'334);
    cow_String name10M(big);
    EXPECT_FALSE(omu_VelmorName::MakeLegalGuiName(name10M, "1...1."));
    EXPECT_EQ(name10M.str(), big);
}

}  // namespace
