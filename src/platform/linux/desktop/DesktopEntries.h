#pragma once

#include "platform/linux/windows/ApplicationDirectory.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tarragon {

// The installed applications, as the desktop's own menu knows them. The entries are read once, and again after one of
// their folders has changed. May be called from any thread.
class DesktopEntries final : public ApplicationDirectory {
public:
    // The folders and the language of the user's session.
    DesktopEntries();
    // The folders hold the entries themselves ("/usr/share/applications"), the one that counts most first. A locale is
    // "de_DE.UTF-8"; several are tried in order.
    DesktopEntries(std::vector<std::filesystem::path> folders, const std::vector<std::string>& locales);
    ~DesktopEntries() override;
    DesktopEntries(const DesktopEntries&) = delete;
    DesktopEntries& operator=(const DesktopEntries&) = delete;

    // The entry that matches the window best: by StartupWMClass, GTK application identifier, window class, executable
    // of its process, in this order; nothing when none does. Case decides only where it must.
    std::optional<DesktopEntry> entryForWindow(const WindowDescription& window) override;
    // What people call the window's application: the entry's name, else the window class, else the process name.
    std::string applicationName(const WindowDescription& window) override;

private:
    class Index;
    std::unique_ptr<Index> _index;
};

} // namespace tarragon
