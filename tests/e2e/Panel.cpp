#include "Panel.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <memory>
#include <regex>

#include <xcb/shape.h>

namespace tarragon::e2e {

namespace {

struct FreeMemory {
    void operator()(void* memory) const { std::free(memory); }
};
template <typename T>
using Owned = std::unique_ptr<T, FreeMemory>;

constexpr const char* PanelName = "TarragonPanel";

Owned<xcb_get_window_attributes_reply_t> attributesOf(xcb_connection_t* connection, xcb_window_t window) {
    return Owned<xcb_get_window_attributes_reply_t>(
        xcb_get_window_attributes_reply(connection, xcb_get_window_attributes(connection, window), nullptr));
}

std::vector<xcb_window_t> childrenOf(xcb_connection_t* connection, xcb_window_t window) {
    Owned<xcb_query_tree_reply_t> tree(xcb_query_tree_reply(connection, xcb_query_tree(connection, window), nullptr));
    if (!tree)
        return {};
    const xcb_window_t* children = xcb_query_tree_children(tree.get());
    return {children, children + xcb_query_tree_children_length(tree.get())};
}

std::string plainTitleOf(xcb_connection_t* connection, xcb_window_t window) {
    auto cookie = xcb_get_property(connection, 0, window, XCB_ATOM_WM_NAME, XCB_ATOM_ANY, 0, 64);
    Owned<xcb_get_property_reply_t> reply(xcb_get_property_reply(connection, cookie, nullptr));
    if (!reply)
        return {};
    return {static_cast<const char*>(xcb_get_property_value(reply.get())),
        static_cast<std::size_t>(xcb_get_property_value_length(reply.get()))};
}

// The last line of the log that tells of titles, without what precedes them. Empty when there was none, or when the
// last layout had no titles.
std::string lastTitlesIn(const std::string& log) {
    // Bars tell of their titles in lines that begin otherwise.
    const std::string mark = " panel: ";
    for (std::size_t found = log.rfind(mark); found != std::string::npos && found > 0;
         found = log.rfind(mark, found - 1)) {
        const std::size_t begin = found + mark.size();
        const std::size_t end = log.find('\n', begin);
        const std::string line = log.substr(begin, end == std::string::npos ? end : end - begin);
        if (line.starts_with("titles: \""))
            return line;
        if (line == "no titles")
            return {};
    }
    return {};
}

} // namespace

const Environment Panel::TitlesInLog{{"TARRAGON_LOG", "panel,settings"}};
const std::string Panel::OverflowTitle = "▿";

Panel::Panel(XDisplay& display, Agent& agent, double pixelsPerPoint)
    : _display(display)
    , _agent(agent)
    , _pixelsPerPoint(pixelsPerPoint) { }

xcb_window_t Panel::window() const {
    xcb_connection_t* connection = _display.connection();
    for (const xcb_window_t child : childrenOf(connection, _display.root())) {
        if (plainTitleOf(connection, child) != PanelName || _display.processOf(child) != _agent.identifier())
            continue;
        if (const auto attributes = attributesOf(connection, child); attributes && attributes->override_redirect)
            return child;
    }
    return XCB_NONE;
}

PixelRect Panel::frame() const {
    const xcb_window_t panel = window();
    return panel == XCB_NONE ? PixelRect{} : _display.frameOf(panel);
}

bool Panel::isViewable() const {
    return _display.isViewable(window());
}

double Panel::opacity() const {
    constexpr double Opaque = 0xFFFFFFFF;
    auto cookie = xcb_get_property(
        _display.connection(), 0, window(), _display.atom("_NET_WM_WINDOW_OPACITY"), XCB_ATOM_CARDINAL, 0, 1);
    Owned<xcb_get_property_reply_t> reply(xcb_get_property_reply(_display.connection(), cookie, nullptr));
    if (!reply || reply->format != 32 || xcb_get_property_value_length(reply.get()) != 4)
        return 1;
    return *static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get())) / Opaque;
}

std::vector<PixelRect> Panel::shape(std::uint8_t kind) const {
    xcb_connection_t* connection = _display.connection();
    Owned<xcb_shape_get_rectangles_reply_t> reply(
        xcb_shape_get_rectangles_reply(connection, xcb_shape_get_rectangles(connection, window(), kind), nullptr));
    std::vector<PixelRect> shape;
    if (!reply)
        return shape;
    const xcb_rectangle_t* rectangles = xcb_shape_get_rectangles_rectangles(reply.get());
    for (int index = 0; index < xcb_shape_get_rectangles_rectangles_length(reply.get()); ++index) {
        const xcb_rectangle_t& rectangle = rectangles[index];
        if (rectangle.width > 0 && rectangle.height > 0)
            shape.push_back({rectangle.x, rectangle.y, rectangle.width, rectangle.height});
    }
    return shape;
}

std::vector<PixelRect> Panel::boundingShape() const {
    return shape(XCB_SHAPE_SK_BOUNDING);
}

