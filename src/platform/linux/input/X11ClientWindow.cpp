#include "platform/linux/input/X11ClientWindow.h"

#include "platform/linux/x11/X11Reply.h"

#include <algorithm>

#include <xcb/xcb.h>

namespace tarragon {

namespace {

// Of all of them at once, the topmost first.
std::vector<xcb_window_t> childrenOf(xcb_connection_t* connection, const std::vector<xcb_window_t>& windows) {
    std::vector<xcb_query_tree_cookie_t> cookies;
    cookies.reserve(windows.size());
    for (const xcb_window_t window : windows)
        cookies.push_back(xcb_query_tree(connection, window));
    std::vector<xcb_window_t> children;
    for (const xcb_query_tree_cookie_t cookie : cookies) {
        const X11Reply<xcb_query_tree_reply_t> tree(xcb_query_tree_reply(connection, cookie, nullptr));
        if (!tree)
            continue;
        const xcb_window_t* first = xcb_query_tree_children(tree.get());
        children.insert(children.end(), first, first + xcb_query_tree_children_length(tree.get()));
        std::reverse(children.end() - xcb_query_tree_children_length(tree.get()), children.end());
    }
    return children;
}

} // namespace

std::optional<std::uint32_t> clientWindowOf(
    xcb_connection_t* connection, std::uint32_t childOfRoot, const std::vector<std::uint32_t>& managedWindows) {
    // No frame is nested as deep as this.
    constexpr int MaximumDepth = 8;
    std::vector<xcb_window_t> level = {childOfRoot};
    for (int depth = 0; depth < MaximumDepth && !level.empty(); ++depth) {
        const auto client = std::ranges::find_first_of(level, managedWindows);
        if (client != level.end())
            return *client;
        level = childrenOf(connection, level);
    }
    return std::nullopt;
}

} // namespace tarragon
