#ifndef ORV_SUPPORT_CHILDPROCESS_H
#define ORV_SUPPORT_CHILDPROCESS_H

#include <sys/wait.h>
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

/// The content of a file from its beginning; closes it.
inline std::string TakeText(std::FILE* file) {
    std::string text;
    std::rewind(file);
    for (int c = std::getc(file); c != EOF; c = std::getc(file)) text += static_cast<char>(c);
    std::fclose(file);
    return text;
}

/// Runs `body` in a fork of this process, with standard output and error caught in files, and hands back what came
/// out. For what a process does only once (environment, start-up). `body` gives the exit code.
template <class Body>
ChildResult RunInChild(Body body) {
    std::FILE* const out = std::tmpfile();
    std::FILE* const err = std::tmpfile();
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

/// A variable of the environment and its value, null for unset.
using Setting = std::pair<const char*, const char*>;

/// Runs the one test of this executable in a new process called `program`, with the environment as given.
inline ChildResult RunTest(const char* test, const std::vector<Setting>& settings, const char* program = "test") {
    return RunInChild([&] {
        for (const auto& [name, value] : settings) value == nullptr ? unsetenv(name) : setenv(name, value, 1);
        execl("/proc/self/exe", program, (std::string("--gtest_filter=") + test).c_str(), nullptr);
        return 127;
    });
}

#endif
