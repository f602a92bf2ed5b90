#include "menus/MenuWindow.h"

#include "menus/MenuFonts.h"
#include "menus/MenuText.h"
#include "menus/MenuTracking.h"
#include "mirror/ShortcutText.h"

#include <algorithm>
#include <utility>

#include <QActionEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QStyle>

namespace tarragon {

namespace {

bool isModifierKey(int key) {
    switch (key) {
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_Meta:
    case Qt::Key_Super_L:
    case Qt::Key_Super_R:
    case Qt::Key_Hyper_L:
    case Qt::Key_Hyper_R:
        return true;
    default:
        return false;
    }
}

bool choosesItem(int key) {
    return key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Select;
}

// Text that a key types, rather than the name of a command.
bool typesText(const QKeyEvent& event) {
    constexpr Qt::KeyboardModifiers CommandModifiers = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    return !event.text().isEmpty() && event.text().front().isPrint() && !(event.modifiers() & CommandModifiers);
}

bool looksEnabled(const Menu& menu, const MenuItem& item) {
    if (!item.isEnabled())
        return false;
    return !menu.autoenablesItems() || item.hasSubmenu() || !item.action().empty();
}

} // namespace

MenuWindow::MenuWindow(std::shared_ptr<Menu> menu, std::shared_ptr<MenuTracking> tracking, MenuWindow* parent)
    : QMenu(parent)
    , _menu(std::move(menu))
    , _tracking(std::move(tracking)) {
    setStyle(&_tracking->style());
    // A press beside a menu closes it and does nothing else: the title below would open it again.
    setAttribute(Qt::WA_NoMouseReplay);
    if (parent) // The menu above opens this one by itself.
        connect(this, &QMenu::aboutToShow, this, [this] { prepare(); });
    connect(this, &QMenu::hovered, this, [this] { tellHighlight(); });
    connect(this, &QMenu::triggered, this, [this](const QAction* action) {
        // A menu also tells what was chosen in the ones below it.
        if (const auto item = itemOf(action))
            _tracking->choose(_menu, item);
    });
}

MenuWindow::~MenuWindow() {
    _tracking->windowClosed(*this);
}

MenuDelegate* MenuWindow::delegate() const {
    return _tracking->hasEnded() ? nullptr : _menu->delegate();
}

bool MenuWindow::prepare() {
    _tracking->setOpening(true);
    if (MenuDelegate* asked = delegate())
        asked->menuNeedsUpdate(*_menu);
    // The delegate may have closed everything.
    const bool opens = !_tracking->hasEnded() && fill();
    if (opens) {
        if (MenuDelegate* told = delegate())
            told->menuWillOpen(*_menu);
    }
    _tracking->setOpening(false);
    return opens && !_tracking->hasEnded();
}

void MenuWindow::removeEverything() {
    _places.clear();
    clear();
    for (QObject* child : QObjectList(children()))
        delete dynamic_cast<MenuWindow*>(child);
}

// False for a menu that is not to be shown.
bool MenuWindow::fill() {
    removeEverything();
    if (const auto font = fontOfMenu(*_menu))
        setFont(menuFont(*font, QMenu().font()));
    else if (parentWidget())
        setFont(parentWidget()->font());

    QList<QAction*> actions;
    for (MenuSlot& slot : menuSlotsOf(_menu->items())) {
        auto* action = new QAction(this);
        action->setData(QVariant::fromValue(static_cast<qulonglong>(_places.size())));
        actions.push_back(action);
        Place place;
        place.slot = std::move(slot);
        place.action = action;
        place.shown = shownInSlot(place.slot, _tracking->heldModifiers());
        dress(place);
        _places.push_back(std::move(place));
    }
    const bool hasItems = std::any_of(
        _places.begin(), _places.end(), [](const Place& place) { return !place.slot.front()->isSeparatorItem(); });
    if (hasItems) {
        addActions(actions);
        return true;
    }
    // A submenu opens in any case, for its title is highlighted.
    removeEverything();
    addAction("(Empty)")->setEnabled(false);
    return parent() != nullptr;
}

void MenuWindow::dress(Place& place) {
    const MenuItem& item = *place.slot[place.shown];
    QAction& action = *place.action;
    if (item.isSeparatorItem()) {
        action.setSeparator(true);
        return;
    }
    const auto& attributed = item.attributedTitle();
    QFont font = this->font();
    if (attributed) {
        font = menuFont(attributed->font, font);
        // Outlines are drawn as what they are meant for, emphasis.
        if (attributed->strokeWidth != 0)
            font.setBold(true);
        action.setFont(font);
    } else if (place.slot.size() > 1) {
        action.setFont(QFont());
    }
    const QFontMetrics metrics(font);
    place.title =
        elidedToWidth(lineOfText(attributed ? attributed->text : item.title()), metrics, _tracking->titleWidthLimit());
    const QString shortcut = elidedToWidth(lineOfText(shortcutAsShown(item)), metrics, _tracking->shortcutWidthLimit());
    action.setText(menuText(place.title, shortcut));
    action.setEnabled(looksEnabled(*_menu, item));
    action.setCheckable(item.state());
    action.setChecked(item.state());
    // An alternate item leads to another submenu, or to none.
    if (QMenu* former = action.menu()) {
        former->hide();
        former->deleteLater();
        action.setMenu(static_cast<QMenu*>(nullptr));
    }
    if (item.hasSubmenu())
        action.setMenu(new MenuWindow(item.submenu(), _tracking, this));
}

void MenuWindow::showAlternates() {
    Place* changed = nullptr;
    _changingActions = true;
    for (Place& place : _places) {
        const std::size_t shown = shownInSlot(place.slot, _tracking->heldModifiers());
        if (shown == place.shown)
            continue;
        place.shown = shown;
        dress(place);
        changed = &place;
    }
    _changingActions = false;
    if (!changed)
        return;
    // One notice for all of them lays the menu out anew.
    QActionEvent event(QEvent::ActionChanged, changed->action);
    QMenu::actionEvent(&event);
    tellHighlight();
}

void MenuWindow::setVisible(bool visible) {
    if (visible && _tracking->hasEnded())
        return;
    if (visible && !_open) {
        _open = true;
        _tracking->windowOpened(*this);
    }
    QMenu::setVisible(visible);
}

void MenuWindow::hideEvent(QHideEvent* event) {
    QMenu::hideEvent(event);
    tellClosed();
    if (!parentWidget())
        _tracking->tellOpener();
}

void MenuWindow::tellClosed() {
    if (!std::exchange(_open, false))
        return;
    _tracking->windowClosed(*this);
    tellHighlight();
    if (MenuDelegate* told = delegate())
        told->menuDidClose(*_menu);
}

bool MenuWindow::event(QEvent* event) {
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        // Those after the event, with the key itself.
        _tracking->setHeldModifiers(static_cast<QKeyEvent*>(event)->modifiers());
        break;
    case QEvent::MouseMove:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
        _tracking->setHeldModifiers(static_cast<QMouseEvent*>(event)->modifiers());
        break;
    default:
        break;
    }

