#include "PopUp.h"

#include <algorithm>

#include <X11/keysym.h>

namespace tarragon::e2e {

PopUp::PopUp(Desktop& desktop, Agent& agent, MenuObserver& observer)
    : _desktop(desktop)
    , _agent(agent)
    , _observer(observer) { }

bool PopUp::isOpen() {
    return !_agent.openMenus().empty();
}

bool PopUp::open(Duration deadline) {
    return openBy([this] { _agent.pressHotKey(); }, deadline);
}

bool PopUp::openByButton(std::uint8_t button, Duration deadline) {
    return openBy([this, button] { _desktop.input().press(button); }, deadline);
}

void PopUp::startAnew() {
    _notice = {};
    _seenBeforeOpening = _observer.count();
}

bool PopUp::openBy(const std::function<void()>& press, Duration deadline) {
    auto start = Clock::now();
    startAnew();
    press();
    bool opened = waitUntil([this] { return isOpen(); }, deadline);
    _openingTime = std::chrono::duration_cast<Duration>(Clock::now() - start);
    // Until the menu has the keyboard, keys would go to the application behind it.
    return opened && waitUntil([this] { return _desktop.display().keyboardIsGrabbed(); }, deadline);
}

bool PopUp::close() {
    for (int level = 0; level < 16 && isOpen(); ++level) {
        std::size_t before = _agent.openMenus().size();
        _desktop.input().tap(XK_Escape);
        waitUntil([&] { return _agent.openMenus().size() < before; }, Duration(3000));
    }
    return !isOpen();
}

template <typename Condition>
bool PopUp::waitForNotice(std::size_t seen, Condition condition, Duration deadline) {
    return waitUntil(
        [&] {
            if (_observer.count() <= seen)
                return false;
            MenuObserver::Notice notice = _observer.last();
            if (!condition(notice))
                return false;
            _notice = std::move(notice);
            return true;
        },
        deadline);
}

Menu PopUp::items() {
    if (_notice.menu.empty()) {
        _desktop.input().tap(XK_Down);
        waitForNotice(_seenBeforeOpening, [](const auto&) { return true; });
    }
    return _notice.menu;
}

bool PopUp::openWith(const std::vector<std::string>& titles, Duration deadline) {
    auto begins = [&](const Menu& menu) {
        auto shown = titlesOf(menu);
        return shown.size() >= titles.size() && std::equal(titles.begin(), titles.end(), shown.begin());
    };
    return waitUntil(
        [&] {
            if (!open(Duration(3000)))
                return false;
            if (begins(items()))
                return true;
            close();
            return false;
        },
        deadline);
}

bool PopUp::highlight(const std::string& title) {
    std::size_t steps = items().size() + 1;
    for (std::size_t step = 0; step < steps && _notice.item != title; ++step) {
        std::size_t seen = _observer.count();
        _desktop.input().tap(XK_Down);
        if (!waitForNotice(
                seen, [](const auto&) { return true; }, Duration(3000)))
            return false;
    }
    return _notice.item == title;
}

bool PopUp::openSubmenuByKeyboard() {
    std::vector<std::string> above = titlesOf(_notice.menu);
    std::size_t seen = _observer.count();
    std::size_t open = _agent.openMenus().size();
    // The first item of the submenu gets the highlight.
    _desktop.input().tap(XK_Right);
    return waitForNotice(seen, [&](const auto& notice) { return titlesOf(notice.menu) != above; })
        && _agent.openMenus().size() > open;
}

Menu PopUp::openByKeyboard(const std::vector<std::string>& path) {
    for (const std::string& title : path) {
        if (!highlight(title) || !openSubmenuByKeyboard())
            return {};
    }
    return _notice.menu;
}

bool PopUp::chooseByKeyboard(const std::vector<std::string>& path) {
    std::vector<std::string> menus(path.begin(), path.end() - 1);
    if (!menus.empty() && openByKeyboard(menus).empty())
        return false;
    if (!highlight(path.back()))
        return false;
    _desktop.input().tap(XK_Return);
    return waitUntil([this] { return !isOpen(); });
}

bool PopUp::lookInto(const PixelRect& frame, const std::string& title) {
    constexpr int step = 12;
    auto hasTitle = [&](const auto& notice) { return itemAtPath(notice.menu, {title}) != nullptr; };
    for (int y = frame.y + step; y < frame.y + frame.height; y += step) {
        _desktop.input().moveTo(frame.x + frame.width / 2, y);
        if (waitForNotice(_seenBeforeOpening, hasTitle, Duration(300)))
            return true;
    }
    return false;
}

bool PopUp::pointAt(const std::string& title) {
    const MenuRecord* item = itemAtPath(_notice.menu, {title});
    if (!item || item->frame.width <= 0)
        return false;
    _desktop.input().moveTo(item->frame.x + item->frame.width / 2, item->frame.y + item->frame.height / 2);
    return waitForNotice(_seenBeforeOpening, [&](const auto& notice) { return notice.item == title; });
}

bool PopUp::pointInto(const std::string& title) {
    std::vector<XWindow> menus = _agent.openMenus();
    return !menus.empty() && lookInto(menus.back().frame, title) && pointAt(title);
}

bool PopUp::chooseByMouse(const std::vector<std::string>& path) {
    for (std::size_t level = 0; level < path.size(); ++level) {
        std::vector<XWindow> menus = _agent.openMenus();
        if (menus.size() <= level || !pointInto(path[level]))
            return false;
        bool last = level + 1 == path.size();
        _desktop.input().click();
        if (!waitUntil([&] { return last ? !isOpen() : _agent.openMenus().size() > menus.size(); }))
            return false;
    }
    return true;
}

} // namespace tarragon::e2e
