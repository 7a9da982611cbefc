// Protects the type tables: which type stands at which identifier and what it descends from.

#include <base/typ_ArchCompTable.h>
#include <frame/frame.h>

#include <gtest/gtest.h>

#include <set>

namespace {

class TypeTables : public testing::Test {
protected:
    void SetUp() override { OrvLumGeom_initialize(_count); }
    void TearDown() override { OrvLumGeom_finalize(_count); }

private:
    int _count = 0;
};

TEST_F(TypeTables, EveryTableIsWellFormed) {
    const std::tuple<unsigned, std::string, typ_ArchCompEntry, int, std::size_t> components[] = {
        {848, "annC_", annC_ArchEntry(), 9, 8}, {36, "g3d_", g3d_ArchEntry(), 3, 2},
        {10, "mdl_", mdl_ArchEntry(), 23, 6},   {778, "gsl_", gsl_ArchEntry(), 15, 14},
        {19, "omu_", omu_ArchEntry(), 50, 30},
    };
    for (const auto& [code, prefix, entry, count, named] : components) {
        ASSERT_EQ(entry.Count(), count) << prefix;
        std::set<std::string> names;
        for (int i = 0; i < count; ++i) {
            SCOPED_TRACE(prefix + std::to_string(i));
            const typ_Entry& record = entry.Record(i);
            const unsigned id = code * 65536U + static_cast<unsigned>(i);
            EXPECT_EQ(typ_ArchCompTable::Name(id), record.name);
            EXPECT_EQ(record.flags, record.name == nullptr ? 0U : 7U);
            const bool namedParent = record.name != nullptr && typ_ArchCompTable::Name(record.parent) != nullptr;
            EXPECT_TRUE(record.parent == 1U || namedParent);
            EXPECT_TRUE(typ_ArchCompTable::IsDerived(id, 1));
            if (record.name == nullptr) continue;
            EXPECT_TRUE(std::string(record.name).starts_with(prefix));
            names.insert(record.name);
        }
        EXPECT_EQ(names.size(), named) << prefix;
        EXPECT_EQ(entry.Record(0).name, nullptr) << prefix;
    }
}

TEST_F(TypeTables, TypesStandAtTheirIdentifiersBelowTheirParents) {
    const std::tuple<unsigned, const char*, unsigned> types[] = {
        {0x30A0001, "gsl_Point", 1},
        {0x30A0003, "gsl_Vector", 0x30A0001},
        {0x30A000E, "gsl_DotArray", 1},
        {0x130004, "omu_ArgNumberErrorException", 0x130001},
        {0x130015, "omu_PrimList", 0x130019},
        {0x130015, "omu_PrimList", 0x130011},
        {0x130021, "omu_PrimArray", 0x130020},
        {0x130025, "omu_PrimBool<2>", 0x13001B},
        {0x130030, "omu_PrimTranslatedString", 0x130018},
        {0x130031, "omu_PrimBoolean", 0x130011},
        {0xA000F, "mdl_PropAttr<double>", 1},
        {0xA0010, "mdl_PropAttr<bool>", 1},
        {0xA0013, "mdl_PropAttr<int>", 1},
        {0x3500004, "annC_Point3DAnchor", 0x3500001},
        {0x3500007, "annC_Text", 0x3500005},
    };
    for (const auto& [id, name, ancestor] : types) {
        EXPECT_STREQ(typ_ArchCompTable::Name(id), name);
        EXPECT_TRUE(typ_ArchCompTable::IsDerived(id, ancestor)) << name;
    }
    EXPECT_FALSE(typ_ArchCompTable::IsDerived(0x30A0002, 0x30A0001));
    EXPECT_STREQ(typ_ArchCompTable::Name(0x130009), "omu_RangeErrorException");
    EXPECT_FALSE(typ_ArchCompTable::IsDerived(0x130009, 0x130001)) << "unlike the other errors";
}

}  // namespace
