#ifndef ORV_SUPPORT_STARTEDLIBRARY_H
#define ORV_SUPPORT_STARTEDLIBRARY_H

#include <base/cls_MetadataRegistrar.h>
#include <frame/OrvLumGeom.h>
#include <support/UnstartedLibrary.h>

#include <gtest/gtest.h>

/// The library between its start and its stop.
class StartedLibrary : public testing::Test {
protected:
    void SetUp() override { OrvLumGeom_initialize(_count); }
    void TearDown() override { OrvLumGeom_finalize(_count); }

    const cls_ClassRegistrar& registrar = cls_MetadataRegistrar::Instance().Registrar();

private:
    int _count = 0;
};

#endif
