#ifndef ORV_STRESS_REPORT_HOST_MODELFILE_H
#define ORV_STRESS_REPORT_HOST_MODELFILE_H

#include "frd_Model.h"
#include "host_Limit.h"
#include "host_Scene.h"

#include <array>
#include <string>

/// What a model file holds.
struct host_ModelFile {
    frd_Model model;
    host_Limit limit;
    host_Scene scene;
    std::array<int, 2> sizePixels{};
};

/// Makes this host's persistent classes known to the library; after each start of it.
void host_RegisterClasses();

/// The bytes of a stream with four roots: model, limit, scene and a sum of the bytes before it.
[[nodiscard]] std::string host_Stored(const host_ModelFile& file);

/// Throws std::exception with the reason for bytes that are no such file, whatever they are.
[[nodiscard]] host_ModelFile host_Restored(const std::string& bytes);

#endif
