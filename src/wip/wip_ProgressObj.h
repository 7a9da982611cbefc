#ifndef ORV_WIP_WIP_PROGRESSOBJ_H
#define ORV_WIP_WIP_PROGRESSOBJ_H

#include <base/atr_String.h>
#include <base/orv_Export.h>

class wip_Progress;

/// The progress of one step of a job, from construction to destruction; steps within it open one of their own and need
/// not know whether they are a part or the whole:
///
///     void Mesh() {
///         wip_ProgressObj progress("Meshing");
///         progress.Push(0.25F);
///         MeshEdges();  // has a wip_ProgressObj too, which now fills a quarter of this one
///         progress.Pop(1);
///         ...
///     }
///
/// The first object of a job finds only the base level open: it starts the job and opens a level over all of it. Any
/// other works on the level it finds on top. An object remembers the depth d it found (0 for the first), and takes
/// the levels above max(d, 1) for its own.
///
/// Objects are to be closed in the reverse order of their making, as scopes do. Closed in another order, an object
/// takes along whatever is open above its depth. One left behind that way may find fewer levels than its depth: then
/// its `Depth` is below 0, its `Pop` false, and its end closes nothing. The first object always finishes the job.
///
/// An object works on the tracker that was there when it was made, and must not outlive the library's last stop. What
/// wip_Progress says on fractions, reports, failures and threads holds here.
class ORV_EXPORT wip_ProgressObj {
public:
    /// With the message of the level on top.
    wip_ProgressObj();

    /// With only the base level open: `Initialize(message)` and `Push(1)` of the tracker, else `Update(message)`.
    explicit wip_ProgressObj(const atr_String& message);

    wip_ProgressObj(const wip_ProgressObj&) = delete;
    wip_ProgressObj& operator=(const wip_ProgressObj&) = delete;

    /// Does not throw: a missing reporter there, or what the reporter throws, is dropped. Otherwise the
    /// same as `Finish`, once more even where `Finish` was called.
    virtual ~wip_ProgressObj();

    /// A level over `fraction` of the one on top: `wip_Progress::Push`.
    virtual bool Push(float fraction, const atr_String& message);
    virtual bool Push(float fraction);

    /// Closes so many levels, at most this object's own. False, and nothing done, for `levels` < 1 and when it has
    /// none.
    virtual bool Pop(int levels);

    /// `Finish`; then the opening as in the constructor, by what is open now; then back to the fraction that the level
    /// had reached at construction, unless the tracker was "cleared" there. Message, depth and fraction stay those of
    /// the construction.
    virtual void Restart();

    /// Closes all levels above the depth found, which reports only if there are any; the first object finishes the
    /// job: `wip_Progress::Finish`.
    void Finish();

    /// Number of this object's own levels; below 0 when an outer object was closed before.
    [[nodiscard]] int Depth() const;

private:
    void Open();

    wip_Progress& _progress;
    int _depth;
    atr_String _message;
    float _fraction;  // -1 when the tracker was cleared
};

#endif
