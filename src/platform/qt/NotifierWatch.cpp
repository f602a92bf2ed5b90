#include "platform/qt/NotifierWatch.h"

#include <utility>

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

namespace tarragon {

namespace {

const QString Service = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString Path = QStringLiteral("/StatusNotifierWatcher");

} // namespace

NotifierWatch::NotifierWatch(std::function<void()> changed)
    : _bus(QDBusConnection::sessionBus())
    , _service(Service, _bus, QDBusServiceWatcher::WatchForRegistration | QDBusServiceWatcher::WatchForUnregistration)
    , _changed(std::move(changed)) {
    connect(&_service, &QDBusServiceWatcher::serviceRegistered, this, &NotifierWatch::ask);
    connect(&_service, &QDBusServiceWatcher::serviceUnregistered, this, &NotifierWatch::setHasNone);
    // A host comes a moment after its watcher.
    for (const char* signal : {"StatusNotifierHostRegistered", "StatusNotifierHostUnregistered"})
        _bus.connect(Service, Path, Service, signal, this, SLOT(ask()));
    ask();
}

void NotifierWatch::ask() {
    QDBusMessage question = QDBusMessage::createMethodCall(Service, Path, "org.freedesktop.DBus.Properties", "Get");
    question << Service << QStringLiteral("IsStatusNotifierHostRegistered");
    question.setAutoStartService(false);
    auto* answer = new QDBusPendingCallWatcher(_bus.asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer, number = ++_question] {
        answer->deleteLater();
        const QDBusPendingReply<QDBusVariant> reply = *answer;
        if (number == _question)
            setHasHost(reply.isValid() && reply.value().variant().toBool());
    });
}

void NotifierWatch::setHasNone() {
    ++_question;
    setHasHost(false);
}

void NotifierWatch::setHasHost(bool hasHost) {
    if (std::exchange(_hasHost, hasHost) != hasHost)
        _changed();
}

} // namespace tarragon
