#include "mirror/SystemFillingThreads.h"

#include "platform/Log.h"

#include <system_error>

namespace tarragon {

void SystemFillingThreads::detachNewThread(std::function<void()> work) {
    forgetFinished();
    auto finished = std::make_shared<std::atomic<bool>>(false);
    // Room is made first: nothing can fail any more once the thread runs.
    _running.reserve(_running.size() + 1);
    try {
        std::jthread thread([work = std::move(work), finished] {
            work();
            *finished = true;
        });
        _running.push_back({std::move(finished), std::move(thread)});
    } catch (const std::system_error&) {
        // The menu is read when it opens instead.
        log(LogCategory::Menus, [] { return "no thread to spare for a filling of the menu cache"; });
    }
}

void SystemFillingThreads::forgetFinished() {
    std::erase_if(_running, [](const Running& each) { return each.finished->load(); });
}

} // namespace tarragon
