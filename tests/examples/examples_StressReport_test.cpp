// Protects the example host as its user meets it: the answers for the bracket, what it makes of odd, wrong and damaged
// result files, and that it never spoils a file.

#include <support/ChildProcess.h>

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>

namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

const std::string program = ORV_PROGRAM_DIR "/stress_report";
const fs::path bracket = fs::path(ORV_SOURCE_DIR) / "examples/data/bracket.frd";

std::string Content(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// A folder of its own for each test, gone afterwards.
class StressReport : public testing::Test {
protected:
    StressReport() {
        std::string pattern = (fs::temp_directory_path() / "stress_report_XXXXXX").string();
        folder = mkdtemp(pattern.data());
        stream = folder / "points.stream";
    }
    ~StressReport() override { fs::remove_all(folder); }

    ChildResult Run(const fs::path& results) const {
        return RunProgram({program, results.string(), "--stream", stream.string()});
    }

    ChildResult RunText(const std::string& text) const {
        const fs::path path = folder / "case.frd";
        std::ofstream(path, std::ios::binary) << text;
        return Run(path);
    }

    void ExpectRefused(const ChildResult& child, const std::string& reason) const {
        SCOPED_TRACE(reason + "; instead: " + child.err);
        EXPECT_EQ(child.exitCode, 2);
        EXPECT_EQ(child.ErrorLines(), 1);
        EXPECT_THAT(child.err, HasSubstr(reason));
        EXPECT_EQ(child.out, "");
        EXPECT_FALSE(fs::exists(stream));
    }

    fs::path folder;
    fs::path stream;
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
             "set 101, time 1\n    greatest 0.498831766 at node 185 (60, 10, 60)\n",
             ", -0.496287)\n",
             "set 102, time 2\n    greatest 0.508922354 at node 7 (60, 0, 60)\n",
             ", -0.497248)\n",
             "set 101\n    Mises         456.385127 at node 1025 (",
             "set 102\n    Mises         612.824464 at node 1025 (",
             "coincident nodes merged: 0\n  body 1: 606 triangles of skin\n  body 2: 160 triangles of skin\n",
             "undeformed\n    body 1 to body 2: 0.75, at (",
             "deformed by set 101\n    body 1 to body 2: 0.301001748, at (56, 11.983",
             "A camera from (1, 1, 1), fitted\n  view orientation\n(-0.707106",
             "1 matrix, 16 annotations and 1803 points\n  read back identical",
         })
        EXPECT_THAT(child.out, HasSubstr(answer));
    EXPECT_FALSE(fs::exists(stream.string() + ".part"));

    const ChildResult dump = RunProgram({ORV_PROGRAM_DIR "/memento_dump", stream.string()});
    EXPECT_EQ(dump.exitCode, 0);
    EXPECT_THAT(dump.out, StartsWith("00000000  gsl_Matrix"));
    EXPECT_EQ(EachReplaced(dump.out, "gsl_Point", "gsl_Point.").size() - dump.out.size(), 1803U);
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
    const fs::path results = folder / "case.frd";
    std::ofstream(results, std::ios::binary) << text + " -3\n 9999\n";
    const ChildResult child = RunProgram({program, results.string(), "--stream", stream.string(), "--probe", "4", "5",
                                          "0.5", "--probe", "1", "1", "2.5"});
    EXPECT_EQ(child.exitCode, 0) << child.err;
    EXPECT_THAT(child.out, HasSubstr("merged: 2\n  body 1: 1 triangles of skin\n  body 2: 2 triangles of skin\n"));
    EXPECT_THAT(child.out, HasSubstr("body 1 to body 2: 1.25, at (1, 2, 0)\n"));
    EXPECT_THAT(child.out,
                HasSubstr("probe (4, 5, 0.5): node 6, 1.11803399 away\n  probe (1, 1, 2.5): node 7, 0 away"));
}

TEST_F(StressReport, DrawsWhatTheFittedCameraSees) {
    const fs::path picture = folder / "bracket.png";
    const ChildResult child =
        RunProgram({program, bracket.string(), "--stream", stream.string(), "--picture", picture.string()});
    EXPECT_EQ(child.exitCode, 0) << child.err;
    EXPECT_THAT(child.out, HasSubstr("  projection\n(0.0236437"));
    const std::string png = Content(picture);
    EXPECT_THAT(png, StartsWith(std::string("\x89PNG\r\n\x1a\n\0\0\0\rIHDR\0\0\x03\xC0\0\0\x02\xD0", 24)));
    EXPECT_GT(png.size(), 20'000U) << "a picture of nothing is small";
    EXPECT_EQ(RunProgram({program, bracket.string(), "--picture", bracket.string()}).exitCode, 1);
    EXPECT_EQ(Content(bracket).size(), 787405U);
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
    EXPECT_EQ(plain.err, "");
    EXPECT_THAT(plain.out, HasSubstr("1 two-node lines, material 2\n"));
    EXPECT_THAT(plain.out, HasSubstr("extents   (-1, -2, -3) to (1, 2, 5)\n"));
    EXPECT_THAT(plain.out, HasSubstr("set 7, time 1.5\n    greatest 0.3 at node 1 (-1, -2, -3)\n"));
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
    EXPECT_EQ(child.ErrorLines(), 5) << child.err;
    for (const char* note : {"line 2: unknown block \"777X\"", "line 6: unknown block \"778Y\"", "unknown type 99",
                             "STRESS of set 7 is not given at nodes", "DISP of set 7: 1 values at nodes"})
        EXPECT_THAT(child.err, HasSubstr(note));
}

TEST_F(StressReport, RefusesFilesThatContradictThemselves) {
    const std::tuple<const char*, const char*, const char*> damages[] = {
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

TEST_F(StressReport, LeavesOtherFilesAlone) {
    const fs::path results = folder / "case.frd";
    std::ofstream(results, std::ios::binary) << deck;
    for (const fs::path& target : {results, folder, folder / "absent/points.stream", fs::path("/dev/null")}) {
        const ChildResult child = RunProgram({program, results.string(), "--stream", target.string()});
        EXPECT_EQ(child.exitCode, 1) << target;
        EXPECT_EQ(child.ErrorLines(), 1) << child.err;
    }
    EXPECT_EQ(Content(results), deck);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), fs::directory_iterator()), 1);
    std::ofstream(stream) << "old";
    EXPECT_EQ(Run(results).exitCode, 0);
    EXPECT_THAT(Content(stream), Not(HasSubstr("old")));
    EXPECT_EQ(RunProgram({ORV_PROGRAM_DIR "/memento_dump", results.string()}).exitCode, 2);

    using Arguments = std::vector<std::string>;
    for (const Arguments& call : {Arguments{program},
                                  {program, "a.frd", "b.frd"},
                                  {program, "a.frd", "--stream"},
                                  {program, "a.frd", "--probe", "1", "2", "x"}}) {
        const ChildResult child = RunProgram(call);
        EXPECT_EQ(child.exitCode, 1);
        EXPECT_THAT(child.err, StartsWith("usage: "));
    }
}

}  // namespace
