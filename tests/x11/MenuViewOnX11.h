#pragma once

#include "OtherClient.h"
#include "WiredInput.h"

#include "menus/MenuView.h"
#include "menus/PopUpInput.h"
#include "platform/qt/QtDisplays.h"

#include <functional>
#include <memory>

#include <QApplication>
#include <QMenu>

#include <gtest/gtest.h>

namespace tarragon {

namespace keysym {
constexpr std::uint32_t Left = 0xFF51;
constexpr std::uint32_t Right = 0xFF53;
constexpr std::uint32_t Down = 0xFF54;
constexpr std::uint32_t Return = 0xFF0D;
constexpr std::uint32_t Escape = 0xFF1B;
constexpr std::uint32_t Shift = 0xFFE1;
} // namespace keysym

class ChoiceTarget : public MenuTarget {
public:
    void performAction(const std::string&, MenuItem& sender) override {
        chosen = sender.title();
        if (onAction)
            onAction();
    }
    std::string chosen;
    std::function<void()> onAction;
};

// A menu at the pointer, while another program has the focus.
class MenuViewOnX11 : public testing::Test {
protected:
    MenuViewOnX11() {
        const auto file = std::make_shared<MenuItem>("File", "", "");
        const auto submenu = std::make_shared<Menu>("File");
        file->setSubmenu(submenu);
        _root->addItem(file);
        addItem(*submenu, "Save");
        addItem(*_root, "Quit");
        _user.movePointer(100, 100);
    }

    ~MenuViewOnX11() override {
        _view.closeMenus();
        waitUntil([] { return !QApplication::activePopupWidget(); });
        _user.releaseGrabs();
    }

    void addItem(Menu& menu, const std::string& title) {
        const auto item = std::make_shared<MenuItem>(title, "act", "");
        item->setTarget(_target);
        menu.addItem(item);
    }

    void popUp() { _view.popUpMenu(_root, _displays.mouseLocationNS()); }

    static QMenu* openMenu() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }
    static bool isOpen() { return openMenu() != nullptr; }
    static bool isHighlighted(const QString& title) {
        return isOpen() && openMenu()->activeAction() && openMenu()->activeAction()->text() == title;
    }

    void moveOver(const QString& title) {
        for (QAction* action : openMenu()->actions()) {
            if (action->text() != title)
                continue;
            const QPoint position = openMenu()->mapToGlobal(openMenu()->actionGeometry(action).center());
            _user.movePointer(position.x() - 2, position.y());
            _user.movePointer(position.x(), position.y());
        }
    }

    OtherClient _user;
    WiredInput _input;
    PopUpInput _popUpInput{_input.menuInput};
    QtDisplays _displays{_input.runLoop};
    NotificationCenter _notificationCenter;
    std::shared_ptr<ChoiceTarget> _target = std::make_shared<ChoiceTarget>();
    std::shared_ptr<Menu> _root = std::make_shared<Menu>("root");
    MenuView _view{_displays, _notificationCenter, _input.menuInput};
};

} // namespace tarragon
