// Protects the stream format: its bytes, what comes back of every kind of attribute, sharing, and the byte container.

#include "idb_Records.h"

#include <base/nex_PrimException.h>
#include <base/nex_RangeException.h>
#include <idb/idb_AgentBlob.h>
#include <idb/idb_Dump.h>
#include <idb/idb_ReadListObj.h>
#include <idb/idb_ReadListPrim.h>
#include <idb/idb_ReadMapPrim.h>
#include <support/streams.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <random>
#include <sstream>

using testing::HasSubstr;

namespace {

const std::string pointBytes = FromHex(
    "01 00 0a 03  01  01 00 00 00"
    "00 00 00 00 00 00 f0 3f  00 00 00 00 00 00 00 40  00 00 00 00 00 00 e0 bf");

const std::string lineBytes = FromHex(
    "06 00 0a 03  01  01 00 00 00"
    "00 00 00 00  00 00 00 00  01 00 00 00  09 00 00 00"
    "03 00 0a 03  01  00 00 00 00"
    "00 00 00 00 00 00 f0 3f  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  00 00 00 00 00 00 f0 3f"
    "01 00 0a 03  01  00 00 00 00"
    "00 00 00 00 00 00 f0 3f  00 00 00 00 00 00 00 40  00 00 00 00 00 00 08 40"
    "39 01 23 00  01  00 00 00 00"
    "02 00 00 00  01 00 00 00  07 00 00 00  ff ff ff ff");

gsl_StLine Line() {
    gsl_Vector direction(0, 0, 1);
    (void)direction.Length();
    gsl_StLine line(gsl_Point(1, 2, 3), direction);
    line.SetParentIds({7U, 4294967295U});
    line.SetOwnerFeatID(9);
    return line;
}

/// By value; handles are the same where they hold equal areas.
template <class V>
bool SameValue(const V& a, const V& b) {
    if constexpr (std::is_same_v<V, cow_CountedHld<Shape>>) {
        return a.IsNull() ? b.IsNull() : !b.IsNull() && a->Area() == b->Area();
    } else if constexpr (std::is_same_v<V, cow_COW<Small>>) {
        return a.ConstGet() == b.ConstGet();
    } else if constexpr (std::is_same_v<V, OrvBasUtlFilePath>) {
        return std::string(a.c_str()) == b.c_str();
    } else if constexpr (std::is_same_v<V, cow_List<cow_CountedHld<Shape>>>) {
        return std::equal(a.begin(), a.end(), b.begin(), b.end(), SameValue<cow_CountedHld<Shape>>);
    } else if constexpr (std::is_same_v<V, cow_Map<int, cow_CountedHld<Shape>>>) {
        return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const auto& x, const auto& y) {
            return x.first == y.first && SameValue(x.second, y.second);
        });
    } else {
        return a == b;
    }
}

}  // namespace

TEST(idb_Memento, WritesTheseBytes) {
    const cls_ClassRegistrar& r = TestRegistrar();
    EXPECT_EQ(ToHex(Written(r, gsl_Point(1, 2, -0.5))), ToHex(pointBytes));
    EXPECT_EQ(ToHex(Written(r, Line())), ToHex(lineBytes));

    const auto line = ReadBack<gsl_StLine>(r, lineBytes);
    EXPECT_EQ(Written(r, line), lineBytes);
    EXPECT_EQ(line.ParentIds(), (cow_List<unsigned>{7U, 4294967295U}));
    EXPECT_EQ(line.OwnerFeatID(), 9);
    EXPECT_NE(line.Point().Uid(), gsl_Point().Uid()) << "reading allocates an identity";
}

TEST(idb_Memento, EveryKindOfAttributeComesBack) {
    const Everything before = Everything::Filled();
    const std::string bytes = Written(TestRegistrar(), before);
    const Everything after = ReadBack<Everything>(TestRegistrar(), bytes);
    Everything::ForEach([](const char* name, const auto& a, const auto& b) { EXPECT_TRUE(SameValue(a, b)) << name; },
                        before, after);
    EXPECT_EQ(Written(TestRegistrar(), after), bytes) << "the second writing gives the same stream";

    ASSERT_FALSE(after.shape.IsNull());
    EXPECT_EQ(after.shape->Area(), 2.25);
    EXPECT_EQ(after.shape->sides, 4);
    EXPECT_EQ(after.shape, after.sameShape) << "shared before, shared again";
    EXPECT_EQ(after.shape, after.shapes.ConstGet(0));
    EXPECT_EQ(after.shape, after.shapeByNumber.ConstGet(1));
    EXPECT_NE(after.shape, after.shapes.ConstGet(2)) << "separate before, separate again";
    EXPECT_TRUE(after.shapes.ConstGet(1).IsNull());
    EXPECT_TRUE(after.noShape.IsNull());
}

