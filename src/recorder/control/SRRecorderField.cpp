#include "recorder/control/SRRecorderField.h"

#include <algorithm>

#include <QAccessible>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFrame>

namespace tarragon {

namespace {

// Around the text, in device-independent pixels.
constexpr int Margin = 6;

// Between two colours; weight 0 is the first one.
QColor between(const QColor& first, const QColor& second, double weight) {
    const auto mixed = [weight](int from, int to) { return static_cast<int>(from + (to - from) * weight); };
    return {mixed(first.red(), second.red()), mixed(first.green(), second.green()), mixed(first.blue(), second.blue())};
}

bool isPressingKey(const QKeyEvent& event) {
    const bool isPress = event.key() == Qt::Key_Space || event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    return isPress && (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
}

} // namespace

SRRecorderField::SRRecorderField(QWidget* parent)
    : QWidget(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
}

void SRRecorderField::display(const SRRecorderText& text, bool isRecording) {
    const bool isNewText = _text != text;
    const bool isNewState = _isRecording != isRecording;
    _text = text;
    _isRecording = isRecording;
    if (isNewText || isNewState)
        update();
    if (isNewText) {
        QAccessibleEvent changed(this, QAccessible::NameChanged);
        QAccessible::updateAccessibility(&changed);
    }
    if (isNewState) {
        QAccessible::State state;
        state.pressed = true;
        QAccessibleStateChangeEvent changed(this, state);
        QAccessible::updateAccessibility(&changed);
    }
}

void SRRecorderField::setLongTexts(const QStringList& texts) {
    if (_longTexts == texts)
        return;
    _longTexts = texts;
    updateGeometry();
}

QString SRRecorderField::text() const {
    return QString::fromStdString(_text.words);
}

QSize SRRecorderField::textSize() const {
    const QFontMetrics metrics = fontMetrics();
    int width = 0;
    for (const QString& text : _longTexts)
        width = std::max(width, metrics.horizontalAdvance(text));
    return {width, metrics.height()};
}

QSize SRRecorderField::sizeHint() const {
    QStyleOptionFrame option;
    option.initFrom(this);
    option.lineWidth = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, this);
    const QSize content = textSize() + QSize(2 * Margin, Margin);
    return style()->sizeFromContents(QStyle::CT_LineEdit, &option, content, this);
}

void SRRecorderField::paintEvent(QPaintEvent*) {
    QStyleOptionFrame option;
    option.initFrom(this);
    option.lineWidth = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, this);
    option.state |= QStyle::State_Sunken;
    if (_isRecording) {
        constexpr double Tint = 0.2;
        const QColor base = option.palette.color(QPalette::Base);
        option.palette.setColor(QPalette::Base, between(base, option.palette.color(QPalette::Highlight), Tint));
    }
    QPainter painter(this);
    style()->drawPrimitive(QStyle::PE_PanelLineEdit, &option, &painter, this);

    // Prompts stand back. The palette's own colour for them can hardly be read on a tint.
    constexpr double PromptWeight = 0.35;
    const QColor full = option.palette.color(QPalette::Text);
    painter.setPen(_text.isPrompt ? between(full, option.palette.color(QPalette::Base), PromptWeight) : full);
    const QRect place = rect().adjusted(Margin, 0, -Margin, 0);
    painter.drawText(place, static_cast<int>(Qt::AlignCenter | Qt::TextSingleLine | Qt::TextForceLeftToRight),
        fontMetrics().elidedText(text(), Qt::ElideRight, place.width()));
}

void SRRecorderField::mousePressEvent(QMouseEvent* event) {
    event->setAccepted(event->button() == Qt::LeftButton);
}

void SRRecorderField::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        emit pressed();
}

void SRRecorderField::keyPressEvent(QKeyEvent* event) {
    if (!isPressingKey(*event)) {
        QWidget::keyPressEvent(event);
    } else if (!event->isAutoRepeat()) {
        _pressedKey = event->key();
    }
}

// Recording begins with the release: while the key is held, its repetitions would be recorded.
void SRRecorderField::keyReleaseEvent(QKeyEvent* event) {
    if (event->isAutoRepeat() || _pressedKey == 0 || event->key() != _pressedKey) {
        QWidget::keyReleaseEvent(event);
        return;
    }
    _pressedKey = 0;
    emit pressed();
}

void SRRecorderField::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    emit focusGained();
}

void SRRecorderField::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    _pressedKey = 0;
    emit focusLost();
}

} // namespace tarragon
