#include "platform/NotificationCenter.h"

#include <gtest/gtest.h>

namespace tarragon {
namespace {

Notification named(const std::string& name, const void* sender = nullptr) {
    return {.name = name, .object = sender, .userInformation = {}};
}

TEST(NotificationCenter, HandsANotificationToItsObserversInOrderOfRegistration) {
    NotificationCenter center;
    std::string order;
    center.addObserver("Changed", nullptr, [&](const Notification&) { order += "1"; });
    center.addObserver("Other", nullptr, [&](const Notification&) { order += "x"; });
    center.addObserver("Changed", nullptr, [&](const Notification&) { order += "2"; });
    center.postNotification(named("Changed"));
    EXPECT_EQ(order, "12");
}

TEST(NotificationCenter, KeepsOtherSendersFromAnObserverThatAsksForOne) {
    NotificationCenter center;
    int sender = 0;
    int other = 0;
    int count = 0;
    center.addObserver("Changed", &sender, [&](const Notification&) { ++count; });
    center.postNotification(named("Changed", &other));
    center.postNotification(named("Changed"));
    EXPECT_EQ(count, 0);
    center.postNotification(named("Changed", &sender));
    EXPECT_EQ(count, 1);
}

TEST(NotificationCenter, HandsOverTheSenderAndTheUserInformation) {
    NotificationCenter center;
    int sender = 0;
    Notification received;
    center.addObserver("Changed", nullptr, [&](const Notification& notification) { received = notification; });
    center.postNotification({.name = "Changed", .object = &sender, .userInformation = {{"PID", 12}}});
    EXPECT_EQ(received.name, "Changed");
    EXPECT_EQ(received.object, &sender);
    EXPECT_EQ(received.userInformation, (std::map<std::string, std::int64_t>{{"PID", 12}}));
}

TEST(NotificationCenter, LetsAnObserverRegisterAnotherThatHearsOfTheNextNotification) {
    NotificationCenter center;
    int late = 0;
    bool registered = false;
    center.addObserver("Changed", nullptr, [&](const Notification&) {
        if (!registered)
            center.addObserver("Changed", nullptr, [&](const Notification&) { ++late; });
        registered = true;
    });
    center.postNotification(named("Changed"));
    EXPECT_EQ(late, 0);
    center.postNotification(named("Changed"));
    EXPECT_EQ(late, 1);
}

TEST(NotificationCenter, LetsAnObserverPostAnotherNotification) {
    NotificationCenter center;
    std::string order;
    center.addObserver("First", nullptr, [&](const Notification&) {
        order += "<";
        center.postNotification(named("Second"));
        order += ">";
    });
    center.addObserver("Second", nullptr, [&](const Notification&) { order += "2"; });
    center.postNotification(named("First"));
    EXPECT_EQ(order, "<2>");
}

} // namespace
} // namespace tarragon
