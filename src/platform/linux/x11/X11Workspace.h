#pragma once

#include "platform/Workspace.h"
#include "platform/linux/x11/X11FrontWindow.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tarragon {

class ApplicationDirectory;
class RunLoop;
class X11Connection;
class X11Windows;
struct WindowDescription;

// The applications of an X11 session: the one in front is that of the active window. Every window that becomes active
// counts as a switch, also another one of the same application, because each may have a menu bar of its own. Windows of
// this process count like any other; its pop-ups are not managed by the window manager and never become active.
//
// Belongs to the main thread. The objects passed in outlive it; it outlives the run loop.
class X11Workspace : public Workspace {
public:
    using OpenURL = std::function<bool(const std::string& url)>;

    X11Workspace(X11Connection& connection, X11Windows& windows, ApplicationDirectory& applications, RunLoop& runLoop,
        OpenURL openURL);
    ~X11Workspace() override;

    std::optional<RunningApplication> activeApplication() override;
    std::vector<RunningApplication> runningApplications() override;
    bool openURL(const std::string& url) override { return _openURL(url); }
    bool installFrontSwitchedHandler(std::function<void()> handler) override;
    bool installSystemUIModeChangedHandler(std::function<void()> handler) override;

private:
    using Handlers = std::vector<std::function<void()>>;

    RunningApplication application(const WindowDescription& window);
    bool watch();
    // False when the window is gone.
    bool selectEvents(std::uint32_t window, std::uint32_t mask);
    bool takeEvents();
    void handleEvents();
    X11FrontWindowChange look();
    void windowIsGone(std::uint32_t window);
    static void call(const Handlers& handlers);

    X11Connection& _connection;
    X11Windows& _windows;
    ApplicationDirectory& _applications;
    RunLoop& _runLoop;
    OpenURL _openURL;
    // A connection for events alone: no other thread reads it, so that every event wakes the run loop.
    std::unique_ptr<X11Connection> _events;
    X11FrontWindow _frontWindow;
    std::optional<std::uint32_t> _watchedWindow; // whose state is watched
    Handlers _frontSwitchedHandlers;
    Handlers _systemUIModeChangedHandlers;
};

} // namespace tarragon
