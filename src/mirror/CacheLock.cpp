#include "mirror/CacheLock.h"

namespace tarragon {

bool CacheLock::lockForFilling() {
    std::unique_lock guard(_mutex);
    _changed.wait(guard, [this] { return _closed || (!_held && _waitingProbes == 0); });
    if (_closed)
        return false;
    _held = true;
    return true;
}

void CacheLock::lockForProbe() {
    std::unique_lock guard(_mutex);
    ++_waitingProbes;
    _changed.wait(guard, [this] { return !_held; });
    --_waitingProbes;
    _held = true;
}

void CacheLock::unlock() {
    {
        const std::lock_guard guard(_mutex);
        _held = false;
    }
    _changed.notify_all();
}

bool CacheLock::probeWaits() const {
    const std::lock_guard guard(_mutex);
    return _waitingProbes > 0;
}

void CacheLock::close() {
    {
        const std::lock_guard guard(_mutex);
        _closed = true;
    }
    _changed.notify_all();
}

bool CacheLock::isClosed() const {
    const std::lock_guard guard(_mutex);
    return _closed;
}

} // namespace tarragon