    const QPointer<MenuWindow> self(this);
    const bool handled = QMenu::event(event);
    if (self && _open)
        tellHighlight();
    return handled;
}

void MenuWindow::actionEvent(QActionEvent* event) {
    if (!_changingActions)
        QMenu::actionEvent(event);
}

void MenuWindow::keyPressEvent(QKeyEvent* event) {
    event->accept();
    // A QMenu closes on Alt; here modifiers show other items.
    if (isModifierKey(event->key()))
        return;
    // The key that opened the menu may still be held.
    if (choosesItem(event->key()) && event->isAutoRepeat())
        return;
    const auto neighbour = neighbourByKey(event->key());
    if (neighbour && _tracking->moveToNeighbour(*neighbour))
        return;
    const bool typing = event->key() != Qt::Key_Space || _typeSelect.isTyping(std::chrono::steady_clock::now());
    if (typesText(*event) && typing)
        typeSelect(event->text());
    else if (event->text().isEmpty() || !event->text().front().isPrint() || event->modifiers() == Qt::NoModifier)
        QMenu::keyPressEvent(event);
}

// Where the key leads out of the pop-up. Nothing for a key that opens or closes a submenu here, or does something else.
std::optional<MenuNeighbour> MenuWindow::neighbourByKey(int key) const {
    if (key != Qt::Key_Left && key != Qt::Key_Right)
        return std::nullopt;
    const bool leadsIntoSubmenus = key == (isRightToLeft() ? Qt::Key_Left : Qt::Key_Right);
    const QAction* action = activeAction();
    const bool isUsedHere =
        leadsIntoSubmenus ? action && action->isEnabled() && action->menu() : parentWidget() != nullptr;
    if (isUsedHere)
        return std::nullopt;
    return key == Qt::Key_Left ? MenuNeighbour::Left : MenuNeighbour::Right;
}

