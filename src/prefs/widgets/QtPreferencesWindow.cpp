#include "prefs/widgets/QtPreferencesWindow.h"

#include "prefs/PreferencesWindowController.h"
#include "prefs/widgets/AccessibilityAlert.h"
#include "prefs/widgets/PreferenceTexts.h"

#include <ui_ZDPreferences.h>

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QMessageBox>
#include <QScreen>
#include <QScrollBar>
#include <QStyle>
#include <QVariantAnimation>

#include <algorithm>
#include <limits>
#include <utility>

namespace tarragon {

namespace {

QString text(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

// The height that a widget's layout wants at a width, with everything in it that has changed.
int layoutHeight(const QWidget& widget, int width) {
    const auto inner = widget.findChildren<QWidget*>();
    // From the inside out: a layout asks those within it. One in which nothing has changed is left alone, since each
    // that is laid out anew asks for the window to be fitted once more.
    std::for_each(inner.rbegin(), inner.rend(), [](const QWidget* each) {
        if (each->layout() != nullptr)
            each->layout()->activate();
    });
    QLayout* layout = widget.layout();
    layout->activate();
    return std::max(layout->hasHeightForWidth() ? layout->totalHeightForWidth(width) : layout->totalSizeHint().height(),
        layout->totalMinimumSize().height());
}

// What scrolls in a pane.
QScrollArea& scrollArea(const QWidget& pane) {
    return *pane.findChild<QScrollArea*>();
}

} // namespace

QtPreferencesWindow::~QtPreferencesWindow() = default;

// The window.

void QtPreferencesWindow::setCanJoinAllSpaces() {
    _joinsAllSpaces = true;
}

void QtPreferencesWindow::orderFrontRegardless() {
    if (isMinimized())
        showNormal();
    // Where the user has put it, unless that was on a screen that is gone. Before the desktop has the window, which is
    // made anew each time.
    if (!isVisible() && _place && QGuiApplication::screenAt(*_place) != nullptr)
        move(*_place);
    // Forgotten by the desktop each time that the window is hidden.
    if (_joinsAllSpaces && _platform.panelSurfaces != nullptr)
        _platform.panelSurfaces->joinAllSpaces(winId());
    show();
    raise();
    // No control that a stray key or turn of the wheel would change.
    focusSelectedItem();
}

void QtPreferencesWindow::activateIgnoringOtherApps() {
    QWidget* dialog = QApplication::activeModalWidget();
    if (dialog == nullptr)
        return activateWindow();
    // It keeps the window from the keys while it is open.
    dialog->raise();
    dialog->activateWindow();
}

void QtPreferencesWindow::close() {
    QMainWindow::close();
}

void QtPreferencesWindow::closeEvent(QCloseEvent* event) {
    _place = pos();
    QMainWindow::closeEvent(event);
    _controller.windowWillClose();
}

void QtPreferencesWindow::setTitle(const std::string& title) {
    setWindowTitle(text(title));
}

// The toolbar.

QList<QAction*> QtPreferencesWindow::items() const {
    return _ui->toolbar->actions();
}

std::vector<PreferenceItem> QtPreferencesWindow::toolbarItems() const {
    std::vector<PreferenceItem> described;
    for (const QAction* item : items())
        described.push_back(
            {item->objectName().toStdString(), item->text().toStdString(), item->property("paneTag").toLongLong()});
    return described;
}

void QtPreferencesWindow::setSelectedItem(std::size_t index) {
    items().at(static_cast<qsizetype>(index))->setChecked(true);
    // The ring around another item would look like a second selection.
    if (_ui->toolbar->isAncestorOf(focusWidget()))
        focusSelectedItem();
}

void QtPreferencesWindow::focusSelectedItem() {
    const QList<QAction*> all = items();
    const auto selected = std::find_if(all.begin(), all.end(), [](const QAction* item) { return item->isChecked(); });
    if (selected != all.end())
        _ui->toolbar->widgetForAction(*selected)->setFocus(Qt::OtherFocusReason);
}

// Panes and help texts.

QWidget& QtPreferencesWindow::paneView(PreferencePane pane) const {
    return *_ui->contentView->widget(static_cast<int>(pane));
}

int QtPreferencesWindow::toolbarHeight() const {
    return _ui->toolbar->sizeHint().height();
}

Rect QtPreferencesWindow::frameNS() const {
    return {{double(x()), -double(y() + _size.height())}, {double(_size.width()), double(_size.height())}};
}

void QtPreferencesWindow::setFrame(const Rect& frameNS, bool animate) {
    _animation->stop();
    // A window that fills the screen stays that large.
    if (isMaximized() || isFullScreen())
        return;
    _size = QSizeF(frameNS.size.width, frameNS.size.height).toSize();
    const int duration = style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this);
    // The place is left to the desktop, which keeps the top edge where it is.
    if (!animate || !isVisible() || duration <= 0 || _size.height() == height())
        return resize(_size);
    _animation->setDuration(duration);
    _animation->setStartValue(height());
    _animation->setEndValue(_size.height());
    _animation->start();
}

Size QtPreferencesWindow::contentSize() const {
    return {double(_size.width()), double(_size.height() - toolbarHeight())};
}

int QtPreferencesWindow::wholeHeight(PreferencePane pane) const {
    return layoutHeight(*scrollArea(paneView(pane)).widget(), _size.width())
        + layoutHeight(*_ui->borderView, _size.width());
}

// With a bar at its side the pane is narrower, and higher; left to itself, the bar would stay for that reason alone.
void QtPreferencesWindow::scrollWhereNeeded() {
    // At a fractional scale of the screen a window may come out a point lower than it was asked to be.
    constexpr double Rounding = 1;
    const bool isNeeded = wholeHeight(_pane) > contentSize().height + Rounding;
    scrollArea(paneView(_pane)).setVerticalScrollBarPolicy(isNeeded ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
}

double QtPreferencesWindow::paneHeight(PreferencePane pane) const {
    const int wanted = wholeHeight(pane);
    // A pane that is higher than the screen is scrolled.
    constexpr int FrameOfDesktop = 60;
    const int room = screen()->availableSize().height() - toolbarHeight() - FrameOfDesktop;
    return std::min(wanted, room);
}

void QtPreferencesWindow::removeSubviewsOfContent() {
    // A stray key would change whatever control of the next pane the toolkit passes it to.
    if (_ui->contentView->isAncestorOf(focusWidget()))
        focusSelectedItem();
    _ui->contentView->setCurrentWidget(_ui->emptyView);
}

void QtPreferencesWindow::addPane(PreferencePane pane, const Size& /*size*/) {
    // The content gives every pane the room that there is, which is what the window was made for.
    _pane = pane;
    paneView(pane).layout()->addWidget(_ui->borderView);
    scrollWhereNeeded();
    _ui->contentView->setCurrentWidget(&paneView(pane));
}

void QtPreferencesWindow::setHelpText(PreferenceHelpText helpText, bool /*animate*/) {
    const int index = static_cast<int>(helpText);
    _ui->emptyHelpTextView->setCurrentIndex(index);
    const auto buttons = _ui->helpGroup->findChildren<QToolButton*>();
    buttons.at(index)->setChecked(true);
}

void QtPreferencesWindow::fitWidth() {
    int width = _ui->toolbar->sizeHint().width();
    for (std::size_t pane = 0; pane < PreferencePaneCount; ++pane) {
        QScrollArea& area = scrollArea(paneView(static_cast<PreferencePane>(pane)));
        layoutHeight(*area.widget(), 0);
        width = std::max(
            width, area.widget()->layout()->totalMinimumSize().width() + area.verticalScrollBar()->sizeHint().width());
    }
    // Lines of some sixty letters are easy to read.
    constexpr int Letters = 88;
    width = std::max(width, fontMetrics().averageCharWidth() * Letters);
    setMinimumWidth(std::min(width, screen()->availableSize().width()));
}

void QtPreferencesWindow::fitHeight() {
    fitWidth();
    _size.setWidth(std::max(_size.width(), minimumWidth()));
    setFrame(windowFrameForPane(frameNS(), contentSize().height, paneHeight(_pane)), false);
    scrollWhereNeeded();
}

void QtPreferencesWindow::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    if (_animation->state() == QAbstractAnimation::Running)
        return;
    _size = event->size();
    scrollWhereNeeded();
}

// A key that nobody in a pane wants scrolls it there; what is in the toolbar has no pane around it.
void QtPreferencesWindow::keyPressEvent(QKeyEvent* event) {
    QScrollBar& bar = *scrollArea(paneView(_pane)).verticalScrollBar();
    if (event->matches(QKeySequence::MoveToNextPage))
        bar.triggerAction(QAbstractSlider::SliderPageStepAdd);
    else if (event->matches(QKeySequence::MoveToPreviousPage))
        bar.triggerAction(QAbstractSlider::SliderPageStepSub);
    else
        QMainWindow::keyPressEvent(event);
}

void QtPreferencesWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange)
        _fitting.start();
    if (event->type() == QEvent::LayoutDirectionChange)
        alignWords();
}

