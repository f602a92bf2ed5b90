#include "platform/linux/x11/X11Workspace.h"

#include "platform/linux/windows/WindowApplication.h"
#include "platform/linux/x11/X11Windows.h"

#include <algorithm>
#include <utility>

namespace tarragon {

X11Workspace::X11Workspace(X11Connection& connection, X11Windows& windows, ApplicationDirectory& applications,
    RunLoop& runLoop, OpenURL openURL, MenuBarSource* menuBars)
    : _windows(windows)
    , _applications(applications)
    , _openURL(std::move(openURL))
    , _frontWatch(connection, windows, applications, runLoop, menuBars) { }

std::optional<RunningApplication> X11Workspace::activeApplication() {
    const auto description = _windows.describeActiveWindow();
    return description ? std::optional(applicationOfWindow(*description, _applications)) : std::nullopt;
}

std::vector<RunningApplication> X11Workspace::runningApplications() {
    std::vector<RunningApplication> applications;
    for (const WindowDescription& window : _windows.describe(_windows.managedWindows())) {
        RunningApplication next = applicationOfWindow(window, _applications);
        const auto isSame = [&](const RunningApplication& known) {
            return known.processIdentifier == next.processIdentifier && known.name == next.name
                && known.bundleIdentifier == next.bundleIdentifier;
        };
        if (std::ranges::none_of(applications, isSame))
            applications.push_back(std::move(next));
    }
    return applications;
}

bool X11Workspace::installFrontSwitchedHandler(std::function<void()> handler) {
    if (!watch())
        return false;
    _frontSwitchedHandlers.push_back(std::move(handler));
    return true;
}

bool X11Workspace::installSystemUIModeChangedHandler(std::function<void()> handler) {
    if (!watch())
        return false;
    _systemUIModeChangedHandlers.push_back(std::move(handler));
    return true;
}

bool X11Workspace::watch() {
    return _frontWatch.begin([this](const X11FrontWindowChange& change) { frontHasChanged(change); });
}

// Copies of the handlers are called, because one may install another.
void X11Workspace::frontHasChanged(const X11FrontWindowChange& change) {
    if (change.systemUIModeChanged)
        call(Handlers(_systemUIModeChangedHandlers));
    if (change.frontSwitched)
        call(Handlers(_frontSwitchedHandlers));
}

void X11Workspace::call(const Handlers& handlers) {
    for (const std::function<void()>& handler : handlers)
        handler();
}

} // namespace tarragon
