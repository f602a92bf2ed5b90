#include "platform/linux/DesktopShortcutsSession.h"

#include "platform/linux/SessionEnvironment.h"
#include "platform/linux/X11Connection.h"
#include "platform/linux/X11Property.h"

#include <algorithm>

namespace tarragon {

namespace {

std::string windowManagerName(X11Connection& connection) {
    X11Property check(connection.get(), connection.rootWindow(), connection.atom("_NET_SUPPORTING_WM_CHECK"));
    const std::optional<std::uint32_t> window = check.number();
    return window ? X11Property(connection.get(), *window, connection.atom("_NET_WM_NAME")).text() : std::string();
}

} // namespace

DesktopShortcutsSession DesktopShortcutsSession::current(X11Connection& connection) {
    DesktopShortcutsSession session;
    session.configurationFolders = systemConfigurationFolders();
    if (const std::filesystem::path folder = userConfigurationFolder(); !folder.empty())
        session.configurationFolders.insert(session.configurationFolders.begin(), folder);
    session.desktops = sessionDesktops();
    session.windowManager = windowManagerName(connection);
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
