// Protects the type tables: which type stands at which identifier and what it descends from.

#include <base/typ_ArchCompTable.h>
#include <frame/frame.h>
#include <support/StartedLibrary.h>

#include <algorithm>
#include <set>

namespace {

using TypeTables = StartedLibrary;

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

TEST_F(TypeTables, DescentIsThatOfTheRegisteredClasses) {
    const auto classes = cls_MetadataRegistrar::Instance().Classes();
    const auto isInTables = [](const cls_ClassRecord& each) { return typ_ArchCompTable::Name(each.typeId) != nullptr; };
    EXPECT_EQ(std::count_if(classes.begin(), classes.end(), isInTables), classes.Length() - 4) << "not those of others";
    for (const cls_ClassRecord& each : classes) {
        if (!isInTables(each)) continue;
        EXPECT_EQ(typ_ArchCompTable::Name(each.typeId), each.name);
        for (const cls_ClassRecord& other : classes) {
            const bool isStoredApart = each.name == "gsl_Vector" && other.name == "gsl_Point";
            EXPECT_EQ(typ_ArchCompTable::IsDerived(each.typeId, other.typeId),
                      isStoredApart || (isInTables(other) && registrar.Inherits(each.typeId, other.typeId)))
                << each.name.str() << " from " << other.name.str();
        }
    }
}

}  // namespace
