#include "menus/MenuTracking.h"

#include "menus/MenuWindow.h"
#include "mirror/MenuItem.h"

#include <algorithm>
#include <utility>

#include <QApplication>
#include <QScreen>

namespace tarragon {

std::uint32_t modifierMask(Qt::KeyboardModifiers modifiers) {
    std::uint32_t mask = 0;
    if (modifiers & Qt::ShiftModifier)
        mask |= modifier::Shift;
    if (modifiers & Qt::ControlModifier)
        mask |= modifier::Command;
    if (modifiers & Qt::AltModifier)
        mask |= modifier::Option;
    if (modifiers & Qt::MetaModifier)
        mask |= modifier::Control;
    return mask;
}

MenuTracking::MenuTracking(
    QStyle& style, const QScreen* screen, const QPoint& place, std::weak_ptr<MenuOpener> opener, ChosenHandler handler)
    : _style(style)
    , _opener(std::move(opener))
    , _chosenHandler(std::move(handler))
    , _place(place)
    , _titleWidthLimit(screen ? screen->availableSize().width() / 2 : 0) { }

void MenuTracking::setHeldModifiers(Qt::KeyboardModifiers modifiers) {
    const std::uint32_t held = modifierMask(modifiers);
    if (held == _heldModifiers)
        return;
    _heldModifiers = held;
    const std::vector<MenuWindow*> windows = _openWindows;
    for (MenuWindow* window : windows)
        window->showAlternates();
}

void MenuTracking::windowOpened(MenuWindow& window) {
    _openWindows.push_back(&window);
}

void MenuTracking::windowClosed(MenuWindow& window) {
    _openWindows.erase(std::remove(_openWindows.begin(), _openWindows.end(), &window), _openWindows.end());
}

bool MenuTracking::hasWindowAt(const QPoint& point) const {
    return std::any_of(_openWindows.begin(), _openWindows.end(),
        [&](const MenuWindow* window) { return window->geometry().contains(point); });
}

bool MenuTracking::hasOpenedAt(const QPoint& point) const {
    return (point - _place).manhattanLength() <= QApplication::startDragDistance();
}

void MenuTracking::closeAll() {
    while (!_openWindows.empty())
        _openWindows.back()->tellClosed();
    end();
}

void MenuTracking::tellOpener() {
    if (const auto opener = std::exchange(_opener, {}).lock())
        opener->menuHasClosed();
}

bool MenuTracking::moveToNeighbour(MenuNeighbour neighbour) {
    const auto opener = _opener.lock();
    if (opener)
        opener->moveToNeighbour(neighbour);
    return opener != nullptr;
}

void MenuTracking::choose(const std::shared_ptr<Menu>& menu, const std::shared_ptr<MenuItem>& item) {
    if (!_ended)
        _chosenHandler(menu, item);
}

} // namespace tarragon