TEST(idb_Memento, NumbersObjectsByFirstAppearanceAndNeverReusesANumber) {
    const cls_ClassRegistrar& r = TestRegistrar();
    bio_Ofilter out;
    for (int i = 0; i < 3; ++i) {
        Everything e;  // at one address each time, and so are its shapes unless they are held
        e.shape = cow_CountedHld<Shape>(new Square(i));
        idb_WriteObject(out, r, e);
    }
    bio_Ifilter in(out.Bytes());
    std::vector<Everything> read;
    for (int i = 0; i < 3; ++i) read.push_back(idb_ReadObject<Everything>(in, r));
    for (int i = 0; i < 3; ++i) EXPECT_EQ(read[static_cast<std::size_t>(i)].shape->Area(), i * i);
    EXPECT_EQ(in.Remaining(), 0U);

    const std::string shared = Written(r, Everything::Filled());
    bio_Ifilter sharing(shared);
    const idb_MementoRead memento(sharing, r, Everything::TypeId());
    EXPECT_EQ(memento.ReadObjCow("shape"), memento.ReadObjCow("sameShape", Shape::TypeId()));
    EXPECT_NE(memento.ReadObjPtr("shape"), memento.ReadObjCow("shape"));
    EXPECT_EQ(memento.ReadObjPtr("noShape"), nullptr);

    bio_Ifilter roots(Written(r, Square(3.0)) + Written(r, Square(4.0)));
    EXPECT_EQ(idb_ReadShared<Shape>(roots, r)->Area(), 9.0);
    EXPECT_EQ(idb_ReadShared<Square>(roots, r)->sides, 4);
}

TEST(idb_Memento, FieldsLandByNameAndWidth) {
    cls_ClassRegistrar r;
    r.AddClass("Sample", 0x7F0099, 1)
        .Attribute("b", cls_IntAttribute)
        .Attribute("a", cls_CharAttribute)
        .Attribute("s", cls_StringAttribute)
        .Attribute("o", cls_ObjectAttribute, cls_StringClass)
        .Attribute("ints", cls_ObjectAttribute, cls_CollectionClass(54), 54);
    bio_Ofilter out;
    idb_MementoWrite memento(out, r, 0x7F0099);
    memento.Write("b", -1);
    memento.Write("b", 3.0);         // wider than the slot
    memento.Write("b", 'x');         // narrower: the rest of the slot is cleared
    memento.Write("a", short{258});  // fits into the 4 bytes
    memento.Write("nowhere", 1);
    memento.Write("nowhere", cow_String("lost"));
    memento.Write("s", 5);                     // a string has no slot
    memento.Write("b", cow_String("string"));  // and a slot no string
    EXPECT_EQ(memento.MakeWriteObj("nowhere", cls_StringClass), nullptr);
    EXPECT_EQ(memento.MakeWriteObj("b", cls_StringClass), nullptr);
    EXPECT_NE(memento.MakeNullObj("o"), nullptr);
    EXPECT_EQ(memento.MakeWriteObj("o", cls_StringClass), nullptr) << "it is there already";
    EXPECT_EQ(memento.MakeBaseWriteObj(0x7F0010), nullptr);

    testing::internal::CaptureStderr();
    memento.CheckCollectionType(84, "ints");  // a list is stored as an array is
    memento.CheckCollectionType(52, "ints");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Error in collections types have: 54 looking for: 52 ints\n");

    memento.Flush();
    EXPECT_EQ(ToHex(out.Bytes()), ToHex(FromHex("99 00 7f 00 01 00 00 00 00"  // no object, no number
                                                "02 01 00 00  78 00 00 00"    // a, b
                                                "00 00 00 00"                 // s
                                                "36 01 23 00 00"              // ints: nobody made it
                                                "01 00 00 00 00")));          // o: null

    bio_Ifilter in(out.Bytes());
    const idb_MementoRead read(in, r, 0x7F0099);
    EXPECT_EQ(read.Read("a", short{0}), 258);
    EXPECT_EQ(read.Read("b", 7.5), 7.5) << "wider than the slot";
    EXPECT_EQ(read.Read("s", 5), 5);
    EXPECT_EQ(read.Read("nowhere", 5), 5);
    for (const char* const noText : {"b", "nowhere"}) EXPECT_EQ(read.Read(noText, cow_String("-")), "-");
    for (const char* const noObject : {"b", "nowhere"}) EXPECT_EQ(read.MakeReadObj(noObject), nullptr);
    EXPECT_EQ(read.AgentBlob(), nullptr);
    EXPECT_EQ(read.getObjectPtr(), nullptr);
    EXPECT_THROW(r.Class<Small>("bad", 1).Attribute("x", static_cast<cls_AttributeType>(6)), nex_PrimException);
}

