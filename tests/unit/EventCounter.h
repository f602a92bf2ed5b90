#pragma once

#include <QEvent>
#include <QObject>

namespace tarragon {

// Counts the events of a type that an object gets, or that all get where it is the application object.
class EventCounter : public QObject {
public:
    EventCounter(QObject& watched, QEvent::Type type)
        : _type(type) {
        watched.installEventFilter(this);
    }
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        count += event->type() == _type ? 1 : 0;
        return false;
    }
    int count = 0;

private:
    QEvent::Type _type;
};

} // namespace tarragon
