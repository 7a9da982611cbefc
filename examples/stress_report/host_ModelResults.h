#ifndef ORV_STRESS_REPORT_HOST_MODELRESULTS_H
#define ORV_STRESS_REPORT_HOST_MODELRESULTS_H

#include "frd_Model.h"

#include <utility>

class cls_ClassRegistrar;
class cls_ReadVisitor;
class cls_WriteVisitor;

/// Component code of this host: the high 16 bits of the identifiers of its persistent classes.
inline constexpr unsigned short host_ComponentCode = 0x7001;

[[nodiscard]] constexpr unsigned host_TypeId(unsigned short index) noexcept {
    return (static_cast<unsigned>(host_ComponentCode) << 16) | index;
}

/// A result, kept in a model file.
class host_SavedResult {
public:
    host_SavedResult() = default;
    explicit host_SavedResult(frd_Result result) : _result(std::move(result)) {}

    [[nodiscard]] const frd_Result& Get() const noexcept { return _result; }

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return host_TypeId(1); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    void DBWrite(const cls_WriteVisitor& visitor) const;
    /// Throws std::runtime_error when the numbers of nodes, components and values do not agree.
    explicit host_SavedResult(const cls_ReadVisitor& visitor);

private:
    frd_Result _result;
};

/// Nodes, elements, materials and results, kept in a model file.
class host_SavedModel {
public:
    host_SavedModel() = default;
    explicit host_SavedModel(frd_Model model) : _model(std::move(model)) {}

    [[nodiscard]] const frd_Model& Get() const noexcept { return _model; }

    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return host_TypeId(2); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    void DBWrite(const cls_WriteVisitor& visitor) const;
    /// Throws std::runtime_error for what the reader of result files would not give.
    explicit host_SavedModel(const cls_ReadVisitor& visitor);

private:
    frd_Model _model;
};

#endif
