// Protects what scripts pass as points and vectors: numbers of every kind, and the two ways of refusing anything else.

#include <gsl/gsl.h>
#include <omu/omu.h>

#include <gtest/gtest.h>

#include <vector>

namespace {

template <class... V>
omu_PrimTuple Tuple(const V&... values) {
    omu_PrimTuple tuple;
    (tuple.Put(values), ...);
    tuple.SetCommand("Origin");
    return tuple;
}

TEST(gsl_GetPoint, NumbersOfEveryKindAreCoordinates) {
    omu_PrimTuple exact = Tuple(-0.1, 7, 3000000000U);
    EXPECT_TRUE(gsl_GetPoint(exact, true) == gsl_Point(-0.1, 7.0, 3e9));
    EXPECT_TRUE(gsl_GetPoint(exact, true) == gsl_Point(-0.1, 7.0, 3e9)) << "reading starts afresh";
    omu_PrimTuple narrow = Tuple(0.5F, short{-3}, static_cast<signed char>(2));
    const gsl_Vector vector = gsl_GetVector(narrow, true);
    EXPECT_EQ(vector[0], 0.5);
    EXPECT_EQ(vector[1], -3.0);
    EXPECT_EQ(vector[2], 2.0);
}

TEST(gsl_GetPoint, AnythingElseIsTheDefaultOrThrows) {
    struct Case {
        omu_PrimTuple tuple;
        const char* message;
    };
    std::vector<Case> cases{
        {Tuple(1.0, 2.0), "Origin; not all required arguments specified; expected 3, got 2"},
        {Tuple(1.0, 2.0, 3.0, 4.0), "Origin; too many arguments; expected 3, got 4"},
        {Tuple(1.0, "2", 3.0), "Origin[1]; found string, expecting float"},
        {Tuple(true, 2.0, 3.0), "Origin[0]; found Boolean, expecting float"},
        {Tuple(), "Origin; not all required arguments specified; expected 3, got 0"},
    };
    for (Case& each : cases) {
        const gsl_Point point = gsl_GetPoint(each.tuple, false);
        const gsl_Vector vector = gsl_GetVector(each.tuple, false);
        for (unsigned i = 0; i < 3; ++i) {
            EXPECT_EQ(point[i], 0.0);
            EXPECT_EQ(vector[i], i == 2 ? 1.0 : 0.0);
        }
        try {
            (void)gsl_GetVector(each.tuple, true);
            ADD_FAILURE() << each.message;
        } catch (const omu_TypeErrorException& error) {
            EXPECT_STREQ(error.what(), each.message);
        }
    }
}

}  // namespace
