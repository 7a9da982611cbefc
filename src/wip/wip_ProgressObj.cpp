#include <wip/wip_Progress.h>
#include <wip/wip_ProgressObj.h>

#include <algorithm>

wip_ProgressObj::wip_ProgressObj() : wip_ProgressObj(wip_Progress::Instance().CurrentMessage()) {}

wip_ProgressObj::wip_ProgressObj(const atr_String& message)
    : _progress(wip_Progress::Instance()),
      _depth(_progress.Depth()),
      _message(message),
      _fraction(_progress.HasProgress() ? _progress.CurrentProgress() : -1.0F) {
    Open();
}

wip_ProgressObj::~wip_ProgressObj() {
    try {
        Finish();
    } catch (...) {
        // The levels are closed; that nobody could be told is no reason to stop a process that may be unwinding.
    }
}

bool wip_ProgressObj::Push(float fraction, const atr_String& message) { return _progress.Push(fraction, message); }

bool wip_ProgressObj::Push(float fraction) { return _progress.Push(fraction); }

bool wip_ProgressObj::Pop(int levels) { return _progress.Pop(std::min(Depth(), levels)); }

void wip_ProgressObj::Restart() {
    Finish();
    Open();
    if (_fraction >= 0.0F) _progress.Update(_fraction);
}

void wip_ProgressObj::Finish() {
    if (_depth == 0)
        _progress.Finish();
    else
        _progress.Pop(_progress.Depth() - _depth);
}

int wip_ProgressObj::Depth() const { return _progress.Depth() - std::max(_depth, 1); }

void wip_ProgressObj::Open() {
    if (_progress.Depth() == 0) {
        _progress.Initialize(_message);
        _progress.Push(1.0F);
    } else {
        _progress.Update(_message);
    }
}
