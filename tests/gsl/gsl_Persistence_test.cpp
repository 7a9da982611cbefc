// Protects what geometry values keep through a stream, and what their reading constructors refuse or repair.
#include <base/cow_2DArray.h>
#include <base/nex_RangeException.h>
#include <gsl/gsl.h>
#include <support/RandomGeometry.h>
#include <support/streams.h>

#include <gtest/gtest.h>

namespace {

/// Writes what T itself never would, under the name of T.
template <class T, class Write>
struct Forged {
    Write write;
    static unsigned TypeId() { return T::TypeId(); }
    void DBWrite(const cls_WriteVisitor& visitor) const { write(visitor); }
};

template <class T, class Write>
T ReadForged(Write write) {
    cls_ClassRegistrar registrar;
    T::InitializeMetadata(registrar);
    return ReadBack<T>(registrar, Written(registrar, Forged<T, Write>{write}));
}

TEST(gsl_Persistence, ValuesComeBackBitForBitWithAFreshIdentity) {
    cls_ClassRegistrar registrar;
    for (const auto initialize : {gsl_Point::InitializeMetadata, gsl_PersistentVector::InitializeMetadata,
                                  gsl_PersistentMatrix::InitializeMetadata, gsl_Plane::InitializeMetadata,
                                  omu_xoObjVarray<gsl_Plane>::InitializeMetadata})
        initialize(registrar);
    RandomGeometry random(20221);
    for (int n = 0; n < 50; ++n) {
        const gsl_Point p(random.Point(), random.Point()), read = RoundTrip(registrar, p);
        EXPECT_EQ(read.AsArray(), p.AsArray());
        EXPECT_FALSE(read.Uid() == p.Uid() || read.Uid() == cls_Uid());

        gsl_PersistentVector v = random.Vector();
        v.Normalize();  // length 1 by word of honour, not by computation
        const gsl_PersistentVector readVector = RoundTrip(registrar, v);
        EXPECT_EQ(readVector.AsArray(), v.AsArray());
        EXPECT_EQ(readVector.Length(), 1.0);

        gsl_Matrix passingForTheIdentity;
        passingForTheIdentity.AxisRotation(random.Vector(), 0.5);
        for (const gsl_PersistentMatrix m : {random.Rigid(), passingForTheIdentity}) {
            const gsl_PersistentMatrix readMatrix = RoundTrip(registrar, m);
            EXPECT_EQ(Difference(readMatrix, m), 0.0);
            EXPECT_EQ(readMatrix.IsIdentity(), m.IsIdentity());
        }
    }
    omu_xoObjVarray<gsl_Plane> planes;
    planes.Append(gsl_Plane());
    const omu_xoObjVarray<gsl_Plane> one = planes;
    planes.Append(gsl_Plane());
    EXPECT_EQ(RoundTrip(registrar, planes).Length(), 2);
    EXPECT_EQ(one.Length(), 1);
    EXPECT_THROW((void)one[1], nex_RangeException);
}

TEST(gsl_Persistence, CachedLengthIsTakenUnlessItCannotBeOne) {
    for (const double stored : {7.0, -3.0, kNaN}) {
        const auto v = ReadForged<gsl_PersistentVector>([stored](const cls_WriteVisitor& visitor) {
            visitor.Write("_x", 3.0);
            visitor.Write("_y", 4.0);
            visitor.Write("_magnitude", stored);
        });
        EXPECT_EQ(v.Length(), stored > 0.0 ? 7.0 : 5.0);
    }
}

TEST(gsl_Persistence, MatrixStateIsRepairedAndAnotherShapeRefused) {
    const auto read = [](int state, int rows, int columns) {
        return ReadForged<gsl_PersistentMatrix>([=](const cls_WriteVisitor& visitor) {
            cow_2DArray<double> elements(rows, columns);
            for (int i = 0; i < std::min(rows, columns); ++i) elements.Get(i, i) = 1.0;
            visitor.Write("_is_identity", state);
            visitor.Write("DDBmatrix", elements);
        });
    };
    for (const int state : {1, 0, -1, 7, -99}) EXPECT_EQ(read(state, 4, 4).IsIdentity(), state != 0) << state;
    for (const auto& [rows, columns] : {std::pair(3, 4), std::pair(4, 3), std::pair(16, 1), std::pair(0, 0)})
        EXPECT_THROW((void)read(1, rows, columns), nex_StreamException);
}

TEST(gsl_Persistence, WithoutStoredFieldsObjectsAreTheDefaults) {
    const cls_ReadVisitor nothing(nullptr);
    EXPECT_TRUE(gsl_PersistentMatrix(nothing).IsIdentity());
    EXPECT_EQ(gsl_PersistentVector(nothing).AsArray(), kZ.AsArray());
    EXPECT_EQ(gsl_Point(nothing).AsArray(), gsl_Point().AsArray());
    EXPECT_EQ(omu_xoObjVarray<gsl_Dot>(nothing).GrowthRatio(), 2.0);
}

}  // namespace
