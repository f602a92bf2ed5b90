#pragma once

#include <functional>

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>

namespace tarragon {

// Whether the session bus has a watcher of status notifier items, with a host that shows them. Never waits for the bus.
// Main thread only.
class NotifierWatch : public QObject {
    Q_OBJECT

public:
    // The handler is called from the run loop after the answer has changed.
    explicit NotifierWatch(std::function<void()> changed);

    bool hasHost() const { return _hasHost; }

private slots:
    void ask();
    void setHasNone();

private:
    void setHasHost(bool hasHost);

    QDBusConnection _bus;
    QDBusServiceWatcher _service;
    std::function<void()> _changed;
    unsigned _question = 0; // an answer to an earlier one says nothing
    bool _hasHost = false;
};

} // namespace tarragon
