#pragma once

#include "menus/MenuGrab.h"
#include "menus/MenuStyle.h"
#include "mirror/MenuPresenter.h"
#include "platform/Displays.h"
#include "platform/NotificationCenter.h"

#include <cstdint>
#include <memory>
#include <string>

#include <QMenu>
#include <QPointer>
#include <QTimer>

namespace tarragon {

class InputEvents;
class MenuInput;
class MenuTracking;
class MenuWindow;

// Shows menus as pop-ups. Needs the QApplication; main thread only. What it is given is not owned and outlives it.
//
// After the action of a chosen item was sent to its target, "NSMenuDidSendActionNotification" is posted with the menu
// that holds the item as its object.
class MenuView : public MenuPresenter {
public:
    // Without input events, nullptr, nothing can be chosen with the button that opened a menu over another application
    // before it was let go.
    MenuView(Displays& displays, NotificationCenter& notificationCenter, MenuInput& menuInput,
        InputEvents* inputEvents = nullptr);
    // Closes what is open; neither the delegates nor the opener hear of it, for what they need may be gone.
    ~MenuView() override;
    MenuView(const MenuView&) = delete;
    MenuView& operator=(const MenuView&) = delete;

    using MenuPresenter::popUpMenu;
    void popUpMenu(
        const std::shared_ptr<Menu>& menu, const Point& locationNS, const std::weak_ptr<MenuOpener>& opener) override;
    void closeMenus() override;
    bool isMenuOpen() const override;
    bool isMenuAt(const Point& pointNS) const override;

private:
    struct Choice {
        std::shared_ptr<Menu> menu;
        std::shared_ptr<MenuItem> item;
    };
    void warmUp();
    void closeWindows();
    void releaseUnusedInput();
    void sendAction();

    Displays& _displays;
    NotificationCenter& _notificationCenter;
    InputEvents* _inputEvents;
    MenuStyle _style;
    QMenu _warmMenu;
    MenuGrab _grab;
    std::shared_ptr<MenuTracking> _tracking;
    QPointer<MenuWindow> _window;
    std::uint64_t _popUps = 0; // asked for so far
    Choice _choice;
    QTimer _actionTimer;
};

} // namespace tarragon
