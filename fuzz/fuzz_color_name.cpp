// Any text as a colour, as the name of a colour, of a model, of a symbolic constant, and between quotes: what the rules
// say, told a second time in another way.

#include "fuzz_Bytes.h"

#include <g3d/g3d.h>
#include <omu/omu.h>

#include <algorithm>
#include <cmath>

namespace {

void ScanColor(const std::string& text) {
    g3d_Color color(0.25F, 0.5F, 0.75F, 0.5F);
    const g3d_Color before = color;
    color.Set(cow_String(text), 0.125F);
    unsigned rgb[3] = {};
    if (!text.starts_with('#')) {
        fuzz_Require(color == before, "text without # changes nothing");
        return;
    }
    static_cast<void>(std::sscanf(text.c_str(), "#%02X%02X%02X", &rgb[0], &rgb[1], &rgb[2]));
    const float found[3] = {color.R(), color.G(), color.B()};
    for (int i = 0; i < 3; ++i) {
        const double expected = rgb[i] / 255.0;
        fuzz_Require(std::abs(static_cast<double>(found[i]) - expected) <= 1e-6 * expected,
                     "scanned as by the C library");
    }
    fuzz_Require(color.A() == 0.125F, "the alpha given");
    const cow_String printed = g3d_ColorText(color);
    fuzz_Require(g3d_ColorText(g3d_Color().Set(printed)) == printed, "a printed colour is itself");
}

void NameColor(const std::string& text) {
    g3d_ColorMap& map = g3d_ColorMap::Instance();
    const cow_String name(text);
    const int length = map.Length();
    bool isFound = true;
    try {
        static_cast<void>(map.ConstGet(name));
    } catch (const g3d_ColorErrorException& e) {
        isFound = false;
        fuzz_Require(e.Value() == name, "the exception tells the name");
    }
    fuzz_Require(isFound == (text.starts_with('#') || map.IsMember(name)), "members are found");
    if (map.AddByRGB(name, 0.5F, 0.25F, 1.0F)) {
        fuzz_Require(map.IsUserColor(name) && map.Length() == length + 1, "added");
        fuzz_Require(text.starts_with('#') || map.ConstGet(name) == g3d_Color(0.5F, 0.25F, 1.0F, 1.0F), "as added");
        fuzz_Require(map.Remove(name), "removed");
    } else {
        fuzz_Require(map.IsDefaultColor(name) && !map.Remove(name), "default colours stay");
    }
    fuzz_Require(map.Length() == length, "nothing left");
}

/// The table at omu_VelmorName, a row a kind.
struct NameRules {
    omu_VelmorNameEnum kind;
    omu_VelNameErrorEnm error;
    std::size_t longest;
    bool control;  // allowed
    std::string_view nowhere;
    std::string_view notFirst;
    std::string_view notLast;
};
constexpr std::string_view jobCharacters = ":$\\&*~! ()[]{}|;'`< >?/.\"";
constexpr std::string_view modelCharacters = "$\\&*~!()[]{}|;'`<>?/.\"";
constexpr NameRules kinds[] = {
    {omu_KernelName, omu_VelNameInvalid, 80, true, "\".\\", "0123456789", ""},
    {omu_KernelJobName, omu_VelNameInvalidJob, 80, true, jobCharacters, "-", ""},
    {omu_KernelModelName, omu_VelNameInvalidModel, 80, true, modelCharacters, "", ""},
    {omu_GuiName, omu_VelNameInvalid, 38, false, "\".\\", "0123456789_ ", "_ "},
    {omu_StepName, omu_VelNameInvalid, 38, false, "\".\\", "0123456789_ ", "_ "},
    {omu_GuiJobName, omu_VelNameInvalidJob, 38, false, jobCharacters, "-_", "_"},
    {omu_GuiModelName, omu_VelNameInvalidModel, 38, false, modelCharacters, "_ ", "_ "},
    {omu_XyDataName, omu_VelNameInvalid, 256, false, "\".,\\", "0123456789-_ ", "_ "},
};

bool IsAllowed(const std::string& name, const NameRules& rules) {
    const auto isControl = [](char c) { return static_cast<unsigned char>(c) < 32; };
    return !name.empty() && name.size() <= rules.longest && name.find_first_of(rules.nowhere) == std::string::npos &&
           (rules.control || std::ranges::none_of(name, isControl)) &&
           rules.notFirst.find(name.front()) == std::string_view::npos &&
           rules.notLast.find(name.back()) == std::string_view::npos;
}

bool IsTaken(const std::string& name, const NameRules& rules) {
    try {
        return omu_VelmorName(cow_String(name), rules.kind).AsString() == cow_String(name);
    } catch (const omu_VelNameErrorException& e) {
        fuzz_Require(e.Kind() == (name.empty() ? omu_VelNameEmpty : rules.error), "the kind of the error");
        return false;
    }
}

void CheckNames(const std::string& text) {
    for (const NameRules& rules : kinds)
        fuzz_Require(IsTaken(text, rules) == IsAllowed(text, rules), "a name is taken as its rules say");

    const std::string symbols = "ABCDEFGHIJKLMNOPQRSTUVWXYZ_", more = symbols + "0123456789";
    const bool isSymbol = !text.empty() && symbols.find(text[0]) != std::string::npos &&
                          text.find_first_not_of(more) == std::string::npos;
    fuzz_Require(omu_SymbolicConstantTable::IsValidSymConstName(cow_String(text)) == isSymbol, "symbolic constants");

    const cow_String quoted = omu_VelmorName::QuoteIfNeeded(cow_String(text));
    fuzz_Require(omu_VelmorName::QuoteIfNeeded(quoted) == quoted, "quoted once");
    const cow_String fileName = omu_VelmorName::MakeLegalFileName(cow_String(text));
    fuzz_Require(fileName.str().size() == text.size(), "characters of file names are replaced one by one");
    fuzz_Require(fileName.str().find_first_of("!#$%&'()*,/:<=>?[]{}~") == std::string::npos, "file names are legal");
}

void RepairName(const std::string& text, const std::string& replacement) {
    cow_String any(text);
    if (!omu_VelmorName::MakeLegalGuiName(any, replacement.c_str()))
        fuzz_Require(any == cow_String(text), "what is not repaired is left alone");
    cow_String name(text);
    if (!omu_VelmorName::MakeLegalGuiName(name, "X'-/XX")) return;
    const std::string repaired = name.str();
    const bool hasControl = std::ranges::any_of(repaired, [](char c) { return static_cast<unsigned char>(c) < 32; });
    fuzz_Require(repaired.size() <= 39, "a repaired name is short");
    fuzz_Require(hasControl || repaired.size() == 39 || IsAllowed(repaired, kinds[3]), "a repaired name obeys");
}

/// What a quoted text says.
std::string Unquoted(const std::string& quoted) {
    fuzz_Require(quoted.size() >= 2 && quoted.front() == quoted.back(), "in quotes");
    std::string text;
    for (std::size_t i = 1; i + 1 < quoted.size(); ++i) {
        fuzz_Require(quoted[i] != quoted.front(), "no bare quote inside");
        if (quoted[i] != '\\') {
            text += quoted[i];
            continue;
        }
        ++i;
        fuzz_Require(i + 1 < quoted.size(), "no escape of the closing quote");
        text += quoted[i] == 'n' ? '\n' : quoted[i];
    }
    return text;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz_StartLibrary();
    const std::string text(fuzz_Bytes(data, size).Rest());
    ScanColor(text);
    ScanColor('#' + text);
    NameColor(text);
    CheckNames(text);
    fuzz_Bytes bytes(data, size);
    const std::string replacement = bytes.Text();
    RepairName(bytes.Rest(), replacement);
    fuzz_Require(Unquoted(omu_QuoteText(cow_String(text)).str()) == text, "a quoted text says the text");
    return 0;
}
