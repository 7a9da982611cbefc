#ifndef ORV_GSL_GSL_TRITRIDIRDIST_H
#define ORV_GSL_GSL_TRITRIDIRDIST_H

#include <base/cow_List.h>
#include <base/orv_Export.h>
#include <gsl/gsl_DirectionalContact.h>
#include <gsl/gsl_Matrix.h>
#include <gsl/gsl_Triangle.h>
#include <gsl/gsl_Util.h>
#include <gsl/gsl_Vector.h>

#include <cstdio>
#include <memory>
#include <optional>

class gsl_BBox;
class gsl_TriOctreeNode;
struct gsl_DirSearchNode;
struct gsl_DirTriangle;

/// How far can a movable set of triangles travel along a direction before it touches a fixed set? Both sets are held in
/// triangle octrees, whose indices are positions in the two lists given here (one outside is skipped, as is a triangle
/// with a coordinate that is not finite).
///
///     gsl_TriTriDirDist search(5);                    // levels of the trees to walk
///     search.SetTriangles(fixed, movable);
///     search.SetDirection(gsl_Vector(0.0, 0.0, -1.0));
///     double distance = 1e30;                         // or a bound: only what is less is of interest
///     if (search.FindDirectionalDistance(fixedTree.GetRoot(), movableTree.GetRoot(), distance)) ...
///
/// What a distance is: see `gsl_TriTriMinDirectionalDist`; of sets it is the least of any two triangles. It is exact:
/// pruning never changes the outcome. `gsl_FindDirectionalContact` does all of this in one call.
///
/// **The walk.** The triangles are taken, once a search, into a frame along the direction, in which a node is a
/// rectangle across it and a range along it. The two trees are walked together from their roots: the larger of two
/// nodes is replaced by its children, the pairs are visited in the order of their lower bounds, each pair at most once,
/// and those are left out whose rectangles do not overlap, whose ranges have passed each other, whose lower bound is
/// not below the best distance so far, or whose boxes `CheckBBoxes` rejects.
///
/// **Trace.** When the environment variable QRT_TRITRIDIRDIST_DEBUG is set at construction, even to nothing, the file
/// "TriTriDirDist.dat" of the current directory is truncated and gets a line or two for each pair of boxes that is
/// checked, and the distance found; closed by the destructor. No trace when it cannot be opened.
///
/// Nothing throws but the memory's end. Tolerances are those of `gsl_Util`. An object belongs to one thread at a time.
class ORV_EXPORT gsl_TriTriDirDist {
public:
    /// `levels` limits the walk, the nodes given to a search being level 1: triangles deeper are not seen. 1 or less
    /// means those nodes alone.
    explicit gsl_TriTriDirDist(int levels);

    gsl_TriTriDirDist(const gsl_TriTriDirDist&) = delete;
    gsl_TriTriDirDist& operator=(const gsl_TriTriDirDist&) = delete;
    virtual ~gsl_TriTriDirDist();

    // ---- Setting

    /// Shares the lists; indices of triangles in the nodes are positions in them.
    void SetTriangles(const cow_List<gsl_Triangle>& fixed, const cow_List<gsl_Triangle>& movable);

    /// Of any length; shorter than LinTol finds nothing. (0, 0, 1) by default.
    void SetDirection(const gsl_Vector& direction) { _direction = direction; }

    /// Applied to the movable triangles, and to their boxes, before they travel; its elements count, not its identity
    /// state. The identity by default.
    void SetMatrix(const gsl_Matrix& matrix) { _matrix = matrix; }

    // ---- Search

    /// On entry `distance` is the best known so far: a large value or a bound. True when some distance is strictly
    /// less; then `distance` is the least one. False, and `distance` untouched, when there is none (none at all or none
    /// below the entry), when a node is null, or when the fixed box is empty or its diagonal shorter than LinTol: such
    /// a fixed node is never searched, whatever it holds.
    [[nodiscard]] bool FindDirectionalDistance(const gsl_TriOctreeNode* fixedRoot, const gsl_TriOctreeNode* movableRoot,
                                               double& distance);

    /// What the last search found; nothing when it was false.
    [[nodiscard]] const std::optional<gsl_DirectionalContact>& GetContact() const noexcept { return _contact; }

    /// Work of the last search: pairs of boxes checked, and pairs of triangles whose distance was computed.
    [[nodiscard]] long long GetBoxPairCount() const noexcept { return _boxPairs; }
    [[nodiscard]] long long GetTrianglePairCount() const noexcept { return _trianglePairs; }

protected:
    [[nodiscard]] static constexpr double GetLinTol() noexcept { return gsl_Util::LinTol(); }

    /// False when the fixed box is too small to be searched, when the boxes never meet along the direction, or when
    /// their distance is not below `best`. Traced.
    [[nodiscard]] bool CheckBBoxes(const gsl_TriOctreeNode& fixed, const gsl_TriOctreeNode& movable, double best);

    /// Least distance between two boxes as they stand (the matrix is not applied): at most that of anything in them, 0
    /// when they overlap. Across the direction they are taken wider by LinTol. False, and `distance` untouched, when
    /// the boxes never meet, one is empty or the direction too short.
    [[nodiscard]] bool FindMinDirDistBetBBoxes(const gsl_BBox& fixed, const gsl_BBox& movable, double& distance) const;

private:
    struct CloseFile {
        void operator()(std::FILE* file) const noexcept { std::fclose(file); }
    };

    /// The steps of the walk over nodes made ready for it; true when `best` got less.
    bool RecursiveFindDirDist(const gsl_DirSearchNode& fixed, const gsl_DirSearchNode& movable, bool skipBoxCheck,
                              double& best);
    bool FindDirDistUsingTriangles(const gsl_DirSearchNode& fixed, const gsl_DirSearchNode& movable, double& best);
    bool FindDirDistBetweenTriangles(const gsl_DirTriangle& fixed, const gsl_DirTriangle& movable, double& best);

    std::unique_ptr<std::FILE, CloseFile> _trace;  // null unless tracing
    gsl_Vector _direction;
    gsl_Matrix _matrix;
    int _levels;
    cow_List<gsl_Triangle> _fixed, _movable;
    long long _boxPairs = 0, _trianglePairs = 0;
    std::optional<gsl_DirectionalContact> _contact;  // its point is in the frame of the search until the search ends
};

#endif
