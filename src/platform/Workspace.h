#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tarragon {

struct RunningApplication {
    std::string name; // for people, as the desktop's application menu calls it
    std::int64_t processIdentifier = 0;
    std::string bundleIdentifier; // tells the application apart from all others; empty when it has none
    std::string bundlePath; // empty when unknown
};

// The applications of the user's session. Main thread only.
class Workspace {
public:
    virtual ~Workspace() = default;

    // The application in front, or nothing when no window is active.
    [[nodiscard]] virtual std::optional<RunningApplication> activeApplication() = 0;
    // Every application that has a window, in no particular order.
    [[nodiscard]] virtual std::vector<RunningApplication> runningApplications() = 0;
    // Opens a URL with the program that the user has chosen for it. False when nothing could be started.
    [[nodiscard]] virtual bool openURL(const std::string& url) = 0;

    // The handler is called on the main thread's run loop after another application, or another window with a menu bar
    // of its own, has come to the front. False when such events cannot be had. Handlers are never removed.
    [[nodiscard]] virtual bool installFrontSwitchedHandler(std::function<void()> handler) = 0;
    // The same for the desktop hiding or showing its own surfaces, as for a full-screen presentation.
    [[nodiscard]] virtual bool installSystemUIModeChangedHandler(std::function<void()> handler) = 0;
};

} // namespace tarragon