TEST(idb_Memento, DroppedBeforeFlushWritesNothing) {
    bio_Ofilter out;
    {
        idb_MementoWrite memento(out, TestRegistrar(), cls_CollectionClass(52));
        memento.MakeWriteListPrim(52, 1);
    }
    EXPECT_EQ(out.Bytes(), "");
    EXPECT_THROW(Written(TestRegistrar(), gsl_PersistentMatrix{}) + Written(cls_ClassRegistrar(), Small()),
                 nex_StreamException)
        << "an unregistered class could not be read back";
}

TEST(idb_Memento, ReadersWalkAsTheyPromise) {
    bio_Ofilter out;
    {
        idb_MementoWrite memento(out, TestRegistrar(), cls_CollectionClass(54));
        auto* list = static_cast<cls_WriteListPrim<int>*>(memento.MakeWriteListPrim(54, 2));
        list->Write(cow_List<int>{1, 2, 3});
        const int more[] = {4};
        list->Write(more, 1);
        EXPECT_EQ(memento.MakeWriteMapInt2Obj(), nullptr) << "one collection at most";
        memento.Flush();
    }
    bio_Ifilter in(out.Bytes());
    const idb_MementoRead memento(in, TestRegistrar(), cls_CollectionClass(54), 84);
    auto* list = dynamic_cast<cls_ReadListPrim<int>*>(memento.Collection());
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->Columns(), 2);
    EXPECT_THROW((void)list->Read(), nex_RangeException);
    ASSERT_TRUE(list->Next());
    EXPECT_EQ(list->Read(), 1);
    EXPECT_EQ(list->Read(), 1);
    int values[5] = {};
    EXPECT_EQ(list->Read(values, 5), 3);
    EXPECT_EQ(values[2], 4);
    EXPECT_FALSE(list->Next());
    EXPECT_TRUE(list->Next()) << "after the end it begins anew";
}

/// Through a memento of its own and back, by hand; the reader is walked as hosts do it.
template <class K, class T>
void ExpectMapComesBack(cls_CollectionType code, const std::map<K, T>& entries) {
    SCOPED_TRACE(code);
    bio_Ofilter out;
    {
        idb_MementoWrite memento(out, TestRegistrar(), cls_CollectionClass(code));
        auto* const made =
            std::is_same_v<K, int> ? memento.MakeWriteMapInt2Prim(code) : memento.MakeWriteMapString2Prim(code);
        auto* const map = dynamic_cast<cls_WriteMapPrim<K, T>*>(made);
        ASSERT_NE(map, nullptr);
        for (const auto& [key, value] : entries) map->Write(key, value);
        memento.Flush();
    }
    bio_Ifilter in(out.Bytes());
    const idb_MementoRead memento(in, TestRegistrar(), cls_CollectionClass(code), code);
    auto* const map = dynamic_cast<cls_ReadMapPrim<K, T>*>(memento.Collection());
    ASSERT_NE(map, nullptr);
    EXPECT_EQ(map->Size(), static_cast<int>(entries.size()));
    EXPECT_THROW((void)map->ReadKey(), nex_RangeException);
    std::map<K, T> walked;
    while (map->Next()) walked.emplace(map->ReadKey(), map->Read());
    EXPECT_EQ(walked, entries);
    EXPECT_EQ(in.Remaining(), 0U);
}

