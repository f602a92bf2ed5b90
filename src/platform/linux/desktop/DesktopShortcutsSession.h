#pragma once

#include "platform/linux/desktop/DesktopShortcuts.h"

#include <filesystem>
#include <string>
#include <vector>

namespace tarragon {

// Which desktop is running, and where its settings are.
struct DesktopShortcutsSession {
    std::vector<std::filesystem::path> configurationFolders; // the first one that has a file counts
    std::vector<std::string> desktops; // names of the running desktop
    std::string windowManager; // its name; empty when none is running

    // The session of this process, under the window manager of that name.
    static DesktopShortcutsSession current(std::string windowManager);

    // The key combinations in the settings of the desktop and the window manager that are running; none for those whose
    // settings are not known.
    std::vector<DesktopShortcut> readShortcuts() const;
};

} // namespace tarragon
