// The preferences where nobody answers for the accessibility interface: what is asked, and what each answer does.
#include "preferences/PreferencesEndToEndTest.h"

#include <X11/keysym.h>

#include <filesystem>
#include <memory>

namespace tarragon::e2e {

namespace {

const std::string ServiceFile = "/usr/share/dbus-1/services/org.a11y.Bus.service";

} // namespace

// The program gets a session bus of its own, on which nothing can be started at first.
class PreferencesAccessTest : public WindowManagerPreferencesTest {
protected:
    void SetUp() override {
        WindowManagerPreferencesTest::SetUp();
        std::filesystem::create_directory(services());
        const std::filesystem::path configuration = desktop().writeFile("bus.conf",
            "<busconfig><type>session</type><listen>unix:tmpdir=/tmp</listen><auth>EXTERNAL</auth><servicedir>"
                + services().string()
                + "</servicedir><policy context=\"default\"><allow send_destination=\"*\" eavesdrop=\"true\"/>"
                  "<allow eavesdrop=\"true\"/><allow own=\"*\"/></policy></busconfig>");
        _bus = desktop().start(
            {"dbus-daemon", "--config-file=" + configuration.string(), "--nofork", "--print-address=1"});
        ASSERT_TRUE(waitUntil([&] { return _bus->standardOutput().find('\n') != std::string::npos; }));
        const std::string address = _bus->standardOutput();
        _environment = {{"DBUS_SESSION_BUS_ADDRESS", address.substr(0, address.find('\n'))}};
        agent().process().terminate();
        ASSERT_TRUE(waitUntil([&] { return !agent().hotKeyIsRegistered(usualHotKey()); }));
        stored().set("FirstRun", false);
    }
    void TearDown() override {
        _program.reset();
        _bus.reset();
        std::filesystem::remove_all(services());
        restartAgent();
        WindowManagerPreferencesTest::TearDown();
    }
    std::filesystem::path services() { return desktop().home() / "services"; }
    void startProgram() { _program = desktop().start({E2E_TARRAGON}, _environment); }
    std::vector<xcb_window_t> windows() { return display().managedWindowsOf(_program->identifier()); }
    // A window of that number, the sheet among them, and the last of them has the keyboard.
    bool shows(std::size_t count) {
        return waitUntil([&] {
            const xcb_window_t last = display().focusedWindow();
            return windows().size() == count && display().processOf(last) == _program->identifier()
                && (count == 1 || display().titleOf(last) == "Tarragon");
        });
    }
    bool sheetLiesOnItsWindow() {
        const xcb_window_t sheet = display().focusedWindow();
        std::vector<xcb_window_t> others = windows();
        std::erase(others, sheet);
        if (others.size() != 1)
            return false;
        const PixelRect inner = display().outerFrameOf(sheet);
        const PixelRect outer = display().outerFrameOf(others.front());
        return inner.x >= outer.x && inner.x + inner.width <= outer.x + outer.width && inner.y >= outer.y
            && inner.y + inner.height <= outer.y + outer.height;
    }
    bool sendToBus(const std::vector<std::string>& call) {
        std::vector<std::string> command{"dbus-send", "--session", "--print-reply"};
        command.insert(command.end(), call.begin(), call.end());
        const CommandResult result = desktop().run(command, _environment);
        _answer = result.output;
        return result.status == 0;
    }
    bool letTheInterfaceBeStarted() {
        std::filesystem::copy(ServiceFile, services() / "org.a11y.Bus.service");
        return sendToBus({"--dest=org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus.ReloadConfig"});
    }
    bool isSwitchedOn() {
        return sendToBus({"--dest=org.a11y.Bus", "/org/a11y/bus", "org.freedesktop.DBus.Properties.Get",
                   "string:org.a11y.Status", "string:IsEnabled"})
            && _answer.find("boolean true") != std::string::npos;
    }

    Environment _environment;
    std::unique_ptr<ChildProcess> _bus;
    std::unique_ptr<ChildProcess> _program;
    std::string _answer;
};

TEST_P(PreferencesAccessTest, ASheetAsksForItAndEscapeLeavesTheProgramRunning) {
    startProgram();
    ASSERT_TRUE(shows(2));
    EXPECT_TRUE(waitUntil([&] { return sheetLiesOnItsWindow(); }));
    input().tap(XK_Escape);
    EXPECT_TRUE(shows(1));
    input().tap(XK_Escape);
    EXPECT_TRUE(waitUntil([&] { return windows().empty(); }));
    EXPECT_TRUE(_program->isRunning());
    EXPECT_FALSE(agent().hotKeyIsRegistered(usualHotKey()));
    // Each time anew.
    EXPECT_EQ(tarragon({"preferences"}, _environment).status, 0);
    EXPECT_TRUE(shows(2));
    // The next launch is the first one again.
    EXPECT_TRUE(stored().has("FirstRun"));
    EXPECT_FALSE(stored().boolean("FirstRun"));
}

TEST_P(PreferencesAccessTest, TheButtonThatSwitchesItOnDoesSoAndEndsTheProgram) {
    startProgram();
    ASSERT_TRUE(shows(2));
    ASSERT_TRUE(letTheInterfaceBeStarted());
    input().tap(XK_Return);
    EXPECT_EQ(_program->waitForExit(), 0);
    EXPECT_TRUE(isSwitchedOn()) << _answer;
}

TEST_P(PreferencesAccessTest, TheProgramGoesOnWhereThereIsNothingToSwitchOn) {
    startProgram();
    ASSERT_TRUE(shows(2));
    input().tap(XK_Return);
    EXPECT_TRUE(shows(1));
    EXPECT_TRUE(_program->isRunning());
}

TEST_P(PreferencesAccessTest, TheProgramGoesOnWhereItIsSwitchedOnInVain) {
    const auto service = desktop().start({E2E_STUBBORN_ACCESSIBILITY}, _environment);
    ASSERT_TRUE(waitUntil([&] { return service->standardOutput() == "ready\n"; }));
    startProgram();
    ASSERT_TRUE(shows(2));
    input().tap(XK_Return);
    EXPECT_TRUE(shows(1));
    EXPECT_EQ(service->standardOutput(), "ready\nasked\n");
    EXPECT_TRUE(_program->isRunning());
}

TEST_P(PreferencesAccessTest, TheOtherButtonQuits) {
    startProgram();
    ASSERT_TRUE(shows(2));
    input().tap(XK_Tab);
    input().tap(XK_Return);
    EXPECT_EQ(_program->waitForExit(), 0);
}

INSTANTIATE_TEST_SUITE_P(Under, PreferencesAccessTest, testing::Values(WindowManager::Openbox), nameOfWindowManager);

} // namespace tarragon::e2e
