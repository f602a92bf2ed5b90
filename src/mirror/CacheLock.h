#pragma once

#include <condition_variable>
#include <mutex>

namespace tarragon {

// The lock of the menu cache. Fillings hold it one after another, each for the whole of its conversion; a probe holds
// it for the moment of its question and goes before every filling that has not begun: it waits for the one under way at
// most. Any thread.
class CacheLock {
public:
    CacheLock() = default;
    CacheLock(const CacheLock&) = delete;
    CacheLock& operator=(const CacheLock&) = delete;

    // Waits until nobody holds the lock and no probe waits for it. False, without the lock, once it is closed.
    [[nodiscard]] bool lockForFilling();
    // Waits until nobody holds the lock.
    void lockForProbe();
    void unlock();

    // True while a probe waits: the filling that holds the lock keeps a menu from opening.
    bool probeWaits() const;

    // No filling begins any more, those that wait included.
    void close();
    bool isClosed() const;

private:
    mutable std::mutex _mutex;
    std::condition_variable _changed;
    int _waitingProbes = 0;
    bool _held = false;
    bool _closed = false;
};

} // namespace tarragon
