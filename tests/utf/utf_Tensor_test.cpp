// Protects tensors: measures and directions against Jacobi's method in extended precision, rotations against the bare
// double sum, the rules of each kind, the deliberate differences between entry points; batches against single tensors.
#include <base/nex_RangeException.h>
#include <support/Jacobi.h>
#include <support/RandomGeometry.h>
#include <support/values.h>
#include <utf/utf_ComponentOrder.h>
#include <utf/utf_Tens2dPlanarBase.h>
#include <utf/utf_Tens2dSurfaceBase.h>
#include <utf/utf_Tens3dFullBase.h>
#include <utf/utf_Tens3dPlanarBase.h>
#include <utf/utf_Tens3dSurfaceBase.h>
#include <utf/utf_Tensor.h>
#include <utf/utf_TensorBatch.h>

#include <gtest/gtest.h>

#include <numeric>
#include <sstream>

namespace {

using Six = std::array<double, 6>;
constexpr res_DataTypeEnm kKinds[] = {res_TENSOR_3D_FULL, res_TENSOR_3D_PLANAR, res_TENSOR_3D_SURFACE,
                                      res_TENSOR_2D_PLANAR, res_TENSOR_2D_SURFACE};
constexpr auto kNoTensor = static_cast<res_DataTypeEnm>(8);
constexpr bool IsSurface(int kind) { return kind == 11 || kind == 13; }
constexpr bool Is2d(int kind) { return kind >= 12; }

/// Where 11, 22, 33, 12, 13, 23 stand in each kind; -1 where they do not.
constexpr int kPlaces[5][6] = {
    {0, 1, 2, 3, 4, 5}, {0, 1, 2, 3, -1, -1}, {0, 1, -1, 2, -1, -1}, {0, 1, 2, 3, -1, -1}, {0, 1, -1, 2, -1, -1}};

template <class T>
Six Expanded(const utf_Tensor<T>& tensor, bool halveShears) {
    Six six;
    for (std::size_t k = 0; k < 6; ++k)
        six[k] = tensor.constGet(kPlaces[tensor.type() - 9][k]) * (k >= 3 && halveShears ? 0.5 : 1.0);
    return six;
}

/// A turn for tensors of that kind.
template <class T>
utf_Quaternion<T> RandomTurn(RandomGeometry& random, int tensorKind) {
    const double half = random.Angle();
    const gsl_Vector axis = (Is2d(tensorKind) ? kZ : random.Vector().NormalizedCopy()) * std::sin(half);
    const cow_List<T> q = {T(axis.X()), T(axis.Y()), T(axis.Z()), T(std::cos(half))};
    return {Is2d(tensorKind) ? res_QUATERNION_2D : res_QUATERNION_3D, q.begin() + (Is2d(tensorKind) ? 2 : 0)};
}

template <class T>
void TurnByView(utf_Tensor<T>& tensor, const utf_Quaternion<T>& q, bool engineeringShear) {
    T t[6], c[4] = {q.constGet(0), q.constGet(1), q.constGet(2), q.constGet(3)};
    std::copy_n(tensor.Span().data(), tensor.count(), t);
    if (tensor.type() == 9) utf_Tens3dFullBase<T>(t).transform(c, engineeringShear);
    if (tensor.type() == 10) utf_Tens3dPlanarBase<T>(t).transform(c, engineeringShear);
    if (tensor.type() == 11) utf_Tens3dSurfaceBase<T>(t).transform(c, engineeringShear);
    if (tensor.type() == 12) utf_Tens2dPlanarBase<T>(t).transform(c, engineeringShear);
    if (tensor.type() == 13) utf_Tens2dSurfaceBase<T>(t).transform(c, engineeringShear);
    tensor.set(t, tensor.count());
}

/// Compares what the kind keeps with A T A^T by the double sum, A = C^T or C; `n` is 2 for the upper left block alone.
template <class T>
void ExpectTurned(const Six& actual, int kind, const Six& t, const cow_2DArray<T>& c, bool transposed, int n) {
    const double full[3][3] = {{t[0], t[3], t[4]}, {t[3], t[1], t[5]}, {t[4], t[5], t[2]}};
    const auto a = [&](int i, int j) { return double{transposed ? c.ConstGet(j, i) : c.ConstGet(i, j)}; };
    const int pairs[6][2] = {{0, 0}, {1, 1}, {2, 2}, {0, 1}, {0, 2}, {1, 2}};
    for (std::size_t p = 0; p < 6; ++p) {
        double expected = pairs[p][1] < n ? 0.0 : t[p];
        for (int k = 0; k < n && pairs[p][1] < n; ++k)
            for (int l = 0; l < n; ++l) expected += a(pairs[p][0], k) * full[k][l] * a(pairs[p][1], l);
        if (kPlaces[kind - 9][p] < 0) expected = 0.0;
        EXPECT_NEAR(actual[p], expected, sizeof(T) == 4 ? 3e-4 : 1e-12) << "component " << p << ", C^T: " << transposed;
    }
}

template <class T>
struct utf_TensorOf : testing::Test {};
using Precisions = testing::Types<float, double>;
TYPED_TEST_SUITE(utf_TensorOf, Precisions);

TYPED_TEST(utf_TensorOf, AgreesWithJacobiAndTheDoubleSum) {
    using T = TypeParam;
    RandomGeometry random(3102);
    for (int n = 0; n < 500; ++n) {
        const res_DataTypeEnm kind = kKinds[n % 5];
        const bool full = kind == 9, engineeringShear = n % 2 == 1;
        utf_Tensor<T> tensor(kind, engineeringShear);
        std::vector<T> components(6);
        for (T& component : components) component = static_cast<T>(random.Number(-100.0, 100.0));
        tensor.set(components.data(), tensor.count());
        SCOPED_TRACE(testing::Message() << "tensor " << n << " of kind " << kind);
        const auto near = [&](double value, long double expected, double scale = 100.0) {
            EXPECT_NEAR(value, static_cast<double>(expected), scale * (sizeof(T) == 4 ? 4e-7 : 1e-14));
        };
        const Six t = Expanded(tensor, engineeringShear);
        const auto [x, y, z] = Jacobi(t.data()).values;
        const long double mean = (x + y + z) / 3;
        near(tensor.pressure(), -mean);
        near(tensor.mises(), std::sqrt(((x - y) * (x - y) + (y - z) * (y - z) + (z - x) * (z - x)) / 2));
        near(tensor.tresca(), x - z);
        near(std::pow(tensor.inv3(), 3), 13.5L * (x - mean) * (y - mean) * (z - mean), 1e7);
        const long double centre = (t[0] + t[1]) / 2.0L, radius = std::hypot((t[0] - t[1]) / 2.0L, 1.0L * t[3]);
        const long double expected[] = {full ? x : centre + radius, full ? y : centre - radius, full ? z : t[2]};
        T p[3], principal[3], q[4];
        tensor.principleValues(p);
        tensor.tensorAsPrincipalAndQuaternions(principal, q);
        for (std::size_t k = 0; k < 3; ++k) near(p[k], expected[k]), near(principal[k], expected[k]);
        near(tensor.maxPrincipal(), IsSurface(kind) ? expected[0] : x);
        near(tensor.midPrincipal(), IsSurface(kind) ? 0.0L : y);
        near(tensor.minPrincipal(), IsSurface(kind) ? expected[1] : z);
        EXPECT_EQ(
            (std::array{tensor.maxInplanePrincipal(), tensor.minInplanePrincipal(), tensor.outOfPlanePrincipal()}),
            (full ? std::array<T, 3>() : std::array{p[0], p[1], p[2]}));  // the third is not sorted with the pair

        utf_Tensor<T> diagonal = tensor;  // R T R^T, the directions being the rows of R
        TurnByView(diagonal, utf_Quaternion<T>(tensor.QuaternionType(), std::as_const(q)), engineeringShear);
        for (int i = 0; i < tensor.count(); ++i)
            near(diagonal.constGet(i), i < (full ? 3 : tensor.count() - 1) ? expected[i] : 0.0L, 300.0);

        for (const res_DataTypeEnm other : kKinds) {  // conversions keep stored shears and clear the flag
            const utf_Tensor<T> as = tensor.AsTensorType(other);
            for (std::size_t k = 0; k < 6; ++k)
                EXPECT_EQ(Expanded(as, false)[k], kPlaces[other - 9][k] < 0 ? 0.0 : Expanded(tensor, false)[k]);
            EXPECT_TRUE(as.type() == other && as.ownsComponents() && !as.engineeringShear());
        }
        EXPECT_EQ(tensor.As3DFullTensor().data(), tensor.AsTensorType(res_TENSOR_3D_FULL).data());

        const utf_Quaternion<T> turn = RandomTurn<T>(random, kind);
        const cow_2DArray<T> c = turn.cosines();
        const int size = kind == 9 || kind == 10 ? 3 : 2;
        utf_Tensor<T> turned = tensor, viewed = tensor, control = tensor;
        turned.transform(turn, engineeringShear);
        ExpectTurned(Expanded(turned, engineeringShear), kind, t, c, true, size);
        TurnByView(viewed, turn, engineeringShear);
        ExpectTurned(Expanded(viewed, engineeringShear), kind, t, c, false, size);
        if (full) near(turned.mises(), tensor.mises(), 300.0);
        if (!full && !(c.ConstGet(2, 2) > 0.9)) continue;
        control.transformControl(turn, n % 3 == 0);
        ExpectTurned(Expanded(control, false), kind, Expanded(tensor, false), c, true, 3);
        EXPECT_EQ(control.engineeringShear(), engineeringShear);
        tensor.tensorAsPrincipalAndQuaternions(c, principal, q);
        for (std::size_t k = 0; full && k < 3; ++k) near(principal[k], expected[k], 300.0);
        for (int k = 0; k < tensor.count(); ++k)
            components[k] = tensor.constGet(k) * (engineeringShear && k >= (tensor.Is3DTensor() ? 3 : 2) ? 0.5F : 1.0F);
        utf_Tensor<T> plain(kind, std::as_const(components).data());
        plain.transformControl(c);
        plain.tensorAsPrincipalAndQuaternions(p, components.data());
        EXPECT_TRUE(std::equal(q, q + 4, components.begin()) && std::equal(principal, principal + 3, p));
    }
}

TEST(utf_Tensor, EachKindHasItsRules) {
    const struct {
        int kind, count, quaternion;
        Six components;
        double max, mid, min, tresca;
    } cases[] = {
        {9, 6, 7, {2, 2, 2}, 2, 2, 2, 0},      {9, 6, 7, {3, 1, 2, 1e-25}, 3, 2, 1, 2},
        {10, 4, 7, {1, 3, 7}, 7, 3, 1, 6},     {10, 4, 7, {4, 4, -2, 3}, 7, 1, -2, 9},
        {12, 4, 6, {3, 7, 5}, 7, 5, 3, 4},     {11, 3, 7, {3, 7}, 7, 0, 3, 7},
        {13, 3, 6, {-2, -2, 1}, -1, 0, -3, 3}, {8, 0, 7, {1, 7}, -0x1.fffffep127, 0x1.fffffep127, 0x1.fffffep127, 0},
    };
    for (const auto& c : cases) {
        const utf_Tensor<double> tensor(static_cast<res_DataTypeEnm>(c.kind), c.components.data());
        EXPECT_EQ((Six{tensor.maxPrincipal(), tensor.midPrincipal(), tensor.minPrincipal(), tensor.tresca()}),
                  (Six{c.max, c.mid, c.min, c.tresca}));
        EXPECT_TRUE(tensor.count() == c.count && tensor.QuaternionType() == c.quaternion &&
                    tensor.Is3DTensor() == !IsSurface(c.kind) && tensor.Is3DQuaternion() == !Is2d(c.kind));
    }
    double p[3], six[] = {4, 4, 9, 3, 0, 0};
    const utf_Tensor<double> unknown(kNoTensor, six);
    EXPECT_EQ(unknown.AsTensorType(kNoTensor).count(), 0);
    EXPECT_EQ(unknown.pressure() + unknown.mises() + unknown.inv3() + unknown.maxInplanePrincipal(), 0.0);
    unknown.principleValues(p);
    EXPECT_NEAR(p[0], 9.0, 1e-14) << "six numbers through the pointer";
    utf_Tensor<double>(unknown).principleValues(p);
    EXPECT_EQ(std::vector(p, p + 3), std::vector<double>(3, 0.0)) << "a copy owns, and owns nothing";
    std::ostringstream out;
    utf_Tensor<double>(res_TENSOR_3D_SURFACE, six).Print(out, 2);
    EXPECT_EQ(out.str(), "  Tensor: 4 4 9 \n");
}

TEST(utf_Tensor, NaNShowsWhereverItIs) {
    for (std::size_t place = 0; place < 6; ++place) {
        double components[6] = {1.0, 2.0, 3.0}, p[3] = {};
        components[place] = kNaN;
        utf_Tensor<double>(res_TENSOR_3D_FULL, std::as_const(components)).principleValues(p);
        EXPECT_TRUE(std::isnan(p[0]) && std::isnan(p[1]) && std::isnan(p[2])) << place;
    }
}

TEST(utf_Tensor, RefusalsComeBeforeAnyChange) {
    double t[] = {1, 2, 3, 4, 5, 6};
    const std::vector<double> before(t, t + 6);
    const utf_Quaternion<double> q2(res_QUATERNION_2D), q3(res_QUATERNION_3D);
    const auto tilted = [](double c22) { return cow_2DArray<double>(3, 3, {1, 0, 0, 0, 0, 1, 0, 1, c22}); };
    for (const res_DataTypeEnm kind : kKinds) {
        utf_Tensor<double> tensor(kind, t, true), copy = tensor;
        const char* const refusal =
            kind == 9 ? "accepted" : "coss.ConstGet(2,2) > 0.9 && \"Transformation not normal\"";
        EXPECT_EQ(Refusal([&] { copy.transformControl(tilted(0.9)); }), refusal);
        EXPECT_EQ(Refusal([&] { copy.transformControl(tilted(std::nextafter(0.9, 1.0))); }), "accepted");
        EXPECT_EQ(Refusal([&] { tensor.transform(Is2d(kind) ? q3 : q2, true); }), "q.type() == QuaternionType()");
        EXPECT_THROW(tensor.transformControl(cow_2DArray<double>(2, 3)), nex_RangeException);
        EXPECT_EQ(std::vector(t, t + 6), before) << "not by refusals, not through a copy";
    }
    utf_Tensor<double> wraps(res_TENSOR_2D_SURFACE, t, true);
    wraps.transformControl(cow_2DArray<double>(3, 3, {0, 1, 0, 1, 0, 0, 0, 0, 1}));
    EXPECT_EQ(std::vector(t, t + 3), (std::vector<double>{2, 1, 3})) << "through the wrapped array";
}

TYPED_TEST(utf_TensorOf, BatchIsOneByOneToTheBit) {
    using T = TypeParam;
    using Tensor = utf_Tensor<T>;
    using Batch = utf_TensorBatch<T>;
    RandomGeometry random(3103);
    for (const res_DataTypeEnm kind : kKinds) {
        const bool engineeringShear = Is2d(kind);
        const auto size = static_cast<std::size_t>(Tensor::numComponents(kind));
        const double special[] = {1.0, 1.0, 0.0, kInfinity, kNaN};
        std::vector<T> packed(200 * size), out[7], turned(packed.size());
        for (std::size_t n = 0; n < packed.size(); ++n) {  // random ones, then ties and zeros, then infinities and NaN
            const auto pick = static_cast<std::size_t>(random.Number(0.0, n < 180 * size ? 3.0 : 5.0));
            packed[n] = static_cast<T>(n < 150 * size ? random.Number(-100.0, 100.0) : special[pick]);
        }
        for (std::size_t k = 0; k < 7; ++k) out[k].resize(200 * (k < 4 ? 1 : k < 6 ? 3 : 4));
        const utf_Quaternion<T> turn = RandomTurn<T>(random, kind);
        const Batch batch(kind, packed, engineeringShear);
        batch.pressure(out[0]), batch.mises(out[1]), batch.tresca(out[2]), batch.inv3(out[3]);
        batch.principleValues(out[4]);
        batch.tensorAsPrincipalAndQuaternions(out[5], out[6]);
        batch.transform(turn, engineeringShear, turned);
        for (std::size_t n = 0; n < 200; ++n) {
            Tensor tensor(kind, std::as_const(packed).data() + n * size, engineeringShear);
            const auto expect = [&](const std::vector<T>& all, std::span<const T> one, bool isFinite) {
                const auto same = [](T x, T y) {  // bits, but sums may pass on either of two NaN
                    return std::isnan(x) ? std::isnan(y) : x == y && std::signbit(x) == std::signbit(y);
                };
                const bool isSame = std::equal(one.begin(), one.end(), all.data() + n * one.size(), same);
                const bool finite = std::isfinite(std::accumulate(one.begin(), one.end(), T(0)));
                EXPECT_TRUE(isSame && finite == isFinite) << "tensor " << n << " of kind " << kind;
            };
            const T sum = std::accumulate(tensor.Span().begin(), tensor.Span().end(), T(0));
            std::array<T, 3> p, alone;
            std::array<T, 4> q;
            tensor.principleValues(alone.data());
            tensor.tensorAsPrincipalAndQuaternions(p.data(), q.data());
            const T measures[] = {tensor.pressure(), tensor.mises(), tensor.tresca(), tensor.inv3()};
            for (std::size_t k = 0; k < 4; ++k)
                expect(out[k], std::span(measures + k, 1), std::isfinite(k == 0 ? measures[0] : sum));
            expect(out[4], alone, std::isfinite(sum));
            expect(out[5], p, std::isfinite(sum));
            expect(out[6], q, std::isfinite(q[0] + q[1] + q[2] + q[3]));
            tensor.transform(turn, engineeringShear);
            expect(turned, tensor.Span(), std::isfinite(sum));
        }
        EXPECT_NE(Refusal([&] { batch.mises(turned); }), "accepted");
        EXPECT_NE(Refusal([&] { (void)Batch(kind, std::span<const T>(packed).first(7)); }), "accepted");
        packed.resize(150 * size);  // in place, without the NaN, which equal nothing
        turned.resize(150 * size);
        Batch(kind, packed).transform(turn, engineeringShear, packed);
        EXPECT_EQ(packed, turned);
        Batch(kind, {}).mises({});
    }
    EXPECT_NE(Refusal([] { (void)Batch(kNoTensor, {}); }), "accepted");
}

TEST(utf_ComponentOrder, EachComponentMovesToItsPlace) {
    using Order = utf_ComponentOrderEnm;
    const std::vector<double> orders[] = {
        {11, 22, 33, 12, 13, 23}, {11, 22, 33, 12, 23, 13}, {11, 22, 33, 23, 13, 12}, {11, 12, 22, 13, 23, 33}};
    for (int from = 0; from < 4; ++from)
        for (int to = 0; to < 4; ++to) {
            std::vector<double> tensors(orders[from]);
            tensors.insert(tensors.end(), orders[to].begin(), orders[to].end());
            const std::span all(tensors);
            utf_Reorder(Order(from), Order(to), all.first(6), all.first(6));
            EXPECT_TRUE(std::equal(tensors.begin(), tensors.begin() + 6, tensors.begin() + 6)) << from << " to " << to;
            EXPECT_NE(Refusal([&] { utf_Reorder(Order(from), Order(to), all.first(6), all.first(5)); }), "accepted");
        }
}

}  // namespace
