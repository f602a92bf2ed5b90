#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QStringList>

#include <cstddef>
#include <string>
#include <vector>

namespace tarragon {

// The service of a desktop that shows notifications, on the session bus for as long as it lives. It remembers what it
// was asked to show.
class NotificationService : public QDBusVirtualObject {
public:
    struct Shown {
        std::string application;
        unsigned replaces = 0;
        std::string title;
        std::string text;
        std::vector<std::string> actions;
    };

    explicit NotificationService(QStringList capabilities);
    ~NotificationService() override;

    const std::vector<Shown>& shown() const { return _shown; }
    // The identifier of the last one.
    unsigned lastIdentifier() const { return _lastIdentifier; }
    // Questions wait from now on, until they are let through.
    void hold() { _holds = true; }
    std::size_t held() const { return _held.size(); }
    void letThrough();
    // The user clicks on a button of a notification.
    void invokeAction(unsigned identifier, const QString& key);

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;
    QString introspect(const QString& path) const override;

private:
    void answer(const QDBusMessage& message);

    QStringList _capabilities;
    QDBusConnection _bus;
    std::vector<Shown> _shown;
    std::vector<QDBusMessage> _held;
    bool _holds = false;
    unsigned _lastIdentifier = 0;
};

} // namespace tarragon
