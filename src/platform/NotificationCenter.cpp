#include "platform/NotificationCenter.h"

#include <utility>

namespace tarragon {

void NotificationCenter::addObserver(const std::string& name, const void* object, Observer observer) {
    _registrations.push_back({name, object, std::move(observer)});
}

void NotificationCenter::postNotification(const Notification& notification) {
    // An observer may register another one while it is called.
    const std::vector<Registration> registrations = _registrations;
    for (const Registration& registration : registrations) {
        const bool senderMatches = !registration.object || registration.object == notification.object;
        if (registration.name == notification.name && senderMatches)
            registration.observer(notification);
    }
}

} // namespace tarragon
