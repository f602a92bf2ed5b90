#pragma once

#include "ignore/IgnoreDictionary.h"
#include "platform/Defaults.h"
#include "platform/Workspace.h"

#include <optional>
#include <string>

namespace tarragon {

// What the ignore list asks about the window in front.
class WindowInFront {
public:
    virtual ~WindowInFront() = default;
    // Nothing when there is no window or it has no title.
    virtual std::optional<std::string> focusedWindowTitle() = 0;
    virtual bool isFocusedWindowFullScreen() = 0;
};

// What the ignore list does to the floating panel. Every operation may be left out.
class IgnoredPanel {
public:
    virtual ~IgnoredPanel() = default;
    virtual void hideTarragonPanel() { }
    // Takes the panel off the screen at once.
    virtual void orderOut() { }
};

enum class IgnoreCode { App = 0, Role = 1, Title = 2 };

// Tells whether the window in front is on the stored ignore list, and puts it there. The stored list is read anew every
// time. Main thread only.
class IgnoreList {
public:
    // All of them stay the caller's and outlive the list. panel is nullptr where there is no panel to take away.
    IgnoreList(Defaults& defaults, Workspace& workspace, WindowInFront& window, IgnoredPanel* panel);

    // True when the panel is to stay hidden for the window in front. Hides it, unless the window is full-screen.
    bool windowIsIgnored();

    void ignoreCurrentWindow(IgnoreCode code);
    // Every window of the application in front.
    void ignoreApp() { ignoreCurrentWindow(IgnoreCode::App); }
    // Lists the application without ignoring any of its windows.
    void ignoreRole() { ignoreCurrentWindow(IgnoreCode::Role); }
    // Every window of the application in front that has the title of the window in front.
    void ignoreTitle() { ignoreCurrentWindow(IgnoreCode::Title); }

private:
    void addToList(const RunningApplication& application, const std::optional<std::string>& title, IgnoreCode code);

    Defaults& _defaults;
    Workspace& _workspace;
    WindowInFront& _window;
    IgnoredPanel* _panel;
    IgnoreDictionary _ignoreList; // the working copy of the last ignore action
};

} // namespace tarragon
