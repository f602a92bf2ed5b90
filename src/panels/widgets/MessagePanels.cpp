#include "panels/widgets/MessagePanels.h"

#include <QMessageBox>
#include <QPushButton>

#include <utility>

namespace tarragon {

namespace {

// The box in slot with these words, made when it is not open.
QMessageBox* preparePanel(
    QPointer<QMessageBox>& slot, QMessageBox::Icon icon, const QString& text, const QString& details) {
    if (!slot) {
        slot = new QMessageBox();
        slot->setAttribute(Qt::WA_DeleteOnClose);
        slot->setModal(false);
        slot->setWindowTitle("Tarragon");
    }
    slot->setIcon(icon);
    slot->setTextFormat(Qt::PlainText);
    slot->setText(text);
    slot->setInformativeText(details);
    return slot;
}

// Shows the box in slot with these words, or raises it when it is open.
void openPanel(QPointer<QMessageBox>& slot, QMessageBox::Icon icon, const QString& text, const QString& details) {
    preparePanel(slot, icon, text, details)->show();
    slot->raise();
}

} // namespace

MessagePanels::MessagePanels(std::string version)
    : _version(std::move(version)) { }

MessagePanels::~MessagePanels() {
    for (QPointer<QMessageBox>* panel :
        {&_aboutPanel, &_helpPanel, &_updatePanel, &_failurePanel, &_accessibilityAlert})
        delete panel->data();
}

void MessagePanels::showAboutPanel() {
    if (!_aboutPanel) {
        _aboutPanel = new QMessageBox();
        _aboutPanel->setAttribute(Qt::WA_DeleteOnClose);
        // Comes to the front without taking the keyboard focus from the application that is used.
        _aboutPanel->setAttribute(Qt::WA_ShowWithoutActivating);
        _aboutPanel->setModal(false);
        _aboutPanel->setWindowTitle("About Tarragon");
    }
    openPanel(_aboutPanel, QMessageBox::NoIcon, QString::fromStdString("Tarragon " + _version),
        "Shows the menu bar of the application in front where your pointer and eyes are.\n\n"
        "Copyright 2026 The Tarragon developers. Free software under the MIT License.\n\n"
        "Made with Qt, libdbus, XCB, libxkbcommon, libplist, pugixml and JSON for Modern C++.");
}

void MessagePanels::showHelp() {
    openPanel(_helpPanel, QMessageBox::Information, "Using Tarragon",
        "Press the hot key (Alt+Space unless you changed it) to open the menus of the application in front at the "
        "pointer. Choose an item with the mouse, or with the arrow keys and Return; Escape closes the menus.\n\n"
        "If the hot key does nothing, your desktop uses the same combination for itself: choose another one in the "
        "preferences.");
}

void MessagePanels::showUpdateInformation() {
    openPanel(_updatePanel, QMessageBox::Information, QString::fromStdString("This is Tarragon " + _version + "."),
        "Newer versions come with the updates of your system.");
}

void MessagePanels::showFailure(const std::string& message) {
    openPanel(_failurePanel, QMessageBox::Warning, "Something went wrong.", QString::fromStdString(message));
}

void MessagePanels::showAccessibilityAlert(std::function<void(AccessibilityAlertAnswer)> handler) {
    if (_accessibilityAlert) {
        _accessibilityAlert->raise();
        return;
    }
    QMessageBox* alert = preparePanel(_accessibilityAlert, QMessageBox::Warning,
        "Tarragon requires that Apple's Accessibility API be enabled.",
        "Would you like to launch System Preferences so that you can turn on \"Enable access for assistive devices\"? "
        "(Please relaunch Tarragon after turning on this setting)");
    const QPushButton* open = alert->addButton("Open System Preferences", QMessageBox::AcceptRole);
    const QPushButton* quit = alert->addButton("Quit Tarragon", QMessageBox::DestructiveRole);
    QObject::connect(alert, &QMessageBox::finished, alert, [alert, open, quit, handler = std::move(handler)] {
        const QAbstractButton* clicked = alert->clickedButton();
        handler(clicked == open   ? AccessibilityAlertAnswer::OpenSystemPreferences
                : clicked == quit ? AccessibilityAlertAnswer::Quit
                                  : AccessibilityAlertAnswer::None);
    });
    // Shown last: a box without buttons gets one by itself.
    alert->show();
    alert->raise();
}

} // namespace tarragon
