#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace tarragon {

struct X11WindowDescription;

struct DesktopEntry {
    std::string identifier; // file name without ".desktop"
    std::string path;
    std::string name; // in the user's language
};

// The installed applications, as the desktop's own menu knows them. May be called from any thread.
class DesktopEntries {
public:
    DesktopEntries();
    ~DesktopEntries();

    // The entry that matches the window best: by StartupWMClass, GTK application identifier, window class, executable
    // of its process, in this order; nothing when none does.
    std::optional<DesktopEntry> entryForWindow(const X11WindowDescription& window);
    // What people call the window's application: the entry's name, else the window class, else the process name.
    std::string applicationName(const X11WindowDescription& window);

private:
    class Index;
    std::unique_ptr<Index> _index;
};

} // namespace tarragon
