#ifndef ORV_SUPPORT_HOST_READFILE_H
#define ORV_SUPPORT_HOST_READFILE_H

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

/// All bytes of a file. Throws std::runtime_error when there is no such file or it cannot be read to its end.
[[nodiscard]] inline std::string host_ReadFile(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file || std::filesystem::is_directory(path)) throw std::runtime_error("cannot be opened as a file");
    std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    if (file.bad()) throw std::runtime_error("cannot be read to its end");
    return bytes;
}

#endif
