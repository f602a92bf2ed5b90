#include "platform/linux/input/X11WindowPicker.h"

#include "fake/PollingRunLoop.h"
#include "platform/linux/windows/ApplicationDirectory.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Windows.h"
#include "support/X11Client.h"
#include "support/XkbServer.h"

#include <gmock/gmock.h>

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <unistd.h>

namespace tarragon {
namespace {

using testing::IsEmpty;

constexpr std::uint8_t Escape = 9;
constexpr std::uint8_t A = 38;
constexpr std::uint32_t Events =
    XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE | XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_KEY_RELEASE;

// Every application is an entry of the name of its window's class.
class Applications : public ApplicationDirectory {
public:
    std::optional<DesktopEntry> entryForWindow(const WindowDescription& window) override {
        return DesktopEntry{"org.example." + window.className, "/" + window.className, window.className};
    }
    std::string applicationName(const WindowDescription& window) override { return window.className; }
};

class X11WindowPickerTest : public testing::Test {
protected:
    void SetUp() override {
        if (server.displayName().empty())
            GTEST_SKIP() << "Xvfb is not installed";
        connection = X11Connection::connect(server.displayName());
        ASSERT_TRUE(connection);
        windows.emplace(*connection);
        other = std::make_unique<X11Client>(server.displayName());
        user = std::make_unique<X11Client>(server.displayName());
        picker = std::make_unique<X11WindowPicker>(*connection, runLoop, *windows, applications);
    }

