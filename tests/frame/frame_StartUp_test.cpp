// Protects the counted start-up: who is started and stopped, in which order, what the caller's count says, and what is
// registered at each moment, in every nesting of library and modules and beyond the balanced ones.

#include <base/OrvLumBasicUtils.h>
#include <base/cls_MetadataRegistrar.h>
#include <base/typ_ArchCompTable.h>
#include <frame/frame.h>
#include <gsl/gsl_Util.h>
#include <support/UnstartedLibrary.h>

#include <gmock/gmock.h>
#if !defined(_WIN32)
#include <dlfcn.h>
#endif

#include <limits>
#include <map>
#include <random>
#include <set>

namespace {

using Entry = void (*)(int&);

#if defined(_WIN32)

constexpr std::size_t observed = 0;  // no program can stand before the functions of a DLL
std::vector<std::string> calls;

}  // namespace

#else

constexpr std::size_t observed = 12;  // of the parts below the first; the last two are not called from another source
std::vector<std::string> calls;       // in order, of the entries below

/// Notes the call of a library's entry and passes it on. The entries below stand before the library's own for the
/// whole process, the library included: this is how the order is seen from outside.
void Observe(const std::string& name, int& count) {
    calls.push_back(name);
    const std::string symbol = "_Z" + std::to_string(name.size()) + name + "Ri";
    static std::map<std::string, Entry> own;
    Entry& entry = own[symbol];
    if (entry == nullptr) entry = reinterpret_cast<Entry>(dlsym(RTLD_NEXT, symbol.c_str()));
    entry(count);
}

}  // namespace

#define ORV_OBSERVE(part)                                                       \
    void part##_initialize(int& count) { Observe(#part "_initialize", count); } \
    void part##_finalize(int& count) { Observe(#part "_finalize", count); }

ORV_OBSERVE(OrvLumBasicUtils)
ORV_OBSERVE(OrvBasShared)
ORV_OBSERVE(OrvBasCoreUtils)
ORV_OBSERVE(OrvBasAlloc)
ORV_OBSERVE(OrvLumWip)
ORV_OBSERVE(OrvLumIdb)
ORV_OBSERVE(OrvLumG3d)
ORV_OBSERVE(OrvLumOmu)
ORV_OBSERVE(OrvLumMdl)
ORV_OBSERVE(OrvLumGsl)
ORV_OBSERVE(OrvLumAnn)
ORV_OBSERVE(OrvLumUtf)

#endif

