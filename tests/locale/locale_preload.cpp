// Loaded before a test program, makes the locale of the environment the one of C and of C++, as hosts do at their
// start. (A locale that is not there throws, and the program does not start.)

#include <clocale>
#include <locale>

namespace {

struct Preload {
    Preload() {
        std::locale::global(std::locale(""));
        std::setlocale(LC_ALL, "");
    }
} const preload;

}  // namespace
