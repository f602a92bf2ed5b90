#include "NotificationService.h"

#include "fake/RecordingLog.h"
#include "platform/qt/QtRunLoop.h"
#include "platform/qt/QtUserNotifications.h"

#include <memory>
#include <optional>
#include <string>

#include <QTest>

#include <gmock/gmock.h>

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const QStringList Everything = {"actions", "body", "body-markup"};

class UserNotificationsTest : public testing::Test {
protected:
    template <typename Condition>
    static bool waitFor(Condition condition) {
        return QTest::qWaitFor(condition, 20000);
    }
    static bool hasShown(const NotificationService& service, std::size_t count) {
        return waitFor([&] { return service.shown().size() >= count; });
    }
    // Until all that was under way has been seen: the service is told of the notification, and its answer has come.
    void settle(NotificationService& service) {
        const std::size_t count = service.shown().size();
        ASSERT_TRUE(notifications.show({"settled", "", "", nullptr}));
        ASSERT_TRUE(hasShown(service, count + 1));
    }
    UserNotification withAction() {
        return {"Title", "Text", "Choose Another", [this] { ++actions; }};
    }

    QtRunLoop runLoop;
    QtUserNotifications notifications{runLoop};
    int actions = 0;
};

TEST_F(UserNotificationsTest, AreNotShownWhereTheDesktopHasNoServiceForThem) {
    const RecordingLog log(LogCategory::Settings);
    EXPECT_FALSE(notifications.show(withAction()));
    EXPECT_THAT(log.lines(), ElementsAre(HasSubstr("no service")));
}

TEST_F(UserNotificationsTest, AreShownWithTitleTextAndAButton) {
    const NotificationService service(Everything);
    ASSERT_TRUE(notifications.show(withAction()));
    ASSERT_TRUE(hasShown(service, 1));
    EXPECT_EQ(service.shown().front().title, "Title");
    EXPECT_EQ(service.shown().front().text, "Text");
    EXPECT_EQ(service.shown().front().application, QCoreApplication::applicationName().toStdString());
    EXPECT_THAT(service.shown().front().actions, ElementsAre("default", "Choose Another", "button", "Choose Another"));
}

TEST_F(UserNotificationsTest, HaveNoButtonWithoutATitleForItOrWhereNoneAreShown) {
    {
        const NotificationService service(Everything);
        ASSERT_TRUE(notifications.show({"Title", "Text", "", nullptr}));
        ASSERT_TRUE(hasShown(service, 1));
        EXPECT_THAT(service.shown().front().actions, IsEmpty());
    }
    const NotificationService service({"body"});
    ASSERT_TRUE(notifications.show(withAction()));
    ASSERT_TRUE(hasShown(service, 1));
    EXPECT_THAT(service.shown().front().actions, IsEmpty());
}

TEST_F(UserNotificationsTest, ShowTheirTextAsItReads) {
    const std::string text = "<b>Alt</b> & \"Space\"";
    {
        const NotificationService service(Everything);
        ASSERT_TRUE(notifications.show({text, text, "", nullptr}));
        ASSERT_TRUE(hasShown(service, 1));
        EXPECT_EQ(service.shown().front().text, "&lt;b&gt;Alt&lt;/b&gt; &amp; &quot;Space&quot;");
        EXPECT_EQ(service.shown().front().title, text);
    }
    const NotificationService service({"body", "actions"});
    ASSERT_TRUE(notifications.show({text, text, "", nullptr}));
    ASSERT_TRUE(hasShown(service, 1));
    EXPECT_EQ(service.shown().front().text, text);
}

TEST_F(UserNotificationsTest, CallTheirActionOnce) {
    for (const char* key : {"default", "button"}) {
        actions = 0;
        NotificationService service(Everything);
        ASSERT_TRUE(notifications.show(withAction()));
        ASSERT_TRUE(hasShown(service, 1));
        service.invokeAction(service.lastIdentifier() + 1, key);
        service.invokeAction(service.lastIdentifier(), key);
        service.invokeAction(service.lastIdentifier(), key);
        ASSERT_TRUE(waitFor([&] { return actions > 0; })) << key;
        settle(service);
        EXPECT_EQ(actions, 1) << key;
    }
}

TEST_F(UserNotificationsTest, CallTheirActionAlsoWhenTheyAreClickedBeforeTheServiceHasNamedThem) {
    NotificationService service(Everything);
    service.hold();
    ASSERT_TRUE(notifications.show(withAction()));
    ASSERT_TRUE(waitFor([&] { return service.held() == 1; }));
    service.letThrough();
    service.hold();
    ASSERT_TRUE(waitFor([&] { return service.held() == 1; }));
    constexpr unsigned FirstIdentifier = 7;
    service.invokeAction(FirstIdentifier, "button");
    service.letThrough();
    ASSERT_TRUE(hasShown(service, 1));
    ASSERT_EQ(service.lastIdentifier(), FirstIdentifier);
    EXPECT_TRUE(waitFor([&] { return actions == 1; }));
    settle(service);
    settle(service);
    EXPECT_EQ(actions, 1);
}

TEST_F(UserNotificationsTest, TakeThePlaceOfTheOneBefore) {
    NotificationService service(Everything);
    ASSERT_TRUE(notifications.show(withAction()));
    ASSERT_TRUE(hasShown(service, 1));
    settle(service);
    ASSERT_EQ(service.shown().size(), 2U);
    EXPECT_EQ(service.shown()[0].replaces, 0U);
    EXPECT_EQ(service.shown()[1].replaces, service.lastIdentifier());
    // The action went with its notification.
    settle(service);
    service.invokeAction(service.lastIdentifier(), "button");
    settle(service);
    EXPECT_EQ(actions, 0);
}

TEST_F(UserNotificationsTest, DoNotWaitForTheServiceAndShowTheLatestOnceItAnswers) {
    NotificationService service(Everything);
    service.hold();
    for (const char* title : {"first", "second", "third"})
        ASSERT_TRUE(notifications.show({title, "", "", nullptr}));
    EXPECT_THAT(service.shown(), IsEmpty());
    QTest::qWait(0);
    service.letThrough();
    ASSERT_TRUE(hasShown(service, 1));
    settle(service);
    EXPECT_EQ(service.shown().front().title, "third");
    EXPECT_EQ(service.shown().size(), 2U);
}

TEST_F(UserNotificationsTest, TakeTheirPlaceWhileTheOneBeforeIsUnderWay) {
    NotificationService service(Everything);
    ASSERT_TRUE(notifications.show({"first", "", "", nullptr}));
    ASSERT_TRUE(hasShown(service, 1));
    // The answer has not come yet.
    ASSERT_TRUE(notifications.show({"second", "", "", nullptr}));
    ASSERT_TRUE(hasShown(service, 2));
    EXPECT_EQ(service.shown().back().replaces, service.lastIdentifier());
}

TEST_F(UserNotificationsTest, DoNotTouchThoseOfAServiceThatCameLater) {
    auto service = std::make_unique<NotificationService>(Everything);
    ASSERT_TRUE(notifications.show(withAction()));
    ASSERT_TRUE(hasShown(*service, 1));
    settle(*service);
    service.reset();
    ASSERT_TRUE(waitFor([&] { return !notifications.show(withAction()); }));
    NotificationService next(Everything);
    ASSERT_TRUE(notifications.show(withAction()));
    ASSERT_TRUE(hasShown(next, 1));
    EXPECT_EQ(next.shown().front().replaces, 0U);
    EXPECT_EQ(actions, 0);
}

} // namespace
} // namespace tarragon
