#pragma once

#include "fake/FakeInputEvents.h"
#include "fake/FakeMenuInput.h"
#include "menus/MenuView.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <QMenu>

#include <gtest/gtest.h>

namespace tarragon {

// Writes down what a view tells and asks, and may fill menus as they open.
class RecordingDelegate : public MenuDelegate {
public:
    explicit RecordingDelegate(std::vector<std::string>& log)
        : _log(log) { }

    void menuNeedsUpdate(Menu& menu) override;
    void menuWillOpen(Menu& menu) override;
    void menuDidClose(Menu& menu) override;
    void menuWillHighlightItem(Menu& menu, MenuItem* item) override;

    std::function<void(Menu&)> onNeedsUpdate;
    std::function<void(Menu&)> onDidClose;
    bool recordsHighlights = false;

private:
    std::vector<std::string>& _log;
};

class RecordingTarget : public MenuTarget {
public:
    explicit RecordingTarget(std::vector<std::string>& log)
        : _log(log) { }

    void performAction(const std::string& action, MenuItem& sender) override;

    std::function<void()> onAction;

private:
    std::vector<std::string>& _log;
};

// A view on Qt's screen without a display, of 800 by 800 pixels, with a menu to open.
class MenuViewFixture : public testing::Test {
protected:
    // The screen as Qt has it.
    class OneScreen : public Displays {
    public:
        std::vector<Screen> screens() override;
        Rect mainDisplayBoundsCG() override;
        Point mouseLocationNS() override { return pointerNS; }
        void installReconfigurationHandler(std::function<void(std::uint32_t)>) override { }
        Point pointerNS;
    };

    MenuViewFixture();
    ~MenuViewFixture() override;

    std::shared_ptr<MenuItem> addItem(Menu& menu, const std::string& title);
    // The submenu has the delegate of the test.
    std::shared_ptr<Menu> addSubmenu(Menu& menu, const std::string& title);

    void popUp(const Point& locationNS = {100, 700});
    // Lets everything that is due happen.
    static void settle();

    // Open menus, the innermost last.
    static std::vector<QMenu*> openMenus();
    // The innermost open menu; the test stops when there is none.
    static QMenu& openMenu();
    // The texts shown, "-" for a separator.
    static std::vector<std::string> shownTexts(const QMenu& menu);
    static QAction& shownAction(const QMenu& menu, const std::string& text);
    static void press(Qt::Key key);
    static void click(const QMenu& menu, const std::string& text);
    static bool waitUntil(const std::function<bool()>& condition);

    std::vector<std::string> _log;
    RecordingDelegate _delegate{_log};
    std::shared_ptr<RecordingTarget> _target = std::make_shared<RecordingTarget>(_log);
    std::shared_ptr<Menu> _root = std::make_shared<Menu>("root");
    OneScreen _displays;
    NotificationCenter _notificationCenter;
    FakeMenuInput _menuInput;
    FakeInputEvents _inputEvents;
    std::unique_ptr<MenuView> _view;
};

} // namespace tarragon