TEST(idb_Memento, EveryMapOfPrimitivesComesBack) {
    ExpectMapComesBack<cow_String, double>(62, {{"", -0.5}, {"pi", 3.14}});
    ExpectMapComesBack<cow_String, float>(63, {{"a", 0.1F}});
    ExpectMapComesBack<cow_String, int>(64, {{"a", -1}, {"b", 2147483647}});
    ExpectMapComesBack<cow_String, cow_String>(65, {{"a", ""}, {"b", cow_String(std::string("x\0y", 3))}});
    ExpectMapComesBack<cow_String, unsigned>(66, {{"a", 4294967295U}});
    ExpectMapComesBack<int, double>(72, {{-1, 1e308}, {0, 0.0}});
    ExpectMapComesBack<int, float>(73, {{2147483647, 0.1F}});
    ExpectMapComesBack<int, int>(74, {{3, -3}});
    ExpectMapComesBack<int, cow_String>(75, {{3, "three"}});
    ExpectMapComesBack<int, unsigned>(76, {});

    bio_Ofilter out;
    idb_MementoWrite memento(out, TestRegistrar(), cls_CollectionClass(62));
    for (const cls_CollectionType noCode : {60, 61, 67, 69}) EXPECT_EQ(memento.MakeWriteMapInt2Prim(noCode), nullptr);
    for (const cls_CollectionType noCode : {50, 51, 58, 59}) EXPECT_EQ(memento.MakeWriteListPrim(noCode, 1), nullptr);
    bio_Ifilter in(FromHex("3d 01 23 00 01 00 00 00 00"));
    EXPECT_EQ(idb_MementoRead(in, TestRegistrar(), cls_CollectionClass(61), 61).Collection(), nullptr);
}

TEST(idb_Memento, AClassMayGrowAndShrink) {
    cls_ClassRegistrar older;
    older.AddClass("Small", Small::TypeId(), 1).Attribute("number", cls_IntAttribute);
    bio_Ofilter out;
    idb_MementoWrite memento(out, older, Small::TypeId());
    memento.Write("number", 5);
    memento.Flush();
    cls_ClassRegistrar sameFieldsNewNames;
    sameFieldsNewNames.Class<Small>("Small", 1).Add<int>("count");
    EXPECT_EQ(ReadBack<Small>(sameFieldsNewNames, out.Bytes()), Small(0, "")) << "unknown fields read as defaults";
    EXPECT_EQ(Small(cls_ReadVisitor(nullptr)), Small(0, ""));
    EXPECT_EQ(ReadBack<Small>(TestRegistrar(), FromHex("01 00 00 00 00")), Small(0, "")) << "no object";
}

TEST(idb_Memento, AWrongClassIsReportedAndReadAsTheExpectedOne) {
    std::string bytes = pointBytes;
    bytes[0] = 0x02;  // a matrix where a point is expected
    testing::internal::CaptureStderr();
    EXPECT_TRUE(ReadBack<gsl_Point>(TestRegistrar(), bytes) == gsl_Point(1, 2, -0.5));
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Error constructing object for 30a0002 does not inherit from 30a0001\n"
              "Error constructing object for gsl_Matrix does not inherit from gsl_Point\n");

    // A derived class is taken without a word, an unrelated one is refused where an object is to be made.
    bio_Ifilter derived(Written(TestRegistrar(), Square(2.0)));
    EXPECT_EQ(idb_ReadObject<Square>(derived, TestRegistrar()).Area(), 4.0);
    bio_Ifilter abstract(FromHex("10 00 7f 00 01 00 00 00 00 04 00 00 00"));
    EXPECT_THROW((void)idb_ReadShared<Shape>(abstract, TestRegistrar()), nex_StreamException);
}

TEST(idb_Memento, AForgedNumberTurnsNoObjectIntoAnother) {
    bio_Ifilter in("");
    const auto number = std::make_shared<int>(1);
    in.SetObject({5, 4}, 100, number);
    EXPECT_EQ(in.FindObject({5, 4}, 100), number);
    EXPECT_EQ(in.FindObject({5, 4}, 101), nullptr);
    in.SetObject({5, 4}, 101, std::make_shared<int>(2));
    EXPECT_EQ(in.FindObject({5, 4}, 100), number) << "the first one stays";
}

