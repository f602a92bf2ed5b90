#include "menus/MenuView.h"

#include "menus/HeldButton.h"
#include "menus/MenuFonts.h"
#include "menus/MenuTracking.h"
#include "menus/MenuWindow.h"
#include "menus/QtCoordinates.h"
#include "platform/InputEvents.h"
#include "platform/Log.h"

#include <utility>
#include <vector>

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QCursor>
#include <QGuiApplication>
#include <QPixmap>
#include <QScreen>

namespace tarragon {

namespace {

std::vector<QRect> screenRectangles() {
    std::vector<QRect> rectangles;
    for (const QScreen* screen : QGuiApplication::screens()) {
        if (!screen->geometry().isEmpty())
            rectangles.push_back(screen->geometry());
    }
    return rectangles;
}

} // namespace

MenuView::MenuView(
    Displays& displays, NotificationCenter& notificationCenter, MenuInput& menuInput, InputEvents* inputEvents)
    : _displays(displays)
    , _notificationCenter(notificationCenter)
    , _inputEvents(inputEvents)
    , _grab(menuInput) {
    _actionTimer.setSingleShot(true);
    QObject::connect(&_actionTimer, &QTimer::timeout, &_actionTimer, [this] { sendAction(); });
    warmUp();
}

MenuView::~MenuView() {
    if (_tracking)
        _tracking->end();
    _grab.release();
    delete _window;
}

// Goes through everything that is loaded the first time a menu opens, with one that nobody sees: style, fonts, pointer
// shape, and the desktop's accessibility. Fonts stay loaded as long as something uses them.
void MenuView::warmUp() {
    _warmMenu.setStyle(&_style);
    _warmMenu.addAction("Menu\tCtrl+M")->setCheckable(true);
    QAction* boldAction = _warmMenu.addAction("Menu");
    boldAction->setFont(menuFont({.bold = true}, _warmMenu.font()));
    _warmMenu.addMenu(QString("Submenu"));
    _warmMenu.grab();
    _warmMenu.winId();
    _warmMenu.setCursor(Qt::ArrowCursor);
#if QT_CONFIG(accessibility)
    QAccessibleEvent event(&_warmMenu, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&event);
#endif
}

void MenuView::popUpMenu(
    const std::shared_ptr<Menu>& menu, const Point& locationNS, const std::weak_ptr<MenuOpener>& opener) {
    const std::uint64_t popUp = ++_popUps;
    _grab.hold();
    closeWindows();
    // Whoever has heard that the former menu has closed may have opened another one instead.
    if (popUp != _popUps || !menu) {
        releaseUnusedInput();
        if (const auto told = opener.lock())
            told->menuHasClosed();
        return;
    }
    // Outside of every screen Qt would not know on which one to keep the menu.
    const QPoint location =
        nearestPointInside(qtPointFromNS(locationNS, _displays.screens(), qtPrimaryOrigin()), screenRectangles());
    const auto tracking = std::make_shared<MenuTracking>(_style, QGuiApplication::screenAt(location), location, opener,
        [this](const std::shared_ptr<Menu>& chosenMenu, const auto& item) {
            _choice = {chosenMenu, item};
            // The window that tells is still at work.
            _actionTimer.start(0);
        });
    tracking->setHeldModifiers(QGuiApplication::queryKeyboardModifiers());

    auto* window = new MenuWindow(menu, tracking); // deletes itself when it closes
    _tracking = tracking;
    _window = window;
    QObject::connect(window, &QMenu::aboutToHide, window, &QObject::deleteLater);
    QObject::connect(window, &QMenu::aboutToHide, &_actionTimer, [this, window] {
        if (_window != window)
            return;
        _grab.release();
        _window = nullptr;
    });
    if (!window->prepare()) {
        // Otherwise somebody has closed it.
        if (_window == window) {
            log(LogCategory::Menus, [&] { return "menu \"" + menu->title() + "\" is empty and not shown"; });
            _window = nullptr;
        }
        window->deleteLater();
        releaseUnusedInput();
        tracking->tellOpener();
        return;
    }
    if (_inputEvents && _inputEvents->isOtherButtonHeld())
        new HeldButton(*_inputEvents, _displays, tracking, *window); // belongs to the window
    window->popup(location);
    if (_window == window)
        _grab.acquire(*window);
}

void MenuView::closeMenus() {
    _grab.release();
    closeWindows();
}

void MenuView::closeWindows() {
    if (!_window)
        return;
    MenuWindow* window = _window;
    _window = nullptr;
    const std::shared_ptr<MenuTracking> tracking = _tracking; // whoever is told may open another pop-up
    tracking->closeAll();
    if (tracking->isOpening())
        QTimer::singleShot(0, window, [window] { window->hide(); });
    else
        window->hide();
    tracking->tellOpener();
}

void MenuView::releaseUnusedInput() {
    if (!_window)
        _grab.release();
}

bool MenuView::isMenuOpen() const {
    return _window && _window->isVisible();
}

bool MenuView::isMenuAt(const Point& pointNS) const {
    return isMenuOpen() && _tracking->hasWindowAt(qtPointFromNS(pointNS, _displays.screens(), qtPrimaryOrigin()));
}

void MenuView::sendAction() {
    const Choice choice = std::exchange(_choice, {});
    if (!choice.item)
        return;
    // The opener may have opened another menu when it heard that this one has closed.
    closeMenus();
    // The window system answers only after it has done all that it was told before, so that the menus are off the
    // screen and the keyboard is free when another program gets to work.
    QCursor::pos();

    const std::shared_ptr<MenuTarget> target = choice.item->target();
    const std::string action = choice.item->action();
    if (!target || action.empty())
        return;
    NotificationCenter& notificationCenter = _notificationCenter; // the action may end the program, and this view
    target->performAction(action, *choice.item);
    notificationCenter.postNotification({"NSMenuDidSendActionNotification", choice.menu.get(), {}});
}

} // namespace tarragon
