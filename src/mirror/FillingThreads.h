#pragma once

#include <functional>

namespace tarragon {

// Where the fillings of the menu cache run. Used from the main thread alone.
class FillingThreads {
public:
    // Waits for all work that has begun: what the work uses may go away afterwards.
    virtual ~FillingThreads() = default;
    // Runs the work once, beside the main thread.
    virtual void detachNewThread(std::function<void()> work) = 0;
};

} // namespace tarragon
