#pragma once

#include "platform/Workspace.h"

#include <functional>
#include <optional>
#include <string>

namespace tarragon {

struct PickedWindow {
    RunningApplication application;
    std::optional<std::string> title; // nothing when the window has none
};

// Lets the user show us a window of another program by clicking into it. Main thread only; handlers are called from the
// run loop.
class WindowPicker {
public:
    virtual ~WindowPicker() = default;

    // The pointer becomes a cross, and the next click goes to nobody but us. The handler gets the window under it, or
    // nothing when there is no window of another program, or the user gave up with Escape or another button. False,
    // and no handler called, when the pointer cannot be had, or a window is being picked already.
    [[nodiscard]] virtual bool pickWindow(std::function<void(const std::optional<PickedWindow>& window)> handler) = 0;
    // Nobody is picking any more, and the handler is not called. Does nothing when nobody was.
    virtual void cancel() = 0;
};

} // namespace tarragon
