#include "platform/linux/x11/X11WindowList.h"

#include "platform/linux/windows/ApplicationDirectory.h"
#include "platform/linux/windows/WindowSource.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Reply.h"

#include <algorithm>
#include <utility>

#include <xcb/xcb.h>

namespace tarragon {

std::vector<ListedWindow> X11WindowList::onScreenWindows() {
    std::vector<ListedWindow> list;
    for (const WindowDescription& window : _windows.describe(mappedWindows())) {
        if (!window.hidden)
            list.push_back(
                {window.identifier, window.title, _applications.applicationName(window), window.processIdentifier});
    }
    std::ranges::reverse(list);
    return list;
}

bool X11WindowList::raise(std::uint64_t identifier) {
    return _windows.raise(static_cast<std::uint32_t>(identifier));
}

// Bottom to top. Window managers unmap the windows of other workspaces, or the frames around them.
std::vector<std::uint32_t> X11WindowList::mappedWindows() {
    std::vector<std::pair<std::uint32_t, xcb_get_window_attributes_cookie_t>> requests;
    for (const std::uint32_t window : _windows.managedWindows())
        requests.emplace_back(window, xcb_get_window_attributes(_connection.get(), window));
    std::vector<std::uint32_t> mapped;
    for (const auto& [window, cookie] : requests) {
        const X11Reply<xcb_get_window_attributes_reply_t> attributes(
            xcb_get_window_attributes_reply(_connection.get(), cookie, nullptr));
        if (attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE)
            mapped.push_back(window);
    }
    return mapped;
}

} // namespace tarragon
