#include "recorder/control/SRRecorderControl.h"

#include "platform/KeyRecorder.h"
#include "platform/ModifierFlags.h"
#include "platform/Texts.h"
#include "recorder/SRKeyCodeTransformer.h"
#include "recorder/SRRecorderTexts.h"
#include "recorder/control/AccessibleRecorderField.h"
#include "recorder/control/SRRecorderButton.h"
#include "recorder/control/SRRecorderField.h"

#include <utility>

#include <QAccessible>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace tarragon {

namespace {

QString text(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

} // namespace

SRRecorderControl::SRRecorderControl(QWidget* parent)
    : QWidget(parent)
    , _state([this](const KeyCombo& combination, SRValidationError& error) { return isTaken(combination, error); })
    , _field(new SRRecorderField(this))
    , _button(new SRRecorderButton(this))
    , _message(new QLabel(this)) {
    makeRecorderFieldsAccessible();
    setFocusProxy(_field);
    // A label leads to nobody who takes no focus. Tab passes over those who have a proxy.
    setFocusPolicy(Qt::TabFocus);
    // As wide as the control, however long the words are.
    _message->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Minimum);
    _message->setWordWrap(true);
    _message->setTextFormat(Qt::PlainText);
    _message->setVisible(false);

    auto* const row = new QHBoxLayout;
    row->addWidget(_field);
    row->addWidget(_button);
    row->addStretch();
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addLayout(row);
    column->addWidget(_message);

    connect(_field, &SRRecorderField::pressed, this, &SRRecorderControl::startRecording);
    connect(_field, &SRRecorderField::focusGained, this, &SRRecorderControl::startWhenAsked);
    connect(_field, &SRRecorderField::focusLost, this, &SRRecorderControl::cancel);
    connect(_button, &QToolButton::clicked, this, &SRRecorderControl::pressButton);
}

SRRecorderControl::~SRRecorderControl() {
    // Its going makes the field lose the focus, which is not to be heard of any more.
    _field->disconnect(this);
}

void SRRecorderControl::setServices(Services services) {
    cancel();
    _services = std::move(services);
    _validator.emplace(
        static_cast<SRValidatorDelegate*>(this), *_services.keyboard, *_services.transformer, _services.mainMenu);
    follow();
}

void SRRecorderControl::setKeyCombo(const KeyCombo& combination) {
    _state.setKeyCombo(combination);
    follow();
}

std::optional<std::string> SRRecorderControl::keyComboString() const {
    return _services.transformer ? tarragon::keyComboString(keyCombo(), *_services.transformer) : std::nullopt;
}

void SRRecorderControl::startRecording() {
    if (isRecording())
        return;
    _isAskedToRecord = true;
    _field->setFocus();
    if (_field->hasFocus())
        startWhenAsked();
}

void SRRecorderControl::startWhenAsked() {
    if (!std::exchange(_isAskedToRecord, false))
        return;
    _keys = nullptr;
    if (_services.keyRecorder) {
        _keys = _services.keyRecorder->recordKeys([this](const RecordedKey& key) { take(key); },
            [this] {
                _state.keysWereTakenAway();
                follow();
            });
    }
    if (_keys)
        _state.start();
    else
        _state.failToStart();
    follow();
}

void SRRecorderControl::take(const RecordedKey& key) {
    const SRRecorderResult result = _state.take(key);
    follow();
    tell(result);
}

void SRRecorderControl::cancel() {
    _isAskedToRecord = false;
    _state.cancel();
    follow();
}

void SRRecorderControl::pressButton() {
    if (isRecording()) {
        cancel();
        return;
    }
    const SRRecorderResult result = _state.clear();
    // There is nothing left for the button to do.
    if (_button->hasFocus())
        _field->setFocus();
    follow();
    tell(result);
}

void SRRecorderControl::follow() {
    if (!_state.needsKeys())
        _keys = nullptr;
    if (_services.transformer)
        _field->display(recorderText(_state, *_services.transformer), isRecording());
    QStringList longTexts;
    for (const std::string& longText : longRecorderTexts())
        longTexts.append(text(longText));
    _field->setLongTexts(longTexts);
    if (isRecording())
        _button->setSign(SRRecorderButton::Sign::SnapBack, text(translated("SRRecorder", "Leave it as it was")));
    else
        _button->setSign(SRRecorderButton::Sign::Clear, text(translated("SRRecorder", "Clear the combination")));
    _button->setEnabled(isRecording() || !keyCombo().isEmpty());
    showMessage();
}

void SRRecorderControl::showMessage() {
    const QString message = text(recorderNoticeText(_state));
    if (_message->text() == message)
        return;
    _message->setText(message);
    _message->setVisible(!message.isEmpty());
    if (message.isEmpty())
        return;
    QAccessibleEvent alert(_message, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void SRRecorderControl::tell(SRRecorderResult result) {
    if (result == SRRecorderResult::Refused)
        emit refused(_state.refusal());
    const bool isChanged = result == SRRecorderResult::Recorded || result == SRRecorderResult::Cleared;
    if (isChanged && _delegate)
        _delegate->shortcutRecorderKeyComboDidChange(*this, keyCombo());
}

bool SRRecorderControl::isTaken(const KeyCombo& combination, SRValidationError& error) {
    const bool isTaken =
        _validator->isKeyCodeAndFlagsTaken(combination.code, cocoaToCarbonFlags(combination.flags), &error);
    if (isTaken)
        error = explainedRefusal(error, combination, *_services.transformer);
    return isTaken;
}

bool SRRecorderControl::shortcutValidatorIsKeyCodeAndFlagsTaken(
    SRValidator& /*validator*/, std::int16_t keyCode, std::uint32_t flags, std::string& reason) {
    return _delegate
        && _delegate->shortcutRecorderIsKeyCodeAndFlagsTaken(*this, keyCode, carbonToCocoaFlags(flags), reason);
}

void SRRecorderControl::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    follow();
}

void SRRecorderControl::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    cancel();
}

void SRRecorderControl::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    // The keyboard layout may have been switched while another window was in front.
    if (event->type() == QEvent::ActivationChange || event->type() == QEvent::LanguageChange)
        follow();
}

} // namespace tarragon
