// Protects against any bytes: a reader gives a value or throws the stream exception, in bounded depth and memory.

#include "idb_Records.h"

#include <gsl/gsl_PersistentMatrix.h>
#include <idb/idb_Dump.h>
#include <idb/idb_WriteListPrim.h>
#include <support/streams.h>

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <new>
#include <random>
#include <sstream>

namespace {
std::atomic<std::size_t> allocated{0};
}

void* operator new(std::size_t size) {
    allocated += size;
    if (void* memory = std::malloc(size != 0 ? size : 1)) return memory;
    throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace {

/// Reads one root as T. True for a value, false for the stream exception; anything else fails the test, and so does
/// memory out of proportion.
template <class T>
bool Reads(const std::string& bytes) {
    bio_Ifilter in(bytes);
    allocated = 0;
    bool isRead = false;
    try {
        (void)idb_ReadObject<T>(in, TestRegistrar());
        isRead = true;
    } catch (const nex_StreamException&) {
    }
    EXPECT_LE(allocated, 4000 + sizeof(T) + 64 * bytes.size()) << ToHex(bytes);
    return isRead;
}

/// Every prefix and every one-bit change of a good stream, and the dump of each; and bytes broken at random.
template <class T>
void Attack(const T& object) {
    const std::string golden = Written(TestRegistrar(), object);
    ASSERT_TRUE(Reads<T>(golden));
    for (std::size_t length = 0; length < golden.size(); ++length)
        EXPECT_FALSE(Reads<T>(golden.substr(0, length))) << length;
    for (std::size_t bit = 0; bit < 8 * golden.size(); ++bit) {
        std::string changed = golden;
        changed[bit / 8] = static_cast<char>(changed[bit / 8] ^ (1 << (bit % 8)));
        Reads<T>(changed);
        try {
            std::ostringstream text;
            bio_Ifilter in(changed);
            idb_Dump(text, in, TestRegistrar());
        } catch (const nex_StreamException&) {
        }
    }
    const unsigned seed = 42;
    SCOPED_TRACE(seed);
    std::mt19937_64 random(seed);
    for (int trial = 0; trial < 3000; ++trial) {
        std::string bytes = golden;
        for (auto n = random() % 8 + 1; n > 0; --n) bytes[random() % bytes.size()] = static_cast<char>(random());
        Reads<T>(bytes);
    }
}

std::string Int(unsigned value) {
    bio_Ofilter out;
    out.Write(value);
    return out.Bytes();
}

class idb_Hostile : public testing::Test {
    void SetUp() override { testing::internal::CaptureStderr(); }
    void TearDown() override { testing::internal::GetCapturedStderr(); }
};

}  // namespace

TEST_F(idb_Hostile, BrokenStreamsAreReadOrRefused) {
    omu_xoObjVarray<gsl_Dot> dots;
    dots.Append(gsl_Dot());
    const auto attack = [](const auto&... objects) { (Attack(objects), ...); };
    attack(gsl_PersistentMatrix(), gsl_StLine(), dots, Square(2.0), Everything::Filled());
}

TEST_F(idb_Hostile, CountsAreCheckedBeforeAnythingIsAllocated) {
    cls_ClassRegistrar r;
    for (const cls_CollectionType code : {1, 2, 3, 52, 53, 54, 55, 57, 62, 65, 66, 72, 75, 82, 85, 93, 112}) {
        for (const unsigned count : {0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU, 1000U}) {
            bio_Ifilter in(Int(cls_CollectionClass(code)) + '\1' + Int(0) + Int(count) + Int(count) + "12345678");
            allocated = 0;
            EXPECT_THROW(idb_MementoRead(in, r, cls_CollectionClass(code), code), nex_StreamException) << code;
            EXPECT_LT(allocated, 8000U);
        }
    }
    bio_Ifilter string(Int(0x7FFFFFFF) + "abc");
    cow_String text("kept");
    EXPECT_THROW(string.Read(text), nex_StreamException);
    EXPECT_TRUE(text == "kept");
    bio_Ifilter blob(Int(cls_AgentBlobClass) + '\1' + Int(0) + Int(0xFFFFFFFF) + "abc");
    EXPECT_THROW(idb_MementoRead(blob, r, cls_AgentBlobClass), nex_StreamException);
    bio_Ifilter map(Int(cls_CollectionClass(74)) + '\1' + Int(0) + Int(1) + Int(0) + Int(1) + Int(2));
    EXPECT_THROW(idb_MementoRead(map, r, cls_CollectionClass(74), 74), nex_StreamException) << "two counts differ";
}

TEST_F(idb_Hostile, AnArrayMustFillItsRows) {
    Everything e;
    e.matrix = cow_2DArray<double>(1, 7);
    std::string bytes = Written(TestRegistrar(), e);
    const std::size_t columns = bytes.find(Int(7) + Int(7)) + 4;
    ASSERT_NE(columns, std::string::npos + 4);
    for (const unsigned bad : {0U, 2U, 0xFFFFFFFFU}) {
        bytes.replace(columns, 4, Int(bad));
        EXPECT_FALSE(Reads<Everything>(bytes)) << bad;
    }
    bytes.replace(columns, 4, Int(1));
    EXPECT_EQ(ReadBack<Everything>(TestRegistrar(), bytes).matrix.Rows(), 7);
}

TEST_F(idb_Hostile, DepthIsBoundedBothWays) {
    const auto chain = [](int links, const auto& add) {
        Link link;
        for (int i = 1; i < links; ++i) {
            Link outer;
            add(outer, link);
            link = outer;
        }
        return link;
    };
    const auto behind = [](Link& outer, const Link& link) {
        outer.next = cow_CountedHld(std::make_shared<Link>(link));
    };
    const auto within = [](Link& outer, const Link& link) { outer.inside = {link}; };
    // 511 links and the fields that the last one leaves empty are 512 deep.
    EXPECT_TRUE(Reads<Link>(Written(TestRegistrar(), chain(511, behind))));
    for (const int links : {512, 2000})
        EXPECT_THROW(Written(TestRegistrar(), chain(links, behind)), nex_StreamException);
    EXPECT_THROW(Written(TestRegistrar(), chain(400, within)), nex_StreamException) << "two mementos a level";

    std::string bottomless;
    for (int i = 0; i < 1000000; ++i)
        bottomless +=
            Int(cls_CollectionClass(1)) + '\1' + Int(0) + Int(1) + Int(1) + Int(Link::TypeId()) + '\1' + Int(0);
    bio_Ifilter in(bottomless);
    EXPECT_THROW((void)idb_MementoRead(in, TestRegistrar(), cls_CollectionClass(1), 1), nex_StreamException);
}

TEST(idb_Misfit, IsToldEachTimeAndNothingIsMadeBelowItsRoot) {
    const cls_ClassRegistrar& r = TestRegistrar();
    const std::string golden = Written(r, Everything::Filled());
    std::string bytes = golden;
    const auto put = [&bytes](unsigned expected, unsigned other) {
        bytes.replace(bytes.find(Int(expected)), 4, Int(other));
    };
    const auto lines = [](const auto& read) {
        testing::internal::CaptureStderr();
        read();
        const std::string complaints = testing::internal::GetCapturedStderr();
        return std::count(complaints.begin(), complaints.end(), '\n');
    };
    const auto refused = [](const auto& make) { EXPECT_THROW((void)make(), nex_StreamException); };
    put(cls_CollectionClass(82), cls_CollectionClass(52));  // the matrix as a list: compatible
    put(cls_CollectionClass(52), cls_CollectionClass(82));
    EXPECT_EQ(lines([&] { bytes = Written(r, ReadBack<Everything>(r, bytes)); }), 0);
    EXPECT_EQ(bytes, golden);

    bytes = golden;
    const std::pair<unsigned, unsigned> misfits[] = {{cls_CollectionClass(52), cls_CollectionClass(54)},
                                                     {Small::TypeId(), Link::TypeId()},
                                                     {Everything::TypeId(), Small::TypeId()}};
    for (std::ptrdiff_t told = 2; const auto& [expected, other] : misfits) {
        put(expected, other);
        EXPECT_EQ(told, lines([&] {
                      bio_Ifilter in(bytes);
                      const idb_MementoRead memento(in, r, Everything::TypeId());
                      EXPECT_EQ(memento.Read("number", 0), -70000) << "fields can be asked for";
                      EXPECT_EQ(in.Remaining(), 0U);
                      refused([&] { return memento.ReadObjPtr("held"); });
                      refused([&] { return memento.ReadObjCow("shape"); });
                      EXPECT_TRUE(memento.MakeReadListObj("shapes")->Next());
                      refused([&] { return memento.MakeReadListObj("shapes")->ReadObjPtr(Shape::TypeId()); });
                      refused([&] { return Everything(cls_ReadVisitor(&memento)); });
                  }));
        EXPECT_EQ(told, lines([&] { refused([&] { return ReadBack<Everything>(r, bytes); }); }));
        told += 2;
    }
    bytes = Written(r, Square(2.0));
    put(Shape::TypeId(), Small::TypeId());  // its base part
    bio_Ifilter in(bytes + Int(Small::TypeId()) + '\0');
    EXPECT_EQ(lines([&] {
                  refused([&] { return idb_ReadShared<Shape>(in, r); });
                  refused([&] { return idb_ReadShared<Shape>(in, r); });
              }),
              4);
}

TEST(idb_Memory, GrowsWithThePiecesOfAList) {
    bio_Ofilter out;
    idb_WriteListPrim<double> list(&out, 1);
    const double piece[3] = {};
    allocated = 0;
    for (int i = 0; i < 10000; ++i) list.Write(piece, 3);
    EXPECT_LT(allocated, 10000 * sizeof piece * 4);
    list.Abandon();
}
