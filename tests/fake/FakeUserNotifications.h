#pragma once

#include "platform/UserNotifications.h"

#include <utility>
#include <vector>

namespace tarragon {

// Remembers the notifications of a desktop in memory, in the order in which they were shown.
class FakeUserNotifications : public UserNotifications {
public:
    void setAvailable(bool available) { _isAvailable = available; }
    const std::vector<UserNotification>& shown() const { return _shown; }

    bool show(UserNotification notification) override {
        if (_isAvailable)
            _shown.push_back(std::move(notification));
        return _isAvailable;
    }

private:
    std::vector<UserNotification> _shown;
    bool _isAvailable = true;
};

} // namespace tarragon
