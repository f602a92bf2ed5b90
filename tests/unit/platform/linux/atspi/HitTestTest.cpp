#include "LinuxAccessibilityFixture.h"

#include "platform/linux/atspi/LinuxElements.h"

namespace tarragon {
namespace {

constexpr const char* Null = "/org/a11y/atspi/null";

class HitTestTest : public LinuxAccessibilityTest {
protected:
    HitTestTest() {
        addWindow(1, "One");
        // The window manager's decorations are part of the window, and nothing of the application's lies there.
        application.change([&] { application.objects[framePath(1)].underPoint = Null; });
    }

    // What the frame has under a point from now on, outermost first; the last one names itself.
    void put(const std::vector<std::pair<std::string, std::uint32_t>>& pathsAndRoles) {
        application.change([&] {
            std::string outer = framePath(1);
            for (const auto& [path, role] : pathsAndRoles) {
                application.objects[outer].underPoint = path;
                application.objects[path] = {role, "", Visible, {}, "", outer};
                outer = path;
            }
            application.objects[outer].underPoint = outer;
        });
    }
    std::string roleAt(double x) {
        return stringIn(accessibility.copyAttributeValue(accessibility.elementAtPosition({x, 25}), attribute::Role));
    }
    std::size_t questions() { return application.calls("GetAccessibleAtPoint"); }
};

TEST_F(HitTestTest, FindsTheWindowWhereItsApplicationHasNothing) {
    EXPECT_EQ(accessibility.elementAtPosition({15, 25}), elementOfWindow(windows.at(1)));
    EXPECT_EQ(roleAt(16), "AXWindow");
}

TEST_F(HitTestTest, FindsTheInnermostObject) {
    put({{"/panel", AtspiRolePanel}, {"/button", AtspiRolePushButton}});
    EXPECT_EQ(roleAt(15), "AXButton");
    put({{"/panel", AtspiRolePanel}});
    EXPECT_EQ(roleAt(16), "AXGroup");
    put({{"/label", AtspiRoleLabel}});
    EXPECT_EQ(roleAt(17), "AXStaticText");
}

TEST_F(HitTestTest, AsksEachObjectOnce) {
    put({{"/panel", AtspiRolePanel}, {"/button", AtspiRolePushButton}});
    roleAt(15);
    EXPECT_EQ(questions(), 3U);
}

TEST_F(HitTestTest, EndsWhereAnApplicationLeadsRoundInACircle) {
    put({{"/panel", AtspiRolePanel}, {"/button", AtspiRolePushButton}});
    application.change([&] { application.objects["/button"].underPoint = "/panel"; });
    EXPECT_EQ(roleAt(15), "AXButton");
    EXPECT_EQ(questions(), 3U);
}

TEST_F(HitTestTest, EndsWhereAnApplicationLeadsOnAndOn) {
    std::vector<std::pair<std::string, std::uint32_t>> panels;
    for (int depth = 0; depth < 60; ++depth)
        panels.emplace_back("/panel" + std::to_string(depth), AtspiRolePanel);
    put(panels);
    EXPECT_EQ(roleAt(15), "AXGroup");
    EXPECT_EQ(questions(), 40U);
}

TEST_F(HitTestTest, WaitsForASilentApplicationOnceAndFindsItsWindow) {
    roleAt(15); // the frame is known
    application.change([&] { application.isSilent = true; });
    const std::uint64_t sent = messagesSent();
    EXPECT_EQ(accessibility.elementAtPosition({16, 25}), elementOfWindow(windows.at(1)));
    const std::uint64_t sentWhileWaiting = messagesSent() - sent;
    EXPECT_LE(sentWhileWaiting, 2U); // the question, and the probe that tells when it is back
    for (double x = 20; x < 120; ++x)
        EXPECT_EQ(accessibility.elementAtPosition({x, 25}), elementOfWindow(windows.at(1)));
    EXPECT_EQ(messagesSent() - sent, sentWhileWaiting);
}

TEST_F(HitTestTest, AsksNobodyOverTheDesktop) {
    const std::uint64_t sent = messagesSent();
    EXPECT_FALSE(accessibility.elementAtPosition({5000, 25}));
    EXPECT_EQ(messagesSent(), sent);
}

} // namespace
} // namespace tarragon
