// The octree of triangles: where its boxes are, which node keeps a triangle, what it prints.
#include <gsl/gsl_TriOctree.h>
#include <support/ChildProcess.h>
#include <support/RandomGeometry.h>

#include <map>
#include <new>

namespace {

using Type = gsl_TriOctree::OctreeNodeType;
const gsl_BBox cube({0, 0, 0}, {8, 8, 8});

TEST(gsl_TriOctree, BoxesOfTheChildrenAndTheFirstThatHoldsATriangle) {
    const gsl_BBox boxes[14] = {{{0, 0, 0}, {4, 4, 4}}, {{4, 0, 0}, {8, 4, 4}}, {{0, 0, 4}, {4, 4, 8}},
                                {{4, 0, 4}, {8, 4, 8}}, {{0, 4, 0}, {4, 8, 4}}, {{4, 4, 0}, {8, 8, 4}},
                                {{0, 4, 4}, {4, 8, 8}}, {{4, 4, 4}, {8, 8, 8}}, {{0, 0, 0}, {4, 8, 8}},
                                {{4, 0, 0}, {8, 8, 8}}, {{0, 0, 0}, {8, 4, 8}}, {{0, 4, 0}, {8, 8, 8}},
                                {{0, 0, 0}, {8, 8, 4}}, {{0, 0, 4}, {8, 8, 8}}};
    for (const int count : {8, 14}) {
        RandomGeometry random(21);
        gsl_TriOctree tree(cube, "", count == 8 ? Type::TRI_OCTREE_NODE : Type::MOD_OCTREE_NODE, 4);
        const gsl_TriOctreeNode* const root = tree.GetRoot();
        ASSERT_TRUE(tree.GetChildCount() == count && root->GetLevel() == 1 && root->GetIndex() == -1);
        std::map<const gsl_TriOctreeNode*, std::vector<int>> kept;
        for (int n = 0; n < 3000; ++n) {
            gsl_Point p[3], middle = random.Point();  // on the quarters, so that many lie in faces; some outside
            for (gsl_Point& q : p)
                for (unsigned i = 0; i < 3; ++i) q[i] = std::round(4 * std::abs(middle[i]) + random.Number(-4, 4)) / 4;
            const auto holds = [&](const gsl_TriOctreeNode* node) {
                const auto in = [node](const gsl_Point& q) {
                    return q >= node->GetBBox().Low() && node->GetBBox().High() >= q;
                };
                return node != nullptr && in(p[0]) && in(p[1]) && in(p[2]);
            };
            ASSERT_EQ(tree.GetRoot()->Add(p[0], p[1], p[2], n), holds(root)) << n;
            const gsl_TriOctreeNode *home = nullptr, *next = holds(root) ? root : nullptr;
            while (next != nullptr) {
                home = std::exchange(next, nullptr);
                for (int k = count; k-- > 0;) next = holds(home->GetChildAtIndex(k)) ? home->GetChildAtIndex(k) : next;
            }
            if (home != nullptr) kept[home].push_back(n);
        }
        EXPECT_GT(root->GetTriangleCount(), 500U);
        const auto check = [&](const auto& self, const gsl_TriOctreeNode* node) -> void {
            EXPECT_EQ(node->GetIndices(), cow_List<int>(kept[node]));
            auto below = static_cast<std::size_t>(node->GetIndices().Length());
            for (int k = -1; k <= count; ++k) {  // -1 and `count` are absent
                const gsl_TriOctreeNode* const child = node->GetChildAtIndex(k);
                EXPECT_EQ(child != nullptr, k >= 0 && k < count && node->GetLevel() < 4);
                EXPECT_EQ(node->IsEmpty(k), child == nullptr || child->IsEmpty());
                if (child == nullptr) continue;
                EXPECT_TRUE(child->GetIndex() == k && (node != root || child->GetBBox() == boxes[k])) << k;
                self(self, child);
                below += child->GetTriangleCount();
            }
            EXPECT_TRUE(node->GetTriangleCount() == below && node->IsEmpty() == (below == 0));
        };
        check(check, root);
    }
}

TEST(gsl_TriOctree, BoundsNamesAndTreesThatCannotBe) {
    gsl_TriOctree tree(gsl_BBox({0, -2, 0}, {1, 2, 0.5}), "50%s skin", Type::TRI_OCTREE_NODE, 2);
    gsl_TriOctreeNode& root = *tree.GetRoot();
    EXPECT_TRUE(root.Add({1, 2, 0.5}, {1, 2, 0.5}, {0, -2, 0}, 3));
    EXPECT_FALSE(root.Add({1, 2, 0.5}, {1, 2, 0.5}, {0, -2, -1e-300}, 4) || root.Add({0, kNaN, 0}, {}, {}, 4));
    EXPECT_TRUE(root.GetChildAtIndex(7)->Add({1, 2, 0.5}, {1, 2, 0.5}, {1, 2, 0.5}, 5) && !root.IsEmpty(7));
    EXPECT_EQ(root.GetTriangleCount(), 2U);  // counted along the parents
    const auto printed = [](const gsl_TriOctree& printable) {
        std::FILE* const file = TemporaryFile();
        printable.Print(file);
        return TakeText(file);
    };
    EXPECT_TRUE(
        printed(tree).starts_with("Root id: 50%s skin, Max Depth: 2\n"
                                  " Level: 1\n  Index: -1, # of triangles: 1\n"
                                  "  Low(0.000000, -2.000000, 0.000000)\n  High(1.000000, 2.000000, 0.500000)\n"
                                  " Level: 2\n  Index: 0, # of triangles: 0\n"));
    gsl_Matrix shift;
    shift.SetTranslation(gsl_Vector(100, 0, 0));
    root.TransformBBox(shift);
    EXPECT_EQ(root.GetBBox().Low().X() - root.GetChildAtIndex(0)->GetBBox().Low().X(), 100.0);
    struct Sparse : gsl_TriOctreeNode {  // builds what it likes
        using gsl_TriOctreeNode::Build;
        using gsl_TriOctreeNode::gsl_TriOctreeNode;
    } sparse(cube, 1, -1, nullptr);
    auto child = std::make_unique<Sparse>(gsl_BBox({4, 4, 4}, {8, 8, 8}), 2, 7, &sparse);
    EXPECT_TRUE(child->Add({5, 5, 5}, {6, 5, 5}, {5, 6, 5}, 8) && sparse.IsEmpty()) << "not its child yet";
    for (const int k : {-1, 8, 7})
        sparse.Build(k, k == 7 ? std::move(child) : std::make_unique<Sparse>(cube, 2, k, nullptr), 2);
    EXPECT_TRUE(sparse.Add({1, 1, 1}, {2, 1, 1}, {1, 2, 1}, 9) && sparse.Add({5, 5, 5}, {6, 5, 5}, {5, 6, 5}, 10));
    EXPECT_TRUE(sparse.GetTriangleCount() == 3 && sparse.GetIndices() == cow_List<int>{9});
    sparse.Build(7, std::make_unique<Sparse>(cube, 2, 0, nullptr), 2);
    EXPECT_TRUE(sparse.GetTriangleCount() == 1 && sparse.GetChildAtIndex(7)->GetIndex() == 7);
    const gsl_TriOctree rootless(cube, "none", static_cast<Type>(7), 3);
    EXPECT_TRUE(!rootless.GetRoot() && rootless.GetChildCount() == 0);
    EXPECT_EQ(printed(rootless), "Root id: none, Max Depth: 3\n");
    EXPECT_FALSE(gsl_TriOctree(cube, "", {}, -4).GetRoot()->GetChildAtIndex(0));
    for (const int depth : {40, 2147483647}) EXPECT_THROW(gsl_TriOctree(cube, "", {}, depth), std::bad_alloc);
}

}  // namespace
