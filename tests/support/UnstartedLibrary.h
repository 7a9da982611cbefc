#ifndef ORV_SUPPORT_UNSTARTEDLIBRARY_H
#define ORV_SUPPORT_UNSTARTEDLIBRARY_H

#include <frame/OrvLumGeom.h>

#include <gtest/gtest.h>

/// For tests of start-up itself: wherever the loader starts the library, its start is taken back while the tests of
/// this executable run.
class UnstartedLibrary : public testing::Environment {
#if defined(_WIN32)
    void SetUp() override { OrvLumGeom_finalize(_count); }
    void TearDown() override { OrvLumGeom_initialize(_count); }

    int _count = 0;
#endif
};

inline testing::Environment* const unstartedLibrary = testing::AddGlobalTestEnvironment(new UnstartedLibrary);

#endif
