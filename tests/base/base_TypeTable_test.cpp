// Protects the type table: names and parents by identifier, and a defined answer for every identifier there is.
#include <base/nex_RangeException.h>
#include <base/typ_ArchCompTable.h>

#include <gtest/gtest.h>

#include <array>

namespace {

constexpr unsigned short code = 0xFFF0;
constexpr unsigned Id(unsigned index) { return unsigned{code} << 16 | index; }

constexpr typ_Entry records[] = {
    {0, 1, nullptr}, {7, 1, "first"}, {7, Id(1), "second"}, {7, Id(2), "third"}, {7, Id(5), "loop"}, {7, Id(4), "pool"},
};

class base_TypeTable : public testing::Test {
protected:
    void SetUp() override { typ_ArchCompTable::InsertEntry(code, typ_ArchCompEntry(records, 6)); }
    void TearDown() override { typ_ArchCompTable::Clear(); }
};

TEST_F(base_TypeTable, AnswersByIdentifier) {
    ASSERT_NE(typ_ArchCompTable::FindEntry(code), nullptr);
    EXPECT_EQ(typ_ArchCompTable::FindEntry(code)->Count(), 6);
    EXPECT_EQ(typ_ArchCompTable::FindEntry(code)->Record(3).parent, Id(2));
    EXPECT_STREQ(typ_ArchCompTable::Name(Id(2)), "second");
    for (const unsigned unknown : {0u, 1u, Id(0), Id(6), Id(0xFFFF), 0xFFFFFFFFu, 2u})
        EXPECT_EQ(typ_ArchCompTable::Name(unknown), nullptr) << unknown;
    EXPECT_THROW((void)typ_ArchCompTable::FindEntry(code)->Record(6), nex_RangeException);
    EXPECT_THROW((void)typ_ArchCompTable::FindEntry(code)->Record(-1), nex_RangeException);
}

TEST_F(base_TypeTable, FollowsParents) {
    for (unsigned type = 1; type <= 3; ++type) {
        EXPECT_TRUE(typ_ArchCompTable::IsDerived(Id(type), 1));
        for (unsigned ancestor = 1; ancestor <= 3; ++ancestor)
            EXPECT_EQ(typ_ArchCompTable::IsDerived(Id(type), Id(ancestor)), ancestor <= type);
    }
    EXPECT_TRUE(typ_ArchCompTable::IsDerived(Id(4), Id(5)));
    EXPECT_FALSE(typ_ArchCompTable::IsDerived(Id(4), 1)) << "a cycle ends";
    EXPECT_FALSE(typ_ArchCompTable::IsDerived(Id(9), 1)) << "an unknown type has no parent";
}

TEST_F(base_TypeTable, ReplacesAndForgets) {
    typ_ArchCompTable::InsertEntry(code, typ_ArchCompEntry(records, 2));
    EXPECT_EQ(typ_ArchCompTable::Name(Id(2)), nullptr);
    std::array<typ_Entry, 70> chain{};
    for (unsigned i = 0; i < chain.size(); ++i) chain[i] = {7, i == 0 ? 1 : Id(i - 1), "link"};
    typ_ArchCompTable::InsertEntry(code, typ_ArchCompEntry(chain.data(), 70));
    EXPECT_TRUE(typ_ArchCompTable::IsDerived(Id(64), Id(0)));
    EXPECT_FALSE(typ_ArchCompTable::IsDerived(Id(65), Id(0))) << "gives up after 64 steps";
    typ_ArchCompTable::InsertEntry(code, typ_ArchCompEntry(records, -1));
    EXPECT_EQ(typ_ArchCompTable::FindEntry(code)->Count(), 0);
    typ_ArchCompTable::Clear();
    EXPECT_EQ(typ_ArchCompTable::FindEntry(code), nullptr);
    EXPECT_FALSE(typ_ArchCompTable::IsDerived(Id(1), 1));
}

}  // namespace
