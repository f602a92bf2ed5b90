#include "recorder/control/AccessibleRecorderField.h"

#include "platform/Texts.h"
#include "recorder/control/SRRecorderField.h"

#include <QAccessible>
#include <QAccessibleWidget>

namespace tarragon {

namespace {

class AccessibleRecorderField : public QAccessibleWidget {
public:
    explicit AccessibleRecorderField(SRRecorderField& field)
        : QAccessibleWidget(&field, QAccessible::HotkeyField)
        , _field(field) { }

    QString text(QAccessible::Text kind) const override {
        switch (kind) {
        case QAccessible::Name:
            return given(&QWidget::accessibleName, sourceText("SRRecorder", "Key combination")) + QStringLiteral(": ")
                + _field.text();
        case QAccessible::Description:
            return given(&QWidget::accessibleDescription,
                sourceText(
                    "SRRecorder", "Press it and then the keys. Escape leaves it as it was, Backspace clears it."));
        case QAccessible::Value:
            return _field.text();
        default:
            return QAccessibleWidget::text(kind);
        }
    }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.pressed = _field.isRecording();
        return state;
    }

    QStringList actionNames() const override { return {pressAction(), setFocusAction()}; }

    void doAction(const QString& actionName) override {
        if (actionName == pressAction())
            emit _field.pressed();
        else
            QAccessibleWidget::doAction(actionName);
    }

private:
    // What the recorder was given, or else our own words.
    QString given(QString (QWidget::*property)() const, const char* otherwise) const {
        const QWidget* recorder = _field.parentWidget();
        const QString words = recorder ? (recorder->*property)() : QString();
        return words.isEmpty() ? QString::fromStdString(translated("SRRecorder", otherwise)) : words;
    }

    SRRecorderField& _field;
};

QAccessibleInterface* accessibleField(const QString& className, QObject* object) {
    auto* const field =
        className == QStringLiteral("tarragon::SRRecorderField") ? qobject_cast<SRRecorderField*>(object) : nullptr;
    return field ? new AccessibleRecorderField(*field) : nullptr;
}

} // namespace

void makeRecorderFieldsAccessible() {
    [[maybe_unused]] static const bool isInstalled = (QAccessible::installFactory(accessibleField), true);
}

} // namespace tarragon
