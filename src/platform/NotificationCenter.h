#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace tarragon {

// A named message from one part of the program to whoever observes it.
struct Notification {
    std::string name;
    const void* object = nullptr; // the sender; only compared, never used
    std::map<std::string, std::int64_t> userInformation; // empty when there is none
};

// Hands notifications to their observers, at once and in order of registration. Main thread only.
class NotificationCenter {
public:
    using Observer = std::function<void(const Notification&)>;

    // With an object, only what that sender posts is observed; nullptr observes every sender. Observers are never
    // removed.
    void addObserver(const std::string& name, const void* object, Observer observer);
    void postNotification(const Notification& notification);

private:
    struct Registration {
        std::string name;
        const void* object;
        Observer observer;
    };
    std::vector<Registration> _registrations;
};

} // namespace tarragon
