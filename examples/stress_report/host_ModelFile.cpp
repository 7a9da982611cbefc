#include "host_ModelFile.h"

#include "host_ModelResults.h"
#include "host_ModelScene.h"

#include <base/bio_Ifilter.h>
#include <base/bio_Ofilter.h>
#include <base/cls_MetadataRegistrar.h>
#include <idb/idb_ReadObject.h>
#include <idb/idb_WriteObject.h>

#include <algorithm>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace {

/// The sum of all bytes before it: so damage is told as such before anything is made of the bytes.
class host_SavedSeal {
public:
    explicit host_SavedSeal(std::string_view bytes) noexcept {
        for (const char byte : bytes) _sum = (_sum ^ static_cast<unsigned char>(byte)) * 0x01000193U;  // FNV-1a
    }
    [[nodiscard]] static constexpr unsigned TypeId() noexcept { return host_TypeId(5); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar) {
        registrar.Class<host_SavedSeal>("host_SavedSeal", 1).Add<unsigned>("_sum");
    }
    void DBWrite(const cls_WriteVisitor& visitor) const { visitor.Write("_sum", _sum); }
    explicit host_SavedSeal(const cls_ReadVisitor& visitor) : _sum(visitor.Read("_sum", 0U)) {}

private:
    unsigned _sum = 0x811C9DC5U;
};

const cls_ClassRegistrar& Registrar() { return cls_MetadataRegistrar::Instance().Registrar(); }

std::string SealOf(std::string_view bytes) {
    bio_Ofilter out;
    idb_WriteObject(out, Registrar(), host_SavedSeal(bytes));
    return out.Bytes();
}

/// The bytes before their seal.
std::string_view Unsealed(std::string_view bytes) {
    const std::string_view whole = bytes.substr(0, bytes.size() - std::min(bytes.size(), SealOf("").size()));
    if (SealOf(whole) != bytes.substr(whole.size())) throw std::runtime_error("not a saved model, or a damaged one");
    return whole;
}

}  // namespace

void host_RegisterClasses() {
    for (const auto initializeMetadata : {host_SavedResult::InitializeMetadata, host_SavedModel::InitializeMetadata,
                                          host_SavedCamera::InitializeMetadata, host_SavedScene::InitializeMetadata,
                                          host_SavedSeal::InitializeMetadata})
        cls_MetadataRegistrar::Instance().initClassMetadata(initializeMetadata, 1);
}

std::string host_Stored(const host_ModelFile& file) {
    bio_Ofilter out;
    idb_WriteObject(out, Registrar(), host_SavedModel(file.model));
    idb_WriteObject(out, Registrar(), file.limit);
    idb_WriteObject(out, Registrar(), host_SavedScene(file.scene, file.sizePixels));
    const std::string bytes = out.Bytes();
    return bytes + SealOf(bytes);
}

host_ModelFile host_Restored(const std::string& bytes) {
    bio_Ifilter in{std::string(Unsealed(bytes))};
    const auto model = idb_ReadObject<host_SavedModel>(in, Registrar());
    auto limit = idb_ReadObject<host_Limit>(in, Registrar());
    host_CheckLimit(limit);
    limit.Propagate();
    const auto scene = idb_ReadObject<host_SavedScene>(in, Registrar());
    if (in.Remaining() > 0) throw std::runtime_error("something stands behind the model");
    return {model.Get(), limit, scene.Get(), scene.SizePixels()};
}