namespace {

struct Part {
    std::string name;
    Entry initialize;
    Entry finalize;
    unsigned short component = 0;  // of the type table that it enters
};

const std::array<Part, 14> parts{{
    {"OrvLumBasicUtils", OrvLumBasicUtils_initialize, OrvLumBasicUtils_finalize},
    {"OrvBasShared", OrvBasShared_initialize, OrvBasShared_finalize},
    {"OrvBasCoreUtils", OrvBasCoreUtils_initialize, OrvBasCoreUtils_finalize},
    {"OrvBasAlloc", OrvBasAlloc_initialize, OrvBasAlloc_finalize},
    {"OrvLumWip", OrvLumWip_initialize, OrvLumWip_finalize},
    {"OrvLumIdb", OrvLumIdb_initialize, OrvLumIdb_finalize},
    {"OrvLumG3d", OrvLumG3d_initialize, OrvLumG3d_finalize, 36},
    {"OrvLumOmu", OrvLumOmu_initialize, OrvLumOmu_finalize, 19},
    {"OrvLumMdl", OrvLumMdl_initialize, OrvLumMdl_finalize, 10},
    {"OrvLumGsl", OrvLumGsl_initialize, OrvLumGsl_finalize, 778},
    {"OrvLumAnn", OrvLumAnn_initialize, OrvLumAnn_finalize, 848},
    {"OrvLumUtf", OrvLumUtf_initialize, OrvLumUtf_finalize},
    {"specific", OrvLumGeom_specific_initialize, OrvLumGeom_specific_finalize},
    {"library", OrvLumGeom_initialize, OrvLumGeom_finalize},
}};
constexpr std::size_t basicUtils = 0;
constexpr std::size_t g3d = 6, omu = 7, mdl = 8, gsl = 9, ann = 10, specific = 12, library = 13;

/// In the order of registration: name, identifier, flags, number.
const std::vector<cls_ClassRecord> viewingClasses{
    {"g3d_Point", 0x240001, 4, 203}, {"g3d_Vector", 0x240002, 4, 203}, {"g3d_ColorErrorException", 6, 2, 1}};
const std::vector<cls_ClassRecord> modelClasses{{"mdl_PropAttr<double>", 0xA000F, 7, 203},
                                                {"mdl_PropAttr<bool>", 0xA0010, 7, 203},
                                                {"mdl_PropAttr<int>", 0xA0013, 7, 203},
                                                {"mdl_PropAttr<cow_List<float>>", 0xA0014, 7, 203},
                                                {"mdl_PropAttr<cow_List<cow_String>>", 0xA0015, 7, 203},
                                                {"mdl_PropAttr<cow_List<int>>", 0xA0016, 7, 203}};
const std::vector<cls_ClassRecord> annotationClasses{
    {"annC_Anchor", 0x3500001, 7, 203},         {"annC_NamedAnchor", 0x3500002, 7, 203},
    {"annC_ViewportAnchor", 0x3500003, 7, 203}, {"annC_Point3DAnchor", 0x3500004, 7, 203},
    {"annC_Annotation", 0x3500005, 7, 203},     {"annC_Arrow", 0x3500006, 7, 203},
    {"annC_Text", 0x3500007, 7, 203},           {"annC_AnnotationContainer", 0x3500008, 1, 203}};
const std::vector<cls_ClassRecord> scriptingClasses{
    {"omu_TypeErrorException", 0x130001, 2, 203},
    {"omu_KeywordTypeErrorException", 0x130002, 2, 203},
    {"omu_ArgTypeErrorException", 0x130003, 2, 203},
    {"omu_ArgNumberErrorException", 0x130004, 2, 203},
    {"omu_KeywordErrorException", 0x130005, 2, 203},
    {"omu_GenericTypeErrorException", 0x130024, 2, 203},
    {"omu_AttributeErrorException", 0x130006, 2, 203},
    {"omu_RangeErrorException", 0x130009, 2, 203},
    {"omu_VelNameErrorException", 0x130023, 2, 203},
    {"omu_Primitive", 0x130011, 2, 203},
    {"omu_PrimNumber", 0x130016, 2, 203},
    {"omu_PrimString", 0x130018, 2, 203},
    {"omu_PrimTranslatedString", 0x130030, 2, 203},
    {"omu_PrimBoolean", 0x130031, 2, 203},
    {"omu_PrimNone", 0x13001D, 2, 203},
    {"omu_PrimComplex", 0x130022, 2, 203},
    {"omu_PrimExpr", 0x13001A, 2, 203},
    {"omu_PrimType", 0x13001F, 2, 203},
    {"omu_PrimEnumBase", 0x13001B, 2, 203},
    {"omu_PrimBool<2>", 0x130025, 2, 203},
    {"omu_PrimDictionaryBase", 0x130012, 2, 203},
    {"omu_PrimDictionary<int>", 0x130013, 2, 203},
    {"omu_PrimDictionary<cow_String>", 0x130014, 2, 203},
    {"omu_PrimSequence", 0x130020, 2, 203},
    {"omu_PrimTuple", 0x130019, 2, 203},
    {"omu_PrimList", 0x130015, 2, 203},
    {"omu_PrimArray", 0x130021, 2, 203},
    {"omu_PrimException", 0x13002F, 2, 203},
};
const std::vector<cls_ClassRecord> geometryClasses{
    {"gsl_BBox", 0x30A0007, 3, 800},       {"gsl_ModelSegment", 0x30A000B, 7, 332}, {"gsl_Plane", 0x30A0004, 3, 800},
    {"gsl_PlaneArray", 0x30A000D, 3, 800}, {"gsl_Point", 0x30A0001, 7, 203},        {"gsl_Segment", 0x30A0008, 3, 800},
    {"gsl_StLine", 0x30A0006, 3, 800},     {"gsl_LineArray", 0x30A000A, 3, 800},    {"gsl_Vector", 0x30A0003, 7, 203},
    {"gsl_Dot", 0x30A0005, 7, 203},        {"gsl_DotArray", 0x30A000E, 3, 800},     {"gsl_Matrix", 0x30A0002, 7, 203},
};

/// In the order in which the modules start.
const std::pair<std::size_t, const std::vector<cls_ClassRecord>&> classesOfModules[] = {{g3d, viewingClasses},
                                                                                        {omu, scriptingClasses},
                                                                                        {mdl, modelClasses},
                                                                                        {gsl, geometryClasses},
                                                                                        {ann, annotationClasses}};

/// What the library must do, told in another way: signed counters, names instead of registries.
struct Model {
    int count = 0;
    std::array<long, parts.size()> starts{};
    std::vector<std::string> calls;
    std::vector<std::string> classes;
    std::set<unsigned short> tables;
    bool freshTolerances = false;

    void Initialize(std::size_t part) {
        if (part < observed) calls.push_back(parts[part].name + "_initialize");
        if (starts[part]++ != 0) return;
        ++count;
        if (part == library)
            for (std::size_t each = 0; each <= specific; ++each) Initialize(each);
        if (part == basicUtils) Register("cow_String"), Register("atr_String"), Register("nex_CommandException");
        if (parts[part].component != 0) tables.insert(parts[part].component);
        for (const auto& [module, registered] : classesOfModules)
            if (part == module)
                for (const cls_ClassRecord& each : registered) Register(each.name.str());
    }

