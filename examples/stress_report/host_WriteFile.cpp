#include "host_WriteFile.h"

#include <algorithm>
#include <cstdio>
#include <memory>
#include <stdexcept>
#include <system_error>

namespace fs = std::filesystem;

namespace {

using Stream = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

/// A new file beside `path`, whose name comes back in `part`; null when there can be none.
Stream OpenPart(const fs::path& path, fs::path& part) {
    constexpr int attempts = 100;  // somebody else may have such files
    Stream file(nullptr, std::fclose);
    for (int i = 0; i < attempts && !file; ++i) {
        part = path;
        part += i == 0 ? ".part" : ".part" + std::to_string(i);
        file.reset(std::fopen(part.c_str(), "wbx"));
    }
    return file;
}

}  // namespace

host_WriteFile::~host_WriteFile() {
    std::error_code ignored;
    for (const File& file : _files) fs::remove(file.part, ignored);
}

void host_WriteFile::Add(const fs::path& path, const std::string& bytes) {
    std::error_code ignored;
    const fs::file_status before = fs::status(path, ignored);
    if (fs::exists(before) && !fs::is_regular_file(before)) throw std::runtime_error("is there and is not a file");
    for (const char* stream : {"/dev/stdout", "/dev/stderr"})
        if (fs::equivalent(path, stream, ignored)) throw std::runtime_error("is where report and messages go");
    // What a link points to is written, not the link.
    const fs::path place = fs::weakly_canonical(path, ignored);
    if (place.empty() || fs::is_symlink(place, ignored)) throw std::runtime_error("cannot be written");
    if (std::ranges::any_of(_files, [&](const File& file) { return file.path == place || file.part == place; }))
        throw std::runtime_error("is to be written twice");
    fs::path part;
    Stream file = OpenPart(place, part);
    if (!file) throw std::runtime_error("cannot be written");
    _files.push_back({part, place});
    if (fs::exists(before)) fs::permissions(part, before.permissions(), ignored);
    const bool written = std::fwrite(bytes.data(), 1, bytes.size(), file.get()) == bytes.size();
    if (std::fclose(file.release()) != 0 || !written) throw std::runtime_error("cannot be written to its end");
}

void host_WriteFile::Commit() {
    while (!_files.empty()) {
        std::error_code error;
        fs::rename(_files.back().part, _files.back().path, error);
        if (error) throw std::runtime_error(_files.back().path.string() + ": cannot be written");
        _files.pop_back();
    }
}
