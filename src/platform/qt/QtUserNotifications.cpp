#include "platform/qt/QtUserNotifications.h"

#include "platform/Log.h"
#include "platform/RunLoop.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusReply>
#include <QVariantMap>

#include <utility>

namespace tarragon {

namespace {

const QString Service = QStringLiteral("org.freedesktop.Notifications");
const QString Path = QStringLiteral("/org/freedesktop/Notifications");

QDBusMessage callToBus(const char* method) {
    return QDBusMessage::createMethodCall(
        "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", method);
}

QDBusMessage callToService(const char* method) {
    return QDBusMessage::createMethodCall(Service, Path, Service, method);
}

void logFailure(const QDBusError& error) {
    log(LogCategory::Settings, [&] { return "no notification is shown: " + error.message().toStdString(); });
}

// The button, and a click on the notification itself.
QStringList actionsNamed(const QString& title) {
    return {"default", title, "button", title};
}

} // namespace

QtUserNotifications::QtUserNotifications(RunLoop& runLoop)
    : _runLoop(runLoop)
    , _bus(QDBusConnection::sessionBus())
    , _service(Service, _bus, QDBusServiceWatcher::WatchForUnregistration) {
    connect(&_service, &QDBusServiceWatcher::serviceUnregistered, this, &QtUserNotifications::forget);
    _bus.connect(Service, Path, Service, "ActionInvoked", this, SLOT(actionInvoked(uint, QString)));
}

bool QtUserNotifications::show(UserNotification notification) {
    if (!canBeShown()) {
        log(LogCategory::Settings, [] { return "no notification is shown: the desktop has no service for that"; });
        return false;
    }
    _waiting = std::move(notification);
    if (!_isUnderWay)
        askWhatIsUnderstood();
    return true;
}

// The bus answers at once unless something is very wrong.
bool QtUserNotifications::canBeShown() {
    constexpr int Patience = 500; // milliseconds
    if (!_bus.isConnected())
        return false;
    QDBusMessage hasOwner = callToBus("NameHasOwner");
    hasOwner << Service;
    const QDBusReply<bool> isRunning = _bus.call(hasOwner, QDBus::Block, Patience);
    if (isRunning.isValid() && isRunning.value())
        return true;
    const QDBusReply<QStringList> startable = _bus.call(callToBus("ListActivatableNames"), QDBus::Block, Patience);
    return startable.isValid() && startable.value().contains(Service);
}

void QtUserNotifications::askWhatIsUnderstood() {
    _isUnderWay = true;
    auto* answer = new QDBusPendingCallWatcher(_bus.asyncCall(callToService("GetCapabilities")), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        answer->deleteLater();
        const QDBusPendingReply<QStringList> reply = *answer;
        if (reply.isValid())
            return send(reply.value());
        logFailure(reply.error());
        _isUnderWay = false;
        _waiting.reset();
    });
}

void QtUserNotifications::send(const QStringList& capabilities) {
    const UserNotification notification = *std::exchange(_waiting, std::nullopt);
    QString text = QString::fromStdString(notification.text);
    if (capabilities.contains("body-markup"))
        text = text.toHtmlEscaped();
    const bool hasAction = !notification.actionTitle.empty() && capabilities.contains("actions");
    const QStringList actions =
        hasAction ? actionsNamed(QString::fromStdString(notification.actionTitle)) : QStringList();
    constexpr int TimeOfTheDesktop = -1;
    QDBusMessage question = callToService("Notify");
    question << QCoreApplication::applicationName() << _identifier << QString()
             << QString::fromStdString(notification.title) << text << actions << QVariantMap() << TimeOfTheDesktop;
    auto* answer = new QDBusPendingCallWatcher(_bus.asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this,
        [this, answer, action = notification.action, generation = _generation] {
            answer->deleteLater();
            const QDBusPendingReply<uint> reply = *answer;
            if (reply.isError())
                logFailure(reply.error());
            const uint clickedEarly = std::exchange(_clickedEarly, 0);
            if (reply.isValid() && generation == _generation) {
                _identifier = reply.value();
                _action = action;
                actionInvoked(clickedEarly, {});
            }
            _isUnderWay = false;
            if (_waiting)
                askWhatIsUnderstood();
        });
}

void QtUserNotifications::actionInvoked(uint identifier, const QString& /*key*/) {
    if (identifier == 0 || identifier != _identifier) {
        // The answer that tells the identifier may be overtaken.
        if (_isUnderWay)
            _clickedEarly = identifier;
        return;
    }
    if (_action)
        _runLoop.post(std::exchange(_action, nullptr));
}

void QtUserNotifications::forget() {
    ++_generation;
    _identifier = 0;
    _action = nullptr;
    _clickedEarly = 0;
}

} // namespace tarragon