    // A window of another program at (x, 0), 100 by 100.
    xcb_window_t openWindow(int x, const std::string& title, const std::string& type = "NORMAL") {
        const xcb_window_t window = other->makeWindow({.x = static_cast<std::int16_t>(x), .events = Events});
        if (!title.empty())
            other->setText(window, "_NET_WM_NAME", title);
        other->setText(window, "WM_CLASS", std::string("editor\0Editor\0", 14));
        other->setNumbers(window, "_NET_WM_PID", XCB_ATOM_CARDINAL, {getpid() + 1U});
        other->setNumbers(window, "_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM, {other->atom("_NET_WM_WINDOW_TYPE_" + type)});
        other->map(window);
        managed.push_back(window);
        other->setNumbers(other->root(), "_NET_CLIENT_LIST_STACKING", XCB_ATOM_WINDOW, managed);
        return window;
    }
    // Puts the window 10 below the top of a frame of the window manager's.
    xcb_window_t putIntoFrame(xcb_window_t window, int x) {
        const xcb_window_t frame =
            user->makeWindow({.x = static_cast<std::int16_t>(x), .height = 110, .overrideRedirect = true});
        // What a frame is made of: the title bar, and a window around the client.
        const xcb_window_t titleBar = xcb_generate_id(user->connection());
        const xcb_window_t inside = xcb_generate_id(user->connection());
        for (const auto& [child, y, height] : {std::tuple(titleBar, 0, 10), std::tuple(inside, 10, 100)})
            xcb_create_window(user->connection(), XCB_COPY_FROM_PARENT, child, frame, 0, static_cast<std::int16_t>(y),
                100, static_cast<std::uint16_t>(height), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0,
                nullptr);
        xcb_reparent_window(user->connection(), window, inside, 0, 0);
        xcb_map_subwindows(user->connection(), frame);
        user->map(frame);
        return frame;
    }
    bool pick() {
        return picker->pickWindow([this](const std::optional<PickedWindow>& window) { picked.push_back(window); });
    }
    void clickAt(int x, int y, std::uint8_t button = 1) {
        user->movePointer(x, y);
        user->click(button);
    }
    // The outcome; fails when none comes.
    std::optional<PickedWindow> outcome() {
        EXPECT_TRUE(runLoop.runUntil([&] { return !picked.empty(); }));
        runLoop.runReadable();
        EXPECT_EQ(picked.size(), 1U);
        return picked.empty() ? std::nullopt : picked.front();
    }
    bool pointerAndKeyboardAreFree() {
        const bool hasPointer = user->grabPointer();
        const bool hasKeyboard = user->grabKeyboard();
        user->ungrabPointer();
        user->ungrabKeyboard();
        return hasPointer && hasKeyboard;
    }

    const XkbServer server;
    PollingRunLoop runLoop;
    std::unique_ptr<X11Connection> connection;
    std::optional<X11Windows> windows;
    Applications applications;
    std::unique_ptr<X11Client> other;
    std::unique_ptr<X11Client> user;
    std::unique_ptr<X11WindowPicker> picker;
    std::vector<std::uint32_t> managed;
    std::vector<std::optional<PickedWindow>> picked;
};

TEST_F(X11WindowPickerTest, TellsTheWindowUnderTheClickWhichNobodyElseHearsOf) {
    openWindow(0, "Left");
    openWindow(200, "Right");
    other->takeEvents();
    ASSERT_TRUE(pick());
    clickAt(250, 50);
    const auto window = outcome();
    ASSERT_TRUE(window);
    EXPECT_EQ(window->title, "Right");
    EXPECT_EQ(window->application.bundleIdentifier, "org.example.Editor");
    EXPECT_EQ(window->application.name, "Editor");
    EXPECT_EQ(window->application.processIdentifier, getpid() + 1);
    EXPECT_THAT(other->takeEvents(), IsEmpty());
    // Everything is as before.
    EXPECT_TRUE(pointerAndKeyboardAreFree());
    clickAt(250, 50);
    EXPECT_EQ(other->takeEvents().size(), 2U);
}

TEST_F(X11WindowPickerTest, TellsTheWindowWithinTheFrameUnderTheClick) {
    putIntoFrame(openWindow(0, "Framed"), 50);
    for (const int y : {5, 60}) {
        picked.clear();
        ASSERT_TRUE(pick());
        clickAt(100, y);
        const auto window = outcome();
        ASSERT_TRUE(window) << y;
        EXPECT_EQ(window->title, "Framed");
    }
}

TEST_F(X11WindowPickerTest, TellsTheTopmostWindow) {
    openWindow(0, "Below");
    other->raise(openWindow(50, "Above"));
    ASSERT_TRUE(pick());
    clickAt(75, 50);
    EXPECT_EQ(outcome()->title, "Above");
}

TEST_F(X11WindowPickerTest, TellsAWindowWithoutATitle) {
    openWindow(0, "");
    ASSERT_TRUE(pick());
    clickAt(50, 50);
    const auto window = outcome();
    ASSERT_TRUE(window);
    EXPECT_EQ(window->title, std::nullopt);
}

TEST_F(X11WindowPickerTest, TellsNothingWhereThereIsNoWindowOfAnotherProgram) {
    openWindow(0, "Desktop", "DESKTOP");
    openWindow(100, "Dock", "DOCK");
    const xcb_window_t own = openWindow(200, "Ours");
    other->setNumbers(own, "_NET_WM_PID", XCB_ATOM_CARDINAL, {static_cast<std::uint32_t>(getpid())});
    // A pop-up menu, which nobody manages.
    other->map(other->makeWindow({.x = 300, .overrideRedirect = true}));
    for (const int x : {50, 150, 250, 350, 450}) {
        picked.clear();
        ASSERT_TRUE(pick());
        clickAt(x, 50);
        EXPECT_EQ(outcome(), std::nullopt) << x;
    }
}

TEST_F(X11WindowPickerTest, GivesUpWithAnotherButton) {
    openWindow(0, "Window");
    for (const std::uint8_t button : {2, 3, 4}) {
        picked.clear();
        other->takeEvents();
        ASSERT_TRUE(pick());
        clickAt(50, 50, button);
        EXPECT_EQ(outcome(), std::nullopt) << int(button);
        EXPECT_THAT(other->takeEvents(), IsEmpty());
    }
}

TEST_F(X11WindowPickerTest, GivesUpWithEscapeWhichNobodyElseHearsOf) {
    other->focus(openWindow(0, "Window"));
    other->takeEvents();
    ASSERT_TRUE(pick());
    user->typeKey(A);
    runLoop.runReadable();
    EXPECT_THAT(picked, IsEmpty());
    user->typeKey(Escape);
    EXPECT_EQ(outcome(), std::nullopt);
    EXPECT_THAT(other->takeEvents(), testing::Each(testing::Eq(XCB_MAPPING_NOTIFY)));
}

TEST_F(X11WindowPickerTest, GivesUpWhenEscapeIsLetGoAndNotBefore) {
    using Clock = std::chrono::steady_clock;
    other->focus(openWindow(0, "Window"));
    // The other program sees how long repetitions take to come.
    const auto begin = Clock::now();
    user->pressKey(Escape);
    int presses = 0;
    ASSERT_TRUE(runLoop.runUntil([&] { return (presses += other->countEvents(XCB_KEY_PRESS)) >= 4; }));
    const auto end = Clock::now() + (Clock::now() - begin);
    user->releaseKey(Escape);
    other->takeEvents();

    ASSERT_TRUE(pick());
    user->pressKey(Escape);
    ASSERT_TRUE(runLoop.runUntil([&] { return Clock::now() > end; }));
    EXPECT_THAT(picked, IsEmpty());
    user->releaseKey(Escape);
    EXPECT_EQ(outcome(), std::nullopt);
    EXPECT_EQ(other->countEvents(XCB_KEY_PRESS), 0);
}

TEST_F(X11WindowPickerTest, TellsWhatWasUnderThePressWhereverItIsLetGo) {
    openWindow(0, "Left");
    openWindow(200, "Right");
    ASSERT_TRUE(pick());
    user->movePointer(50, 50);
    user->press();
    user->press(3);
    user->release(3);
    user->movePointer(250, 50);
    runLoop.runReadable();
    EXPECT_THAT(picked, IsEmpty());
    user->release();
    EXPECT_EQ(outcome()->title, "Left");
}

TEST_F(X11WindowPickerTest, PicksOneWindowAtATime) {
    openWindow(0, "Window");
    ASSERT_TRUE(pick());
    EXPECT_FALSE(pick());
    clickAt(50, 50);
    EXPECT_EQ(outcome()->title, "Window");
}

TEST_F(X11WindowPickerTest, MayPickAgainFromItsHandler) {
    openWindow(0, "Window");
    bool picksAgain = false;
    ASSERT_TRUE(picker->pickWindow([&](const auto&) { picksAgain = pick(); }));
    clickAt(50, 50);
    ASSERT_TRUE(runLoop.runUntil([&] { return picksAgain; }));
    clickAt(50, 50);
    EXPECT_EQ(outcome()->title, "Window");
}

TEST_F(X11WindowPickerTest, CanBeCancelled) {
    openWindow(0, "Window");
    picker->cancel();
    ASSERT_TRUE(pick());
    picker->cancel();
    EXPECT_TRUE(pointerAndKeyboardAreFree());
    clickAt(50, 50);
    EXPECT_EQ(other->takeEvents().size(), 2U);
    runLoop.runReadable();
    EXPECT_THAT(picked, IsEmpty());
    EXPECT_TRUE(pick());
}

TEST_F(X11WindowPickerTest, DoesNotBeginWhileAnotherProgramHasPointerOrKeyboard) {
    ASSERT_TRUE(user->grabPointer());
    EXPECT_FALSE(pick());
    user->ungrabPointer();
    ASSERT_TRUE(user->grabKeyboard());
    EXPECT_FALSE(pick());
    EXPECT_TRUE(user->grabPointer());
    user->ungrabPointer();
    user->ungrabKeyboard();
    EXPECT_TRUE(pick());
}

} // namespace
} // namespace tarragon
