// Protects how a command reads its arguments: the protocol of reads, optional sections, withdrawals and closing,
// against a model of its own; what each type of target reads and how a refusal is told; and the reads of deprecated
// arguments.

#include <support/ChildProcess.h>
#include <support/values.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <sstream>

/// A target of a bridge, for which nothing is right.
struct Undetermined {};
[[nodiscard]] static bool omu_TakeArgument(const omu_Primitive&, Undetermined&) { return false; }
template <>
inline constexpr const char* omu_ExpectedName<Undetermined> = "Undetermined";

namespace {

/// Index of the class, and message, of what `End` throws; empty when it throws nothing.
std::string Ended(omu_Arguments& arguments, const char* command = "") {
    try {
        arguments.End(command);
        return "";
    } catch (const nex_CommandException& thrown) {
        EXPECT_STREQ(thrown.PythonType(), "TypeError");
        return std::to_string(thrown.DynTypeId() - 0x130000) + " " + thrown.what();
    }
}

// ---- The protocol

/// The rules of reading over plain texts. A value is its kind and its text: "i7" int, "h7" short, "f7" double, "s7"
/// string, "cON" enumeration, "-" nothing. A target is 'i', 'f', or 'b' for bool.
struct Model {
    int room = 0;
    std::vector<std::string> put, unread;
    std::map<std::string, std::string> supplied;
    std::map<char, std::string> targets = {{'b', "OFF"}, {'f', "-1"}, {'i', "-1"}};
    int cursor = 0, reads = 0, arguments = 0, required = 0, error = 0;
    int keywordsRequired = 0, requiredError = 0, optionalError = 0;
    bool optional = false, previous = false;
    std::string found, expected, keyword;

    [[nodiscard]] int Size() const { return std::max(room, static_cast<int>(put.size())); }
    [[nodiscard]] int Given() const { return Size() + static_cast<int>(supplied.size()); }
    [[nodiscard]] int Consumed() const { return Size() + keywordsRequired; }

    void Begin() {
        cursor = reads = arguments = required = error = keywordsRequired = requiredError = optionalError = 0;
        optional = previous = false;
        found = expected = keyword = "";
        unread.clear();
        for (const auto& [name, value] : supplied) unread.push_back(name);
    }
    void Count(int change) {
        reads += change;
        arguments += change;
        required += optional ? 0 : change;
    }
    bool Take(const std::string& value, char target) {
        const bool fits = target == 'b' ? value == "cON" || value == "cOFF" : value[0] == target;
        if (fits) {
            targets[target] = value.substr(1);
        } else {
            found = value[0] == 'c' ? value.substr(1) : Name(value[0]);
            expected = Name(target);
        }
        previous = !fits;
        return fits;
    }
    static std::string Name(char kind) {
        if (kind == 'i' || kind == 'h') return "int";
        return kind == 'f' ? "float" : kind == 's' ? "string" : kind == 'b' ? "Boolean" : "None";
    }
    void Get(char target) {
        previous = false;
        const auto i = static_cast<std::size_t>(cursor);
        if (cursor < Size() && error == 0 && !Take(i < put.size() ? put[i] : "-", target)) error = cursor + 1;
        ++cursor;
        Count(1);
    }
    void Get(char target, const std::string& name) {
        if (error == 0 && cursor < Size()) return Get(target);
        previous = false;
        const auto at = std::find(unread.begin(), unread.end(), name);
        if (error == 0 && at != unread.end() && !Take(supplied[name], target)) {
            error = requiredError = reads + 1;
            keyword = name;
        } else if (error == 0 && supplied.count(name) == 0) {
            found = expected = "Undetermined";
            keyword = name;
            previous = true;
            (optional ? optionalError : requiredError) = reads + 1;
            error = optional ? 0 : reads + 1;
        }
        Count(1);
        if (at == unread.end()) return;
        unread.erase(at);
        keywordsRequired += optional ? 0 : 1;
    }
    bool Alternative() {
        if (reads > 0 && (requiredError == reads || optionalError == reads)) {
            if (supplied.count(keyword) != 0) {
                unread.push_back(keyword);
                keywordsRequired -= optional ? 0 : 1;
            }
            keyword = "";
            requiredError = optionalError = 0;
        } else {
            if (requiredError != 0 || reads > Size() || error == 0 || error != cursor) return false;
            --cursor;
        }
        Count(-1);
        error = 0;
        found = expected = "";
        previous = false;
        return true;
    }
    [[nodiscard]] std::string End(const std::string& command) const {
        const std::string types = "; found " + found + ", expecting " + expected;
        const std::string prefix = command.empty() ? "" : command + "; ";
        if (!unread.empty()) return "5 " + command + "keyword error on " + unread[0];
        if (error != 0 && keyword.empty() && command.empty()) return "3 arg" + std::to_string(error) + types;
        if (error != 0 && keyword.empty()) return "3 " + command + "[" + std::to_string(error - 1) + "]" + types;
        if (!keyword.empty() && found != "Undetermined" && expected != "Undetermined")
            return "2 " + (command.empty() ? keyword : command + "['" + keyword + "']") + types;
        if (Consumed() < required)
            return "4 " + prefix + "not all required arguments specified; expected " + std::to_string(required) +
                   ", got " + std::to_string(Consumed());
        if (Given() <= arguments) return "";
        return "4 " + prefix + "too many arguments; expected " + std::to_string(arguments) + ", got " +
               std::to_string(Given());
    }
    [[nodiscard]] std::string State(const std::string& command) const {
        std::ostringstream text;
        text << (!unread.empty() || error != 0 || Consumed() < required || Given() > arguments) << previous;
        for (const std::string& name : unread) text << ' ' << name;
        for (const auto& [kind, value] : targets) text << ' ' << value;
        text << " | " << End(command);
        return text.str();
    }
};

/// The same of the library.
struct Subject {
    std::unique_ptr<omu_Arguments> arguments;
    bool b = false;
    double f = -1.0;
    int i = -1;

