#include "host_WriteFile.h"

#include <fstream>
#include <stdexcept>
#include <system_error>

namespace fs = std::filesystem;

void host_WriteFile(const fs::path& path, const std::string& bytes) {
    if (fs::exists(path) && !fs::is_regular_file(path)) throw std::runtime_error("is there and is not a file");
    fs::path part = path;
    part += ".part";
    std::ofstream file(part, std::ios::binary);
    if (!file) throw std::runtime_error("cannot be written");
    file << bytes;
    file.close();
    std::error_code error;
    if (file) fs::rename(part, path, error);
    if (file && !error) return;
    std::error_code ignored;
    fs::remove(part, ignored);
    throw std::runtime_error("cannot be written");
}
