#pragma once

#include "mirror/MenuPresenter.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include <QPoint>
#include <Qt>

class QScreen;
class QStyle;

namespace tarragon {

class Menu;
class MenuItem;
class MenuWindow;

// What the windows of one pop-up share, the menu and its submenus, from opening to closing.
class MenuTracking {
public:
    // menu is the one that holds the item.
    using ChosenHandler = std::function<void(const std::shared_ptr<Menu>& menu, const std::shared_ptr<MenuItem>& item)>;

    // The style is not owned and outlives the tracking. place is where the pop-up opens, in Qt's global coordinates.
    MenuTracking(QStyle& style, const QScreen* screen, const QPoint& place, std::weak_ptr<MenuOpener> opener,
        ChosenHandler handler);

    QStyle& style() const { return _style; }

    // No title is shown wider, and no shortcut, in device-independent pixels.
    int titleWidthLimit() const { return _titleWidthLimit; }
    int shortcutWidthLimit() const { return _titleWidthLimit / 2; }

    // Bits of modifier::.
    std::uint32_t heldModifiers() const { return _heldModifiers; }
    void setHeldModifiers(Qt::KeyboardModifiers modifiers);

    void windowOpened(MenuWindow& window);
    void windowClosed(MenuWindow& window);

    // Whether the point, in Qt's global coordinates, lies in a window of the pop-up.
    bool hasWindowAt(const QPoint& point) const;
    // Whether the point is where the pop-up has opened, give or take what a hand moves that means to stay.
    bool hasOpenedAt(const QPoint& point) const;

    // Tells the delegates that everything has closed, the innermost menu first, and ends.
    void closeAll();
    // Nothing opens any more, and the delegates are not asked.
    void end() { _ended = true; }
    // Whether somebody has opened the pop-up who hears of its end: a title, rather than a key.
    bool hasOpener() const { return !_opener.expired(); }
    // Tells the opener that everything has closed, once. It may open another pop-up meanwhile.
    void tellOpener();
    // Has the opener go to the menu beside this one. False when there is none to ask.
    bool moveToNeighbour(MenuNeighbour neighbour);
    bool hasEnded() const { return _ended; }

    // While a menu opens QMenu relies on the ones above it, so that they must not be hidden.
    bool isOpening() const { return _opening; }
    void setOpening(bool opening) { _opening = opening; }

    void choose(const std::shared_ptr<Menu>& menu, const std::shared_ptr<MenuItem>& item);

private:
    QStyle& _style;
    std::weak_ptr<MenuOpener> _opener;
    ChosenHandler _chosenHandler;
    std::vector<MenuWindow*> _openWindows;
    QPoint _place;
    int _titleWidthLimit;
    std::uint32_t _heldModifiers = 0;
    bool _opening = false;
    bool _ended = false;
};

// Bits of modifier:: for the keys that Qt names. Ctrl is Command, Alt is Option, Super is Control.
std::uint32_t modifierMask(Qt::KeyboardModifiers modifiers);

} // namespace tarragon
