// Protects against memory that runs out: whichever allocation of a piece of work fails, the work throws std::bad_alloc
// or succeeds with the right answer, leaves nothing behind, and can be done again at once.

#include <annC/annC_AnnotationClient.h>
#include <annC/annC_AnnotationContainer.h>
#include <annC/annC_Arrow.h>
#include <annC/annC_Draw.h>
#include <annC/annC_Point3DAnchor.h>
#include <annC/annC_Text.h>
#include <g3d/g3d_Camera.h>
#include <g3d/g3d_Viewport.h>
#include <gsl/gsl_BBox.h>
#include <gsl/gsl_CoordTree.h>
#include <gsl/gsl_TriOctreeNode.h>
#include <idb/idb_Records.h>
#include <omu/omu.h>
#include <support/RandomGeometry.h>
#include <support/StartedLibrary.h>
#include <support/values.h>
#include <wip/wip.h>

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <new>

// ---- The allocator of the whole process, the shared library included

namespace {

std::atomic<long> liveBlocks{0};
std::atomic<long> allocationsLeft{-1};  // until one fails; negative: none does

void* Allocate(std::size_t size, std::size_t alignment) {
    if (allocationsLeft >= 0 && allocationsLeft-- == 0) throw std::bad_alloc();
    const std::size_t whole = (size + alignment) / alignment * alignment;
    void* const memory = std::aligned_alloc(alignment, whole);
    if (memory == nullptr) throw std::bad_alloc();
    ++liveBlocks;
    return memory;
}
void Free(void* memory) noexcept {
    if (memory != nullptr) --liveBlocks;
    std::free(memory);
}

}  // namespace

void* operator new(std::size_t size) { return Allocate(size, alignof(std::max_align_t)); }
void* operator new(std::size_t size, std::align_val_t alignment) {
    return Allocate(size, static_cast<std::size_t>(alignment));
}
void operator delete(void* memory) noexcept { Free(memory); }
void operator delete(void* memory, std::size_t) noexcept { Free(memory); }
void operator delete(void* memory, std::align_val_t) noexcept { Free(memory); }
void operator delete(void* memory, std::size_t, std::align_val_t) noexcept { Free(memory); }

namespace {

/// One run of `work` in which allocation `k`, from 1, fails; 0 fails none. Its answer, or "bad_alloc". The caller reads
/// what is left, then disarms.
std::string Run(const auto& work, long k) {
    allocationsLeft = k - 1;
    try {
        return work();
    } catch (const std::bad_alloc&) {
        return "bad_alloc";
    } catch (const std::exception& other) {
        return std::string("another exception: ") + other.what();
    }
}

/// `work` gives a text that tells whether it did right. It is run with its first allocation failing, its second, and
/// so on until it makes fewer.
void FailEachAllocation(const auto& work) {
    const std::string right = Run(work, 0);  // makes what is made once for the process, too
    ASSERT_EQ(right.find("exception"), std::string::npos) << right;
    ASSERT_EQ(right, Run(work, 0));
    int refused = 0;
    for (long k = 1, left = -1; left < 0; ++k) {
        SCOPED_TRACE(testing::Message() << "allocation " << k);
        const long before = liveBlocks;
        {
            const std::string answer = Run(work, k);
            left = allocationsLeft.exchange(-1);
            if (left < 0 && answer == "bad_alloc")
                ++refused;
            else
                ASSERT_EQ(answer, right);
        }
        ASSERT_EQ(liveBlocks, before) << "left behind";
        ASSERT_EQ(Run(work, 0), right) << "after it failed";
        ASSERT_EQ(liveBlocks, before) << "left behind later";
    }
    testing::Test::RecordProperty("refused", refused);
    EXPECT_GT(refused, 10) << "the failing allocator was not in use";
}

/// The same of one `change` of the object that `make` gives: `tell` tells it as it was, and it can be changed at once.
void FailEachAllocationOf(const auto& make, const auto& change, const auto& tell) {
    const auto changed = make();
    change(*changed);
    long k = 0;
    for (bool isRefused = true; isRefused;) {
        SCOPED_TRACE(testing::Message() << "allocation " << ++k);
        const auto object = make();
        const std::string before = tell(*object);
        (void)Run([&] { return change(*object), std::string(); }, k);
        isRefused = allocationsLeft.exchange(-1) < 0;
        if (!isRefused) continue;
        EXPECT_TRUE(tell(*object) == before);
        change(*object);
        EXPECT_TRUE(tell(*object) == tell(*changed));
    }
    EXPECT_GT(k, 1);
}

}  // namespace