TEST(idb_AgentBlob, GrowsReadsAndSeeksLikeItsModel) {
    const unsigned seed = 20261121;
    SCOPED_TRACE(seed);
    std::mt19937_64 random(seed);
    bio_Ofilter out;
    std::string model;  // the bytes up to the length
    {
        idb_AgentBlob blob(&out);
        unsigned capacity = 1024;
        unsigned position = 0;
        for (int step = 0; step < 2000; ++step) {
            const std::string chunk(random() % 700, static_cast<char>(random()));
            const auto size = static_cast<unsigned>(chunk.size());
            while (position + size >= capacity) capacity += 1024;
            blob.Write(chunk.data(), size);
            model.replace(position, size, chunk);
            position += size;
            if (random() % 4 == 0) {
                const auto to = static_cast<unsigned>(random() % (model.size() + 50));
                blob.Seek(to);
                position = std::min(to, static_cast<unsigned>(model.size()));
            }
            ASSERT_EQ(blob.Capacity(), capacity);
            ASSERT_EQ(blob.Position(), position);
            ASSERT_EQ(blob.Length(), model.size());
        }
        EXPECT_TRUE(blob.NeedsDeletion());
    }
    bio_Ifilter in(out.Bytes());
    idb_AgentBlob blob(in);
    std::string back(model.size(), '\0');
    EXPECT_EQ(blob.Read(back.data(), static_cast<unsigned>(back.size())), back.size());
    EXPECT_EQ(back, model);
    char one = 0;
    EXPECT_EQ(blob.Read(&one, 1), 0U) << "nothing beyond the end";
    blob.Seek(std::numeric_limits<unsigned>::max());
    EXPECT_EQ(blob.Read(&one, 1), 0U);
    EXPECT_FALSE(blob.NeedsDeletion());
}

TEST(idb_AgentBlob, AWriteThatWouldJustFillItStillGrows) {
    bio_Ofilter out;
    idb_AgentBlob blob(&out);
    const std::string most(1023, 'x');
    blob.Write(most.data(), 1023);
    EXPECT_EQ(blob.Capacity(), 1024U);
    blob.Write("y", 1);
    EXPECT_EQ(blob.Capacity(), 2048U);
    blob.Seek(1020);
    int numbers[2] = {-1, -1};
    EXPECT_EQ(blob.ReadIntArray(numbers, 2), 2U) << "reads up to the capacity, which shows zeros";
    EXPECT_EQ(numbers[1], 0);
    const double values[] = {0.1, -2.5};
    blob.Seek(0);
    blob.WriteDoubleArray(values, 2);
    blob.Seek(0);
    double back[2] = {};
    EXPECT_EQ(blob.ReadDoubleArray(back, 2), 2U);
    EXPECT_EQ(back[1], -2.5);

    bio_Ofilter within;
    idb_MementoWrite memento(within, TestRegistrar(), cls_AgentBlobClass);
    memento.MakeAgentBlob()->WriteDoubleArray(values, 2);
    memento.Flush();
    bio_Ifilter in(within.Bytes());
    const idb_MementoRead reading(in, TestRegistrar(), cls_AgentBlobClass);
    ASSERT_NE(reading.AgentBlob(), nullptr);
    EXPECT_EQ(reading.AgentBlob()->ReadDoubleArray(back, 2), 2U);
    EXPECT_EQ(back[0], 0.1);
}

TEST(idb_Dump, ShowsClassFieldValueAndOffset) {
    std::ostringstream text;
    bio_Ifilter in(pointBytes + lineBytes + Written(TestRegistrar(), Everything::Filled()));
    EXPECT_EQ(idb_Dump(text, in, TestRegistrar(), 2), 2);
    EXPECT_THAT(text.str(), HasSubstr("00000000  gsl_Point 0x030a0001, object 1\n"
                                      "00000009    _x  double  1\n"
                                      "00000011    _y  double  2\n"
                                      "00000019    _z  double  -0.5\n"));
    EXPECT_THAT(text.str(), HasSubstr("00000032    _ok"));
    EXPECT_THAT(text.str(), HasSubstr("2 values, 1 columns: 7, 4294967295\n"));
    EXPECT_EQ(idb_Dump(text, in, TestRegistrar()), 1);
    EXPECT_THAT(text.str(), HasSubstr("text  string  \"nul\\x00inside\""));
    EXPECT_THAT(text.str(), HasSubstr("base part  Shape 0x007f0010"));

    bio_Ifilter unknown(FromHex("99 99 00 00 01 00 00 00 00"));
    EXPECT_EQ(idb_Dump(text, unknown, TestRegistrar()), 1);
    EXPECT_THAT(text.str(), HasSubstr("cannot be told apart"));
}
