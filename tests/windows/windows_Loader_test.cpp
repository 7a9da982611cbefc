// Protects hosts that load the DLL at run time: the system's loader starts the library and stops it, each time afresh.

#include <base/typ_ArchCompTable.h>

#include <gtest/gtest.h>
#include <windows.h>

namespace {

constexpr const char* file = "libOrvLumGeom.dll";
constexpr unsigned short geometry = 778, guest = 999;

/// A function of a loaded DLL by the name it has there. Nothing is called by import, which would load ours for good.
template <class Function>
Function* Find(const char* name, const char* from = file) {
    // By way of a function without parameters, which may be cast to any other.
    auto* const found = reinterpret_cast<void (*)()>(GetProcAddress(GetModuleHandleA(from), name));
    EXPECT_NE(found, nullptr) << name;
    return reinterpret_cast<Function*>(found);
}

/// What an entry adds to its caller's count.
int CountOf(const char* entry) {
    int count = 0;
    Find<void(int&)>(entry)(count);
    return count;
}

const typ_ArchCompEntry* FindEntry(unsigned short code) {
    return Find<const typ_ArchCompEntry*(unsigned short)>("_ZN17typ_ArchCompTable9FindEntryEt")(code);
}

HMODULE library = nullptr;
void (*startSpecific)(int& count) = nullptr;
int stopped = 0;  // unloadings that found the library stopped

/// What the system tells of a DLL.
struct Notification {
    unsigned long flags;
    const void* path;
    const void* name;
    const void* base;
    unsigned long size;
};

/// The system tells of an unloading between the DLL's own end and the end of its memory: what only counts can still be
/// called. Nobody else starts the library's specific part, so this does if the library was stopped.
void CALLBACK OnNotification(unsigned long reason, const Notification* what, void* /*context*/) {
    constexpr unsigned long unloaded = 2;
    if (reason == unloaded && what->base == library) startSpecific(stopped);
}

/// Has OnNotification called while it lives.
class Notifications {
public:
    Notifications() { Find<Register>("LdrRegisterDllNotification", system)(0, OnNotification, nullptr, &_cookie); }
    ~Notifications() { Find<Unregister>("LdrUnregisterDllNotification", system)(_cookie); }
    Notifications(const Notifications&) = delete;
    Notifications& operator=(const Notifications&) = delete;

private:
    static constexpr const char* system = "ntdll.dll";
    using Register = long CALLBACK(unsigned long flags, decltype(OnNotification)*, void* context, void** cookie);
    using Unregister = long CALLBACK(void* cookie);

    void* _cookie = nullptr;
};

TEST(Loader, StartsAndStopsAfreshWithEveryLoading) {
    ASSERT_EQ(GetModuleHandleA(file), nullptr) << "it is there before it is loaded";
    const Notifications notifications;
    for (int round = 1; round <= 20; ++round) {
        SCOPED_TRACE(round);
        library = LoadLibraryA(file);
        ASSERT_NE(library, nullptr) << GetLastError();
        EXPECT_EQ(GetProcAddress(library, "DllMain"), nullptr) << "a host's DLL would be given it for its own";
        EXPECT_EQ(CountOf("_Z21OrvLumGeom_initializeRi"), 0) << "started already";
        EXPECT_EQ(CountOf("_Z19OrvLumGeom_finalizeRi"), 0);
        startSpecific = Find<void(int&)>("_Z30OrvLumGeom_specific_initializeRi");
        auto* const insertEntry =
            Find<void(unsigned short, typ_ArchCompEntry)>("_ZN17typ_ArchCompTable11InsertEntryEt17typ_ArchCompEntry");
        const typ_ArchCompEntry* const entry = FindEntry(geometry);
        ASSERT_NE(entry, nullptr);
        EXPECT_EQ(FindEntry(guest), nullptr) << "what the last round entered";
        insertEntry(guest, *entry);
        EXPECT_NE(FindEntry(guest), nullptr);
        ASSERT_EQ(LoadLibraryA(file), library);
        FreeLibrary(library);
        EXPECT_EQ(stopped, round - 1) << "loaded twice, freed once";
        EXPECT_NE(FindEntry(guest), nullptr);
        FreeLibrary(library);
        EXPECT_EQ(GetModuleHandleA(file), nullptr);
        EXPECT_EQ(stopped, round);
    }
}

}  // namespace