std::vector<PixelRect> Panel::inputShape() const {
    return shape(XCB_SHAPE_SK_INPUT);
}

bool Panel::isSeen() const {
    return isViewable() && opacity() > 0 && !boundingShape().empty();
}

bool Panel::takesClicks() const {
    return isViewable() && !inputShape().empty();
}

std::vector<xcb_window_t> Panel::stacking() const {
    std::vector<xcb_window_t> windows = childrenOf(_display.connection(), _display.root());
    std::erase_if(windows, [this](xcb_window_t window) {
        const auto attributes = attributesOf(_display.connection(), window);
        return !attributes || attributes->map_state != XCB_MAP_STATE_VIEWABLE
            || attributes->_class == XCB_WINDOW_CLASS_INPUT_ONLY;
    });
    return windows;
}

bool Panel::liesAbove(xcb_window_t window, xcb_window_t other) const {
    const std::vector<xcb_window_t> windows = stacking();
    const auto lower = std::find(windows.begin(), windows.end(), frameWindowOf(other));
    return std::find(lower, windows.end(), frameWindowOf(window)) != windows.end();
}

xcb_window_t Panel::windowBelow() const {
    const std::vector<xcb_window_t> windows = stacking();
    const auto panel = std::find(windows.begin(), windows.end(), window());
    return panel == windows.begin() || panel == windows.end() ? xcb_window_t(XCB_NONE) : *(panel - 1);
}

std::vector<xcb_window_t> Panel::windowsAbove() const {
    const std::vector<xcb_window_t> windows = stacking();
    const auto panel = std::find(windows.begin(), windows.end(), window());
    return panel == windows.end() ? std::vector<xcb_window_t>() : std::vector<xcb_window_t>(panel + 1, windows.end());
}

xcb_window_t Panel::frameWindowOf(xcb_window_t window) const {
    xcb_connection_t* connection = _display.connection();
    while (true) {
        Owned<xcb_query_tree_reply_t> tree(
            xcb_query_tree_reply(connection, xcb_query_tree(connection, window), nullptr));
        if (!tree)
            return XCB_NONE;
        if (tree->parent == _display.root() || tree->parent == XCB_NONE)
            return window;
        window = tree->parent;
    }
}

std::vector<PanelTitle> Panel::titlesIn(const std::string& line) {
    // A title may have any characters in it, so only what follows it tells where it ends.
    static const std::regex Title("\"(.*?)\" (-?\\d+) to (-?\\d+)(?:, |$)");
    std::vector<PanelTitle> titles;
    for (std::sregex_iterator match(line.begin(), line.end(), Title), end; match != end; ++match)
        titles.push_back({(*match)[1].str(), std::stoi((*match)[2].str()), std::stoi((*match)[3].str())});
    return titles;
}

std::vector<PanelTitle> Panel::titles() const {
    return titlesIn(lastTitlesIn(_agent.process().standardError()));
}

std::vector<std::string> Panel::titleTexts() const {
    std::vector<std::string> texts;
    for (const PanelTitle& title : titles())
        texts.push_back(title.title);
    return texts;
}

std::optional<PixelRect> Panel::frameOfTitle(const std::string& title) const {
    const std::vector<PanelTitle> all = titles();
    const auto found =
        std::find_if(all.begin(), all.end(), [&](const PanelTitle& each) { return each.title == title; });
    if (found == all.end())
        return std::nullopt;
    const PixelRect panel = frame();
    const auto pixels = [this](int points) { return static_cast<int>(std::lround(points * _pixelsPerPoint)); };
    const int left = pixels(found->left);
    return PixelRect{panel.x + left, panel.y, pixels(found->right) - left, panel.height};
}

bool Panel::waitUntilSeen(Duration deadline) const {
    return waitUntil([this] { return isSeen(); }, deadline);
}

bool Panel::waitUntilNotSeen(Duration deadline) const {
    return waitUntil([this] { return !isSeen(); }, deadline);
}

bool Panel::waitUntilOpaque(Duration deadline) const {
    return waitUntil([this] { return isSeen() && opacity() >= 1; }, deadline);
}

bool Panel::waitUntilTransparent(Duration deadline) const {
    return waitUntil([this] { return opacity() <= 0; }, deadline);
}

bool Panel::waitForFrame(const PixelRect& wanted, Duration deadline) const {
    return waitUntil([&] { return isSeen() && frame() == wanted; }, deadline);
}

bool Panel::waitForTitles(const std::vector<std::string>& wanted, Duration deadline) const {
    return waitUntil(
        [&] {
            std::vector<std::string> shown = titleTexts();
            std::erase(shown, OverflowTitle);
            const std::size_t common = std::min(shown.size(), wanted.size());
            return common > 0
                && std::equal(shown.begin(), shown.begin() + static_cast<std::ptrdiff_t>(common), wanted.begin())
                && isSeen();
        },
        deadline);
}

} // namespace tarragon::e2e