// A button that opens pop-ups over other applications, where the pop-up has opened. Its press comes here as well where
// the pop-up before this one had the pointer, and its release where no application has taken the press.
bool MenuWindow::isOfOpening(const QMouseEvent& event) const {
    const bool opensPopUps = event.button() != Qt::LeftButton && event.button() != Qt::RightButton;
    return opensPopUps && _tracking->hasOpenedAt(event.globalPosition().toPoint());
}

void MenuWindow::mousePressEvent(QMouseEvent* event) {
    if (!isOfOpening(*event))
        QMenu::mousePressEvent(event);
}

// The button that was pressed on a title, or that opened the pop-up at the pointer, may be let go there, even after a
// look into the menu: it stays open.
void MenuWindow::mouseReleaseEvent(QMouseEvent* event) {
    if (isOfOpening(*event))
        return;
    const QPoint point = event->globalPosition().toPoint();
    const bool isInMenus = _tracking->hasWindowAt(point);
    if (!isInMenus && QGuiApplication::topLevelAt(point))
        return;
    if (_tracking->hasOpener() && !isInMenus)
        return outermost().hide();
    if (_tracking->hasOpener())
        moveHeldButton(*event);
    QMenu::mouseReleaseEvent(event);
}

// The toolkit heeds the release of a button alone that it has seen held in the menus. One that was pressed on a title
// may have come so fast that it has not.
void MenuWindow::moveHeldButton(const QMouseEvent& release) {
    QMouseEvent movement(QEvent::MouseMove, release.position(), release.globalPosition(), Qt::NoButton,
        release.button(), release.modifiers());
    QMenu::mouseMoveEvent(&movement);
}

QWidget& MenuWindow::outermost() {
    QWidget* menu = this;
    while (menu->parentWidget())
        menu = menu->parentWidget();
    return *menu;
}

void MenuWindow::typeSelect(const QString& text) {
    std::vector<QString> titles;
    titles.reserve(_places.size());
    std::optional<std::size_t> current;
    for (const Place& place : _places) {
        if (place.action == activeAction())
            current = titles.size();
        titles.push_back(place.action->isEnabled() ? place.title : QString());
    }
    const auto found = _typeSelect.type(text, titles, current, std::chrono::steady_clock::now());
    if (found)
        setActiveAction(_places[*found].action);
}

std::shared_ptr<MenuItem> MenuWindow::itemOf(const QAction* action) const {
    if (!action || action->parent() != this)
        return nullptr;
    bool known = false;
    const qulonglong position = action->data().toULongLong(&known);
    if (!known || position >= _places.size())
        return nullptr;
    const Place& place = _places[position];
    return place.slot[place.shown];
}

void MenuWindow::tellHighlight() {
    auto item = _open ? itemOf(activeAction()) : nullptr;
    if (item == _highlighted)
        return;
    _highlighted = item;
    if (MenuDelegate* told = delegate())
        told->menuWillHighlightItem(*_menu, item.get());
}

} // namespace tarragon
