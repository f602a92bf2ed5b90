#include "platform/linux/desktop/DesktopShortcutsSession.h"

#include "platform/linux/desktop/SessionEnvironment.h"

#include <algorithm>
#include <utility>

namespace tarragon {

DesktopShortcutsSession DesktopShortcutsSession::current(std::string windowManager) {
    DesktopShortcutsSession session;
    session.configurationFolders = systemConfigurationFolders();
    if (const std::filesystem::path folder = userConfigurationFolder(); !folder.empty())
        session.configurationFolders.insert(session.configurationFolders.begin(), folder);
    session.desktops = sessionDesktops();
    session.windowManager = std::move(windowManager);
    return session;
}

std::vector<DesktopShortcut> DesktopShortcutsSession::readShortcuts() const {
    const auto contentsOf = [this](const char* fileName) {
        for (const std::filesystem::path& folder : configurationFolders) {
            if (std::optional<std::string> contents = contentsOfSmallFile(folder / fileName))
                return *contents;
        }
        return std::string();
    };
    const bool isXfce =
        windowManager == "Xfwm4" || std::find(desktops.begin(), desktops.end(), "XFCE") != desktops.end();
    if (isXfce)
        return xfceShortcuts(contentsOf("xfce4/xfconf/xfce-perchannel-xml/xfce4-keyboard-shortcuts.xml"));
    if (windowManager == "Openbox")
        return openboxShortcuts(contentsOf("openbox/rc.xml"));
    return {};
}

} // namespace tarragon
