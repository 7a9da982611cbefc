// Runs a fuzz target once on each file of a folder.

#include "fuzz_Bytes.h"

#include <filesystem>
#include <fstream>
#include <iterator>

int main(int argc, char** argv) {
    int runs = 0;
    if (argc == 2) {
        for (const auto& entry : std::filesystem::directory_iterator(argv[1])) {
            std::ifstream in(entry.path(), std::ios::binary);
            const std::string bytes{std::istreambuf_iterator<char>(in), {}};
            std::fprintf(stderr, "%s\n", entry.path().string().c_str());  // the last one is the one that failed
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
            ++runs;
        }
    }
    std::printf("%d inputs\n", runs);
    return runs > 0 ? 0 : 1;
}
