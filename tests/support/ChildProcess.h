#ifndef ORV_SUPPORT_CHILDPROCESS_H
#define ORV_SUPPORT_CHILDPROCESS_H

#include <support/Environment.h>

#if defined(_WIN32)
#include <gtest/gtest.h>
#include <io.h>
#include <process.h>

#include <map>
#else
#include <sys/wait.h>
#endif
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

/// What a finished child left behind. `exitCode` is -1 when a signal ended it.
struct ChildResult {
    int exitCode = -1;
    std::string out;
    std::string err;

    [[nodiscard]] auto ErrorLines() const { return std::count(err.begin(), err.end(), '\n'); }
};

/// A file to write and read that is gone when closed.
inline std::FILE* TemporaryFile() {
#if defined(_WIN32)
    // std::tmpfile makes it in the root folder, where not everybody may write.
    char* const name = _tempnam(nullptr, "orv");
    std::FILE* const file = std::fopen(name, "w+D");
    std::free(name);
    return file;
#else
    return std::tmpfile();
#endif
}

/// The content of a file from its beginning; closes it.
inline std::string TakeText(std::FILE* file) {
    std::string text;
    std::rewind(file);
    for (int c = std::getc(file); c != EOF; c = std::getc(file)) text += static_cast<char>(c);
    std::fclose(file);
    return text;
}

/// A variable of the environment and its value, null for unset.
using Setting = std::pair<const char*, const char*>;

#if defined(_WIN32)

/// Runs the one test of this executable in a new process called `program`, with the environment as given.
inline ChildResult RunTest(const std::string& test, const std::vector<Setting>& settings,
                           const char* program = "test") {
    std::FILE* const out = TemporaryFile();
    std::FILE* const err = TemporaryFile();
    std::vector<std::pair<bool, std::string>> before;
    for (const auto& [name, value] : settings) {
        const char* const old = std::getenv(name);
        before.emplace_back(old != nullptr, old != nullptr ? old : "");
        SetVariable(name, value);
    }
    std::fflush(nullptr);
    const int ownOut = _dup(1), ownErr = _dup(2);
    _dup2(_fileno(out), 1);
    _dup2(_fileno(err), 2);
    const auto exitCode = _spawnl(_P_WAIT, _pgmptr, program, ("--gtest_filter=" + test).c_str(), nullptr);
    _dup2(ownOut, 1);
    _dup2(ownErr, 2);
    _close(ownOut);
    _close(ownErr);
    for (std::size_t i = 0; i < settings.size(); ++i)
        SetVariable(settings[i].first, before[i].first ? before[i].second.c_str() : nullptr);
    return {static_cast<int>(exitCode), TakeText(out), TakeText(err)};
}

/// As below, where there is no fork: the running test runs again in a new process up to the same call, the how manieth
/// of the test this is being told by the environment. What was printed before is wiped; earlier calls do nothing there.
template <class Body>
ChildResult RunInChild(Body body) {
    constexpr const char* variable = "ORV_TEST_CHILD_CALL";
    const testing::TestInfo& test = *testing::UnitTest::GetInstance()->current_test_info();
    const std::string name = std::string(test.test_suite_name()) + "." + test.name();
    static std::map<std::string, int> calls;
    const int call = ++calls[name];
    const char* const wanted = std::getenv(variable);
    if (wanted == nullptr) return RunTest(name, {{variable, std::to_string(call).c_str()}});
    if (call != std::atoi(wanted)) return {};
    SetVariable(variable, nullptr);
    std::fflush(nullptr);
    for (const int stream : {1, 2}) {
        _lseek(stream, 0, SEEK_SET);
        _chsize(stream, 0);
    }
    const int code = body();
    std::fflush(nullptr);
    _exit(code);
}

#else

/// Runs `body` in a fork of this process, with standard output and error caught in files, and hands back what came
/// out. For what a process does only once (environment, start-up). `body` gives the exit code.
template <class Body>
ChildResult RunInChild(Body body) {
    std::FILE* const out = TemporaryFile();
    std::FILE* const err = TemporaryFile();
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        dup2(fileno(out), STDOUT_FILENO);
        dup2(fileno(err), STDERR_FILENO);
        const int code = body();
        std::fflush(nullptr);
        _exit(code);
    }
    int status = 0;
    const bool exited = waitpid(child, &status, 0) == child && WIFEXITED(status);
    return {exited ? WEXITSTATUS(status) : -1, TakeText(out), TakeText(err)};
}

/// Runs a program, the first argument being its path.
inline ChildResult RunProgram(std::vector<std::string> arguments) {
    return RunInChild([&] {
        std::vector<char*> argv;
        for (std::string& argument : arguments) argv.push_back(argument.data());
        argv.push_back(nullptr);
        execv(argv[0], argv.data());
        return 127;
    });
}

/// Runs the one test of this executable in a new process called `program`, with the environment as given.
inline ChildResult RunTest(const std::string& test, const std::vector<Setting>& settings,
                           const char* program = "test") {
    return RunInChild([&] {
        for (const auto& [name, value] : settings) SetVariable(name, value);
        execl("/proc/self/exe", program, ("--gtest_filter=" + test).c_str(), nullptr);
        return 127;
    });
}

#endif

#endif
