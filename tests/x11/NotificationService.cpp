#include "NotificationService.h"

#include <cstdlib>
#include <utility>

namespace tarragon {

namespace {

const QString Name = QStringLiteral("org.freedesktop.Notifications");
const QString Path = QStringLiteral("/org/freedesktop/Notifications");
const QString ConnectionName = QStringLiteral("notification service");

std::string text(const QVariant& argument) {
    return argument.toString().toStdString();
}

} // namespace

NotificationService::NotificationService(QStringList capabilities)
    : _capabilities(std::move(capabilities))
    , _bus(QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"), ConnectionName)) {
    _bus.registerVirtualObject(Path, this);
    _bus.registerService(Name);
}

NotificationService::~NotificationService() {
    _bus.unregisterService(Name);
    _bus.unregisterObject(Path);
    QDBusConnection::disconnectFromBus(ConnectionName);
}

void NotificationService::letThrough() {
    _holds = false;
    for (const QDBusMessage& message : std::exchange(_held, {}))
        answer(message);
}

void NotificationService::invokeAction(unsigned identifier, const QString& key) {
    QDBusMessage signal = QDBusMessage::createSignal(Path, Name, "ActionInvoked");
    signal << identifier << key;
    _bus.send(signal);
}

bool NotificationService::handleMessage(const QDBusMessage& message, const QDBusConnection& /*connection*/) {
    message.setDelayedReply(true);
    if (_holds)
        _held.push_back(message);
    else
        answer(message);
    return true;
}

void NotificationService::answer(const QDBusMessage& message) {
    if (message.member() == "GetCapabilities") {
        _bus.send(message.createReply(_capabilities));
        return;
    }
    if (message.member() != "Notify" || message.signature() != "susssasa{sv}i") {
        _bus.send(message.createErrorReply("org.freedesktop.DBus.Error.UnknownMethod", message.member()));
        return;
    }
    const QVariantList arguments = message.arguments();
    Shown shown{text(arguments[0]), arguments[1].toUInt(), text(arguments[3]), text(arguments[4]), {}};
    for (const QString& action : arguments[5].toStringList())
        shown.actions.push_back(action.toStdString());
    _lastIdentifier = shown.replaces != 0 ? shown.replaces : _lastIdentifier + 7;
    _shown.push_back(std::move(shown));
    _bus.send(message.createReply(_lastIdentifier));
}

QString NotificationService::introspect(const QString& /*path*/) const {
    return {};
}

} // namespace tarragon
