#include "prefs/widgets/ZDMouseButtonIdentifier.h"

#include "platform/InputEvents.h"
#include "platform/RunLoop.h"
#include "platform/Texts.h"

#include <ostream>
#include <string>

#include <QAccessible>
#include <QAccessibleWidget>
#include <QApplication>
#include <QMouseEvent>
#include <QPaintEngine>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>

namespace tarragon {

namespace {

// In points, which are the toolkit's device-independent pixels.
constexpr int FontSize = 12;
constexpr int TextIndent = 32;
constexpr int TextTop = 10;
constexpr int RingWidth = 2;

// What exists once in the process.
struct Capture {
    std::unique_ptr<EventTap> tap;
    const ZDMouseButtonIdentifier* maker = nullptr; // the control that has set the tap up
    std::uint32_t lastButton = 0; // that the tap has told of

    void release() {
        if (tap)
            tap->setEnabled(false);
        tap = nullptr;
        maker = nullptr;
    }
};

Capture& capture() {
    static Capture capture;
    return capture;
}

QFont textFont() {
    QFont font = QApplication::font("QMenu");
    font.setPixelSize(FontSize);
    return font;
}

// Rather than to paper or into a file.
bool drawsToScreen(const QPainter& painter) {
    return painter.paintEngine()->type() == QPaintEngine::Raster;
}

QAccessibleInterface* accessibleControl(const QString& className, QObject* object) {
    auto* const control =
        className == "tarragon::ZDMouseButtonIdentifier" ? qobject_cast<ZDMouseButtonIdentifier*>(object) : nullptr;
    return control ? new QAccessibleWidget(control, QAccessible::HotkeyField) : nullptr;
}

} // namespace

ZDMouseButtonIdentifier::ZDMouseButtonIdentifier(QWidget* parent)
    : QWidget(parent) {
    [[maybe_unused]] static const bool isInstalled = (QAccessible::installFactory(accessibleControl), true);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
    showNumber();
}

ZDMouseButtonIdentifier::~ZDMouseButtonIdentifier() {
    // The desktop that the tap listens to may go soon after its control.
    if (capture().maker == this)
        disableAndReleaseTap();
}

void ZDMouseButtonIdentifier::setServices(InputEvents* inputEvents, RunLoop& runLoop, std::ostream& standardError) {
    _inputEvents = inputEvents;
    _runLoop = &runLoop;
    _standardError = &standardError;
}

void ZDMouseButtonIdentifier::setupTap() {
    setupMouseUpEventTap();
    if (capture().tap)
        capture().tap->setEnabled(true);
}

void ZDMouseButtonIdentifier::setupMouseUpEventTap() {
    if (!_runLoop)
        return;
    capture().release();
    // Whatever comes is taken for a button: also one that the trigger never acts on, and the notice that the tap was
    // disabled, after which it stays so.
    capture().tap = _inputEvents ? _inputEvents->createEventTap(inputEventMask(InputEventType::OtherMouseDown),
                        [](const InputEvent& event) {
                            capture().lastButton = event.buttonNumber;
                            return true;
                        })
                                 : nullptr;
    if (!capture().tap) {
        // This very line and nothing before it, as with the trigger's own tap.
        *_standardError << "failed to create event tap\n" << std::flush;
        _runLoop->stop(1);
        return;
    }
    capture().maker = this;
}

void ZDMouseButtonIdentifier::disableAndReleaseTap() {
    capture().release();
}

void ZDMouseButtonIdentifier::otherMouseUp() {
    setButtonNumber(capture().lastButton);
    emit actionSent();
}

void ZDMouseButtonIdentifier::setButtonNumber(std::uint32_t buttonNumber) {
    _buttonNumber = buttonNumber;
    showNumber();
}

void ZDMouseButtonIdentifier::showNumber() {
    // A screen reader reads what others see, and then what to do.
    setAccessibleName(shownText());
    setAccessibleDescription(QString::fromStdString(
        translated("ZDMouseButtonIdentifier", "Click here with the mouse button that is to open the menus.")));
    setToolTip(accessibleDescription());
    updateGeometry();
    update();
}

QString ZDMouseButtonIdentifier::shownText() const {
    // Very large numbers are shown as negative ones.
    const std::string number = std::to_string(static_cast<std::int32_t>(_buttonNumber));
    return QString::fromStdString(withArguments(translated("ZDMouseButtonIdentifier", "Button Number: %@"), {number}));
}

QSize ZDMouseButtonIdentifier::sizeHint() const {
    const QFontMetrics metrics(textFont());
    return {TextIndent + metrics.horizontalAdvance(shownText()) + TextIndent, TextTop + metrics.height() + TextTop};
}

void ZDMouseButtonIdentifier::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (window()->focusWidget() == this && drawsToScreen(painter)) {
        QStyleOptionFocusRect ring;
        ring.initFrom(this);
        ring.state |= QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange;
        // Some styles fill the ring.
        painter.setClipRegion(QRegion(rect()) - rect().adjusted(RingWidth, RingWidth, -RingWidth, -RingWidth));
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &ring, &painter, this);
        painter.setClipping(false);
    }
    // The text may run past the edge: it starts where it starts, however long the number is. It has the desktop's own
    // colour for text, which is black wherever black can be read.
    painter.setFont(textFont());
    const QRect place(TextIndent, TextTop, width() + TextIndent, height() - TextTop);
    painter.drawText(QStyle::visualRect(layoutDirection(), rect(), place),
        static_cast<int>(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft | Qt::AlignTop)), shownText());
}

void ZDMouseButtonIdentifier::mousePressEvent(QMouseEvent* /*event*/) {
    // Who takes the press gets the release.
}

void ZDMouseButtonIdentifier::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton || event->button() == Qt::RightButton || !_runLoop)
        return;
    // The press of a quick click may not have come to the tap yet, though the release has come here.
    constexpr double TimeForTap = 0.05;
    _release = _runLoop->scheduleTimer(TimeForTap, false, [this] { otherMouseUp(); });
}

void ZDMouseButtonIdentifier::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        showNumber();
}

} // namespace tarragon
