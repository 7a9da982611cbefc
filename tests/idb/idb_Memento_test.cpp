// Protects the stream format: its bytes, what comes back of every kind of attribute, sharing, and the byte container.

#include "idb_Records.h"

#include <base/nex_PrimException.h>
#include <base/nex_RangeException.h>
#include <base/typ_ArchCompTable.h>
#include <idb/idb_AgentBlob.h>
#include <idb/idb_Dump.h>
#include <idb/idb_ReadListObj.h>
#include <idb/idb_ReadListPrim.h>
#include <idb/idb_ReadMapPrim.h>
#include <support/streams.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <map>
#include <random>
#include <sstream>

using testing::HasSubstr;

namespace {

const std::string pointBytes = FromHex(
    "01 00 0a 03  01  01 00 00 00"
    "00 00 00 00 00 00 f0 3f  00 00 00 00 00 00 00 40  00 00 00 00 00 00 e0 bf");

}  // namespace

TEST(idb_Memento, EveryKindOfAttributeComesBack) {
    EXPECT_EQ(ToHex(Written(TestRegistrar(), gsl_Point(1, 2, -0.5))), ToHex(pointBytes));

    const std::string bytes = Written(TestRegistrar(), Everything::Filled());
    const Everything after = ReadBack<Everything>(TestRegistrar(), bytes);
    EXPECT_EQ(Written(TestRegistrar(), after), bytes);

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

    Everything first, second;
    first.shape = second.shape = cow_CountedHld<Shape>(new Square(5.0));
    bio_Ofilter between;
    idb_WriteObject(between, r, first);
    idb_WriteObject(between, r, static_cast<const Square&>(*first.shape));
    idb_WriteObject(between, r, second);
    bio_Ifilter three(between.Bytes());
    first = idb_ReadObject<Everything>(three, r);
    EXPECT_EQ(idb_ReadObject<Square>(three, r).side, 5.0);
    EXPECT_EQ(idb_ReadObject<Everything>(three, r).shape, first.shape) << "one before, one again";

    const std::string shared = Written(r, Everything::Filled());
    bio_Ifilter sharing(shared);
    const idb_MementoRead memento(sharing, r, Everything::TypeId());
    EXPECT_EQ(memento.ReadObjCow("shape"), memento.ReadObjCow("sameShape", Shape::TypeId()));
    EXPECT_NE(memento.ReadObjPtr("shape"), memento.ReadObjCow("shape"));
    cls_ReadListObj& shapes = *memento.MakeReadListObj("shapes");
    cls_ReadMapObj<int>& byNumber = *memento.MakeReadMapInt2Obj("shapeByNumber");
    EXPECT_THROW((void)byNumber.ReadObjPtr(Shape::TypeId()), nex_RangeException) << "no current entry";
    ASSERT_TRUE(shapes.Next() && byNumber.Next());
    for (const auto& entry : {shapes.ReadObjCow(Shape::TypeId()), byNumber.ReadObjCow(Shape::TypeId())})
        EXPECT_EQ(entry, memento.ReadObjCow("shape"));
    for (const auto& entry : {shapes.ReadObjPtr(Shape::TypeId()), byNumber.ReadObjPtr(Shape::TypeId())})
        EXPECT_NE(entry, memento.ReadObjCow("shape"));
    ASSERT_TRUE(shapes.Next() && byNumber.Next());
    EXPECT_TRUE(shapes.ReadObjCow(Shape::TypeId()) == nullptr && byNumber.ReadObjPtr(Shape::TypeId()) == nullptr);
    EXPECT_EQ(memento.MakeReadListPrim<double>("doubles")->Values(), (cow_List<double>{0.1, 0.2}));
    EXPECT_EQ(memento.MakeReadMapInt2Prim<unsigned>("byNumber")->Size(), 2);
    EXPECT_EQ(memento.MakeReadMapString2Prim<double>("byName")->Size(), 1);
    EXPECT_EQ(memento.MakeReadMapString2Obj("smallByName")->Size(), 1);
    for (const char* const none : {"number", "nowhere", "ints", "part"})
        EXPECT_EQ(memento.MakeReadListPrim<float>(none), nullptr);

    const auto proxy = memento.MakeAgentProxy<Small>("held"), copy = proxy;
    const auto other = memento.MakeAgentProxy<Small>("held");
    EXPECT_EQ(proxy.Uid(), copy.Uid());
    EXPECT_NE(proxy.Uid(), other.Uid());
    EXPECT_FALSE(proxy.IsLoaded());
    EXPECT_EQ(proxy.Value().ConstGet(), Small(8, "held"));
    EXPECT_EQ(&proxy.Value().ConstGet(), &proxy.Value().ConstGet()) << "made once";
    EXPECT_TRUE(proxy.IsLoaded() && !copy.IsLoaded());
    EXPECT_TRUE(memento.MakeAgentProxy<Small>("nowhere").Value().IsNull());
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

TEST(idb_Memento, CountsThatAStreamCannotHoldStopIt) {
    bio_Ofilter out;
    out.WriteCount(0x7FFFFFFF);  // strings and all collections write theirs so
    EXPECT_TRUE(out.Good());
    out.WriteCount(std::size_t{1} << 31 << (sizeof(std::size_t) > 4 ? 5 : 0));
    out.Write(cow_String("behind"));
    EXPECT_STREQ(out.Failure(), "too long for a stream");
    EXPECT_EQ(out.Bytes(), "\xFF\xFF\xFF\x7F");
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
    idb_MementoWrite writing(out, TestRegistrar(), cls_CollectionClass(54));
    auto& made = dynamic_cast<cls_WriteListPrim<int>&>(*writing.MakeWriteListPrim(54, 2));
    const int more[] = {4};
    made.Write(cow_List<int>{1, 2});
    made.Write(cow_List<int>{3});
    made.Write(more, 1);
    EXPECT_EQ(writing.MakeWriteMapInt2Obj(), nullptr) << "one collection at most";
    writing.Flush();

    bio_Ifilter in(out.Bytes());
    const idb_MementoRead reading(in, TestRegistrar(), cls_CollectionClass(54), 84);
    auto& list = dynamic_cast<cls_ReadListPrim<int>&>(*reading.Collection());
    EXPECT_EQ(list.Columns(), 2);
    EXPECT_THROW((void)list.Read(), nex_RangeException);
    ASSERT_TRUE(list.Next());
    EXPECT_EQ(list.Read(), 1);
    EXPECT_EQ(list.Read(), 1);
    int values[5] = {};
    EXPECT_EQ(list.Read(values, 5), 3);
    EXPECT_EQ(values[2], 4);
    EXPECT_FALSE(list.Next());
    EXPECT_TRUE(list.Next()) << "after the end it begins anew";
}

/// Through a memento of its own and back, by hand; the reader is walked as hosts do it.
template <class K, class T>
void ExpectMapComesBack(cls_CollectionType code, const std::map<K, T>& entries) {
    SCOPED_TRACE(code);
    bio_Ofilter out;
    idb_MementoWrite writing(out, TestRegistrar(), cls_CollectionClass(code));
    auto* const made =
        std::is_same_v<K, int> ? writing.MakeWriteMapInt2Prim(code) : writing.MakeWriteMapString2Prim(code);
    for (const auto& [key, value] : entries) dynamic_cast<cls_WriteMapPrim<K, T>&>(*made).Write(key, value);
    writing.Flush();

    bio_Ifilter in(out.Bytes());
    const idb_MementoRead reading(in, TestRegistrar(), cls_CollectionClass(code), code);
    auto& map = dynamic_cast<cls_ReadMapPrim<K, T>&>(*reading.Collection());
    EXPECT_EQ(map.Size(), static_cast<int>(entries.size()));
    EXPECT_THROW((void)map.ReadKey(), nex_RangeException);
    std::map<K, T> walked;
    while (map.Next()) walked.emplace(map.ReadKey(), map.Read());
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
    for (const cls_CollectionType noCode : {2, 54, 60, 61, 67, 69, 82, 93, 112})
        EXPECT_EQ(memento.MakeWriteMapInt2Prim(noCode), nullptr);
    for (const cls_CollectionType noCode : {2, 50, 51, 58, 59, 62, 66, 74, 93, 112})
        EXPECT_EQ(memento.MakeWriteListPrim(noCode, 1), nullptr);
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
    const auto report = [](unsigned readClass) {
        std::string bytes = pointBytes;
        bytes[0] = static_cast<char>(readClass);
        testing::internal::CaptureStderr();
        bio_Ifilter in(bytes);
        const idb_MementoRead memento(in, TestRegistrar(), gsl_Point::TypeId());
        EXPECT_EQ(memento.Read("_z", 0.0), -0.5);
        EXPECT_EQ(memento.ClassId(), gsl_Point::TypeId());
        return testing::internal::GetCapturedStderr();
    };
    const auto complaint = [](const std::string& read, const std::string& expected) {
        return "Error constructing object for " + read + " does not inherit from " + expected + "\n";
    };
    EXPECT_EQ(report(2), complaint("30a0002", "30a0001") + complaint("gsl_Matrix", "gsl_Point"));
    EXPECT_EQ(report(0x77), complaint("30a0077", "30a0001") + complaint("unknown class", "gsl_Point"));
    constexpr typ_Entry names[] = {{0, 1, nullptr}, {7, 1, "place"}, {7, 1, "table"}};
    typ_ArchCompTable::InsertEntry(0x30A, typ_ArchCompEntry(names, 3));
    EXPECT_EQ(report(2), complaint("30a0002", "30a0001") + complaint("table", "place"));

    // A derived class is taken without a word, whether the registrar knows it for one or the type table; an unrelated
    // one is refused where an object is to be made.
    constexpr typ_Entry types[] = {{0, 1, nullptr}, {7, gsl_Point::TypeId(), "Small"}};
    typ_ArchCompTable::InsertEntry(0x7F, typ_ArchCompEntry(types, 2));
    bio_Ifilter named(Written(TestRegistrar(), Small(3, "three")));
    EXPECT_EQ(idb_MementoRead(named, TestRegistrar(), gsl_Point::TypeId()).ClassId(), Small::TypeId());
    typ_ArchCompTable::Clear();
    bio_Ifilter derived(Written(TestRegistrar(), Square(2.0)));
    EXPECT_EQ(idb_ReadObject<Square>(derived, TestRegistrar()).Area(), 4.0);
    bio_Ifilter abstract(FromHex("10 00 7f 00 01 00 00 00 00 04 00 00 00"));
    EXPECT_THROW((void)idb_ReadShared<Shape>(abstract, TestRegistrar()), nex_StreamException);

    // Expecting class 1 is no reason to stop; reading it is.
    bio_Ifilter root(FromHex("99 09 00 00 01 00 00 00 00 02 00 00 00 01 00 00 00 0b 00 00 00 0c 00 00 00"));
    testing::internal::CaptureStderr();
    const idb_MementoRead kept(root, TestRegistrar(), cls_RootClass, 54);
    EXPECT_NE(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(dynamic_cast<const cls_ReadListPrim<int>&>(*kept.Collection()).Values(), (cow_List<int>{11, 12}));
    EXPECT_EQ(root.Remaining(), 0U);
}

TEST(idb_Memento, StringsAsObjectsHaveOneLayout) {
    cls_ClassRegistrar none, odd;
    odd.AddClass("odd", cls_StringClass, 1).Attribute("o", cls_ObjectAttribute, cls_StringClass);
    odd.AddClass("plain", cls_TextClass, 1).Attribute("i", cls_IntAttribute);
    for (const cls_ClassRegistrar* r : {&std::as_const(none), &std::as_const(odd), &TestRegistrar()}) {
        for (const auto& [id, field] : {std::pair("01", "STRING"), std::pair("07", "TRSTRING")}) {
            const std::string bytes = FromHex(std::string(id) + " 00 1a 00 01 00 00 00 00 02 00 00 00 68 69");
            bio_Ifilter in(bytes);
            const idb_MementoRead memento(in, *r, cls_AnyClass, 54);
            EXPECT_EQ(memento.Read(field, cow_String()), "hi");
            EXPECT_EQ(in.Remaining(), 0U);
            bio_Ifilter entry(FromHex("01 00 00 00 01 00 00 00") + bytes);
            idb_ReadTree tree(entry, *r);
            idb_ReadListObj list(tree, 2);
            ASSERT_TRUE(list.Next());
            EXPECT_EQ(list.MakeReadObj().Read(field, cow_String("-")), r == &none ? "-" : "hi");
        }
    }
    std::ostringstream text;
    bio_Ifilter in(FromHex("01 00 1a 00 01 00 00 00 00 02 00 00 00 68 69"));
    idb_Dump(text, in, odd);
    EXPECT_THAT(text.str(), HasSubstr("STRING  string  \"hi\"\n"));
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
        EXPECT_TRUE(blob.NeedsDeletion());
        unsigned capacity = 1024;
        unsigned position = 0;
        for (int step = 0; step < 2000; ++step) {
            // Now and then what would just fill it, which makes it grow all the same.
            const auto size = random() % 50 == 0 ? capacity - position : static_cast<unsigned>(random() % 700);
            const std::string chunk(size, static_cast<char>(random()));
            while (position + size >= capacity) capacity += 1024;
            blob.Write(chunk.data(), size);
            if (model.size() < position) model.resize(position);
            model.replace(position, size, chunk);
            position += size;
            if (random() % 4 == 0) {
                const auto to = static_cast<unsigned>(random() % (model.size() + 1500));
                blob.Seek(to);
                position = to;
            }
            ASSERT_EQ(blob.Capacity(), capacity);
            ASSERT_EQ(blob.Position(), position);
            ASSERT_EQ(blob.Length(), model.size());
        }
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

TEST(idb_AgentBlob, HoldsArraysOfNumbers) {
    bio_Ofilter out;
    idb_MementoWrite writing(out, TestRegistrar(), cls_AgentBlobClass);
    cls_AgentBlob& blob = *writing.MakeAgentBlob();
    const double values[] = {0.1, -2.5};
    blob.WriteDoubleArray(values, 2);
    blob.Seek(12);
    int numbers[3] = {-1, -1, -1};
    EXPECT_EQ(blob.ReadIntArray(numbers, 3), 3U) << "reads up to the capacity, which shows zeros";
    EXPECT_EQ(numbers[1], 0);
    EXPECT_EQ(blob.ReadIntArray(numbers, 256), 0U);
    writing.Flush();
    bio_Ifilter in(out.Bytes());
    const idb_MementoRead reading(in, TestRegistrar(), cls_AgentBlobClass);
    double back[2] = {};
    EXPECT_EQ(reading.AgentBlob()->ReadDoubleArray(back, 2), 2U);
    EXPECT_TRUE(std::ranges::equal(back, values));
}

TEST(idb_Dump, ShowsClassFieldValueAndOffset) {
    std::ostringstream text;
    bio_Ifilter in(pointBytes + pointBytes + Written(TestRegistrar(), Everything::Filled()));
    EXPECT_EQ(idb_Dump(text, in, TestRegistrar(), 2), 2);
    EXPECT_THAT(text.str(), HasSubstr("00000000  gsl_Point 0x030a0001, object 1\n"
                                      "00000009    _x  double  1\n"
                                      "00000011    _y  double  2\n"
                                      "00000019    _z  double  -0.5\n"
                                      "00000021  gsl_Point"));
    EXPECT_EQ(idb_Dump(text, in, TestRegistrar()), 1);
    EXPECT_EQ(in.Remaining(), 0U);
    for (const char* line : {"text  string  \"nul\\x00inside\"\n", "base part  Shape 0x007f0010\n",
                             "2 values, 1 columns: 7, 4294967295\n"})
        EXPECT_THAT(text.str(), HasSubstr(line));
    EXPECT_THAT(text.str(), testing::Not(HasSubstr("nothing that can be read")));

    bio_Ifilter unknown(FromHex("99 99 00 00 01 00 00 00 00"));
    EXPECT_EQ(idb_Dump(text, unknown, TestRegistrar()), 1);
    EXPECT_THAT(text.str(), HasSubstr("cannot be told apart"));
}
