// Protects who owns the numbers of a field value through every construction, copy, move and assignment, that small
// values cost no allocation, and the senses in which vectors turn.

#include <support/RandomGeometry.h>
#include <support/values.h>
#include <utf/utf_Quaternion.h>
#include <utf/utf_Scalar.h>
#include <utf/utf_Slerp.h>
#include <utf/utf_Tensor.h>
#include <utf/utf_Vector.h>

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <memory>
#include <new>
#include <sstream>

namespace {

std::atomic<int> allocations{0};

using Data = utf_EngineeringData<double>;
using Vector = utf_Vector<double>;
using Quaternion = utf_Quaternion<double>;
using Numbers = std::vector<double>;
constexpr auto kOther = static_cast<res_DataTypeEnm>(3);

static_assert(std::is_nothrow_move_constructible_v<Vector> && std::is_nothrow_move_assignable_v<Quaternion>);

Numbers NumbersOf(const Data& data) { return {data.Span().begin(), data.Span().end()}; }

/// Both sides of what fits into an object, and nothing.
class Ownership : public testing::TestWithParam<int> {
protected:
    const int count = GetParam();
    const Numbers original = Numbers(static_cast<std::size_t>(count), 1.5);
    Numbers callers = original;
    Data wrapping{kOther, callers.data(), count, true};

