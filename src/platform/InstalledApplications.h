#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tarragon {

// What an application that is installed says of itself.
struct ApplicationBundle {
    std::string path; // of the file that stands for the application
    std::string bundleIdentifier; // as RunningApplication has it; empty when it has none
    // In the user's language; nothing where the application does not say.
    std::optional<std::string> displayName;
    std::optional<std::string> name;
    std::optional<std::string> executable; // file name of the program
    std::string icon; // of the icon theme, or the path of an image file; empty when there is none
    bool operator==(const ApplicationBundle&) const = default;
};

// The applications that are installed for the user. Main thread only.
class InstalledApplications {
public:
    virtual ~InstalledApplications() = default;

    // Those that the desktop's own menus show, in no particular order, each bundle identifier once.
    [[nodiscard]] virtual std::vector<ApplicationBundle> installedApplications() = 0;
    // What a file that the user has chosen stands for: an application, or the program itself. Nothing when it is
    // neither.
    [[nodiscard]] virtual std::optional<ApplicationBundle> bundleAtPath(const std::string& path) = 0;
    // The folder in which a search for applications begins; empty when there is none.
    [[nodiscard]] virtual std::string applicationsFolder() = 0;
};

} // namespace tarragon