    template <class... K>
    void Get(char target, const K&... keyword) {
        if (target == 'b') arguments->Get(b, keyword...);
        if (target == 'f') arguments->Get(f, keyword...);
        if (target == 'i') arguments->Get(i, keyword...);
    }
    static std::unique_ptr<omu_Primitive> Made(const std::string& value) {
        const std::string text = value.substr(1);
        if (value[0] == 'i') return omu_MakePrimitive(std::stoi(text));
        if (value[0] == 'h') return omu_MakePrimitive(static_cast<short>(std::stoi(text)));
        if (value[0] == 'f') return omu_MakePrimitive(std::stod(text));
        if (value[0] == 's') return omu_MakePrimitive(text.c_str());
        return value[0] == 'c' ? std::make_unique<omu_PrimEnumBase>(text.c_str()) : nullptr;
    }
    [[nodiscard]] std::string State(const std::string& command) const {
        std::ostringstream text;
        text << arguments->Error() << arguments->ErrorOnPrevious();
        for (const cow_String& name : arguments->UnreadKeywords()) text << ' ' << name.str();
        text << ' ' << (b ? "ON" : "OFF") << ' ' << f << ' ' << i;
        const std::unique_ptr<omu_Primitive> copy = arguments->Copy();
        text << " | " << Ended(dynamic_cast<omu_Arguments&>(*copy), command.c_str());
        return text.str();
    }
};

TEST(omu_Arguments, AreReadAsTheModelReadsThem) {
    std::map<char, int> ends;
    int withdrawn = 0;
    for (unsigned seed = 0; seed < 10'000; ++seed) {
        std::mt19937_64 engine(seed);
        const auto one = [&](const std::string& of) { return of[engine() % of.size()]; };
        Model model;
        model.room = one("00000123") - '0';
        Subject subject{std::make_unique<omu_Arguments>(model.room)};
        const std::string stored = one("01") == '0' ? "" : "Part";
        subject.arguments->SetCommand(stored.c_str());
        std::string log = "seed " + std::to_string(seed) + ", room " + std::to_string(model.room) + ":";

        // Put, put by keyword, begin, get, get by keyword, alternative, optional.
        std::string steps = std::string(engine() % 4, 'p') + std::string(engine() % 4, 'k') + one("BBBBBBBBBBBBB-");
        for (std::size_t more = engine() % 12; more > 0; --more) steps += one("GGGKKKKKKaooopkB");
        std::string name = "a";
        bool withdrew = false;
        for (char step : steps) {
            if (withdrew || (model.previous && one("01") == '0')) step = withdrew ? 'K' : 'a';
            const char target = one("iifb");
            if (step == 'k' || one("0123") == '0') name = one("abcd");  // else the same again
            static const char* const values[] = {"i1", "i2", "i3", "f1", "f2", "h1", "s1", "cON", "cOFF", "c%s", "-"};
            const std::string value = values[engine() % std::size(values)];
            log += std::string(" ") + step;
            if (step == 'G' || step == 'K') log += target;
            if (step == 'K' || step == 'k') log += name;
            if (step == 'p' || step == 'k') log += value;
            bool withdraws = withdrew = false;
            if (step == 'p') model.put.push_back(value), subject.arguments->Put(Subject::Made(value));
            if (step == 'k') model.supplied[name] = value, subject.arguments->Put(Subject::Made(value), name.c_str());
            if (step == 'B') model.Begin(), subject.arguments->Begin();
            if (step == 'G') model.Get(target), subject.Get(target);
            if (step == 'K') model.Get(target, name), subject.Get(target, name.c_str());
            if (step == 'a') withdraws = model.Alternative(), withdrew = subject.arguments->Alternative();
            if (step == 'o') model.optional = true, subject.arguments->Optional();

            withdrawn += withdrew ? 1 : 0;
            const std::string command = one("01") == '0' ? "" : "%s";
            const std::string expected = model.State(command.empty() ? stored : command);
            ASSERT_EQ(withdrew, withdraws) << log;
            ASSERT_EQ(subject.State(command), expected) << log;
            ++ends[expected.back() == ' ' ? '0' : expected[expected.find('|') + 2]];
            if (one("0123456789") == '0') subject.arguments = std::make_unique<omu_Arguments>(*subject.arguments);
        }
    }
    for (const char each : {'0', '2', '3', '4', '5'}) EXPECT_GT(ends[each], 500) << each;
    EXPECT_GT(withdrawn, 500);
}

// ---- What a target reads

template <class T>
std::string Show(const T& value) {
    if constexpr (std::is_same_v<T, omu_PrimNone>)
        return value.IsSet() ? "set" : "not set";
    else if constexpr (requires { value.AsString(); })
        return value.AsString().str();
    else
        return omu_MakePrimitive(value)->AsString().str();
}

/// What a target that holds `before` makes of the samples that it reads; all others are refused with an exact message
/// that names this type, and leave the target alone.
template <class T>
std::string Reads(const T& before, const std::string& expected) {
    std::string accepted[2];
    for (const Sample& each : Samples()) {
        SCOPED_TRACE(expected + " <- " + each.text);
        for (const bool byKeyword : {false, true}) {
            omu_Arguments arguments;
            T target = before;
            byKeyword ? arguments.Put(*each.value, "%d") : arguments.Put(*each.value);
            arguments.Begin();
            arguments.Get(target, "%d");
            const std::string end = Ended(arguments);
            if (end.empty()) {
                accepted[byKeyword] += " " + Show(target);
                continue;
            }
            const std::string found = each.type == 'c' ? each.text : each.typeString;
            EXPECT_EQ(end, (byKeyword ? "2 %d; found " : "3 arg1; found ") + found + ", expecting " + expected);
            EXPECT_EQ(Show(target), Show(before));
        }
    }
    EXPECT_EQ(accepted[0], accepted[1]);
    return accepted[0];
}

TEST(omu_Arguments, AreReadStrictlyByType) {
    EXPECT_EQ(Reads(static_cast<signed char>(1), "int"), " -5");
    EXPECT_EQ(Reads(short{1}, "int"), " -300");
    EXPECT_EQ(Reads(1, "int"), " 7");
    EXPECT_EQ(Reads(1U, "int"), " 4294967295");
    EXPECT_EQ(Reads(1.0F, "float"), " 0.5");
    EXPECT_EQ(Reads(1.0, "float"), " 2.5");
    for (const bool before : {false, true}) EXPECT_EQ(Reads(before, "Boolean"), " True True False");
    EXPECT_EQ(Reads(cow_String("-"), "string"), R"( "it's" '' 'text' '1."x')");
    EXPECT_EQ(Reads(OrvBasUtlFilePath("-"), "string"), R"( "it's" '' 'text' '1."x')");
    EXPECT_EQ(Reads(omu_VelmorName("-"), "string"), R"( it's  text 1."x)") << "not checked";
    EXPECT_EQ(Reads(atr_String("-"), "tran_string"), R"( 'a\n\\')");
    EXPECT_EQ(Reads(omi_complex(3.0), "complex"), " 1.5+2j");
    EXPECT_EQ(Reads(omu_PrimBool<2>(false), "OFF or ON"), " ON OFF");
    EXPECT_EQ(Reads(Kinds("SHORT"), "DOUBLE, FLOAT, INT, SCHAR, SHORT or UINT"), " INT UINT");
    EXPECT_EQ(Reads(omu_PrimEnumBase("INT"), "INT"), "") << "no list of permissible names";
    EXPECT_EQ(Reads(omu_PrimNone(), "None"), " set");
    EXPECT_EQ(Reads(omu_PrimType(""), "type"), " PartType Type");
}

TEST(omu_Arguments, AreReadAsAWholeOrNotAtAll) {
    EXPECT_EQ(Reads(cow_List<int>{9}, "tuple"), " () (1, 2) (3,) ()");
    EXPECT_EQ(Reads(cow_List<float>{9}, "tuple"), " () (0.5, 1.5) ()");
    EXPECT_EQ(Reads(cow_List<double>{9}, "tuple"), " () (2.5,) (2.0, 3.5) ()");
    EXPECT_EQ(Reads(cow_List<bool>{true}, "tuple"), " () (True, False) (False, True) ()");
    EXPECT_EQ(Reads(cow_List<cow_String>{"-"}, "tuple"), " () ('a', 'b') ()");
    EXPECT_EQ(Reads(cow_List<atr_String>{"-"}, "tuple"), " () ('c',) ()");
    EXPECT_EQ(Reads(cow_2DArray<double>(1, 1), "tuple"),
              " () ((0.5, 1.5), (2.5, 3.5)) ((), ()) ((1.0, 2.0), (3.0, 4.0)) ()");
    EXPECT_EQ(Reads(cow_2DArray<cow_String>(1, 1), "tuple"), " () ((), ()) (('a', 'b'),) ()");
    EXPECT_EQ(Reads(omu_PrimArray(), "array"),
              " () (1, 2) (5.0, 6.0) (2.5,) ((0.5, 1.5), (2.5, 3.5)) ((), ()) (3,) (0.5, 1.5) (2.0, 3.5) "
              "((1.0, 2.0), (3.0, 4.0)) () (8.5, 9.5)");
    const std::string lists =
        " ((), ()) (3,) (False, True) (0.5, 1.5) (2.0, 3.5) ('a', 'b') ('c',) (on,) ((1.0, 2.0), (3.0, 4.0)) "
        "(('a', 'b'),) ()";
    EXPECT_EQ(Reads(Of<omu_PrimList>(9), "list"), lists);
    EXPECT_EQ(Reads(Of(9), "tuple"),
              " () (1, 2) (4,) (5, 6.0) (7,) (2.5,) (True, OFF) ((0.5, 1.5), (2.5, 3.5)) ((0.5, 1.5), (2.5,)) "
              "((0.5,), 0.5) ((7.5,),)" +
                  lists);

    cow_Map<cow_String, float> before;
    before.Insert("z", 9.0F);
    EXPECT_EQ(Reads(before, "dictionary with string keys"), R"( {} {"it's": 0.5})");
    EXPECT_EQ(Reads(omu_PrimDictionary<int>(), "dictionary with integer keys"), " {-1: True}");
    EXPECT_EQ(Reads(omu_PrimDictionary<cow_String>(), "dictionary with string keys"),
              R"( {} {"it's": 0.5} {'d': 0.5})");
}

TEST(omu_Arguments, NothingAndNestedTooDeeplyAreTypeErrors) {
    const auto read = [](std::unique_ptr<omu_Primitive> value, auto target) {
        omu_Arguments arguments;
        arguments.Put(std::move(value));
        arguments.Begin();
        arguments.Get(target);
        return Ended(arguments) + ": " + Show(target);
    };
    EXPECT_EQ(read(nullptr, omu_PrimNone()), "3 arg1; found None, expecting None: not set");
    for (const int depth : {300, 100'000}) {
        EXPECT_EQ(read(Nested(depth), Of(9)), "3 arg1; found tuple, expecting tuple: (9,)");
        EXPECT_EQ(read(Nested(depth), omu_PrimArray()), "3 arg1; found tuple, expecting array: ()");
        EXPECT_EQ(read(Nested(depth), cow_2DArray<double>()), "3 arg1; found tuple, expecting tuple: ()");
        auto byText = std::make_unique<omu_PrimDictionary<cow_String>>();
        byText->Put(Nested(depth), "a");
        EXPECT_EQ(read(std::move(byText), cow_Map<cow_String, float>()),
                  "3 arg1; found dictionary with string keys, expecting dictionary with string keys: {}");
    }
}

TEST(omu_Arguments, AWrongTypeOfThatNameIsTakenForAMissingKeyword) {
    Undetermined undetermined;
    int number = 0;
    for (const bool isExpected : {false, true}) {
        omu_Arguments arguments;
        arguments.Put(omu_PrimEnumBase(isExpected ? "ON" : "Undetermined"), "key");
        arguments.Begin();
        isExpected ? arguments.Get(undetermined, "key") : arguments.Get(number, "key");
        EXPECT_TRUE(arguments.Error());
        EXPECT_EQ(Ended(arguments), "");
    }
}

// ---- Deprecated arguments

/// Runs by itself as the environment is, and in the processes of the next test, which it tells what holds.
TEST(omu_Arguments, DeprecatedScenario) {
    const bool accepted = omu_Arguments::DeprecatedAccepted();
    SetVariable("VELMOR_DEPRECATED", accepted ? "OFF" : "ON");
    EXPECT_EQ(omu_Arguments::DeprecatedAccepted(), accepted) << "read once";

    omu_Arguments keywords;
    keywords.Put(7, "old");
    int old = -1, current = -1;
    keywords.Begin();
    keywords.Optional();
    EXPECT_EQ(keywords.DeprecatedCheck("old"), accepted);
    EXPECT_FALSE(keywords.DeprecatedCheck("older"));
    keywords.DeprecatedGet(old, "older", "Part.older");
    keywords.DeprecatedGet(old, "old", "Part.old");
    EXPECT_FALSE(keywords.DeprecatedCheck("old")) << "read already, or refused";
    EXPECT_EQ(old, accepted ? 7 : -1);
    EXPECT_EQ(Ended(keywords, "Part; "), accepted ? "" : "5 Part; keyword error on old");
    for (const char* name : {"x", "y", "x"}) keywords.AddDeprecatedArgUsed(name);
    EXPECT_EQ(Show(keywords.DeprecatedArgsUsed()), accepted ? "('Part.old', 'x', 'y')" : "('x', 'y')");
    EXPECT_EQ(Show(keywords.DeprecatedArgsChecked()), "('old', 'older', 'old')");
    keywords.Begin();
    EXPECT_EQ(keywords.DeprecatedArgsUsed().Length() + keywords.DeprecatedArgsChecked().Length(), 0);

    omu_Arguments positional;
    positional.Put(3);
    positional.Begin();
    positional.DeprecatedGet(old, "old");
    positional.Optional();
    positional.Get(current, "new");
    EXPECT_EQ(old, accepted ? 3 : -1);
    EXPECT_EQ(current, accepted ? -1 : 3) << "refused, the argument is the next one's";
    EXPECT_EQ(Show(positional.DeprecatedArgsUsed()), accepted ? "('old',)" : "()");

    omu_Arguments wrong;
    wrong.Put("ten");
    wrong.Put(3, "old");
    wrong.Begin();
    wrong.Get(current);
    wrong.DeprecatedGet(old, "old");
    EXPECT_EQ(wrong.DeprecatedArgsUsed().Length(), 0) << "not read after an error";

    omu_Arguments again;
    again.Put("ten", "size");
    cow_String size;
    again.Begin();
    again.Get(current, "size");
    EXPECT_EQ(again.DeprecatedAlternative("size as text"), accepted);
    EXPECT_FALSE(again.DeprecatedAlternative("nothing to withdraw") && accepted);
    if (accepted) again.Get(size, "size");
    EXPECT_EQ(Show(again.DeprecatedArgsUsed()), accepted ? "('size as text',)" : "()");
    EXPECT_EQ(Ended(again), accepted ? "" : "2 size; found string, expecting int");
    std::fprintf(stderr, "%s\n", accepted ? "accepted" : "refused");
}

TEST(omu_Arguments, DeprecatedAreAcceptedAsTheEnvironmentSays) {
    const auto run = [](const char* development, const char* deprecated) {
        const ChildResult child = RunTest("omu_Arguments.DeprecatedScenario",
                                          {{"VELMOR_DEVL_MODE", development}, {"VELMOR_DEPRECATED", deprecated}});
        EXPECT_EQ(child.exitCode, 0) << child.out;
        return child.err;
    };
    constexpr const char* unset = nullptr;
    for (const char* development : {unset, "", "0"}) {
        EXPECT_EQ(run(development, "ON"), "accepted\n");
        EXPECT_EQ(run(development, "OFF"), "refused\n");
        for (const char* deprecated : {unset, "", "on", "off", "ON ", "OFF "})
            EXPECT_EQ(run(development, deprecated), development ? "refused\n" : "accepted\n") << deprecated;
    }
}

}  // namespace
