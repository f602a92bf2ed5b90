#pragma once

#include "platform/linux/windows/WindowDescription.h"

#include <optional>
#include <string>

namespace tarragon {

struct DesktopEntry {
    std::string identifier; // file name without ".desktop"; a subfolder's name and a dash come before it
    std::string path;
    std::string name; // in the user's language
};

// Which installed application a window belongs to. May be called from any thread.
class ApplicationDirectory {
public:
    virtual ~ApplicationDirectory() = default;

    // Nothing when no entry matches the window.
    virtual std::optional<DesktopEntry> entryForWindow(const WindowDescription& window) = 0;
    // What people call the window's application; never fails, but may be empty.
    virtual std::string applicationName(const WindowDescription& window) = 0;
};

} // namespace tarragon