bool QtPreferencesWindow::eventFilter(QObject* watched, QEvent* event) {
    // Words in a pane have come, gone or changed.
    if (event->type() == QEvent::LayoutRequest)
        _fitting.start();
    // Whoever scrolls a pane does not mean to change the settings that pass below the pointer.
    if (event->type() == QEvent::Wheel && !static_cast<QWidget*>(watched)->hasFocus()) {
        event->ignore();
        return true;
    }
    return QMainWindow::eventFilter(watched, event);
}

// Controls.

bool QtPreferencesWindow::launchCheckBoxIsOn() const {
    return _ui->launchCheckBox->isChecked();
}

void QtPreferencesWindow::setShortcutRecorderValue(const ShortcutRecorderValue& value) {
    const bool isKey = value.keyCode >= 0 && value.keyCode <= std::numeric_limits<std::int16_t>::max();
    _ui->shortcutRecorder->setKeyCombo(isKey
            ? KeyCombo{static_cast<std::int16_t>(value.keyCode), static_cast<std::uint32_t>(value.modifierFlags)}
            : KeyCombo());
}

void QtPreferencesWindow::startRecording() {
    _ui->shortcutRecorder->startRecording();
}

bool QtPreferencesWindow::shortcutRecorderIsKeyCodeAndFlagsTaken(
    SRRecorderControl& /*control*/, std::int16_t keyCode, std::uint32_t flags, std::string& reason) {
    return PreferencesWindowController::shortcutRecorderIsKeyCodeAndFlagsTaken(keyCode, flags, reason);
}

