#ifndef ORV_STRESS_REPORT_HOST_MODELSCENE_H
#define ORV_STRESS_REPORT_HOST_MODELSCENE_H

#include "host_ModelResults.h"
#include "host_Scene.h"

#include <array>
#include <utility>

/// A camera of its own view, kept in a model file: all that the picture depends on, not the volume of the model.
class host_SavedCamera {
public:
    host_SavedCamera() = default;
    explicit host_SavedCamera(g3d_Camera camera) : _camera(std::move(camera)) {}

    [[nodiscard]] const g3d_Camera& Get() const noexcept { return _camera; }

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return host_TypeId(3); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    void DBWrite(const cls_WriteVisitor& visitor) const;
    /// What is no camera is repaired, as the camera does it.
    explicit host_SavedCamera(const cls_ReadVisitor& visitor);

private:
    g3d_Camera _camera;
};

/// A scene and the size of its picture, kept in a model file.
class host_SavedScene {
public:
    host_SavedScene() = default;
    host_SavedScene(host_Scene scene, std::array<int, 2> sizePixels) : _scene(std::move(scene)), _size(sizePixels) {}

    [[nodiscard]] const host_Scene& Get() const noexcept { return _scene; }
    [[nodiscard]] std::array<int, 2> SizePixels() const noexcept { return _size; }

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return host_TypeId(4); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    void DBWrite(const cls_WriteVisitor& visitor) const;
    /// Throws std::runtime_error for what no command line would give.
    explicit host_SavedScene(const cls_ReadVisitor& visitor);

private:
    host_Scene _scene;
    std::array<int, 2> _size{};
};

#endif
