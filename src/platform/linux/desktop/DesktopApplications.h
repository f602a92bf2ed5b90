#pragma once

#include "platform/InstalledApplications.h"
#include "platform/linux/windows/ApplicationDirectory.h"
#include "platform/linux/windows/WindowDescription.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tarragon {

class DesktopEntries;
struct DesktopEntryFile;

// The applications of a desktop's menus, by their desktop entries. An application is told by the identifier that its
// windows will have: several entries that start the same one are one.
class DesktopApplications : public InstalledApplications {
public:
    // What the session says of itself.
    struct Session {
        std::vector<std::string> desktops; // names of the running desktop
        std::vector<std::string> languages; // as from desktopLanguages
        std::vector<std::filesystem::path> searchPath; // for programs without a path

        static Session current();
    };
    // Those that are there now, of all programs.
    using RunningWindows = std::function<std::vector<WindowDescription>()>;

    // The entries outlive this object.
    DesktopApplications(DesktopEntries& entries, RunningWindows windows, Session session = Session::current());

    std::vector<ApplicationBundle> installedApplications() override;
    std::optional<ApplicationBundle> bundleAtPath(const std::string& path) override;
    std::string applicationsFolder() override;

private:
    std::optional<DesktopEntryFile> read(const std::filesystem::path& file) const;
    bool isShown(const DesktopEntryFile& file) const;
    ApplicationBundle bundleOf(const DesktopEntry& entry, const DesktopEntryFile& file);
    std::optional<ApplicationBundle> bundleOfEntryAt(
        const std::filesystem::path& chosen, const std::filesystem::path& resolved);
    std::optional<ApplicationBundle> bundleOfProgramAt(
        const std::filesystem::path& chosen, const std::filesystem::path& resolved);
    std::string identifierOfWindowsOf(const std::string& programName);

    DesktopEntries& _entries;
    RunningWindows _windows;
    Session _session;
};

} // namespace tarragon
