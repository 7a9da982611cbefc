// Protects hosts that load the library when they need it: unload_host <library> <guest> loads, starts, uses, stops and
// unloads both 20 times in one process. Each time they are gone from it, and each time the statics are fresh. Under the
// address sanitizer nothing stays allocated.

#include <dlfcn.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>

namespace {

using Count = void(int& count);
using Use = void(double (&found)[5]);

void Require(bool holds, int round, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "round %d: %s\n", round, what);
    std::exit(1);
}

template <class Function>
Function* Find(void* library, const char* name) {
    return reinterpret_cast<Function*>(dlsym(library, name));
}

bool IsMapped(const std::string& file) {
    std::ifstream maps("/proc/self/maps");
    const std::string text(std::istreambuf_iterator<char>(maps), {});
    return text.find(file) != std::string::npos;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) return 2;
    double first[5] = {};
    for (int round = 0; round < 20; ++round) {
        void* library = dlopen(argv[1], RTLD_NOW | RTLD_LOCAL);
        void* guest = dlopen(argv[2], RTLD_NOW | RTLD_LOCAL);
        Require(library != nullptr && guest != nullptr, round, dlerror());
        Require(IsMapped("libOrvLumGeom"), round, "loaded but not seen");
        auto* initialize = Find<Count>(library, "_Z21OrvLumGeom_initializeRi");
        auto* finalize = Find<Count>(library, "_Z19OrvLumGeom_finalizeRi");
        auto* use = Find<Use>(guest, "unload_use");
        Require(initialize != nullptr && finalize != nullptr && use != nullptr, round, "a function is missing");

        int count = 0;
        initialize(count);
        Require(count == 14, round, "the start is not that of a fresh process");
        double found[5] = {};
        use(found);
        if (round == 0) std::copy(std::begin(found), std::end(found), first);
        Require(std::equal(std::begin(found), std::end(found), first), round, "the statics are not fresh");
        finalize(count);
        Require(count == 0, round, "not stopped");

        Require(dlclose(guest) == 0 && dlclose(library) == 0, round, "not closed");
        Require(!IsMapped("libOrvLumGeom") && !IsMapped("unload_guest"), round, "the loader keeps the library");
    }
    return 0;
}