    void Finalize(std::size_t part) {
        if (part < observed) calls.push_back(parts[part].name + "_finalize");
        if (starts[part]-- != 1) return;
        --count;
        if (part == library)
            for (std::size_t each = specific + 1; each-- > 0;) Finalize(each);
        if (part == gsl) freshTolerances = true;
        if (part != basicUtils) return;
        classes.clear();
        tables.clear();
    }

private:
    void Register(const std::string& name) {
        if (std::ranges::find(classes, name) == classes.end()) classes.push_back(name);
    }
};

std::vector<std::string> RegisteredNames() {
    std::vector<std::string> names;
    for (const cls_ClassRecord& each : cls_MetadataRegistrar::Instance().Classes()) names.push_back(each.name.str());
    return names;
}

/// The library beside the model, both driven alike and compared after each call.
class StartUp : public testing::Test {
protected:
    void Initialize(std::size_t part) { Drive(part, parts[part].initialize, &Model::Initialize); }
    void Finalize(std::size_t part) { Drive(part, parts[part].finalize, &Model::Finalize); }

    /// Brings every counter back to 0 and leaves nothing registered, so that tests do not see each other.
    void TearDown() override {
        for (std::size_t part = parts.size(); part-- > 0;) {
            while (model.starts[part] > 0) Finalize(part);
            while (model.starts[part] < 0) Initialize(part);
        }
        Initialize(library);
        Finalize(library);
        EXPECT_EQ(count, 0);
        EXPECT_THAT(RegisteredNames(), testing::IsEmpty());
    }

    int count = 0;
    Model model;

private:
    void Drive(std::size_t part, Entry entry, void (Model::*modelled)(std::size_t)) {
        SCOPED_TRACE(parts[part].name);
        gsl_Util::Instance().SetOldDisplayFactor(true);  // remembered for as long as the tolerances live
        model.freshTolerances = false;
        model.calls.clear();
        calls.clear();
        (model.*modelled)(part);
        entry(count);
        EXPECT_EQ(count, model.count);
        EXPECT_EQ(calls, model.calls);
        EXPECT_EQ(RegisteredNames(), model.classes);
        EXPECT_EQ(gsl_Util::Instance().DisplayFactors()[2] != 15.0, model.freshTolerances);
        for (const Part& each : parts) {
            const bool present = typ_ArchCompTable::FindEntry(each.component) != nullptr;
            EXPECT_EQ(present, model.tables.contains(each.component)) << each.name;
        }
    }
};

TEST_F(StartUp, FirstStartAndLastStopWorkWhateverIsNestedBetween) {
    for (int round = 0; round < 2; ++round) {  // the second registers afresh
        Initialize(library);
        EXPECT_EQ(count, 14);
        const auto classes = cls_MetadataRegistrar::Instance().Classes();
        std::vector<cls_ClassRecord> expected{classes[0], classes[1], classes[2]};  // of the base library
        for (const auto& [module, registered] : classesOfModules)
            expected.insert(expected.end(), registered.begin(), registered.end());
        EXPECT_EQ(std::vector<cls_ClassRecord>(classes.begin(), classes.end()), expected);

        Initialize(library);
        EXPECT_EQ(count, 14);
        EXPECT_THAT(calls, testing::IsEmpty());
        Finalize(library);
        EXPECT_EQ(RegisteredNames().size(), expected.size());
        Finalize(library);
        EXPECT_EQ(count, 0);
    }
}

TEST_F(StartUp, AnySequenceFollowsTheCounters) {
    for (const unsigned seed : {1U, 2U, 3U, 4U}) {
        SCOPED_TRACE(seed);
        std::mt19937_64 random(seed);
        for (int step = 0; step < 400; ++step) {
            // The library itself comes up as often as everything else together.
            const std::size_t part = std::min(random() % (2 * parts.size()), library);
            // Seeds 1 and 2 favour starts, 3 and 4 stop more often than they start.
            random() % 100 < (seed < 3 ? 60 : 45) ? Initialize(part) : Finalize(part);
            ASSERT_FALSE(HasFailure()) << "step " << step;
        }
    }
}

TEST_F(StartUp, CallersCountMayGoBelowZeroAndBeyondItsRange) {
    int least = std::numeric_limits<int>::min();
    int greatest = std::numeric_limits<int>::max();
    OrvLumWip_initialize(greatest);
    OrvLumWip_finalize(least);
    EXPECT_EQ(greatest, std::numeric_limits<int>::min());
    EXPECT_EQ(least, std::numeric_limits<int>::max());
}

#if !defined(_WIN32)  // where the loader calls it, which has a test of its own

TEST_F(StartUp, LoaderEntryStartsAndStopsWithACountOfItsOwn) {
    constexpr unsigned long detach = 0;
    std::size_t all = 3;  // of the base library
    for (const auto& [module, registered] : classesOfModules) all += registered.size();
    for (const unsigned long attachThreadsAndUnknown : {1UL, 2UL, 3UL, 4UL, ~0UL}) {
        EXPECT_EQ(DllMain(nullptr, attachThreadsAndUnknown, nullptr), 1);
        EXPECT_EQ(RegisteredNames().size(), all) << attachThreadsAndUnknown;
    }
    OrvLumGeom_initialize(count);
    OrvLumGeom_finalize(count);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(RegisteredNames().size(), all);
    calls.clear();
    EXPECT_EQ(DllMain(nullptr, detach, nullptr), 1);
    EXPECT_EQ(calls.size(), observed);
    EXPECT_THAT(RegisteredNames(), testing::IsEmpty());
}

#endif

}  // namespace
