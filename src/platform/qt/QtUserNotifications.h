#pragma once

#include "platform/UserNotifications.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

namespace tarragon {

class RunLoop;

// Notifications by the service of the session bus that shows them, which may be one that the bus starts for it. Only
// the bus itself is waited for.
class QtUserNotifications : public QObject, public UserNotifications {
    Q_OBJECT

public:
    // The run loop outlives this object.
    explicit QtUserNotifications(RunLoop& runLoop);

    [[nodiscard]] bool show(UserNotification notification) override;

private slots:
    void actionInvoked(uint identifier, const QString& key);

private:
    bool canBeShown();
    void askWhatIsUnderstood();
    void send(const QStringList& capabilities);
    void forget();

    RunLoop& _runLoop;
    QDBusConnection _bus;
    QDBusServiceWatcher _service;
    std::optional<UserNotification> _waiting; // for the service's answer to an earlier question
    bool _isUnderWay = false;
    unsigned _generation = 0; // of the service: another one knows nothing of what the former was told
    uint _identifier = 0; // of the notification that was shown last; 0 for none
    std::function<void()> _action; // empty once it was called
    uint _clickedEarly = 0; // before the service has told which notification that is; 0 for none
};

} // namespace tarragon
