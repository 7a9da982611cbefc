#ifndef ORV_STRESS_REPORT_HOST_WRITEFILE_H
#define ORV_STRESS_REPORT_HOST_WRITEFILE_H

#include <filesystem>
#include <string>

/// Writes a file whole or not at all: into `path`.part beside it, which then takes the name. What stood there before
/// stays until then. Throws std::runtime_error, leaving nothing behind, when that does not work or when `path` is
/// something else than a file.
void host_WriteFile(const std::filesystem::path& path, const std::string& bytes);

#endif
