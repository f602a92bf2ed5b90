#include "panels/widgets/MessagePanels.h"

#include "panels/widgets/MessageTexts.h"
#include "platform/Texts.h"

#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

#include <utility>

namespace tarragon {

namespace {

QString text(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

// The box in slot with these words, made when it is not open.
QMessageBox* preparePanel(QPointer<QMessageBox>& slot, QMessageBox::Icon icon, const MessageText& message) {
    if (!slot) {
        slot = new QMessageBox();
        slot->setAttribute(Qt::WA_DeleteOnClose);
        slot->setModal(false);
        slot->setWindowTitle("Tarragon");
    }
    slot->setIcon(icon);
    slot->setText(text(message.text));
    slot->setInformativeText(text(message.details));
    // Words of others may hold markup. The box's own property does not reach the details.
    for (QLabel* label : slot->findChildren<QLabel*>())
        label->setTextFormat(Qt::PlainText);
    return slot;
}

// Shows the box in slot with these words, or raises it when it is open.
void openPanel(QPointer<QMessageBox>& slot, QMessageBox::Icon icon, const MessageText& message) {
    preparePanel(slot, icon, message)->show();
    slot->raise();
}

void removeButtons(QMessageBox& box) {
    const auto buttons = box.buttons();
    for (QAbstractButton* button : buttons) {
        box.removeButton(button);
        delete button;
    }
}

} // namespace

MessagePanels::MessagePanels(std::string version)
    : _version(std::move(version)) { }

MessagePanels::~MessagePanels() {
    for (QPointer<QMessageBox>* panel : {&_aboutPanel, &_updatePanel, &_failurePanel})
        delete panel->data();
}

void MessagePanels::showAboutPanel() {
    const MessageText message = aboutText(_version);
    if (!_aboutPanel) {
        preparePanel(_aboutPanel, QMessageBox::NoIcon, message);
        // Comes to the front without taking the keyboard focus from the application that is used.
        _aboutPanel->setAttribute(Qt::WA_ShowWithoutActivating);
        _aboutPanel->setWindowTitle(text(translated("MessagePanels", "About Tarragon")));
    }
    openPanel(_aboutPanel, QMessageBox::NoIcon, message);
}

void MessagePanels::showUpdateOutcome(const UpdateOutcome& outcome, std::function<void()> openLink) {
    const bool isKnown = !std::holds_alternative<UpdateUnknown>(outcome);
    QMessageBox* box = preparePanel(
        _updatePanel, isKnown ? QMessageBox::Information : QMessageBox::Warning, updateText(outcome, _version));
    // What it showed before may have had other buttons.
    removeButtons(*box);
    QObject::disconnect(box, &QMessageBox::finished, box, nullptr);
    QPushButton* close = box->addButton(text(translated("MessagePanels", "Close")), QMessageBox::RejectRole);
    box->setEscapeButton(close);
    box->setDefaultButton(close);
    const auto* newer = std::get_if<NewerVersion>(&outcome);
    if (newer && !newer->link.empty()) {
        QPushButton* open = box->addButton(text(translated("MessagePanels", "Open Web Page")), QMessageBox::AcceptRole);
        box->setDefaultButton(open);
        QObject::connect(box, &QMessageBox::finished, box, [box, open, openLink = std::move(openLink)] {
            if (box->clickedButton() == open)
                openLink();
        });
    }
    box->show();
    box->raise();
}

void MessagePanels::showFailure(const std::string& message) {
    openPanel(_failurePanel, QMessageBox::Warning, {translated("MessagePanels", "Something went wrong."), message});
}

} // namespace tarragon
