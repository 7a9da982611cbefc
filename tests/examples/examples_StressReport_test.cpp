// Protects the example host as its user meets it: the answers for the bracket, what it makes of odd, wrong and damaged
// result files, and that it never spoils a file.

#include <support/ChildProcess.h>

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <array>
#include <cmath>
#include <csignal>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <map>
#include <random>
#include <sstream>
#include <tuple>
#include <utility>

namespace {

namespace fs = std::filesystem;
using testing::AnyOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

const std::string program = ORV_PROGRAM_DIR "/stress_report";
const fs::path bracket = fs::path(ORV_SOURCE_DIR) / "examples/data/bracket.frd";

std::string Content(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

using Arguments = std::vector<std::string>;

/// A folder of its own for each test, gone afterwards.
class StressReport : public testing::Test {
protected:
    StressReport() {
        std::string pattern = (fs::temp_directory_path() / "stress_report_XXXXXX").string();
        folder = mkdtemp(pattern.data());
    }
    ~StressReport() override { fs::remove_all(folder); }

    [[nodiscard]] std::string In(const char* name) const { return (folder / name).string(); }

    static ChildResult Run(const fs::path& results, const Arguments& options = {}) {
        Arguments all{program, results.string()};
        all.insert(all.end(), options.begin(), options.end());
        return RunProgram(all);
    }

    ChildResult RunText(const std::string& text, const Arguments& options = {}) const {
        std::ofstream(In("case.frd"), std::ios::binary) << text;
        return Run(In("case.frd"), options);
    }

    /// With one line, and without a trace in the folder beside the input.
    void ExpectRefused(const ChildResult& child, const std::string& reason) const {
        SCOPED_TRACE(reason + "; instead: " + child.err);
        EXPECT_EQ(child.exitCode, 2);
        EXPECT_EQ(child.ErrorLines(), 1);
        EXPECT_THAT(child.err, HasSubstr(reason));
        EXPECT_EQ(child.out, "");
        for (const auto& entry : fs::directory_iterator(folder)) EXPECT_EQ(entry.path().stem(), "case");
    }

    fs::path folder;
};

/// A small model in the short format: two nodes and a line between them, displacements of set 7. Numbers touch.
const std::string deck =
    "    1C\n"
    "    2C                             2                                     0\n"
    " -1    1-1.00000E+00-2.00000E+00-3.00000E+00\n"
    " -1    9 1.00000E+00 2.00000E+00 5.00000E+00\n"
    " -3\n"
    "    3C                             1                                     0\n"
    " -1    4   11    0    2\n"
    " -2    1    9\n"
    " -3\n"
    "  100CL    7 1.50000E+00           2                     0    1           0\n"
    " -4  DISP        4    1\n"
    " -5  D1          1    2    1    0\n"
    " -5  D2          1    2    2    0\n"
    " -5  D3          1    2    3    0\n"
    " -5  ALL         1    2    0    0    1ALL\n"
    " -1    1-1.00000E-01-2.00000E-01-2.00000E-01\n"
    " -1    9 0.00000E+00 0.00000E+00-2.50000E-01\n"
    " -3\n"
    " 9999\n";

/// `text` with the first `from` replaced, which must be there.
std::string Replaced(std::string text, const std::string& from, const std::string& to) {
    const std::size_t at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    return at == std::string::npos ? text : text.replace(at, from.size(), to);
}

std::string EachReplaced(std::string text, std::string_view from, std::string_view to) {
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
    return text;
}

TEST_F(StressReport, TellsTheKnownAnswersOfTheBracket) {
    const ChildResult child = Run(bracket);
    EXPECT_EQ(child.exitCode, 0);
    EXPECT_EQ(child.err, "");
    for (const char* answer : {
             "nodes     1803\n",
             "elements  836\n",
             "788 ten-node tetrahedra, material 1 STEEL\n",
             "48 eight-node bricks, material 2 BRASS\n",
             "extents   (0, 0, 0) to (60, 20, 60)\n",
             "centre    (30, 10, 30)\n",
             "coincident nodes merged: 0\n  body 1: 606 triangles of skin, (0, 0, 0) to (60, 20, 60)\n",
             "  body 2: 160 triangles of skin, (40, 2, 39.25) to (56, 18, 51.25)\n",
             "undeformed\n    body 1 to body 2: 0.75, at (",
             "Set 101, time 1\n  displacements\n    greatest 0.498831766 at node 185 (60, 10, 60)\n",
             ", -0.496287)\n  stresses\n    Mises         456.385127 at node 1025 (",
             "deformed\n    body 1 to body 2: 0.301001748, at (56, 11.983",
             "Set 102, time 2\n  displacements\n    greatest 0.508922354 at node 7 (60, 0, 60)\n",
             ", -0.497248)\n  stresses\n    Mises         612.824464 at node 1025 (",
         })
        EXPECT_THAT(child.out, HasSubstr(answer));
    // The other way round the block travels up; across, the two miss each other.
    EXPECT_THAT(Run(bracket, {"--direction", "0", "0", "2"}).out, HasSubstr("body 2 to body 1: 0.75, at ("));
    EXPECT_THAT(Run(bracket, {"--direction", "0", "1", "0"}).out, HasSubstr("body 1 to body 2: none"));
}

TEST_F(StressReport, ProbesMergesAndFindsBodies) {
    // Two triangles that share the places of two nodes but not the nodes, and one far above them.
    std::string text = "    1C\n    2C                             9                                     0\n";
    const char* const nodes[] = {" 0.00000E+00 0.00000E+00 0.00000E+00", " 4.00000E+00 0.00000E+00 0.00000E+00",
                                 " 0.00000E+00 4.00000E+00 0.00000E+00", " 4.00000E+00 0.00000E+00 0.00000E+00",
                                 " 0.00000E+00 4.00000E+00 0.00000E+00", " 4.00000E+00 4.00000E+00 0.00000E+00",
                                 " 1.00000E+00 1.00000E+00 2.50000E+00", " 2.00000E+00 1.00000E+00 2.50000E+00",
                                 " 1.00000E+00 2.00000E+00 1.25000E+00"};
    for (int i = 0; i < 9; ++i) text += " -1    " + std::string(1, static_cast<char>('1' + i)) + nodes[i] + "\n";
    text += " -3\n    3C                             3                                     0\n";
    for (const char* element : {"1    7    0    1\n -2    7    8    9", "2    7    0    1\n -2    1    2    3",
                                "3    7    0    1\n -2    4    5    6"})
        text += std::string(" -1    ") + element + "\n";
    const ChildResult child = RunText(text + " -3\n 9999\n", {"--probe", "4", "5", "0.5", "--probe", "1", "1", "2.5",
                                                              "--direction", "0", "0", "-1e-300"});
    EXPECT_EQ(child.exitCode, 0) << child.err;
    EXPECT_THAT(child.out, HasSubstr("merged: 2\n  body 1: 1 triangles of skin, (1, 1, 1.25) to (2, 2, 2.5)\n"
                                     "  body 2: 2 triangles of skin, (0, 0, 0) to (4, 4, 0)\n"));
    EXPECT_THAT(child.out, HasSubstr("body 1 to body 2: 1.25, at (1, 2, 0)\n"));
    EXPECT_THAT(child.out,
                HasSubstr("probe (4, 5, 0.5): node 6, 1.11803399 away\n  probe (1, 1, 2.5): node 7, 0 away"));
}

TEST_F(StressReport, RefusesWhatIsNoWholeResultFile) {
    const std::string whole = Content(bracket);
    ASSERT_EQ(whole.size(), 787405U);
    // Within header, nodes, elements, headers of results, their values, and just before the end mark is complete.
    for (const std::size_t size : {0UL, 5UL, 100UL, 800UL, 60000UL, 92000UL, 92130UL, 150000UL, 180000UL, 400001UL,
                                   787390UL, 787399UL, 787403UL})
        ExpectRefused(RunText(whole.substr(0, size)), "case.frd: ");
    ExpectRefused(RunText(Content(bracket.parent_path() / "bracket.inp")), "not a result file");
    ExpectRefused(RunText(std::string("    1C\n\x1b[2J\n")), "line 2: not text");
    ExpectRefused(Run(folder / "absent.frd"), "cannot be opened");
    ExpectRefused(Run(folder), "cannot be opened");
}

TEST_F(StressReport, ReadsColumnsAndNotWords) {
    const ChildResult plain = RunText(deck);
    EXPECT_EQ(plain.exitCode, 0);
    EXPECT_EQ(plain.err, "note: there are no stresses\n");
    EXPECT_THAT(plain.out, HasSubstr("1 two-node lines, material 2\n"));
    EXPECT_THAT(plain.out, HasSubstr("extents   (-1, -2, -3) to (1, 2, 5)\n"));
    EXPECT_THAT(plain.out, HasSubstr("Set 7, time 1.5\n  displacements\n    greatest 0.3 at node 1 (-1, -2, -3)\n"));
    EXPECT_EQ(RunText(EachReplaced(deck, "\n", "\r\n")).out, plain.out);

    // Numbers as Fortran may print them: an exponent of three digits, too small for a double, D for E.
    const std::string first = "-1.00000E-01-2.00000E-01-2.00000E-01", second = " 0.00000E+00 0.00000E+00-2.50000E-01";
    const std::string odd = Replaced(Replaced(deck, first, "  1.0000-100 1.0000-4000 3.00000D-01"), second,
                                     "         NaN************    Infinity");
    EXPECT_THAT(RunText(odd).out, HasSubstr("greatest 0.3 at node 1 (-1, -2, -3)\n    by       (1e-100, 0, 0.3)\n"));
    const std::string none = Replaced(Replaced(deck, first, "         NaN 0.00000E+00 0.00000E+00"), second,
                                      "         NAN        -INF************");
    EXPECT_THAT(RunText(none).out, HasSubstr("no displacement that is a number"));
}

TEST_F(StressReport, SkipsWhatItDoesNotKnowWithANote) {
    std::string text = Replaced(deck, "    1C\n", "    1C\n  777X something\n -1    1 1.0\n -9 else\n -3\n  778Y\n");
    text = Replaced(text, "3C                             1", "3C                             2");
    text = Replaced(text, " -2    1    9\n", " -2    1    9\n -1    5   99    0    2\n -2    1    9    1\n");
    text = Replaced(text, "  100CL    7 1.50000E+00           2",
                    "  100CL    7 1.50000E+00           1                     0    1           0\n"
                    " -4  STRESS      1    3\n"
                    " -5  SXX         1    4    1    1\n"
                    " -1    4    1 1.00000E+00\n"
                    " -3\n"
                    "  100CL    7 1.50000E+00           3");
    text = Replaced(text, " -3\n 9999", " -1   55 9.00000E+00 9.00000E+00 9.00000E+00\n -3\n 9999");
    const ChildResult child = RunText(text);
    EXPECT_EQ(child.exitCode, 0);
    EXPECT_EQ(child.out, RunText(deck).out);
    EXPECT_EQ(child.ErrorLines(), 6) << child.err;
    for (const char* note : {"line 2: unknown block \"777X\"", "line 6: unknown block \"778Y\"", "unknown type 99",
                             "STRESS of set 7 is not given at nodes", "DISP of set 7: 1 values at nodes"})
        EXPECT_THAT(child.err, HasSubstr(note));
}

TEST_F(StressReport, RefusesFilesThatContradictThemselves) {
    const std::tuple<const char*, const char*, const char*> damages[] = {
        {"    1C\n", "    1C \x7F\n", "line 1: not text"},
        {"-2.00000E+00-3.0", "-2.00000E+0x-3.0", "line 3: \"-2.00000E+0x\" is not a number"},
        {"-3.00000E+00\n", "\n", "line 3: no number in columns 33 to 44"},
        {" 5.00000E+00\n", " 5.00000E+0\n", "line 4: no number in columns 33 to 44"},
        {" 5.00000E+00\n", "    Infinity\n", "line 4: a node at no finite place"},
        {" -1    9 1.0", " -1    1 1.0", "node 1 appears twice"},
        {" -1    9 1.0", " -1  9 9 1.0", "\"9 9\" is not a whole number"},
        {"   2                                     0\n", "   1                                     0\n",
         "1 announced, 2"},
        {"   1                                     0\n", "  -1                                     0\n",
         "-1 announced"},
        {" -2    1    9\n", " -2    1\n", "line 7: an element with 1 nodes instead of 2"},
        {" -2    1    9\n", " -2    1    8\n", "there is no node 8"},
        {"   0\n -4  DISP", "   3\n -4  DISP", "binary"},
        {"   0\n -4  DISP", "   8\n -4  DISP", "unknown format 8"},
        {"DISP        4", "DISP        5", "components announced and listed differ"},
        {" -1    9 0.0", " -2    9 0.0", "line 17: neither a result"},
        {"-2.50000E-01\n", "\n", "line 17: no number"},
        {"           2                     0    1", "           3                     0    1", "3 announced, 2 found"},
        {" 9999\n", "", "ends early"},
    };
    for (const auto& [from, to, reason] : damages) ExpectRefused(RunText(Replaced(deck, from, to)), reason);
}

TEST_F(StressReport, RefusesWhatItCannotDoAndWritesNothing) {
    std::ofstream(In("case.frd"), std::ios::binary) << deck;
    const std::string csv = In("t.csv"), results = In("case.frd");
    const std::pair<Arguments, const char*> calls[] = {
        {{}, "either RESULTS or --load"},
        {{results, "--load", results}, "either RESULTS or --load"},
        {{results, results}, "not expected"},
        {{"--load", results}, "not a saved model"},
        {{"--load", results, "--view", "top"}, "--view does not go with --load"},
        {{results, "--csv", csv, "--quantity", "mises"}, "case.frd: there are no stresses"},
        {{results, "--csv", csv, "--set", "8"}, "case.frd: there is no result set 8"},
        {{results, "--csv", csv, "--picture", In("t.jpg")}, "t.jpg does not end in .png, .svg or .pdf"},
        {{results, "--csv", csv, "--view", "behind"}, "--view: behind not in"},
        {{results, "--csv", csv, "--range", "2", "2"}, "LOW is not below HIGH"},
        {{results, "--csv", csv, "--deform", "nan"}, "nan is not a finite number"},
        {{results, "--csv", csv, "--picture", In("t.png"), "--deform", "1e99"}, "too large to be drawn"},
        {{results, "--csv", csv, "--probe", "1", "2"}, "--probe"},
        {{results, "--csv", csv, "--direction", "0", "0", "0"}, "has no length"},
        {{results, "--csv", csv, "--save", In("absent/t.orv")}, "absent/t.orv: cannot be written"},
        {{results, "--csv", csv, "--save", folder.string()}, "is not a file"},
        {{results, "--csv", csv, "--save", "/dev/null"}, "/dev/null: is there and is not a file"},
        {{results, "--csv", csv, "--save", csv}, "is to be written twice"},
        {{results, "--csv", csv, "--save", csv + ".part"}, "is to be written twice"},
        {{results, "--csv", csv, "--picture", In("t.png"), "--zoom", "nan"}, "nan is not a finite number"},
        {{results, "--csv", csv, "--limit", "400"}, "--limit: there are no stresses"},
        {{results, "--csv", results}, "case.frd: would be overwritten"},
    };
    for (const auto& [arguments, reason] : calls) {
        Arguments call{program};
        call.insert(call.end(), arguments.begin(), arguments.end());
        ExpectRefused(RunProgram(call), reason);
    }
    EXPECT_EQ(Content(results), deck);
    EXPECT_THAT(RunProgram({program, "--help"}).out, HasSubstr("--picture FILE"));
    std::ofstream(csv) << "old";
    fs::permissions(csv, fs::perms::owner_read | fs::perms::owner_write);
    fs::create_symlink("t.csv", In("link.csv"));
    EXPECT_EQ(Run(results, {"--csv", In("link.csv")}).exitCode, 0);
    EXPECT_TRUE(fs::is_symlink(In("link.csv")));
    EXPECT_EQ(fs::status(csv).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_THAT(Content(csv), EndsWith("\n9,1,2,5,0,0,-0.25,,,,,,,,,,,,,,\n"));
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), fs::directory_iterator()), 3);
}

