#include <g3d/g3d_XFormStack.h>

#include <algorithm>
#include <cassert>

namespace {

constexpr g3d_XForm missing;

}  // namespace

g3d_XFormStack::g3d_XFormStack(int capacity) : _entries(static_cast<std::size_t>(std::max(capacity, 1))) {}

void g3d_XFormStack::Push(const g3d_XForm& xform) noexcept {
    assert(_count > 0 && _count < _entries.size());
    if (_count == _entries.size()) return;
    _entries[_count] = (_count == 0 ? missing : _entries[_count - 1]) * xform;
    ++_count;
}

void g3d_XFormStack::Pop() noexcept {
    assert(_count > 0);
    if (_count > 0) --_count;
}

const g3d_XForm& g3d_XFormStack::Top() const noexcept {
    assert(_count > 0);
    return _count == 0 ? missing : _entries[_count - 1];
}

void g3d_XFormStack::Replace(const g3d_XForm& xform) noexcept {
    assert(_count > 0);
    if (_count > 0) _entries[_count - 1] = xform;
}

void g3d_XFormStack::Reset(const g3d_XForm& xform) noexcept {
    _entries.front() = xform;
    _count = 1;
}

bool g3d_XFormStack::operator==(const g3d_XFormStack& other) const noexcept {
    return _entries.size() == other._entries.size() && _count == other._count &&
           std::equal(_entries.begin(), _entries.begin() + static_cast<std::ptrdiff_t>(_count), other._entries.begin());
}
