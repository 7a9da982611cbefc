#ifndef ORV_BASE_TYP_ARCHCOMPTABLE_H
#define ORV_BASE_TYP_ARCHCOMPTABLE_H

#include <base/orv_Export.h>
#include <base/typ_ArchCompEntry.h>

/// The type tables of all components of the process, by component code. It answers what a type is called and which type
/// it may stand for; that is not always a relation of C++ classes, so nothing is cast by it.
///
/// Threads: there is no lock; modules enter their tables at start-up.
struct ORV_EXPORT typ_ArchCompTable {
    /// Replaces the entry that the code had.
    static void InsertEntry(unsigned short code, typ_ArchCompEntry entry);

    /// Null for a code without an entry. Good until `Clear`.
    [[nodiscard]] static const typ_ArchCompEntry* FindEntry(unsigned short code);

    /// Null for an unknown type and for a record without a name.
    [[nodiscard]] static const char* Name(unsigned id);

    /// Whether `ancestor` is reached from `id` by following parents; a type is derived from itself. Gives up, with
    /// false, at an unknown type and after 64 steps, which ends a cycle.
    [[nodiscard]] static bool IsDerived(unsigned id, unsigned ancestor);

    /// Forgets all components.
    static void Clear() noexcept;
};

#endif
