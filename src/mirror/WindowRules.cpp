#include "mirror/WindowRules.h"

namespace tarragon {

std::optional<bool> isDesktopLikeWindow(
    const std::optional<std::string>& applicationTitle, const std::optional<std::string>& role) {
    if (applicationTitle == "Finder" && role == "scroll area")
        return true;
    if (role == "AXWindow:AXUnknown")
        return true;
    if (applicationTitle == "Tarragon") // this program itself
        return false;
    if (applicationTitle == "Steam" || applicationTitle == "Parallels")
        return true;
    return std::nullopt;
}

bool isPassingWindow(const std::optional<std::string>& role, const std::optional<std::string>& title) {
    if (role == "window" && (title == "Help" || title == "File"))
        return true;
    if (!role || !title)
        return true;
    if (role == "sheet" || role == "dialog" || role == "floating window")
        return true;
    if (title == "Copy" || title == "contextMenu")
        return true;
    if (title->starts_with("Copying") || title->starts_with("Moving") || title->starts_with("Deleting"))
        return true;
    if (title == "Delete" || title == "Duplicate")
        return true;
    return title->starts_with("Clockwork") || title == "System Preferences";
}

} // namespace tarragon
