#pragma once

#include "platform/Workspace.h"
#include "platform/linux/x11/X11FrontWatch.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tarragon {

class ApplicationDirectory;
class MenuBarSource;
class RunLoop;
class X11Connection;
class X11Windows;

// The applications of an X11 session: the one in front is that of the active window. Windows of this process count like
// any other; its pop-ups are not managed by the window manager and never become active.
//
// Belongs to the main thread. The objects passed in outlive it; it outlives the run loop.
class X11Workspace : public Workspace {
public:
    using OpenURL = std::function<bool(const std::string& url)>;

    // Whoever installs no handler for switches needs no source of menu bars.
    X11Workspace(X11Connection& connection, X11Windows& windows, ApplicationDirectory& applications, RunLoop& runLoop,
        OpenURL openURL, MenuBarSource* menuBars = nullptr);

    std::optional<RunningApplication> activeApplication() override;
    std::vector<RunningApplication> runningApplications() override;
    bool openURL(const std::string& url) override { return _openURL(url); }
    bool installFrontSwitchedHandler(std::function<void()> handler) override;
    bool installSystemUIModeChangedHandler(std::function<void()> handler) override;

private:
    using Handlers = std::vector<std::function<void()>>;

    bool watch();
    void frontHasChanged(const X11FrontWindowChange& change);
    static void call(const Handlers& handlers);

    X11Windows& _windows;
    ApplicationDirectory& _applications;
    OpenURL _openURL;
    X11FrontWatch _frontWatch;
    Handlers _frontSwitchedHandlers;
    Handlers _systemUIModeChangedHandlers;
};

} // namespace tarragon
