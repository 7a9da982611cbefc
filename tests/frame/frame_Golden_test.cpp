// Protects models that users have stored: every stream in tests/data/golden reads as what was written then, and the
// same objects still write the same bytes. These files are never changed; a class that is missing gets its file by
// running this test with ORV_WRITE_GOLDEN set.

#include "frame_PersistentSamples.h"

#include <base/nex_StreamException.h>
#include <idb/idb_Dump.h>
#include <support/StartedLibrary.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

namespace {

namespace fs = std::filesystem;
const fs::path folder = fs::path(ORV_SOURCE_DIR) / "tests" / "data" / "golden";

/// mdl_PropAttr<cow_List<int>> is in mdl_PropAttr-cow_List-int.hex.
fs::path FileOf(std::string className) {
    std::ranges::replace(className, '<', '-');
    std::erase(className, '>');
    return folder / (className + ".hex");
}

/// Bytes in hexadecimal; what follows '#' on a line is for people.
std::string Load(const fs::path& path) {
    std::ifstream in(path);
    std::string hex;
    for (std::string line; std::getline(in, line);) hex += line.substr(0, line.find('#')) + '\n';
    return FromHex(hex);
}

std::string Dump(const std::string& bytes, const cls_ClassRegistrar& registrar) {
    std::ostringstream text;
    bio_Ifilter in(bytes);
    idb_Dump(text, in, registrar);
    return text.str();
}

/// With the dump ahead, for people. An existing file is left alone.
void Save(const fs::path& path, const std::string& bytes, const std::string& dump) {
    if (fs::exists(path)) return;
    std::ofstream out(path);
    std::istringstream lines(dump);
    for (std::string line; std::getline(lines, line);) {
        std::ranges::replace_if(
            line, [](char c) { return c < ' ' || c > '~'; }, '?');
        out << "# " << line << '\n';
    }
    for (std::size_t at = 0; at < bytes.size(); at += 16) out << ToHex(bytes.substr(at, 16)) << '\n';
}

using frame_Golden = StartedLibrary;

TEST_F(frame_Golden, EveryClassIsReadAndWrittenAsEver) {
    std::set<fs::path> expected;
    for (const PersistentSamples& samples : AllPersistentSamples()) {
        SCOPED_TRACE(samples.name);
        const cls_ClassRegistrar& itsRegistrar = registrar.Find(samples.id) != nullptr ? registrar : TestRegistrar();
        const fs::path path = FileOf(samples.name);
        expected.insert(path);
        if (std::getenv("ORV_WRITE_GOLDEN") != nullptr)
            Save(path, samples.written, Dump(samples.written, itsRegistrar));
        const std::string golden = Load(path);
        ASSERT_FALSE(golden.empty()) << path;
        EXPECT_EQ(Dump(golden, itsRegistrar), Dump(samples.written, itsRegistrar));
        EXPECT_EQ(ToHex(samples.written), ToHex(golden)) << "the samples";
        EXPECT_EQ(ToHex(samples.rewrite(golden)), ToHex(golden)) << "what was read";
        for (std::size_t length = 0; length < golden.size(); ++length) {
            const std::string cut = golden.substr(0, length);
            try {
                EXPECT_EQ(ToHex(samples.rewrite(cut)), ToHex(cut)) << "between roots it is a good stream";
            } catch (const nex_StreamException&) {
            }
        }
    }
    std::set<fs::path> present;
    for (const auto& entry : fs::directory_iterator(folder)) present.insert(entry.path());
    EXPECT_EQ(present, expected);
    for (const cls_ClassRecord& each : cls_MetadataRegistrar::Instance().Classes())
        EXPECT_TRUE(registrar.Find(each.typeId)->make == nullptr || present.contains(FileOf(each.name.str())))
            << each.name.str();
}

}  // namespace
