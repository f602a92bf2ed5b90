#pragma once

#include "mirror/FillingThreads.h"

#include <atomic>
#include <memory>
#include <thread>
#include <vector>

namespace tarragon {

// A thread of the system for each piece of work. When the system has no thread to spare, the work is left undone.
class SystemFillingThreads : public FillingThreads {
public:
    void detachNewThread(std::function<void()> work) override;

private:
    struct Running {
        std::shared_ptr<std::atomic<bool>> finished;
        std::jthread thread; // waits for the work when it is destroyed
    };

    void forgetFinished();

    std::vector<Running> _running;
};

} // namespace tarragon