TEST(memory_OutOfMemory, StartUp) {
    FailEachAllocation([] {
        int count = 0;
        OrvLumGeom_initialize(count);
        const int modules = count;
        const int classes = cls_MetadataRegistrar::Instance().Classes().Length();
        OrvLumGeom_finalize(count);
        return std::to_string(modules) + ' ' + std::to_string(classes) + ' ' + std::to_string(count);
    });
}

using memory_OutOfMemory_ = StartedLibrary;

TEST_F(memory_OutOfMemory_, Command) {
    FailEachAllocation([] {
        omu_Arguments arguments;
        arguments.Put(1.5);
        arguments.Put(cow_String("first"));
        arguments.Put(cow_List<double>{1.0, 2.0, 3.0});
        arguments.Put(cow_List<double>{4.0, 5.0}, "array");
        arguments.Put(cow_2DArray<double>(2, 2), "table");
        arguments.Put(cow_List<cow_String>{"a text that is too long for the short form of strings", "b"}, "names");
        arguments.Put(true, "extra");

        double number = 0.0;
        cow_String text;
        cow_List<double> list;
        omu_PrimArray array;
        cow_2DArray<double> table;
        cow_List<cow_String> names;
        arguments.Begin();
        arguments.Get(number);
        arguments.Get(number, "text");  // a wrong type, then the right one
        if (arguments.Alternative()) arguments.Get(text, "text");
        arguments.Get(list, "list");
        arguments.Optional();
        arguments.Get(array, "array");
        arguments.Get(table, "table");
        arguments.Get(names, "names");
        return Refusal<nex_Exception>([&] { arguments.End("Command"); }) + arguments.AsString().str() +
               array.AsString().str() + text.str() + names.ConstGet(0).str() +
               std::to_string(list.Length() + table.Rows());
    });
}

TEST_F(memory_OutOfMemory_, WritingAndReadingAModel) {
    const cls_ClassRegistrar& records = TestRegistrar();
    const Everything model = Everything::Filled();
    const std::string bytes = Written(records, model);
    FailEachAllocation([&] {
        bio_Ofilter out;
        idb_WriteObject(out, records, model);
        idb_WriteObject(out, records, gsl_StLine());
        return ToHex(out.Bytes());
    });
    FailEachAllocation([&] {
        bio_Ifilter in(bytes);
        const auto read = idb_ReadObject<Everything>(in, records);
        const std::string shape = read.shape == read.sameShape ? "shared " : "parted ";
        return shape + std::to_string(read.shape->Area()) + read.text.str() + read.strings.ConstGet(1).str() +
               std::to_string(read.tables.ConstGet("t").ConstGet(1, 2));
    });
}

TEST_F(memory_OutOfMemory_, Tree) {
    RandomGeometry random(7);
    std::vector<gsl_Point> points;
    for (int i = 0; i < 1000; ++i) points.emplace_back(random.Number(0, 1), random.Number(0, 1), random.Number(0, 1));
    cls_xo1DArrayList<gsl_Point> list;
    for (const gsl_Point& point : points) list.Append(point);
    FailEachAllocation([&] {
        gsl_CoordTree tree(list, 3);
        for (unsigned i = 0; i < 100; ++i) tree.Insert(points[i], 1000 + i);
        const int removed = tree.Remove(points[3], 1e-9, -1);
        gsl_CoordTree copy(tree);
        copy.Clear();
        copy = tree;
        const gsl_Point centre(0.5, 0.5, 0.5);
        cow_List<double> distances;
        std::string text = std::to_string(removed);
        for (const unsigned each : copy.FindClosest(centre, 20, &distances)) text += ' ' + std::to_string(each);
        for (const int found :
             {static_cast<int>(copy.Size()), tree.FindInRadius(centre, 0.2).Length(),
              tree.FindAll(centre, 0.2).Length(), tree.FindInBox(gsl_BBox(gsl_Point(0, 0, 0), centre)).Length()})
            text += ' ' + std::to_string(found);
        return text;
    });
}

