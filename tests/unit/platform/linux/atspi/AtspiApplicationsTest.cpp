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

TEST_F(AtspiApplicationsTest, AreAskedOverTheirOwnSocketWhileItLasts) {
    makeGtkMenu(100);
    const std::string path = ::testing::TempDir() + "atspi-test-" + std::to_string(::getpid());
    application.openSocket(path);
    join(application);
    ASSERT_TRUE(applications.find(::getpid()));
    const Element file = element("/bar/file", AtspiToolkit::Gtk, Place::InMenuBar);
    const auto titles = [&] {
        AtspiNodes nodes;
        connection.beginOperation();
        return readLevel(AtspiTree(connection, nodes, memory, AtspiTree::Reading::OneLevel), file);
    };
    EXPECT_EQ(titles().size(), 100U);
    const std::size_t calls = application.callsOverSocket();
    EXPECT_GT(calls, 300U);
    EXPECT_TRUE(connection.post(
        {{application.busName(), "/bar/file/1"}, "org.a11y.atspi.Action", "DoAction", std::int32_t{0}, {}}));
    EXPECT_EQ(titles().size(), 100U);
    // It came over the bus, while the reading did not.
    const auto deadline = Clock::now() + 10s;
    while (application.calls("DoAction") == 0 && Clock::now() < deadline)
        std::this_thread::yield();
    EXPECT_EQ(application.calls("DoAction"), 1U);

    // The reading that meets the end of the socket may find nothing; the bus serves from then on.
    application.closeSocket();
    bool isOverBus = false;
    while (!isOverBus && Clock::now() < deadline) {
        const std::size_t before = application.callsOverSocket();
        isOverBus = titles().size() == 100U && application.callsOverSocket() == before;
    }
    EXPECT_TRUE(isOverBus);
    ::unlink(path.c_str());
}

TEST_F(AtspiApplicationsTest, AreNotFollowedToAddressesThatAreNoLocalSockets) {
    makeGtkMenu(1);
    ASSERT_TRUE(connection.ensureOpen());
    const std::string mark = ::testing::TempDir() + "atspi-mark-" + std::to_string(::getpid());
    for (const std::string& address :
        {"unixexec:path=/usr/bin/touch,argv1=" + mark, "unix:path=/none;unixexec:path=/usr/bin/touch,argv1=" + mark,
            std::string("tcp:host=localhost,port=9"), std::string("nonsense"), std::string()})
        connection.connectDirectly(application.busName(), address);
    EXPECT_EQ(readLevel(tree, element("/bar/file", AtspiToolkit::Gtk, Place::InMenuBar)).size(), 1U);
    EXPECT_NE(::access(mark.c_str(), F_OK), 0);
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
