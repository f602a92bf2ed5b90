#pragma once

#include "platform/linux/windows/ApplicationDirectory.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tarragon {

// The installed applications, as the desktop's own menu knows them. The entries are read once, and again after one of
// their folders has changed. May be called from any thread.
class DesktopEntries final : public ApplicationDirectory {
public:
    // The number of the look that the calling thread has at the desktop, another one each time; nothing while it has
    // none. May be called from any thread.
    using CurrentLook = std::function<std::optional<std::uint64_t>()>;

    // The folders and the language of the user's session. Within a look the folders are looked at once, and in looks
    // that follow each other closely every two seconds, or when no entry matches; an empty function stands for no look
    // at any time.
    explicit DesktopEntries(CurrentLook currentLook = {});
    // The folders hold the entries themselves ("/usr/share/applications"), the one that counts most first. A locale is
    // "de_DE.UTF-8"; several are tried in order.
    DesktopEntries(std::vector<std::filesystem::path> folders, const std::vector<std::string>& locales,
        CurrentLook currentLook = {});
    ~DesktopEntries() override;
    DesktopEntries(const DesktopEntries&) = delete;
    DesktopEntries& operator=(const DesktopEntries&) = delete;

    // The entry that matches the window best: by StartupWMClass, GTK application identifier, window class, executable
    // of its process, in this order; nothing when none does. Case decides only where it must.
    std::optional<DesktopEntry> entryForWindow(const WindowDescription& window) override;
    // The same for the windows that a program will have, of whose names these are known: the class of its windows, or
    // the name of its file where that is all, and the application identifier that GTK gives them, which may be empty.
    std::optional<DesktopEntry> entryForProgram(const std::string& name, const std::string& gtkApplicationIdentifier);
    // Every entry that counts, in no particular order.
    std::vector<DesktopEntry> allEntries();
    // The folders that hold them, the one that counts most first.
    const std::vector<std::filesystem::path>& folders() const;
    // What people call the window's application: the entry's name, else the window class, else the process name.
    std::string applicationName(const WindowDescription& window) override;

private:
    class Index;
    std::unique_ptr<Index> _index;
};

} // namespace tarragon
