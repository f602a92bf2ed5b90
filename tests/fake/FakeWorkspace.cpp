#include "fake/FakeWorkspace.h"

#include <utility>

namespace tarragon {

namespace {

void callEach(const std::vector<std::function<void()>>& handlers) {
    // A handler may install another one, which waits for the next event.
    const std::size_t count = handlers.size();
    for (std::size_t index = 0; index < count; ++index) {
        const auto handler = handlers[index];
        handler();
    }
}

} // namespace

void FakeWorkspace::addRunningApplication(const RunningApplication& application) {
    _runningApplications.push_back(application);
}

void FakeWorkspace::removeRunningApplication(std::int64_t processIdentifier) {
    std::erase_if(_runningApplications,
        [&](const RunningApplication& each) { return each.processIdentifier == processIdentifier; });
}

void FakeWorkspace::setActiveApplication(std::optional<RunningApplication> application) {
    _activeApplication = std::move(application);
}

void FakeWorkspace::switchTo(const RunningApplication& application) {
    setActiveApplication(application);
    fireFrontSwitched();
}

void FakeWorkspace::fireFrontSwitched() {
    callEach(_frontSwitchedHandlers);
}

void FakeWorkspace::fireSystemUIModeChanged() {
    callEach(_systemUIModeHandlers);
}

bool FakeWorkspace::openURL(const std::string& url) {
    if (_opensURLs)
        _openedURLs.push_back(url);
    return _opensURLs;
}

bool FakeWorkspace::installFrontSwitchedHandler(std::function<void()> handler) {
    if (_eventsAvailable)
        _frontSwitchedHandlers.push_back(std::move(handler));
    return _eventsAvailable;
}

bool FakeWorkspace::installSystemUIModeChangedHandler(std::function<void()> handler) {
    if (_eventsAvailable)
        _systemUIModeHandlers.push_back(std::move(handler));
    return _eventsAvailable;
}

} // namespace tarragon