    static void ExpectOwned(const Data& data, const Numbers& numbers) {
        EXPECT_TRUE(data.ownsComponents() && data.engineeringShear());
        EXPECT_EQ(NumbersOf(data), numbers);
    }
};
INSTANTIATE_TEST_SUITE_P(Counts, Ownership, testing::Values(0, 2, 6, 7, 40));

TEST_P(Ownership, OnlyThePointerToNonConstWrapsAndWhatIsMovedFromIt) {
    const cow_List<double> list(callers);
    const Data constant(kOther, std::as_const(callers).data(), count, true), fromList(kOther, list, true),
        copy(wrapping);
    const std::unique_ptr<Data> virtualCopy(wrapping.Copy());
    Data reused(wrapping), moved(std::move(reused));
    reused = wrapping;
    Numbers kept(4, 2.5);
    Data target(kOther, kept.data(), 4), second(kOther, kept.data(), 4), tail(kOther, kept.data(), 4, true);
    target = Data(kOther, callers.data(), count, true);  // a temporary that wraps is copied
    second = std::move(moved);
    tail.set(tail.Span().data() + 1, 2);  // from itself
    const Data stillWrapping(std::move(wrapping));
    for (double& number : callers) number = 7.5;
    const Data* const owners[] = {&constant, &fromList, &copy, virtualCopy.get(), &reused, &target, &second};
    for (const Data* data : owners) ExpectOwned(*data, original);
    ExpectOwned(tail, {2.5, 2.5});
    ExpectOwned(Data(kOther, count, true), Numbers(callers.size(), 0.0));
    EXPECT_EQ(copy.data(), list);
    EXPECT_EQ(NumbersOf(stillWrapping), callers);
    EXPECT_EQ(kept, Numbers(4, 2.5));
    for (const int outside : {-1, count}) EXPECT_EQ(stillWrapping.constGet(outside), 0.0);
}

TEST(utf_EngineeringData, BadCountsPointersAndKindsAreDefined) {
    double number = 1.5, *const null = nullptr;
    const double* const nullConst = nullptr;
    EXPECT_EQ(Data(kOther, -3).count() + Data(kOther, &number, -1).count() + Data(kOther, nullConst, 0).count(), 0);
    EXPECT_EQ(NumbersOf(Data(kOther, null, 2)), Numbers(2, 0.0));
    EXPECT_EQ(NumbersOf(Quaternion(res_QUATERNION_3D, cow_List<double>{1, 2})), (Numbers{1, 2, 0, 0}));
    EXPECT_EQ(Vector(kOther, nullConst).count() + Vector(kOther, &number, 1).count(), 4);
    EXPECT_EQ(utf_Scalar<double>(kOther, &number, 1).value() + utf_Scalar<double>(kOther, &number, 0).value(), 1.5);
    static_assert(!std::is_constructible_v<utf_Tensor<double>, res_DataTypeEnm, float*>);
    static_assert(!std::is_constructible_v<Vector, res_DataTypeEnm, int*> &&
                  std::is_constructible_v<Vector, res_DataTypeEnm, double*, bool>);
    EXPECT_EQ(utf_Scalar<float>(kOther, 0).value() + utf_Scalar<float>(kOther, cow_List<float>()).value(), 0.0F);
}

TEST(utf_EngineeringData, Prints) {
    double q[] = {0.5, -2, 3, 4};
    std::ostringstream out;
    Data(kOther, q, 2).Print(out, 0);
    Vector(kOther, q).Print(out, 2);
    utf_Scalar<float>(kOther, 2.5).Print(out, -1);
    Quaternion(res_QUATERNION_2D, q).Print(out, 1);
    utf_Quat2dBase<double>(q).Print(out, 1);
    EXPECT_EQ(out.str(),
              "EngineeringData: 0.5 -2 \n  Vector: 0.5 -2 3 \nScalar: 2.5 \n"
              " Quaternion: 0.5 -2 \n Quaternion: 0.5 -2 \n");
}

TEST(utf_EngineeringData, SmallValuesAllocateNothing) {
    double four[] = {0.5, 0.5, 0.5, 0.5};
    const int before = allocations;
    Quaternion q = Quaternion(res_QUATERNION_3D, std::as_const(four)).mult(Quaternion(0.1, 0.2, 0.3));
    q = utf_Slerp(q, q.inverse(), 0.5);
    Vector v = q.toVector();
    v.transform(q);
    EXPECT_NE(utf_Scalar<double>(kOther, v.magnitude()).value(), 0.0);
    EXPECT_EQ(allocations, before);
}

TEST(utf_Vector, TurnsIntoTheLocalFrameButTwoComponentsByAQuaternionTheOtherWay) {
    double z[] = {0.6, 0.8}, flat[] = {0, 0, 0.6, 0.8};  // cosine 0.28, sine 0.96, about the 3-axis
    double permuting[] = {0.5, 0.5, 0.5, 0.5};           // the local axes are y, z, x
    const auto expectTurned = [](const Numbers& expected, const auto& q) {
        Numbers numbers = {1, 2, 4, 8};
        Vector v(kOther, numbers.data(), static_cast<int>(expected.size()));
        v.transform(q);
        for (std::size_t i = 0; i < expected.size(); ++i) EXPECT_NEAR(numbers[i], expected[i], 1e-15) << i;
    };
    const Quaternion plane(res_QUATERNION_2D, z), space(res_QUATERNION_3D, flat), unknown(kOther);
    expectTurned({2.2, -0.4, 4}, utf_Quat2dBase<double>(z));
    expectTurned({2.2, -0.4}, utf_Quat3dBase<double>(flat));
    expectTurned({2, 4, 1}, utf_Quat3dBase<double>(permuting));
    expectTurned({2, 4, 1}, Quaternion(res_QUATERNION_3D, permuting));
    for (const Quaternion& q : {plane, space}) expectTurned({-1.64, 1.52}, q);
    for (const Numbers& unturned : {Numbers{1, 2, 4}, Numbers{1, 2, 4, 8}}) expectTurned(unturned, unknown);

    Vector two(kOther, cow_List<double>{3, 4});
    double almost[] = {0, 0, 0, std::sqrt(0.99)};
    ASSERT_EQ(Quaternion(res_QUATERNION_3D, almost).R33(), 0.99);
    for (const Quaternion& q : {Quaternion(res_QUATERNION_3D, almost), unknown})
        EXPECT_EQ(Refusal([&] { two.transform(q); }), "coss.ConstGet(2,2) > 0.99 || !\"Not a valid 2D transform\"");
    EXPECT_EQ(NumbersOf(two), (Numbers{3, 4}));
    EXPECT_EQ(two.magnitude(), 5.0);
    almost[3] = std::nextafter(almost[3], 1.0);
    EXPECT_NO_THROW(two.transform(Quaternion(res_QUATERNION_3D, almost)));
}

}  // namespace

void* operator new(std::size_t size) {
    ++allocations;
    if (void* memory = std::malloc(size != 0 ? size : 1)) return memory;
    throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
