// Commands against arguments: any reads in any order, on any arguments, give the same result each time, end with one of
// the four documented exceptions or none, and a plain command accepts just what its declaration says.

#include "fuzz_Values.h"

#include <iterator>
#include <optional>

namespace {

constexpr const char* keywords[] = {"width", "height", "keepRatio", "name", ""};

omu_Arguments MakeArguments(fuzz_Bytes& bytes) {
    omu_Arguments arguments(static_cast<int>(bytes.Below(8)) / 7);
    for (unsigned n = bytes.Below(5); n > 0; --n) arguments.Put(fuzz_MakeValue(bytes, 3));
    for (unsigned n = bytes.Below(5); n > 0; --n) {
        const char* const keyword = keywords[bytes.Below(std::size(keywords))];
        arguments.Put(fuzz_MakeValue(bytes, 3), keyword);
    }
    return arguments;
}

/// The message of the documented exception that `End` throws; nothing when it throws none.
std::optional<std::string> End(omu_Arguments& arguments) {
    const bool isError = arguments.Error();
    std::optional<std::string> message;
    try {
        arguments.End("Command");
    } catch (const omu_TypeErrorException& e) {  // the base of all four
        message = e.what();
    }
    fuzz_Require(!message || isError, "End throws only what Error tells");
    return message;
}

/// Reads a T, by keyword or by position; a failed read leaves its target alone.
template <class T>
void Read(omu_Arguments& arguments, const T& initial, unsigned how, const char* keyword, std::string& log) {
    T target = initial;
    if (how == 0)
        arguments.Get(target);
    else if (how == 1)
        arguments.Get(target, keyword);
    else
        arguments.DeprecatedGet(target, cow_String(keyword), "old");
    if constexpr (std::is_arithmetic_v<T>) {
        if (arguments.ErrorOnPrevious()) fuzz_Require(target == initial, "a failed read leaves its target alone");
        log += std::to_string(target);
    } else if constexpr (omu_Puttable<T>) {
        log += omu_MakePrimitive(target)->AsString().str();
    }
}

/// A row a type of argument.
using Reader = void (*)(omu_Arguments&, unsigned, const char*, std::string&);
template <auto initial>
constexpr Reader numberReader =
    [](omu_Arguments& a, unsigned how, const char* keyword, std::string& log) { Read(a, initial, how, keyword, log); };
template <class T>
constexpr Reader reader =
    [](omu_Arguments& a, unsigned how, const char* keyword, std::string& log) { Read(a, T(), how, keyword, log); };
constexpr Reader readers[] = {
    numberReader<static_cast<signed char>(-7)>,
    numberReader<short{-7}>,
    numberReader<-7>,
    numberReader<7U>,
    numberReader<true>,
    [](omu_Arguments& a, unsigned how, const char* keyword, std::string& log) { Read(a, -7.5F, how, keyword, log); },
    [](omu_Arguments& a, unsigned how, const char* keyword, std::string& log) { Read(a, -7.5, how, keyword, log); },
    [](omu_Arguments& a, unsigned how, const char* keyword, std::string& log) {
        Read(a, omu_PrimNumber(7), how, keyword, log);
    },
    [](omu_Arguments& a, unsigned how, const char* keyword, std::string& log) {
        Read(a, omu_PrimBool<2>("ON"), how, keyword, log);
    },
    [](omu_Arguments& a, unsigned how, const char* keyword, std::string& log) {
        Read(a, omu_PrimType(""), how, keyword, log);
    },
    reader<cow_String>,
    reader<atr_String>,
    reader<OrvBasUtlFilePath>,
    reader<omu_VelmorName>,
    reader<omi_complex>,
    reader<omu_PrimNone>,
    reader<omu_PrimTuple>,
    reader<omu_PrimList>,
    reader<omu_PrimArray>,
    reader<omu_PrimDictionary<int>>,
    reader<omu_PrimDictionary<cow_String>>,
    reader<cow_List<int>>,
    reader<cow_List<float>>,
    reader<cow_List<double>>,
    reader<cow_List<bool>>,
    reader<cow_List<cow_String>>,
    reader<cow_List<atr_String>>,
    reader<cow_2DArray<double>>,
    reader<cow_2DArray<cow_String>>,
    reader<cow_Map<cow_String, float>>,
};

/// Any reads in any order. Gives all that could be observed.
std::string RunScript(omu_Arguments& arguments, fuzz_Bytes bytes) {
    std::string log;
    arguments.Begin();
    for (int step = 0; step < 40 && !bytes.IsEmpty(); ++step) {
        const unsigned how = bytes.Below(8);
        const char* const keyword = keywords[bytes.Below(std::size(keywords))];
        switch (how) {
            default:
                readers[bytes.Below(std::size(readers))](arguments, how % 3, keyword, log);
                break;
            case 4:
                arguments.Optional();
                break;
            case 5:
                log += arguments.Alternative() ? 'A' : 'a';
                break;
            case 6:
                log += arguments.DeprecatedAlternative("old") ? 'D' : 'd';
                break;
            case 7:
                log += arguments.DeprecatedCheck(keyword) ? 'C' : 'c';
                break;
        }
        log += arguments.Error() ? '!' : '.';
        log += arguments.ErrorOnPrevious() ? '!' : '.';
    }
    return log + End(arguments).value_or("accepted") + std::to_string(arguments.DeprecatedArgsUsed().Length());
}

/// Two required whole numbers and an optional one, the command that most are like.
void RunPlainCommand(omu_Arguments& arguments) {
    int values[3] = {-1, -2, -3};
    arguments.Begin();
    arguments.Get(values[0], keywords[0]);
    arguments.Get(values[1], keywords[1]);
    arguments.Optional();
    arguments.Get(values[2], keywords[2]);
    const bool isTaken = !End(arguments).has_value();

    const int positional = arguments.Length();
    bool isGood = positional <= 3;
    int found = std::min(positional, 3);
    int expected[3] = {-1, -2, -3};
    for (int i = 0; i < 3; ++i) {
        const omu_Primitive* value = i < positional ? arguments.Find(i) : arguments.Keywords().Find(keywords[i]);
        if (i >= positional && value != nullptr) ++found;
        const auto* number = dynamic_cast<const omu_PrimNumber*>(value);
        const bool isInt = number != nullptr && number->DataType() == omu_PrimNumber::INT;
        if (isInt) expected[i] = number->AsInt();
        if (!isInt && (i < positional || value != nullptr || i < 2)) isGood = false;
    }
    isGood = isGood && found == positional + arguments.Keywords().Length();
    fuzz_Require(isTaken == isGood, "a command takes what it declares");
    if (isGood) fuzz_Require(std::equal(values, values + 3, expected), "and reads what was given");
}

/// A command that takes a colour as a text or as three numbers, and a list or None behind it.
std::string RunCommandWithAlternatives(omu_Arguments& arguments) {
    cow_String name;
    cow_List<double> rgb;
    cow_List<int> list;
    omu_PrimNone none;
    arguments.Begin();
    arguments.Get(name, "name");
    if (arguments.ErrorOnPrevious() && arguments.Alternative()) arguments.Get(rgb, "name");
    arguments.Optional();
    arguments.Get(list, "width");
    if (arguments.ErrorOnPrevious() && arguments.Alternative()) arguments.Get(none, "width");
    if (const auto message = End(arguments)) return *message;
    const omu_Primitive* given = arguments.Length() > 0 ? arguments.Find(0) : arguments.Keywords().Find("name");
    fuzz_Require(given != nullptr && (given->IsType('s') || given->IsType('(') || given->IsType('[')),
                 "a text or numbers are required");
    fuzz_Require(!given->IsType('s') || omu_MakePrimitive(name)->AsString() == given->AsString(), "the text given");
    return "accepted";
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz_StartLibrary();
    fuzz_Bytes bytes(data, size);
    omu_Arguments arguments = MakeArguments(bytes);
    omu_Arguments copy = arguments;
    const std::string log = RunScript(arguments, bytes);
    RunPlainCommand(arguments);
    const std::string result = RunCommandWithAlternatives(arguments);
    fuzz_Require(RunCommandWithAlternatives(copy) == result, "the same arguments give the same result");
    fuzz_Require(RunScript(arguments, bytes) == log && RunScript(copy, bytes) == log, "Begin begins anew");
    return 0;
}
