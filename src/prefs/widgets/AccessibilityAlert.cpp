#include "prefs/widgets/AccessibilityAlert.h"

#include "platform/Texts.h"

#include <QKeyEvent>
#include <QMessageBox>
#include <QPushButton>
#include <QWindow>

#include <utility>

namespace tarragon {

namespace {

QString words(const char* source) {
    return QString::fromStdString(translated("AccessibilityAlert", source));
}

// Neither of its two buttons lets the program go on without access. Escape and the frame's own button do.
class AlertSheet : public QMessageBox {
public:
    using QMessageBox::QMessageBox;

protected:
    void closeEvent(QCloseEvent* /*event*/) override { reject(); }
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Escape)
            reject();
        else
            QMessageBox::keyPressEvent(event);
    }
};

// Shows a sheet as soon as its window is seen, since a window that the desktop has not placed yet is nowhere to put a
// sheet on.
class SheetOpener : public QObject {
public:
    // The sheet owns the opener. Both outlive the wait.
    SheetOpener(QWidget& sheet, QWindow& window)
        : QObject(&sheet)
        , _sheet(sheet)
        , _window(window) {
        window.installEventFilter(this);
    }

    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() == QEvent::Expose && _window.isExposed()) {
            _sheet.show();
            deleteLater();
        }
        return false;
    }

private:
    QWidget& _sheet;
    QWindow& _window;
};

} // namespace

void openAccessibilityAlert(QWidget& window, std::function<void(AccessibilityAlertAnswer)> handler) {
    auto* alert = new AlertSheet(&window);
    alert->setObjectName("accessibilityAlert");
    alert->setAttribute(Qt::WA_DeleteOnClose);
    // Makes it a sheet of its window.
    alert->setWindowModality(Qt::WindowModal);
    alert->setWindowTitle("Tarragon");
    alert->setIcon(QMessageBox::Warning);
    alert->setText(
        words(sourceText("AccessibilityAlert", "Tarragon requires that Apple's Accessibility API be enabled.")));
    alert->setInformativeText(words(sourceText("AccessibilityAlert",
        "Would you like to launch System Preferences so that you can turn on \"Enable access for assistive "
        "devices\"? (Please relaunch Tarragon after turning on this setting)")));
    const QPushButton* open =
        alert->addButton(words(sourceText("AccessibilityAlert", "Open System Preferences")), QMessageBox::AcceptRole);
    const QPushButton* quit =
        alert->addButton(words(sourceText("AccessibilityAlert", "Quit Tarragon")), QMessageBox::DestructiveRole);
    QObject::connect(alert, &QMessageBox::finished, alert, [alert, open, quit, handler = std::move(handler)] {
        const QAbstractButton* clicked = alert->clickedButton();
        handler(clicked == open   ? AccessibilityAlertAnswer::OpenSystemPreferences
                : clicked == quit ? AccessibilityAlertAnswer::Quit
                                  : AccessibilityAlertAnswer::None);
    });
    QWindow* const place = window.windowHandle();
    if (place == nullptr || place->isExposed())
        alert->show();
    else
        new SheetOpener(*alert, *place);
}

} // namespace tarragon
