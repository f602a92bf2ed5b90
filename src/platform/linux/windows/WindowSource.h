#pragma once

#include "platform/linux/windows/WindowDescription.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace tarragon {

// Top-level windows of all applications, as the window system tells of them. May be called from any thread. A window
// that is gone gives nothing.
class WindowSource {
public:
    virtual ~WindowSource() = default;

    virtual std::optional<std::uint32_t> activeWindow() = 0;
    virtual std::optional<WindowDescription> describe(std::uint32_t window) = 0;
    // The same for many windows in the time of one; those that are gone are left out.
    virtual std::vector<WindowDescription> describe(const std::vector<std::uint32_t>& windows) = 0;
    // The active window, as of one moment.
    virtual std::optional<WindowDescription> describeActiveWindow() {
        const std::optional<std::uint32_t> window = activeWindow();
        return window ? describe(*window) : std::nullopt;
    }
    // The workspace that the user sees, counted from 0; nothing where there are none.
    virtual std::optional<std::uint32_t> shownWorkspace() = 0;
    // The managed windows, bottom to top.
    virtual std::vector<std::uint32_t> managedWindows() = 0;
    // The managed windows in the order in which they were last active, the latest first. Those that were never seen
    // active come last, topmost first.
    virtual std::vector<std::uint32_t> windowsByActivation() = 0;
    // The topmost managed window whose frame contains the point; nothing over the desktop. Minimised windows and those
    // of other workspaces are not there.
    virtual std::optional<std::uint32_t> windowAtPosition(const Point& pointCG) = 0;

    // Until the look of the calling thread ends, what the desktop has told of the active window by itself is enough: it
    // is not asked whether that is all. For those who look again soon. Looks nest; use a read batch.
    virtual void beginLook() { }
    virtual void endLook() { }

    // All three ask the window manager. False when the request could not be sent.
    virtual bool setPosition(std::uint32_t window, const Point& topLeftCG) = 0;
    // A maximised window is so no more.
    virtual bool setSize(std::uint32_t window, const Size& frameSize) = 0;
    virtual bool raise(std::uint32_t window) = 0;
};

} // namespace tarragon
