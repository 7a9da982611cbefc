// Protects the symbolic constants: which names are registered under which identifiers, what the hook is called with,
// and every text on standard error.

#include <base/atr_String.h>
#include <base/nex_RangeException.h>
#include <frame/OrvLumOmu.h>
#include <omu/omu_SymbolicConstantTable.h>
#include <support/ChildProcess.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace {

using Data = omu_SymbolicConstantData;
using Table = omu_SymbolicConstantTable;
using Calls = std::vector<std::pair<std::string, unsigned>>;

Calls calls;
void Record(const cow_String& name, unsigned id) { calls.emplace_back(name.str(), id); }

const auto pid = static_cast<unsigned>(getpid());

/// A fresh table for each test, none left behind.
class SymbolicConstants : public testing::Test {
protected:
    void SetUp() override {
        omi_Singleton<Table>::Finalize();
        calls.clear();
    }
    void TearDown() override { omi_Singleton<Table>::Finalize(); }
};

/// The table as lists that are searched from the front, and the texts it should have written.
struct Model {
    std::vector<std::string> names{"_UNSPECIFIED"};
    std::vector<unsigned> constants{0};
    Calls hooked;
    std::string errors;

    template <class... A>
    void Tell(const char* format, A... arguments) {
        errors += atr(format, arguments...).c_str();
    }
    unsigned Size() const { return static_cast<unsigned>(names.size()); }
    /// The number of names when absent.
    unsigned Find(const std::string& name) const {
        return static_cast<unsigned>(std::find(names.begin(), names.end(), name) - names.begin());
    }
    static bool Valid(const std::string& name) {
        const std::string first = "_ABCDEFGHIJKLMNOPQRSTUVWXYZ";
        return name.find_first_of(first) == 0 && name.find_first_not_of(first + "0123456789") == std::string::npos;
    }
    unsigned Add(const std::string& name) {
        if (name.empty()) Tell("omu_SymbolicConstantTable::AddString(key=) key is EMPTY  pid=%X\n", pid);
        if (const unsigned at = Find(name); at < Size())
            Tell("omu_SymbolicConstantTable::AddString(%s) name already in table: %u/%u  pid=%X\n", name.c_str(), at,
                 Size(), pid);
        names.push_back(name);
        return Size() - 1;
    }
    unsigned Register(const std::string& name, unsigned id, bool suppress) {
        if (id != 0) {
            Tell("omu_SymbolicConstantData(%s, %u) _id is not 0\n", name.c_str(), id);
            return id;
        }
        const unsigned at = Find(name);
        if (at < Size() || !Valid(name)) return at < Size() ? at : 0;
        Add(name);
        if (const auto idSCD = static_cast<unsigned>(constants.size()); at != idSCD)
            Tell("omu_SymbolicConstantData(%s, 0) id (%u) != idSCD (%u)\n", name.c_str(), at, idSCD);
        constants.push_back(at);
        if (!suppress) hooked.emplace_back(name, at);
        return at;
    }
    void Take(unsigned id) {
        if (id >= Size()) {
            Tell("omu_SymbolicConstantData(%u) id > Size (%u)\n", id, Size());
            Tell("omu_SymbolicConstantTable::GetString(%u)  id>Size (%u)  %X\n", id, Size(), pid);
        } else if (names[id].empty()) {
            Tell("omu_SymbolicConstantData::getText() text is EMPTY\n");
        }
    }
};

TEST_F(SymbolicConstants, FollowAListSearchedFromTheFront) {
    // Few letters, so that names come again and break the pattern in every place.
    const std::string letters("AB_Z09a@[-%sn\n\0", 15);
    for (std::uint64_t seed = 1; seed <= 60; ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937_64 random(seed);
        const auto below = [&](std::size_t n) { return static_cast<unsigned>(random() % n); };
        SetUp();
        Table& table = Table::Instance();
        table.SetHook(Record);
        Model model;
        testing::internal::CaptureStderr();
        for (int step = 0; step < 400; ++step) {
            const std::size_t reach = below(2) == 0 ? 6 : letters.size();  // the valid letters come first
            std::string name;
            for (unsigned length = below(below(2) == 0 ? 3 : 6); length > 0; --length) name += letters[below(reach)];
            const unsigned id = below(8) == 0 ? static_cast<unsigned>(random()) : below(model.Size() + 3);
            const bool suppress = below(3) == 0;
            const unsigned operation = below(12);
            if (operation == 0 && seed % 2 == 0) {  // in odd rounds both lists stay parallel
                EXPECT_EQ(table.AddString(name), model.Add(name));
                EXPECT_EQ(table.AddString(table.Names()[0]), model.Add("_UNSPECIFIED")) << "its own element";
            } else if (operation == 1) {
                model.Take(id);
                const Data taken(id);
                EXPECT_EQ(taken.getId(), id);
                if (id < model.Size())
                    EXPECT_EQ(taken.getText().str(), model.names[id]);
                else
                    EXPECT_THROW(static_cast<void>(taken.getText()), nex_RangeException);
            } else if (operation == 2) {
                EXPECT_EQ(Data(name, id, suppress).getId(), model.Register(name, id, suppress));
            } else {
                EXPECT_EQ(Table::IsValidSymConstName(name), Model::Valid(name));
                EXPECT_EQ(table.GetId(name), model.Find(name) % model.Size()) << "0 when absent";
                EXPECT_EQ(Data(name, 0, suppress).getId(), model.Register(name, 0, suppress));
            }
        }
        const std::string errors = testing::internal::GetCapturedStderr();
        EXPECT_EQ(calls, model.hooked);
        EXPECT_TRUE(std::ranges::equal(table.Constants(), model.constants, {}, &Data::getId));
        std::string dump = atr("CONTENTS of omu_SymbolicConstantTable  pid:Ox%X\n", pid).c_str();
        for (unsigned i = 0; i < model.Size(); ++i) dump += atr("%5u   ", i).c_str() + model.names[i] + "\n";
        EXPECT_EQ(table.AsString().str(), dump);
        EXPECT_EQ(errors, model.errors);
    }
}