void QtPreferencesWindow::shortcutRecorderKeyComboDidChange(SRRecorderControl& control, const KeyCombo& combination) {
    _controller.shortcutRecorderKeyComboDidChange(combination, control.keyComboString());
}

void QtPreferencesWindow::setMouseButtonNumber(std::uint32_t buttonNumber) {
    _ui->mouseButtonIdentifier->setButtonNumber(buttonNumber);
}

std::uint32_t QtPreferencesWindow::mouseButtonNumber() const {
    return _ui->mouseButtonIdentifier->buttonNumber();
}

void QtPreferencesWindow::setupTap() {
    _ui->mouseButtonIdentifier->setupTap();
}

void QtPreferencesWindow::disableAndReleaseTap() {
    _ui->mouseButtonIdentifier->disableAndReleaseTap();
}

void QtPreferencesWindow::willChangeValueForKey(std::string_view key) {
    _bindings.willChangeValueForKey(key);
}

void QtPreferencesWindow::didChangeValueForKey(std::string_view key) {
    _bindings.didChangeValueForKey(key);
}

// What stands beside them.

void QtPreferencesWindow::setHideHotKeyWarning(bool hide) {
    _ui->hotKeyWarning->setHidden(hide);
}

void QtPreferencesWindow::setHideButtonWarning(bool hide) {
    _ui->buttonWarning->setHidden(hide);
    _ui->screenTopWarning->setHidden(hide);
}

void QtPreferencesWindow::setHotKeyRefusal(const std::optional<HotKeyRefusal>& refusal) {
    _hotKeyIsRefused = refusal.has_value();
    _ui->hotKeyRefusalView->setVisible(_hotKeyIsRefused);
    _ui->helpRefusalView->setVisible(_hotKeyIsRefused);
    if (refusal) {
        _ui->hotKeyRefusalViewText->setText(hotKeyRefusalText(*refusal));
        _ui->helpRefusalViewText->setText(hotKeyRefusalText(*refusal));
        _ui->takeProposalButton->setText(takeProposalTitle(*refusal));
    }
    showPopUpHelp();
}

void QtPreferencesWindow::showPopUpHelp() {
    _ui->popUpHelpText->setText(popUpHelpText(_platform.defaults, _platform.keyboard, _hotKeyIsRefused));
}

void QtPreferencesWindow::setBorderNotice(BorderNotice notice) {
    _ui->borderViewText->setText(borderText(notice));
    _ui->borderViewIcon->setVisible(notice != BorderNotice::None);
    _ui->switchAccessOnButton->setVisible(
        notice == BorderNotice::AccessIsMissing || notice == BorderNotice::AccessCannotBeSwitchedOn);
}

void QtPreferencesWindow::showAccessibilityAlert(std::function<void(AccessibilityAlertAnswer)> handler) {
    if (auto* open = findChild<QMessageBox*>("accessibilityAlert"))
        return open->raise();
    openAccessibilityAlert(*this, std::move(handler));
}

} // namespace tarragon
