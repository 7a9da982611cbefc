#ifndef ORV_BASE_CLS_METADATAREGISTRAR_H
#define ORV_BASE_CLS_METADATAREGISTRAR_H

#include <base/cls_ClassRegistrar.h>
#include <base/cow_List.h>
#include <base/cow_String.h>
#include <base/omi_Singleton.h>
#include <base/orv_Export.h>

class cls_MetadataRegistrar;
extern template class ORV_EXPORT omi_Singleton<cls_MetadataRegistrar>;

/// One registered class as start-up left it.
struct cls_ClassRecord {
    /// Name, identifier, flags and number of its metadata (cls_ClassMetadata).
    cow_String name;
    unsigned typeId = 0;
    unsigned flags = 0;
    unsigned metadataNumber = 0;

    bool operator==(const cls_ClassRecord&) const = default;
};

/// The process's registry of persistent classes (a singleton, made on first use, emptied when the base library
/// stops). Start-up hands it the metadata function of each class.
class ORV_EXPORT cls_MetadataRegistrar {
public:
    /// The one object; made on first use.
    [[nodiscard]] static cls_MetadataRegistrar& Instance();

    /// Runs `registerClass` at once; `flags` are kept with every class that it registers and mean nothing here.
    void initClassMetadata(void (*registerClass)(cls_ClassRegistrar&), unsigned flags);

    /// The registered classes.
    [[nodiscard]] const cls_ClassRegistrar& Registrar() const noexcept { return _registrar; }
    [[nodiscard]] cls_ClassRegistrar& Registrar() noexcept { return _registrar; }

    /// In order of arrival; a class registered again replaces its record.
    [[nodiscard]] cow_List<cls_ClassRecord> Classes() const { return _classes; }

private:
    cls_ClassRegistrar _registrar;
    cow_List<cls_ClassRecord> _classes;
};

#endif