TEST_F(SymbolicConstants, BeginAtOneAfterEachStart) {
    for (int round = 0; round < 2; ++round) {
        int count = 0;
        OrvLumOmu_initialize(count);
        Table::Instance().SetHook(Record);
        EXPECT_EQ(Data("_UNSPECIFIED", 0, false), Data());
        EXPECT_EQ(Data("FIRST", 0, false).getId(), 1u);
        EXPECT_EQ(calls.size(), 1u);
        calls.clear();
        OrvLumOmu_finalize(count);
        EXPECT_EQ(Data("SECOND", 0, false).getId(), 1u) << "made again on use";
        EXPECT_TRUE(calls.empty()) << "with the hook gone";
        omi_Singleton<Table>::Finalize();
    }
}

TEST_F(SymbolicConstants, HookMayRegisterOrThrow) {
    Table::Instance().SetHook([](const cow_String& name, unsigned id) {
        Record(name, id);
        if (name.Length() < 100) Data(name + "_", 0, false);
    });
    EXPECT_EQ(Data("A", 0, false).getId(), 1u);
    ASSERT_EQ(calls.size(), 100u);
    EXPECT_EQ(calls.back(), std::pair("A" + std::string(99, '_'), 100u));

    Table::Instance().SetHook([](const cow_String&, unsigned) { throw 5; });
    EXPECT_THROW(Data("B", 0, false), int);
    EXPECT_EQ(Data("B", 0, false), Data(101)) << "registered, so the hook is not asked again";
}

/// Runs by itself for its identifiers, and in the processes of the next test for what it writes.
TEST_F(SymbolicConstants, Scenario) {
    EXPECT_EQ(Data("%s%n", 0, false).getId(), 0u);
    EXPECT_EQ(Data("OFF", 3, false).getId(), 3u);
    EXPECT_EQ(Data("OFF", 0, false).getId(), 1u);
    EXPECT_EQ(Data("OFF", 0, true).getId(), 1u);
}

/// Standard error of Scenario in a new process under a name with a '%', with the switch as given, null for unset.
std::string ScenarioErrors(const char* value) {
    const ChildResult child = RunTest("SymbolicConstants.Scenario", {{"VLM_DBG_SYMCONST", value}}, "/bin/p%s");
    EXPECT_EQ(child.exitCode, 0) << child.out;
    return child.err;
}

TEST_F(SymbolicConstants, SwitchTellsEachRegistration) {
    const std::string notZero = "omu_SymbolicConstantData(OFF, 3) _id is not 0\n";
    const std::string told =
        "p%s:omu_SymbolicConstantData(%s%n, 0, false)\n"
        "p%s:omu_SCTable::AddStr('_UNSPECIFIED') id:0\n"
        "p%s:omu_SCTable::AddSCD(scd) '_UNSPECIFIED' id:0  getId:0\n"
        "omu_SymbolicConstantData(%s%n, 0) Name is invalid\n"
        "p%s:omu_SymbolicConstantData(%s%n, 0) -> id 0\n"
        "p%s:omu_SymbolicConstantData(OFF, 3, false)\n" +
        notZero +
        "p%s:omu_SymbolicConstantData(OFF, 3) -> id 3\n"
        "p%s:omu_SymbolicConstantData(OFF, 0, false)\n"
        "p%s:omu_SCTable::AddStr('OFF') id:1\n"
        "p%s:omu_SCTable::AddSCD(scd) 'OFF' id:1  getId:1\n"
        "omu_SymbolicConstantTable::CreatePythonSymbolicConstant('OFF', 1) ignored\n"
        "p%s:omu_SymbolicConstantData(OFF, 0) -> id 1\n"
        "p%s:omu_SymbolicConstantData(OFF, 0, true)\n"
        "p%s:omu_SymbolicConstantData(OFF, 0) -> id 1\n";
    EXPECT_EQ(ScenarioErrors(nullptr), notZero);
    for (const char* value : {"", "0", "OFF"}) EXPECT_EQ(ScenarioErrors(value), told) << value;
}

TEST_F(SymbolicConstants, TextsAreFlushedAtOnce) {
    const ChildResult child = RunInChild([] {
        std::setvbuf(stderr, nullptr, _IOFBF, 4096);
        Data(5u);
        _exit(0);  // writes no buffer
        return 0;
    });
    EXPECT_EQ(child.err, "omu_SymbolicConstantData(5) id > Size (1)\n");
}

}  // namespace
