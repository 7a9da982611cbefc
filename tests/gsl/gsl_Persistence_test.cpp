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

/// As a host derives from a class of this library.
template <class Base>
struct Derived : Base {
    double extra;

    Derived(const Base& base, double number) : Base(base), extra(number) {}
    static unsigned TypeId() { return 0x7F0000 + Base::TypeId() % 256; }
    unsigned DynTypeId() const override { return TypeId(); }
    static void InitializeMetadata(cls_ClassRegistrar& r) {
        r.Class<Derived, Base>("Derived", 1).template Add<double>("extra");
    }
    void DBWrite(const cls_WriteVisitor& v) const override {
        Base::DBWrite(v.Base(Base::TypeId()));
        v.Write("extra", extra);
    }
    explicit Derived(const cls_ReadVisitor& v) : Base(v.Base()), extra(v.Read("extra", 0.0)) {}
};

struct gsl_Persistence : testing::Test {
    cls_ClassRegistrar registrar;
    void SetUp() override {
        for (const auto initialize :
             {gsl_Point::InitializeMetadata, gsl_PersistentVector::InitializeMetadata,
              gsl_PersistentMatrix::InitializeMetadata, gsl_StLine::InitializeMetadata, gsl_Plane::InitializeMetadata,
              gsl_BBox::InitializeMetadata, gsl_Segment::InitializeMetadata, gsl_Dot::InitializeMetadata,
              gsl_ModelSegment::InitializeMetadata, omu_xoObjVarray<gsl_StLine>::InitializeMetadata,
              omu_xoObjVarray<gsl_Plane>::InitializeMetadata})
            initialize(registrar);
    }
};

TEST_F(gsl_Persistence, ValuesComeBackBitForBitWithAFreshIdentity) {
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

TEST_F(gsl_Persistence, DatumsComeBackWithEveryAttribute) {
    const gsl_Point p(1.5, -2.0, 1e300), q(0.0, -0.0, 3.0);
    const auto check = [&](auto datum, const gsl_Point& (std::decay_t<decltype(datum)>::*point)() const noexcept) {
        datum.FlipDirection();
        datum.SetOwnerFeatID(-9);
        datum.SetParentIds({7U, 4294967295U});
        omu_xoObjVarray<decltype(datum)> data;
        data.Append(datum);
        const auto read = RoundTrip(registrar, data)[0];
        EXPECT_EQ((read.*point)().AsArray(), p.AsArray());
        EXPECT_EQ(read.Direction().AsArray(), (kY * -3.0).AsArray());
        EXPECT_TRUE(read.Method() == datum.Method() && read.IsOk() == datum.IsOk() && read.IsFlipped());
        EXPECT_TRUE(read.OwnerFeatID() == -9 && read.ParentIds() == datum.ParentIds());
    };
    check(gsl_StLine(p, kY * 3.0, gsl_LineMethod{-77}), &gsl_StLine::Point);  // an unlisted method stays
    check(gsl_Plane(p, kY * 3.0, gsl_DirMethod::PLANE_INVALID), &gsl_Plane::Centroid);
    EXPECT_FALSE(RoundTrip(registrar, gsl_StLine()).Uid() == cls_Uid());

    const gsl_Segment segment = RoundTrip(registrar, gsl_Segment(p, q));
    const auto model = RoundTrip(registrar, gsl_ModelSegment(gsl_Dot(-4, 5), gsl_Dot(q, gsl_DotMethod::gsl_FROM_NODE)));
    EXPECT_TRUE(segment.Point1().AsArray() == p.AsArray() && segment.Point2().AsArray() == q.AsArray());
    EXPECT_TRUE(model.Point1()->OwnerFeatID() == -4 && model.Point1()->EntityId() == 5);
    EXPECT_TRUE(model.Point2()->Point() == q && model.Point2()->GetMethod() == gsl_DotMethod::gsl_FROM_NODE);
    EXPECT_EQ(RoundTrip(registrar, gsl_ModelSegment()).Point2(), nullptr);
}

TEST_F(gsl_Persistence, DerivedObjectsAreWrittenWholeByTheirBase) {
    const auto check = [&]<class Base>(const Base& base) {
        Derived<Base>::InitializeMetadata(registrar);
        const std::string bytes = Written<Base>(registrar, Derived<Base>(base, 42.0));
        const auto read = ReadBack<Derived<Base>>(registrar, bytes);
        EXPECT_EQ(read.extra, 42.0);
        EXPECT_EQ(ToHex(Written<Base>(registrar, base)), ToHex(Written(registrar, static_cast<Base>(read))));
    };
    check(gsl_Point(1.0, 2.0, 3.0));
    check(gsl_BBox({1.0, 2.0, 3.0}, {4.0, 5.0, 6.0}));
    check(gsl_StLine(gsl_Point(1.0, 2.0, 3.0), kY));
    check(gsl_Plane(gsl_Point(1.0, 2.0, 3.0), kY));
    check(gsl_Dot(4, 5));
    check(gsl_ModelSegment(gsl_Dot(4, 5), gsl_Dot()));
}

TEST_F(gsl_Persistence, CachedLengthIsTakenUnlessItCannotBeOne) {
    for (const double stored : {7.0, -3.0, kNaN}) {
        const auto v = ReadForged<gsl_PersistentVector>([stored](const cls_WriteVisitor& visitor) {
            visitor.Write("_x", 3.0);
            visitor.Write("_y", 4.0);
            visitor.Write("_magnitude", stored);
        });
        EXPECT_EQ(v.Length(), stored > 0.0 ? 7.0 : 5.0);
    }
}

TEST_F(gsl_Persistence, MatrixStateIsRepairedAndAnotherShapeRefused) {
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

TEST_F(gsl_Persistence, WithoutStoredFieldsObjectsAreTheDefaults) {
    const cls_ReadVisitor nothing(nullptr);
    EXPECT_TRUE(gsl_PersistentMatrix(nothing).IsIdentity());
    EXPECT_EQ(gsl_PersistentVector(nothing).AsArray(), kZ.AsArray());
    EXPECT_EQ(gsl_Point(nothing).AsArray(), gsl_Point().AsArray());
    EXPECT_TRUE(gsl_StLine(nothing).IsOk() && gsl_Plane(nothing).Direction() == kX);
    EXPECT_EQ(omu_xoObjVarray<gsl_Dot>(nothing).GrowthRatio(), 2.0);
}

}  // namespace