TEST_F(StressReport, TakesNamesOfAnyBytes) {
    const std::string odd = In("br\xE4\x1B\xE2\x82\xAC.frd"), model = In("case.orv"), picture = In("t.png");
    std::ofstream(odd, std::ios::binary) << EachReplaced(Content(bracket), "STEEL", "ST\tEL");
    const ChildResult made = Run(odd, {"--save", model, "--picture", picture, "--unit", "N\xFF"});
    EXPECT_THAT(made.out, HasSubstr("br\xEF\xBF\xBD?\xE2\x82\xAC.frd\n"));
    EXPECT_EQ(made.exitCode, 0) << made.err;
    const std::string drawn = Content(picture);
    const ChildResult loaded = RunProgram({program, "--load", model, "--picture", picture});
    EXPECT_EQ(loaded.exitCode, 0) << loaded.err;
    EXPECT_TRUE(Content(picture) == drawn);
}

TEST_F(StressReport, StopsCleanlyWhenInterrupted) {
    // The program waits for the end of the pipe and so is at work when the signal comes.
    const std::string pipe = In("case.fifo");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const ChildResult child = RunInChild([&] {
        const pid_t worker = fork();
        if (worker == 0) execl(program.c_str(), "stress_report", pipe.c_str(), "--csv", In("t.csv").c_str(), nullptr);
        std::ofstream end(pipe, std::ios::binary);  // waits until the worker reads
        end << deck;
        kill(worker, SIGINT);
        end.close();
        int status = 0;
        waitpid(worker, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : 1;
    });
    EXPECT_EQ(child.exitCode, 130);
    EXPECT_EQ(child.err, "stress_report: interrupted\n");
    EXPECT_EQ(child.out, "");
    EXPECT_FALSE(fs::exists(In("t.csv")));
}

// ---- Saved models

TEST_F(StressReport, LoadsWhatItSavedAndDrawsTheSame) {
    const Arguments looks[] = {
        {"--set", "102", "--picture", In("1.png")},
        {"--set", "101", "--picture", In("1.svg"), "--view", "front", "--perspective", "--zoom", "2", "--quantity",
         "min-principal"},
        {"--set", "101", "--picture", In("1.svg"), "--quantity", "displacement", "--deform", "20", "--size", "640",
         "480", "--no-edges", "--bands", "8", "--unit", "millimetres", "--range", "0.1", "0.3"},
    };
    for (const Arguments& look : looks) {
        const std::string type = fs::path(look[3]).extension();
        Arguments options = look;
        options.insert(options.end(), {"--save", In("1.orv"), "--csv", In("1.csv")});
        const ChildResult saved = Run(bracket, options);
        EXPECT_EQ(saved.exitCode, 0) << saved.err;
        const ChildResult loaded = RunProgram({program, "--load", In("1.orv"), look[0], look[1], "--picture",
                                               In("2") + type, "--save", In("2.orv"), "--csv", In("2.csv")});
        EXPECT_EQ(loaded.exitCode, 0) << loaded.err;
        for (const std::string& file : {type, std::string(".orv"), std::string(".csv")}) {
            EXPECT_GT(Content(In("1") + file).size(), 20'000U) << "a picture of nothing is small";
            EXPECT_TRUE(Content(In("1") + file) == Content(In("2") + file)) << file;
        }
        EXPECT_EQ(loaded.out.substr(loaded.out.find('\n')), saved.out.substr(saved.out.find('\n')));
    }
    const ChildResult dump = RunProgram({ORV_PROGRAM_DIR "/memento_dump", In("1.orv")});
    EXPECT_EQ(dump.exitCode, 0);
    EXPECT_THAT(dump.out, StartsWith("00000000  host_SavedModel"));
    EXPECT_THAT(dump.out, HasSubstr("  host_SavedScene"));
}

TEST_F(StressReport, KeepsTheLimitOfTheStress) {
    const std::string model = In("case.orv");
    ExpectRefused(Run(bracket, {"--limit", "0"}), "--limit: the limit is not a finite number above 0");
    for (const char* none : {"350 MPa", "UNCHANGED", "SET"})
        ExpectRefused(Run(bracket, {"--limit", none}), "--limit: stress_report");
    ASSERT_EQ(Run(bracket, {"--limit", "400", "--save", model}).exitCode, 0);
    const std::pair<Arguments, std::string> loadings[] = {
        {{}, "(UNCHANGED), nodes above 24, greatest utilisation 1.14096282\n"},
        {{"--limit", "456.3851"}, "456.3851 (SET), nodes above 1,"},
        {{"--limit", "FREED"}, ""},
    };
    for (const auto& [options, told] : loadings) {
        Arguments call{program, "--load", model};
        call.insert(call.end(), options.begin(), options.end());
        const ChildResult child = RunProgram(call);
        EXPECT_EQ(child.exitCode, 0) << child.err;
        EXPECT_EQ(child.out.find("allowable") == std::string::npos, told.empty());
        EXPECT_THAT(child.out, HasSubstr(told));
    }
}

/// `bytes` with the sum of all before the last four in these.
std::string Sealed(std::string bytes) {
    std::uint32_t sum = 0x811C9DC5U;
    constexpr std::size_t seal = 13;
    for (std::size_t i = 0; i + seal < bytes.size(); ++i)
        sum = (sum ^ static_cast<unsigned char>(bytes[i])) * 0x01000193U;
    std::memcpy(&bytes[bytes.size() - sizeof sum], &sum, sizeof sum);
    return bytes;
}

TEST_F(StressReport, TakesAnyBytesForASavedModel) {
    ASSERT_EQ(RunText(deck, {"--save", In("case.orv")}).exitCode, 0);
    const std::string whole = Content(In("case.orv"));
    EXPECT_EQ(Sealed(whole), whole);
    std::mt19937_64 random(8);
    int refused = 0;
    constexpr int count = 100;
    for (int i = 0; i < count; ++i) {
        SCOPED_TRACE("case " + std::to_string(i) + " of seed 8");
        std::string bytes = whole;
        bytes[random() % bytes.size()] ^= static_cast<char>(1 + random() % 255);
        if (i % 4 == 0) bytes.erase(random() % whole.size(), 1 + random() % 40);
        const auto load = [&](const std::string& damaged) {
            std::ofstream(In("case.bad"), std::ios::binary) << damaged;
            return RunProgram({program, "--load", In("case.bad"), "--csv", In("t.csv")});
        };
        ExpectRefused(load(bytes), "not a saved model, or a damaged one");
        const ChildResult forged = load(Sealed(bytes));
        ASSERT_THAT(forged.exitCode, AnyOf(0, 2)) << forged.err;
        if (forged.exitCode == 2) ++refused;
        fs::remove(In("t.csv"));
    }
    EXPECT_GT(refused, count / 4);
}

// ---- Element types

struct ElementCase {
    int type;
    const char* corners;  ///< coordinates, three digits each
    const char* edges;    ///< of the midside nodes, by corners from 1
    int faces;
    double volume;
};

/// The values of the last list of so many on a stream of which the identifier is known.
template <class T>
std::vector<T> LastList(const std::string& stream, char code, int fromTheEnd) {
    const std::string header{code, 1, 0x23, 0, 1, 0, 0, 0, 0};
    std::size_t at = std::string::npos;
    for (int i = 0; i < fromTheEnd; ++i) at = stream.rfind(header, at - 1);
    int count = 0;
    std::memcpy(&count, &stream.at(at + header.size()), sizeof count);
    std::vector<T> values(static_cast<std::size_t>(count));
    std::memcpy(values.data(), stream.data() + at + header.size() + 8, values.size() * sizeof(T));
    return values;
}

TEST_F(StressReport, KnowsEachTypeOfElement) {
    const char *const brick = "000 200 220 020 002 202 222 022", *const wedge = "000 200 020 002 202 022",
                      *const tet = "000 200 020 002", *const flat = "000 200 220 020",
                      *const brickEdges = "12 23 34 41 15 26 37 48 56 67 78 85";
    for (const ElementCase& element : {ElementCase{1, brick, "", 6, 8.0},
                                       {2, wedge, "", 5, 4.0},
                                       {3, tet, "", 4, 8.0 / 6.0},
                                       {4, brick, brickEdges, 6, 8.0},
                                       {5, wedge, "12 23 31 14 25 36 45 56 64", 5, 4.0},
                                       {6, tet, "12 23 31 14 24 34", 4, 8.0 / 6.0},
                                       {7, "000 200 020", "", 1, 0.0},
                                       {8, "000 200 020", "12 23 31", 1, 0.0},
                                       {9, flat, "", 1, 0.0},
                                       {10, flat, "12 23 34 41", 1, 0.0},
                                       {11, "000 200", "", 1, 0.0},
                                       {12, "000 200", "12", 1, 0.0}}) {
        SCOPED_TRACE(element.type);
        std::vector<std::array<double, 3>> nodes;
        std::istringstream corners(element.corners), edges(element.edges);
        for (std::string word; corners >> word;) nodes.push_back({word[0] - 48.0, word[1] - 48.0, word[2] - 48.0});
        for (std::string word; edges >> word;) {
            const auto a = nodes.at(word[0] - 49U), b = nodes.at(word[1] - 49U);
            nodes.push_back({(a[0] + b[0]) / 2, (a[1] + b[1]) / 2, (a[2] + b[2]) / 2});
        }
        const int count = static_cast<int>(nodes.size());
        char line[200];
        std::snprintf(line, sizeof line, "    1C\n    2C%30d%38d\n", count, 1);
        std::string text = line;
        for (int i = 0; i < count; ++i) {
            const auto& [x, y, z] = nodes[static_cast<std::size_t>(i)];
            std::snprintf(line, sizeof line, " -1%10d%12.5E%12.5E%12.5E\n", i + 1, x, y, z);
            text += line;
        }
        std::snprintf(line, sizeof line, " -3\n    3C%30d%38d\n -1%10d%5d    0    1", 1, 1, 1, element.type);
        text += line;
        for (int i = 0; i < count; ++i) {
            std::snprintf(line, sizeof line, "%s%10d", i % 10 == 0 ? "\n -2" : "", i + 1);
            text += line;
        }
        const ChildResult child = RunText(text + "\n -3\n 9999\n", {"--save", In("t.orv"), "--picture", In("t.png")});
        ASSERT_EQ(child.exitCode, 0) << child.err;

        // The faces as they are kept for drawing: midside nodes between their corners, all turned outwards.
        const std::string stream = Content(In("t.orv"));
        const auto sizes = LastList<int>(stream, 0x36, 1), places = LastList<int>(stream, 0x36, 3);
        EXPECT_EQ(sizes.size(), static_cast<std::size_t>(element.faces));
        const std::size_t step = *element.edges == 0 ? 1 : 2;
        double volume = 0.0;
        auto face = places.begin();
        for (const int size : sizes) {
            std::vector<std::array<double, 3>> p;
            for (int i = 0; i < size; ++i) p.push_back(nodes.at(static_cast<std::size_t>(*face++)));
            for (std::size_t i = 1; step == 2 && i < p.size(); i += 2)
                for (std::size_t k = 0; k < 3; ++k)
                    EXPECT_EQ(p[i][k], (p[i - 1][k] + p[(i + 1) % p.size()][k]) / 2) << "face of " << size;
            for (std::size_t i = 2 * step; i < p.size(); i += step) {
                const auto &a = p[0], &b = p[i - step], &c = p[i];
                volume += (a[0] * (b[1] * c[2] - b[2] * c[1]) - a[1] * (b[0] * c[2] - b[2] * c[0]) +
                           a[2] * (b[0] * c[1] - b[1] * c[0])) /
                          6.0;
            }
        }
        EXPECT_EQ(face, places.end());
        EXPECT_NEAR(volume, element.volume, 1e-12);
    }
}

// ---- The table

/// Numbers of the data lines of the first block behind `mark`, by node, read by columns.
std::map<int, std::vector<double>> Block(const std::string& text, const std::string& mark, std::size_t columns) {
    std::map<int, std::vector<double>> rows;
    std::istringstream in(text.substr(text.find(mark)));
    for (std::string line; std::getline(in, line) && !line.starts_with(" -3");) {
        if (!line.starts_with(" -1")) continue;
        auto& row = rows[std::stoi(line.substr(3, 10))];
        for (std::size_t i = 0; i < columns; ++i) row.push_back(std::stod(line.substr(13 + 12 * i, 12)));
    }
    return rows;
}

TEST_F(StressReport, TablesWhatStandsInTheFile) {
    ASSERT_EQ(Run(bracket, {"--csv", In("t.csv"), "--set", "101"}).exitCode, 0);
    const std::string text = Content(bracket);
    auto positions = Block(text, "\n    2C", 3), displacements = Block(text, "\n -4  DISP", 3),
         stresses = Block(text, "\n -4  STRESS", 6);
    std::istringstream table(Content(In("t.csv")));
    std::string line;
    std::getline(table, line);
    EXPECT_EQ(line, "node,x,y,z,ux,uy,uz,mises,tresca,s1,s2,s3,n1x,n1y,n1z,n2x,n2y,n2z,n3x,n3y,n3z");
    int rows = 0;
    for (; std::getline(table, line); ++rows) {
        SCOPED_TRACE(line);
        std::istringstream fields(line);
        std::vector<double> f;
        for (std::string field; std::getline(fields, field, ',');) f.push_back(std::stod(field));
        ASSERT_EQ(f.size(), 21U);
        const int node = static_cast<int>(f[0]);
        EXPECT_EQ(std::vector<double>(&f[1], &f[4]), positions[node]);
        EXPECT_EQ(std::vector<double>(&f[4], &f[7]), displacements[node]);
        const auto& t = stresses[node];  // xx yy zz xy yz zx
        const double s[3][3] = {{t[0], t[3], t[5]}, {t[3], t[1], t[4]}, {t[5], t[4], t[2]}};
        const double mises = std::sqrt(
            ((t[0] - t[1]) * (t[0] - t[1]) + (t[1] - t[2]) * (t[1] - t[2]) + (t[2] - t[0]) * (t[2] - t[0])) / 2 +
            3 * (t[3] * t[3] + t[4] * t[4] + t[5] * t[5]));
        const double tolerance = 1e-7 * (1.0 + mises + std::abs(t[0] + t[1] + t[2]));
        EXPECT_NEAR(f[7], mises, tolerance);
        EXPECT_NEAR(f[8], f[9] - f[11], tolerance);
        EXPECT_GE(f[9], f[10]);
        EXPECT_GE(f[10], f[11]);
        for (std::size_t i = 0; i < 3; ++i) {  // S n = s n, |n| = 1
            const double* const n = &f[12 + 3 * i];
            EXPECT_NEAR(n[0] * n[0] + n[1] * n[1] + n[2] * n[2], 1.0, 1e-8);
            for (std::size_t k = 0; k < 3; ++k)
                EXPECT_NEAR(s[k][0] * n[0] + s[k][1] * n[1] + s[k][2] * n[2], f[9 + i] * n[k], 10 * tolerance);
        }
    }
    EXPECT_EQ(rows, 1803);
}

}  // namespace
