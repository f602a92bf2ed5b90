#include "triggers/ZDAppChangeNotifier.h"

#include "fake/FakePlatform.h"

#include <gtest/gtest.h>

namespace tarragon {
namespace {

class ZDAppChangeNotifierTest : public testing::Test {
protected:
    ZDAppChangeNotifierTest() {
        fake.notificationCenter.addObserver(
            "ZDAppChanged", nullptr, [this](const Notification& notification) { received.push_back(notification); });
    }

    FakePlatform fake;
    FakeApplication mail = fake.addApplication("Mail");
    FakeApplication editor = fake.addApplication("Editor");
    ZDAppChangeNotifier notifier{fake.workspace, fake.notificationCenter};
    std::vector<Notification> received;
};

TEST_F(ZDAppChangeNotifierTest, PostsOneNotificationPerSwitchWithTheProcessInFront) {
    ASSERT_TRUE(notifier.setupAppFrontSwitchedHandler());
    fake.switchTo(mail);
    fake.switchTo(editor);
    ASSERT_EQ(received.size(), 2U);
    EXPECT_EQ(received[0].userInformation, (std::map<std::string, std::int64_t>{{"PID", mail.processIdentifier()}}));
    EXPECT_EQ(received[1].userInformation, (std::map<std::string, std::int64_t>{{"PID", editor.processIdentifier()}}));
}

TEST_F(ZDAppChangeNotifierTest, NamesItselfAsTheSender) {
    ASSERT_TRUE(notifier.setupAppFrontSwitchedHandler());
    fake.switchTo(mail);
    ASSERT_EQ(received.size(), 1U);
    EXPECT_EQ(received[0].object, &notifier);
}

TEST_F(ZDAppChangeNotifierTest, TakesTheProcessFromTheFrontAtTheMomentOfPosting) {
    // This handler runs first and brings yet another application to the front.
    fake.workspace.installFrontSwitchedHandler([this] { fake.activate(editor); });
    ASSERT_TRUE(notifier.setupAppFrontSwitchedHandler());
    fake.switchTo(mail);
    ASSERT_EQ(received.size(), 1U);
    EXPECT_EQ(received[0].userInformation.at("PID"), editor.processIdentifier());
}

TEST_F(ZDAppChangeNotifierTest, PostsNothingBeforeItIsSetUp) {
    fake.switchTo(mail);
    EXPECT_TRUE(received.empty());
}

TEST_F(ZDAppChangeNotifierTest, SaysSoWhenTheDesktopDoesNotTellOfSwitches) {
    fake.workspace.setEventsAvailable(false);
    EXPECT_FALSE(notifier.setupAppFrontSwitchedHandler());
}

TEST_F(ZDAppChangeNotifierTest, LeavesTheProcessOutWhenNoApplicationIsInFront) {
    ASSERT_TRUE(notifier.setupAppFrontSwitchedHandler());
    fake.deactivate();
    fake.workspace.fireFrontSwitched();
    ASSERT_EQ(received.size(), 1U);
    EXPECT_TRUE(received[0].userInformation.empty());
}

} // namespace
} // namespace tarragon
