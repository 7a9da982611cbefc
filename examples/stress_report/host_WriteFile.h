#ifndef ORV_STRESS_REPORT_HOST_WRITEFILE_H
#define ORV_STRESS_REPORT_HOST_WRITEFILE_H

#include <filesystem>
#include <string>
#include <vector>

/// Files written whole, and all or none: each into a `.part` beside its place, and when all stand there they take
/// their names. What stood there before stays until then; its permissions stay for good, and of a link what it points
/// to is written.
class host_WriteFile {
public:
    host_WriteFile() = default;
    host_WriteFile(const host_WriteFile&) = delete;
    host_WriteFile& operator=(const host_WriteFile&) = delete;
    /// Removes what was not committed.
    ~host_WriteFile();

    /// Throws std::runtime_error with the reason when the file cannot be written or its place is taken by something
    /// else than a file or by another one of these.
    void Add(const std::filesystem::path& path, const std::string& bytes);
    /// Throws std::runtime_error that names the file that cannot take its name.
    void Commit();

private:
    struct File {
        std::filesystem::path part, path;
    };
    std::vector<File> _files;
};

#endif
