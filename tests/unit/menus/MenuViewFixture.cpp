#include "MenuViewFixture.h"

#include <algorithm>
#include <stdexcept>

#include <QApplication>
#include <QScreen>
#include <QTest>

namespace tarragon {

void RecordingDelegate::menuNeedsUpdate(Menu& menu) {
    _log.push_back("needs update " + menu.title());
    if (onNeedsUpdate)
        onNeedsUpdate(menu);
}

void RecordingDelegate::menuWillOpen(Menu& menu) {
    _log.push_back("will open " + menu.title());
}

void RecordingDelegate::menuDidClose(Menu& menu) {
    _log.push_back("did close " + menu.title());
    if (onDidClose)
        onDidClose(menu);
}

void RecordingDelegate::menuWillHighlightItem(Menu& menu, MenuItem* item) {
    if (recordsHighlights)
        _log.push_back("highlight " + menu.title() + " " + (item ? item->title() : "nothing"));
}

void RecordingTarget::performAction(const std::string& action, MenuItem& sender) {
    _log.push_back("action " + action + " " + sender.title());
    if (onAction)
        onAction();
}

std::vector<Screen> MenuViewFixture::OneScreen::screens() {
    const QSize size = QGuiApplication::primaryScreen()->size();
    const Rect frame = {{0, 0}, {static_cast<double>(size.width()), static_cast<double>(size.height())}};
    return {{frame, frame}};
}

Rect MenuViewFixture::OneScreen::mainDisplayBoundsCG() {
    return screens().front().frameNS;
}

MenuViewFixture::MenuViewFixture()
    : _view(std::make_unique<MenuView>(_displays, _notificationCenter, _menuInput, &_inputEvents)) {
    // Qt remembers the modifiers of the last event of the test before.
    QWidget widget;
    QTest::keyClick(&widget, Qt::Key_F24);

    _root->setDelegate(&_delegate);
    _notificationCenter.addObserver("NSMenuDidSendActionNotification", nullptr,
        [this](const Notification& notification) { _log.push_back("posted " + notification.name); });
}

MenuViewFixture::~MenuViewFixture() {
    _view.reset();
    settle();
}

std::shared_ptr<MenuItem> MenuViewFixture::addItem(Menu& menu, const std::string& title) {
    auto item = std::make_shared<MenuItem>(title, "act", "");
    item->setTarget(_target);
    menu.addItem(item);
    return item;
}

std::shared_ptr<Menu> MenuViewFixture::addSubmenu(Menu& menu, const std::string& title) {
    const auto item = std::make_shared<MenuItem>(title, "", "");
    auto submenu = std::make_shared<Menu>(title);
    submenu->setDelegate(&_delegate);
    item->setSubmenu(submenu);
    menu.addItem(item);
    return submenu;
}

void MenuViewFixture::popUp(const Point& locationNS) {
    _view->popUpMenu(_root, locationNS);
}

void MenuViewFixture::settle() {
    for (int round = 0; round < 3; ++round) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

std::vector<QMenu*> MenuViewFixture::openMenus() {
    std::vector<QMenu*> menus;
    for (auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget()); menu;
         menu = qobject_cast<QMenu*>(menu->parentWidget()))
        menus.insert(menus.begin(), menu);
    return menus;
}

QMenu& MenuViewFixture::openMenu() {
    const auto menus = openMenus();
    if (menus.empty())
        throw std::logic_error("no menu is open");
    return *menus.back();
}

std::vector<std::string> MenuViewFixture::shownTexts(const QMenu& menu) {
    std::vector<std::string> texts;
    for (const QAction* action : menu.actions())
        texts.push_back(action->isSeparator() ? "-" : action->text().toStdString());
    return texts;
}

QAction& MenuViewFixture::shownAction(const QMenu& menu, const std::string& text) {
    for (QAction* action : menu.actions()) {
        if (action->text().toStdString() == text)
            return *action;
    }
    throw std::logic_error("no item is shown as " + text);
}

void MenuViewFixture::press(Qt::Key key) {
    QTest::keyClick(&openMenu(), key);
}

void MenuViewFixture::click(const QMenu& menu, const std::string& text) {
    auto& widget = const_cast<QMenu&>(menu);
    const QPoint position = menu.actionGeometry(&shownAction(menu, text)).center();
    QTest::mouseMove(&widget, position - QPoint(2, 2));
    QTest::mouseMove(&widget, position);
    QTest::mouseClick(&widget, Qt::LeftButton, {}, position);
}

bool MenuViewFixture::waitUntil(const std::function<bool()>& condition) {
    return QTest::qWaitFor(condition, 5000);
}

} // namespace tarragon
