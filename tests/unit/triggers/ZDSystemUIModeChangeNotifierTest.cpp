#include "triggers/ZDSystemUIModeChangeNotifier.h"

#include "fake/FakePlatform.h"
#include "triggers/MouseNotificationNames.h"

#include <gtest/gtest.h>

namespace tarragon {
namespace {

TEST(ZDSystemUIModeChangeNotifier, PostsOneNotificationPerChangeWithoutUserInformation) {
    FakePlatform fake;
    ZDSystemUIModeChangeNotifier notifier(fake.workspace, fake.notificationCenter);
    std::vector<Notification> received;
    fake.notificationCenter.addObserver("ZDSystemUIModeChanged", &notifier,
        [&](const Notification& notification) { received.push_back(notification); });
    ASSERT_TRUE(notifier.setupSystemUIModeChangedHandler());
    fake.workspace.fireSystemUIModeChanged();
    fake.workspace.fireFrontSwitched();
    ASSERT_EQ(received.size(), 1U);
    EXPECT_EQ(received[0].object, &notifier);
    EXPECT_TRUE(received[0].userInformation.empty());
}

TEST(ZDSystemUIModeChangeNotifier, SaysSoWhenTheDesktopDoesNotTellOfChanges) {
    FakePlatform fake;
    fake.workspace.setEventsAvailable(false);
    ZDSystemUIModeChangeNotifier notifier(fake.workspace, fake.notificationCenter);
    EXPECT_FALSE(notifier.setupSystemUIModeChangedHandler());
}

TEST(MouseNotificationNames, AreTheWordsThemselves) {
    EXPECT_STREQ(RightMouseButtonDown, "RightMouseButtonDown");
    EXPECT_STREQ(RightMouseButtonUp, "RightMouseButtonUp");
    EXPECT_STREQ(MouseButtonDown, "MouseButtonDown");
    EXPECT_STREQ(MouseButtonUp, "MouseButtonUp");
}

} // namespace
} // namespace tarragon
