#include "platform/linux/x11/QtNativeEvents.h"

#include "platform/qt/QtRunLoop.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <utility>
#include <vector>

#include <QGuiApplication>

namespace tarragon {

namespace {

// The bytes of an event as XCB keeps it: 32 of the protocol and 4 of its own, and what a generic event has beyond that,
// counted in units of 4 bytes.
std::vector<std::byte> copyOfEvent(const void* event) {
    constexpr std::size_t FixedSize = 36;
    constexpr std::size_t LengthOffset = 4;
    constexpr std::uint8_t GenericEvent = 35;
    constexpr std::uint8_t SentMask = 0x80;

    const auto* bytes = static_cast<const std::byte*>(event);
    std::size_t size = FixedSize;
    if ((std::to_integer<std::uint8_t>(bytes[0]) & ~SentMask) == GenericEvent) {
        std::uint32_t length = 0;
        std::memcpy(&length, bytes + LengthOffset, sizeof length);
        size += std::size_t{length} * 4;
    }
    return {bytes, bytes + size};
}

} // namespace

QtNativeEvents::QtNativeEvents(QtRunLoop& runLoop, Handler handler, Adjustment adjustment)
    : _runLoop(runLoop)
    , _handler(std::make_shared<const Handler>(std::move(handler)))
    , _adjustment(std::move(adjustment)) {
    QCoreApplication::instance()->installNativeEventFilter(this);
}

QtNativeEvents::~QtNativeEvents() {
    if (auto* application = QCoreApplication::instance())
        application->removeNativeEventFilter(this);
}

bool QtNativeEvents::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*) {
    if (eventType != "xcb_generic_event_t")
        return false;
    if (_adjustment(message))
        return true;
    if (!_runLoop.isPaused())
        return (*_handler)(message);

    _runLoop.post([handler = std::weak_ptr(_handler), event = copyOfEvent(message)] {
        if (const auto stillThere = handler.lock())
            (*stillThere)(event.data());
    });
    return false;
}

void* qtX11Connection() {
#if QT_CONFIG(xcb)
    if (auto* application = qGuiApp ? qGuiApp->nativeInterface<QNativeInterface::QX11Application>() : nullptr)
        return application->connection();
#endif
    return nullptr;
}

} // namespace tarragon
