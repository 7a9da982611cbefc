// Protects the type table: names and parents by identifier, and a defined answer for every identifier there is.
#include <base/nex_RangeException.h>
#include <base/typ_ArchCompTable.h>

#include <gtest/gtest.h>

#include <vector>

namespace {

constexpr unsigned short code = 0xFFF0;
constexpr unsigned Id(unsigned index) { return unsigned{code} << 16 | index; }

TEST(base_TypeTable, AnswersByIdentifierReplacesAndForgets) {
    using Table = typ_ArchCompTable;
    const typ_Entry records[] = {
        {0, 1, nullptr},     {7, 1, "first"},    {7, Id(1), "second"},
        {7, Id(2), "third"}, {7, Id(5), "loop"}, {7, Id(4), "pool"},
    };
    Table::InsertEntry(code, typ_ArchCompEntry(records, 6));
    ASSERT_NE(Table::FindEntry(code), nullptr);
    EXPECT_EQ(Table::FindEntry(code)->Record(3).parent, Id(2));
    EXPECT_STREQ(Table::Name(Id(2)), "second");
    for (const unsigned unknown : {0u, 1u, 2u, Id(0), Id(6), Id(0xFFFF), 0xFFFFFFFFu})
        EXPECT_EQ(Table::Name(unknown), nullptr) << unknown;
    for (const int outside : {-1, 6}) EXPECT_THROW((void)Table::FindEntry(code)->Record(outside), nex_RangeException);
    for (unsigned type = 1; type <= 3; ++type) {
        EXPECT_TRUE(Table::IsDerived(Id(type), 1));
        for (unsigned ancestor = 1; ancestor <= 3; ++ancestor)
            EXPECT_EQ(Table::IsDerived(Id(type), Id(ancestor)), ancestor <= type);
    }
    EXPECT_TRUE(Table::IsDerived(Id(4), Id(5)));
    EXPECT_FALSE(Table::IsDerived(Id(4), 1)) << "a cycle ends";
    EXPECT_FALSE(Table::IsDerived(Id(9), 1)) << "an unknown type has no parent";

    std::vector<typ_Entry> chain;
    for (unsigned i = 0; i < 70; ++i) chain.push_back({7, i == 0 ? 1 : Id(i - 1), "link"});
    Table::InsertEntry(code, typ_ArchCompEntry(chain.data(), 66));
    EXPECT_TRUE(Table::IsDerived(Id(64), Id(0)));
    EXPECT_FALSE(Table::IsDerived(Id(65), Id(0))) << "gives up after 64 steps";
    EXPECT_EQ(Table::Name(Id(66)), nullptr);
    Table::InsertEntry(code, typ_ArchCompEntry(records, -1));
    EXPECT_EQ(Table::FindEntry(code)->Count(), 0);
    Table::Clear();
    EXPECT_EQ(Table::FindEntry(code), nullptr);
    EXPECT_FALSE(Table::IsDerived(Id(1), 1));
}

}  // namespace
