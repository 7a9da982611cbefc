#include <wip/wip_Progress.h>
#include <wip/wip_WIP.h>

#include <algorithm>

template class omi_Singleton<wip_Progress>;

namespace {

constexpr OrvBasStringMode utf8{0};

/// False for NaN.
bool IsFraction(float fraction) noexcept { return fraction >= 0.0F && fraction <= 1.0F; }

/// The place `fraction` of the level's width behind `from`, at most the level's end.
float Advanced(const wip_ProgressState& level, float from, float fraction) noexcept {
    const float width = level.end - level.start;
    const float distance = width * fraction;
    return std::min(from + distance, level.end);
}

}  // namespace

wip_Progress& wip_Progress::Instance() { return omi_Singleton<wip_Progress>::Instance(); }

void wip_Progress::Clear() {
    _levels.Clear();
    _cleared = true;
    _levels.Push({.start = 0.0F, .end = 1.0F, .current = 0.0F, .message = {}});
}

void wip_Progress::Initialize(const atr_String& message) {
    Clear();
    _levels.Top().message = message;
    ReportMessage();
}

void wip_Progress::Finish() {
    Clear();
    ReportMessage();
}

bool wip_Progress::Push(float fraction) {
    if (!IsFraction(fraction)) return false;
    const wip_ProgressState& top = _levels.ConstTop();
    const float from = top.current;
    _levels.Push({.start = from, .end = Advanced(top, from, fraction), .current = from, .message = top.message});
    return true;
}

bool wip_Progress::Push(float fraction, const atr_String& message) {
    if (!Push(fraction)) return false;
    Update(message);
    return true;
}

bool wip_Progress::Pop(int levels) {
    if (levels < 1 || Depth() == 0) return false;
    float end = 0.0F;
    for (int left = std::min(levels, Depth()); left > 0; --left) {
        end = _levels.ConstTop().end;
        _levels.Pop();
    }
    _levels.Top().current = end;
    ReportPercent();
    return true;
}

bool wip_Progress::Update(float fraction) {
    if (!IsFraction(fraction)) return false;
    wip_ProgressState& top = _levels.Top();
    top.current = Advanced(top, top.start, fraction);
    ReportPercent();
    return true;
}

bool wip_Progress::Update(int done, int count) {
    if (done < 0 || count < 0) return false;
    return Update(done < count ? static_cast<float>(done) / static_cast<float>(count) : 1.0F);
}

bool wip_Progress::Update(float fraction, const atr_String& message) {
    if (!IsFraction(fraction)) return false;
    _levels.Top().message = message;
    return Update(fraction);
}

void wip_Progress::Update(const atr_String& message) {
    _levels.Top().message = message;
    if (_cleared)
        ReportMessage();
    else
        ReportPercent();
}

// The message is copied for the call: the reporter may drive this tracker, and so replace the level.

void wip_Progress::ReportMessage() {
    const atr_String message = CurrentMessage();
    wip_WIP::Instance().Milestone(message, utf8);
}

void wip_Progress::ReportPercent() {
    const atr_String message = CurrentMessage();
    wip_WIP::Instance().Milestone(message, _levels.ConstTop().Percent(), utf8);
    _cleared = false;
}