TEST_F(memory_OutOfMemory_, TreesStayAsTheyWere) {
    // A chain with leaves beside it, deeper than stacks have room for on the spot.
    gsl_CoordTree chain(2);
    std::vector<gsl_Point> points{gsl_Point(0, 0, 0), gsl_Point(1, -1000, 0)};
    for (int i = 0; i < 160; ++i) points.emplace_back(1000 - i, 1000 - i, 0);
    for (int i = 0; i < 80; ++i) points.emplace_back(1000.5 - 2 * i, 999.5 - 2 * i, 0);
    for (const gsl_Point& point : points) chain.Insert(point, chain.Size());
    RandomGeometry random(8);
    cls_xo1DArrayList<gsl_Point> more;
    for (int i = 0; i < 1000; ++i) more.Append(gsl_Point(random.Number(0, 1000), random.Number(0, 1000), 0));
    const gsl_CoordTree other(more, 3), small(1);
    const auto tell = [&](const gsl_CoordTree& tree) {
        std::string text = std::to_string(tree.Size());
        for (const auto& list : {cow_List<gsl_Point>(points), more})
            for (const gsl_Point& point : list)
                for (const unsigned found : tree.FindAll(point, 1e-9)) text += ' ' + std::to_string(found);
        return text;
    };
    const auto change = [&](const gsl_CoordTree& before, const auto& how) {
        FailEachAllocationOf([&] { return std::make_unique<gsl_CoordTree>(before); }, how, tell);
    };
    for (const gsl_CoordTree& before : {chain, small}) {
        change(before, [&](gsl_CoordTree& tree) { tree.Insert(more); });
        change(before, [&](gsl_CoordTree& tree) { tree.Insert(gsl_Point(7, 7, 7), 7); });
        change(before, [&](gsl_CoordTree& tree) {
            gsl_CoordTree moved(std::move(tree));  // which never throws
            tree = std::move(moved);
            tree = other;
        });
    }
    change(chain, [&](gsl_CoordTree& tree) { tree.Remove(points[0], 0.5, -1); });

    const gsl_BBox cube(gsl_Point(0, 0, 0), gsl_Point(8, 8, 8));
    FailEachAllocationOf([&] { return std::make_unique<gsl_TriOctreeNode>(cube, 1, -1, nullptr); },
                         [&](gsl_TriOctreeNode& node) { node.BuildOctree(cube, 3); },
                         [](gsl_TriOctreeNode& node) {
                             const gsl_TriOctreeNode* const child = node.GetChildAtIndex(0);
                             return child == nullptr ? "leaf" : child->GetChildAtIndex(7) == nullptr ? "half" : "tree";
                         });
}

TEST_F(memory_OutOfMemory_, Annotations) {
    struct Client : annC_AnnotationClient {
        double GetWidth(const cow_String& line, const cow_String&) const override { return 6.0 * line.Length(); }
        double GetAscent(const cow_String&) const override { return 9.0; }
        double GetDescent(const cow_String&) const override { return 3.0; }
        g3d_Color GetBackgroundColor() const override { return g3d_Color(); }
    };
    FailEachAllocation([&] {
        annC_AnnotationContainer container;
        const auto text = std::make_shared<annC_Text>();
        text->SetText("a first line that is long enough\nand a second one");
        text->SetBox(true);
        text->SetColor("#FF0000");
        container.Insert("text", annC_AnnotationHld(text));
        const auto arrow = std::make_shared<annC_Arrow>();
        arrow->SetEndAnchor(annC_AnchorHld(std::make_shared<annC_Point3DAnchor>(0.1, 0.2, 0.0)));
        container.Insert("arrow", annC_AnnotationHld(arrow));
        annC_AnnotationContainer copy = container;
        copy.Rename("text", "a name that is too long for the short form of strings");
        container.Remove("text");
        const auto read = RoundTrip(cls_MetadataRegistrar::Instance().Registrar(), copy);
        annC_DrawList all;
        for (const auto& [name, annotation] : read)
            all.Add(annC_Draw(*annotation, g3d_Camera(), g3d_Viewport(0.0, 0.0, 300.0, 200.0), Client()));
        const wip_Message message{.text = atr_String("a message")};
        wip_RecordingReporter record;
        message.SendTo(record);
        return std::to_string(all.Items().size()) + (read == copy ? " same " : " other ") +
               std::to_string(container.Length()) + record.Text();
    });
}
