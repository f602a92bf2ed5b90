#pragma once

#include <functional>
#include <memory>

#include <QAbstractNativeEventFilter>

namespace tarragon {

class QtRunLoop;

// Hands the events of Qt's own connection to the X server to a handler before Qt sees them. Events that come during a
// pause are handed over after it, in order; Qt sees those first. The run loop is not owned.
class QtNativeEvents : public QAbstractNativeEventFilter {
public:
    // Gets an xcb_generic_event_t, which belongs to the caller. True when nobody else is to see the event.
    using Handler = std::function<bool(const void* event)>;

    // May change the event before anybody else sees it, at once, also during a pause. True when nobody else is to.
    using Adjustment = std::function<bool(void* event)>;

    QtNativeEvents(QtRunLoop& runLoop, Handler handler, Adjustment adjustment);
    ~QtNativeEvents() override;
    QtNativeEvents(const QtNativeEvents&) = delete;
    QtNativeEvents& operator=(const QtNativeEvents&) = delete;

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

private:
    QtRunLoop& _runLoop;
    std::shared_ptr<const Handler> _handler;
    Adjustment _adjustment;
};

// Qt's own connection to the X server, an xcb_connection_t; nullptr where Qt does not draw through X.
void* qtX11Connection();

} // namespace tarragon
