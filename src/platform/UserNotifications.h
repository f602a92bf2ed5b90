#pragma once

#include <functional>
#include <string>

namespace tarragon {

struct UserNotification {
    std::string title;
    std::string text;
    // What the user can do about it; no button when empty.
    std::string actionTitle;
    std::function<void()> action; // on the main thread's run loop, at most once
};

// Messages that appear at the side of the user's work and go away by themselves. Main thread only.
class UserNotifications {
public:
    virtual ~UserNotifications() = default;

    // Takes the place of the notification that was shown before, and returns at once. false when the desktop shows
    // none.
    [[nodiscard]] virtual bool show(UserNotification notification) = 0;
};

} // namespace tarragon
