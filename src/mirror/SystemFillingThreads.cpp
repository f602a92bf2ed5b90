#include "mirror/SystemFillingThreads.h"

#include <system_error>

namespace tarragon {

SystemFillingThreads::~SystemFillingThreads() {
    for (Running& each : _running)
        each.thread.join();
}

void SystemFillingThreads::detachNewThread(std::function<void()> work) {
    joinFinished();
    auto finished = std::make_shared<std::atomic<bool>>(false);
    try {
        std::thread thread([work = std::move(work), finished] {
            work();
            *finished = true;
        });
        _running.push_back({std::move(finished), std::move(thread)});
    } catch (const std::system_error&) {
        // The menu is read when it opens instead.
        return;
    }
}

void SystemFillingThreads::joinFinished() {
    std::erase_if(_running, [](Running& each) {
        if (!*each.finished)
            return false;
        each.thread.join();
        return true;
    });
}

} // namespace tarragon
