#include "bus/AtspiTreeFixture.h"

#include "platform/linux/atspi/AtspiApplications.h"
#include "platform/linux/atspi/AtspiWindows.h"

namespace tarragon {
namespace {

class AtspiApplicationsTest : public AtspiTreeTest {
protected:
    AtspiApplicationsTest() {
        registry.change([&] { registry.objects[Root] = {}; });
        application.change([&] { application.objects[Root] = {AtspiRoleApplication, "App", 0, {}, "", ""}; });
    }
    void join(const AtspiFakeApplication& joining) {
        registry.change([&] { registry.foreignChildren.emplace_back(joining.busName(), Root); });
    }

    static constexpr const char* Root = "/org/a11y/atspi/accessible/root";
    AtspiFakeApplication registry{bus, "org.a11y.atspi.Registry"};
    AtspiApplications applications{connection, 0};
};

TEST_F(AtspiApplicationsTest, AreFoundByProcessAlsoWhenTheyStartLater) {
    EXPECT_FALSE(applications.find(::getpid()));
    join(application);
    const auto found = applications.find(::getpid());
    ASSERT_TRUE(found);
    EXPECT_EQ(found->root.busName, application.busName());
    EXPECT_EQ(found->toolkit, AtspiToolkit::Gtk);
    EXPECT_FALSE(applications.find(1));
}

TEST_F(AtspiApplicationsTest, AreFoundThoughAnotherHasLeftBeforeItWasAskedAbout) {
    registry.change([&] { registry.foreignChildren.emplace_back(":1.9999", Root); });
    EXPECT_FALSE(applications.find(::getpid()));
    join(application);
    EXPECT_TRUE(applications.find(::getpid()));
}

TEST_F(AtspiApplicationsTest, AreRememberedWithoutAskingAgain) {
    join(application);
    applications.find(::getpid());
    const auto sent = connection.statistics().messagesSent;
    applications.find(::getpid());
    EXPECT_EQ(connection.statistics().messagesSent, sent);
}

TEST_F(AtspiApplicationsTest, NeverIncludeOurOwn) {
    join(application);
    AtspiApplications others(connection, ::getpid());
    EXPECT_FALSE(others.find(::getpid()));
}

TEST_F(AtspiApplicationsTest, HaveTheirMenuBarFoundInTheFrameOfTheWindow) {
    application.change([&] {
        auto& objects = application.objects;
        objects[Root].children = {"/one", "/two"};
        objects["/one"] = {AtspiRoleFrame, "One", Visible, {"/one/box"}, "", Root};
        objects["/one/box"] = {AtspiRoleFiller, "", Visible, {"/one/text", "/one/bar"}, "", "/one"};
        objects["/one/text"] = {AtspiRoleText, "", Visible, {"/one/text/bar"}, "", "/one/box"};
        objects["/one/text/bar"] = {AtspiRoleMenuBar, "", Visible, {}, "", "/one/text"};
        objects["/one/bar"] = {AtspiRoleMenuBar, "", Visible, {}, "", "/one/box"};
        objects["/two"] = {AtspiRoleFrame, "Two", Visible, {"/two/bar"}, "", Root};
        objects["/two/bar"] = {AtspiRoleMenuBar, "", Visible, {}, "", "/two"};
    });
    join(application);
    const auto found = applications.find(::getpid());
    ASSERT_TRUE(found);
    AtspiWindows windows(connection);
    const auto menuBarOf = [&](std::uint32_t window, const char* title) {
        AtspiNodes nodes;
        const auto frame = windows.frame(window, *found, nodes, [&] { return AtspiFrameQuery{title, true, {}}; });
        const auto bar = frame ? windows.menuBar(*frame, nodes) : std::nullopt;
        return bar ? bar->path : "none";
    };
    EXPECT_EQ(menuBarOf(1, "One"), "/one/bar");
    EXPECT_EQ(menuBarOf(2, "Two"), "/two/bar");
    // Found once: the second time asks only whether both are still there.
    const auto sent = connection.statistics().messagesSent;
    EXPECT_EQ(menuBarOf(1, "One"), "/one/bar");
    EXPECT_LE(connection.statistics().messagesSent - sent, 2U);
    application.change([&] { application.objects.erase("/two/bar"); });
    EXPECT_EQ(menuBarOf(2, "Two"), "none");
}

// Whoever asks for it is told of every key, for which an application within a dialog that was pressed open waits for
// ever.
TEST_F(AtspiApplicationsTest, AreNeverAskedForASocketApartFromTheBus) {
    makeGtkMenu(100);
    join(application);
    ASSERT_TRUE(applications.find(::getpid()));
    AtspiNodes nodes;
    connection.beginOperation();
    const AtspiTree oneLevel(connection, nodes, memory, AtspiTree::Reading::OneLevel);
    EXPECT_EQ(readLevel(oneLevel, element("/bar/file", AtspiToolkit::Gtk, Place::InMenuBar)).size(), 100U);
    EXPECT_EQ(application.calls("GetApplicationBusAddress"), 0U);
}

TEST_F(AtspiApplicationsTest, HaveNoMenuBarInEndlessWindows) {
    application.change([&] {
        auto& objects = application.objects;
        objects[Root].children = {"/f"};
        objects["/f"] = {AtspiRoleFrame, "F", Visible, {"/f", "/f/x", "/f/y"}, "", Root};
        objects["/f/x"] = {AtspiRoleFiller, "", Visible, {"/f", "/f/y"}, "", "/f"};
        objects["/f/y"] = {AtspiRoleFiller, "", Visible, {"/f/x"}, "", "/f"};
    });
    AtspiWindows windows(connection);
    AtspiNodes nodes;
    EXPECT_FALSE(windows.menuBar({application.busName(), "/f"}, nodes));
}

} // namespace
} // namespace tarragon
