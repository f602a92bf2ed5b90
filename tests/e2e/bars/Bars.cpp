#include "bars/Bars.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <memory>
#include <tuple>

#include <xcb/shape.h>

namespace tarragon::e2e {

namespace {

constexpr const char* NameOfBars = "TarragonSTPanel128";

struct FreeMemory {
    void operator()(void* memory) const { std::free(memory); }
};
template <typename T>
using Owned = std::unique_ptr<T, FreeMemory>;

std::vector<std::uint32_t> numbersOf(
    XDisplay& display, xcb_window_t window, const std::string& property, xcb_atom_t type) {
    auto cookie = xcb_get_property(display.connection(), 0, window, display.atom(property), type, 0, 64);
    Owned<xcb_get_property_reply_t> reply(xcb_get_property_reply(display.connection(), cookie, nullptr));
    if (!reply || reply->format != 32)
        return {};
    const auto* numbers = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    return {numbers, numbers + xcb_get_property_value_length(reply.get()) / 4};
}

bool hasShape(XDisplay& display, xcb_window_t window) {
    Owned<xcb_shape_get_rectangles_reply_t> shape(xcb_shape_get_rectangles_reply(
        display.connection(), xcb_shape_get_rectangles(display.connection(), window, XCB_SHAPE_SK_BOUNDING), nullptr));
    return shape && xcb_shape_get_rectangles_rectangles_length(shape.get()) > 0;
}

bool overlap(const PixelRect& one, const PixelRect& other) {
    return one.x < other.x + other.width && other.x < one.x + one.width && one.y < other.y + other.height
        && other.y < one.y + one.height;
}

} // namespace

Bars::Bars(XDisplay& display, Agent& agent, double pixelsPerPoint)
    : _display(display)
    , _agent(agent)
    , _pixelsPerPoint(pixelsPerPoint) { }

std::vector<XWindow> Bars::seen() const {
    std::vector<XWindow> bars = _display.unmanagedWindowsOf(_agent.identifier());
    for (const xcb_window_t window : _display.managedWindowsOf(_agent.identifier()))
        bars.push_back({window, _agent.identifier(), _display.frameOf(window)});
    std::erase_if(bars, [this](const XWindow& window) {
        return _display.titleOf(window.identifier) != NameOfBars || !_display.isViewable(window.identifier)
            || !overlap(window.frame, _display.bounds()) || !hasShape(_display, window.identifier);
    });
    std::ranges::sort(bars, {}, [](const XWindow& bar) { return std::tuple(bar.frame.x, bar.frame.y); });
    return bars;
}

std::vector<PixelRect> Bars::framesSeen() const {
    std::vector<PixelRect> frames;
    for (const XWindow& bar : seen())
        frames.push_back(bar.frame);
    return frames;
}

std::optional<XWindow> Bars::seenOn(const PixelRect& monitor) const {
    for (const XWindow& bar : seen()) {
        if (overlap(bar.frame, monitor))
            return bar;
    }
    return std::nullopt;
}

double Bars::opacityOf(xcb_window_t bar) const {
    constexpr double Opaque = 0xFFFFFFFF;
    const auto numbers = numbersOf(_display, bar, "_NET_WM_WINDOW_OPACITY", XCB_ATOM_CARDINAL);
    return numbers.empty() ? 1 : numbers[0] / Opaque;
}

bool Bars::isDock(xcb_window_t bar) const {
    const auto managed = _display.managedWindows();
    const auto kinds = numbersOf(_display, bar, "_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM);
    return std::ranges::find(managed, bar) != managed.end()
        && std::ranges::find(kinds, _display.atom("_NET_WM_WINDOW_TYPE_DOCK")) != kinds.end();
}

std::vector<PanelTitle> Bars::titles(int screen) const {
    const std::string log = _agent.process().standardError();
    const std::string mark = "bar of screen " + std::to_string(screen) + ": titles: ";
    const std::size_t found = log.rfind(mark);
    if (found == std::string::npos)
        return {};
    const std::size_t begin = found + mark.size();
    return Panel::titlesIn(log.substr(begin, log.find('\n', begin) - begin));
}

std::optional<PixelRect> Bars::frameOfTitle(int screen, const PixelRect& monitor, const std::string& title) const {
    const auto bar = seenOn(monitor);
    const std::vector<PanelTitle> all = titles(screen);
    const auto found = std::ranges::find(all, title, &PanelTitle::title);
    if (!bar || found == all.end())
        return std::nullopt;
    const auto pixels = [this](int points) { return static_cast<int>(std::lround(points * _pixelsPerPoint)); };
    const int left = pixels(found->left);
    return PixelRect{bar->frame.x + left, bar->frame.y, pixels(found->right) - left, bar->frame.height};
}

} // namespace tarragon::e2e
