#pragma once

#include "platform/InstalledApplications.h"

#include <algorithm>
#include <utility>

namespace tarragon {

// The installed applications of a desktop in memory.
class FakeInstalledApplications : public InstalledApplications {
public:
    // isShown: in the desktop's own menus.
    void addApplication(ApplicationBundle bundle, bool isShown = true) {
        _applications.emplace_back(std::move(bundle), isShown);
    }
    void setApplicationsFolder(std::string folder) { _folder = std::move(folder); }

    std::vector<ApplicationBundle> installedApplications() override {
        std::vector<ApplicationBundle> shown;
        for (const auto& [bundle, isShown] : _applications) {
            if (isShown)
                shown.push_back(bundle);
        }
        return shown;
    }
    std::optional<ApplicationBundle> bundleAtPath(const std::string& path) override {
        const auto found = std::ranges::find(_applications, path, [](const auto& entry) { return entry.first.path; });
        return found == _applications.end() ? std::nullopt : std::optional(found->first);
    }
    std::string applicationsFolder() override { return _folder; }

private:
    std::vector<std::pair<ApplicationBundle, bool>> _applications;
    std::string _folder = "/usr/share/applications";
};

} // namespace tarragon
