#ifndef ORV_BASE_CLS_CLASSREGISTRAR_H
#define ORV_BASE_CLS_CLASSREGISTRAR_H

#include <base/cls_ClassMetadata.h>
#include <base/orv_Export.h>

#include <memory>
#include <type_traits>
#include <unordered_map>

/// The registry of persistent classes by identifier: what reading and writing ask for layouts, inheritance and
/// factories. A host may make registrars of its own; the process's is `cls_MetadataRegistrar::Instance().Registrar()`.
class ORV_EXPORT cls_ClassRegistrar {
public:
    cls_ClassRegistrar() = default;
    cls_ClassRegistrar(const cls_ClassRegistrar&) = delete;
    cls_ClassRegistrar& operator=(const cls_ClassRegistrar&) = delete;

    /// Registers C++ class T, whose persistent base part is class B (none when void). A class registered again
    /// starts afresh, without attributes. Fills the factory (unless T is abstract or has no reading constructor)
    /// and the way to the base part, so that polymorphic reading needs no common C++ root and stays type-safe.
    template <class T, class B = void>
    cls_ClassMetadata& Class(const char* name, unsigned number);

    /// Registers a class without a C++ type: a layout only.
    cls_ClassMetadata& AddClass(const char* name, unsigned id, unsigned number, unsigned baseId = cls_RootClass);

    /// Null when the class is not registered.
    [[nodiscard]] const cls_ClassMetadata* Find(unsigned id) const;
    /// Whether `ancestor` is the class itself or one of its registered bases.
    [[nodiscard]] bool Inherits(unsigned id, unsigned ancestor) const;
    /// Of the class registered last, in registration order; empty before the first.
    [[nodiscard]] cow_List<cow_String> AttributeNames() const;
    /// The classes in the order of their (last) registration calls since `ResetArrivals`; for the metadata registrar.
    [[nodiscard]] const std::vector<cls_ClassMetadata*>& Arrivals() const noexcept { return _arrivals; }
    /// Forgets them.
    void ResetArrivals() noexcept { _arrivals.clear(); }

private:
    std::unordered_map<unsigned, std::unique_ptr<cls_ClassMetadata>> _classes;
    std::vector<cls_ClassMetadata*> _arrivals;
    const cls_ClassMetadata* _last = nullptr;
};

template <class T, class B>
cls_ClassMetadata& cls_ClassRegistrar::Class(const char* name, unsigned number) {
    unsigned baseId = cls_RootClass;
    if constexpr (!std::is_void_v<B>) baseId = B::TypeId();
    cls_ClassMetadata& metadata = AddClass(name, T::TypeId(), number, baseId);
    if constexpr (!std::is_abstract_v<T> && std::is_constructible_v<T, const cls_ReadVisitor&>)
        metadata.make = [](const cls_ReadVisitor& visitor) -> std::shared_ptr<void> {
            return std::make_shared<T>(visitor);
        };
    if constexpr (!std::is_void_v<B>)
        metadata.toBase = [](void* object) -> void* { return static_cast<B*>(static_cast<T*>(object)); };
    return metadata;
}

#endif
