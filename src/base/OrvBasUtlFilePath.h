#ifndef ORV_BASE_ORVBASUTLFILEPATH_H
#define ORV_BASE_ORVBASUTLFILEPATH_H

#include <base/cow_String.h>

#include <utility>

/// The path of a file as text. It is neither normalised nor looked up: two paths are equal when their bytes are.
class OrvBasUtlFilePath {
public:
    OrvBasUtlFilePath() noexcept = default;
    /// The path as it is given; nothing is looked up.
    explicit OrvBasUtlFilePath(cow_String path) noexcept : _path(std::move(path)) {}

    /// The path as it was given.
    [[nodiscard]] const cow_String& Path() const noexcept { return _path; }
    [[nodiscard]] const char* c_str() const noexcept { return _path.c_str(); }

    friend bool operator==(const OrvBasUtlFilePath&, const OrvBasUtlFilePath&) noexcept = default;

private:
    cow_String _path;
};

#endif
