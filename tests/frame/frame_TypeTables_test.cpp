// Protects the type tables: which type stands at which identifier and what it descends from.

#include <base/typ_ArchCompTable.h>
#include <frame/frame.h>

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <string_view>

namespace {

struct Component {
    unsigned short code;
    std::string prefix;
    typ_ArchCompEntry entry;
    int count;
    int named;
};

class TypeTables : public testing::Test {
protected:
    void SetUp() override { OrvLumGeom_initialize(_count); }
    void TearDown() override { OrvLumGeom_finalize(_count); }

private:
    int _count = 0;
};

TEST_F(TypeTables, EveryTableIsWellFormed) {
    const Component components[] = {
        {848, "annC_", annC_ArchEntry(), 9, 8}, {36, "g3d_", g3d_ArchEntry(), 3, 2},
        {10, "mdl_", mdl_ArchEntry(), 20, 3},   {778, "gsl_", gsl_ArchEntry(), 15, 14},
        {19, "omu_", omu_ArchEntry(), 50, 30},
    };
    std::set<std::string> names;
    for (const Component& component : components) {
        SCOPED_TRACE(component.prefix);
        ASSERT_EQ(component.entry.Count(), component.count);
        int named = 0;
        for (int i = 0; i < component.count; ++i) {
            SCOPED_TRACE(i);
            const typ_Entry& record = component.entry.Record(i);
            const unsigned id = component.code * 65536U + static_cast<unsigned>(i);
            EXPECT_EQ(typ_ArchCompTable::Name(id), record.name);
            if (record.name == nullptr) {
                EXPECT_EQ(record.flags, 0U);
                EXPECT_EQ(record.parent, 1U);
                continue;
            }
            ++named;
            EXPECT_EQ(record.flags, 7U);
            EXPECT_TRUE(std::string_view(record.name).starts_with(component.prefix));
            EXPECT_TRUE(names.insert(record.name).second);
            EXPECT_TRUE(record.parent == 1U || typ_ArchCompTable::Name(record.parent) != nullptr);
            EXPECT_TRUE(typ_ArchCompTable::IsDerived(id, 1));
        }
        EXPECT_EQ(named, component.named);
        EXPECT_EQ(component.entry.Record(0).name, nullptr);
    }
}

TEST_F(TypeTables, TypesStandAtTheirIdentifiersBelowTheirParents) {
    const struct {
        unsigned id;
        const char* name;
        unsigned ancestor;
    } types[] = {
        {0x30A0001, "gsl_Point", 1},
        {0x30A0003, "gsl_Vector", 0x30A0001},
        {0x30A0007, "gsl_BBox", 1},
        {0x30A000C, "gsl_ModelSegmentArray", 1},
        {0x30A000E, "gsl_DotArray", 1},
        {0x130004, "omu_ArgNumberErrorException", 0x130001},
        {0x130009, "omu_RangeErrorException", 1},
        {0x130015, "omu_PrimList", 0x130019},
        {0x130015, "omu_PrimList", 0x130011},
        {0x130021, "omu_PrimArray", 0x130020},
        {0x130024, "omu_GenericTypeErrorException", 0x130001},
        {0x130025, "omu_PrimBool<2>", 0x13001B},
        {0x130030, "omu_PrimTranslatedString", 0x130018},
        {0x130031, "omu_PrimBoolean", 0x130011},
        {0xA000F, "mdl_PropAttr<double>", 1},
        {0xA0010, "mdl_PropAttr<bool>", 1},
        {0xA0013, "mdl_PropAttr<int>", 1},
        {0x3500004, "annC_Point3DAnchor", 0x3500001},
        {0x3500007, "annC_Text", 0x3500005},
    };
    for (const auto& type : types) {
        SCOPED_TRACE(type.name);
        EXPECT_STREQ(typ_ArchCompTable::Name(type.id), type.name);
        EXPECT_TRUE(typ_ArchCompTable::IsDerived(type.id, type.ancestor));
    }
    EXPECT_FALSE(typ_ArchCompTable::IsDerived(0x30A0002, 0x30A0001));
    EXPECT_FALSE(typ_ArchCompTable::IsDerived(0x130009, 0x130001));
}

}  // namespace
