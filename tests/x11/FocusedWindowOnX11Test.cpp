#include "fake/FakePlatform.h"
#include "mirror/FocusedWindowQueries.h"
#include "platform/linux/atspi/LinuxAccessibility.h"
#include "platform/linux/atspi/LinuxElements.h"
#include "platform/linux/desktop/DesktopEntries.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Windows.h"
#include "platform/linux/x11/X11Workspace.h"
#include "support/X11Client.h"

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <gmock/gmock.h>

#include <unistd.h>
#include <xcb/xcb.h>

namespace tarragon {
namespace {

// What the questions about the window in front cost on a real X server.
class FocusedWindowOnX11 : public testing::Test {
protected:
    FocusedWindowOnX11() {
        xcb_window_t others[2];
        for (xcb_window_t& other : others)
            other = openWindow("Notes");
        window = openWindow("Letter");
        const std::vector<std::uint32_t> managed{others[0], others[1], window};
        for (const char* list : {"_NET_CLIENT_LIST", "_NET_CLIENT_LIST_STACKING"})
            client.setNumbers(client.root(), list, XCB_ATOM_WINDOW, managed);
        client.setNumbers(client.root(), "_NET_ACTIVE_WINDOW", XCB_ATOM_WINDOW, {window});
        queries = std::make_unique<FocusedWindowQueries>(Platform{.accessibility = accessibility,
                                                             .workspace = workspace,
                                                             .displays = fake.displays,
                                                             .hotKeys = fake.hotKeys,
                                                             .defaults = fake.defaults,
                                                             .runLoop = fake.runLoop,
                                                             .notificationCenter = fake.notificationCenter,
                                                             .menuInput = fake.menuInput},
            elementOfApplication(::getpid(), window));
    }
    ~FocusedWindowOnX11() override {
        for (const char* list : {"_NET_CLIENT_LIST", "_NET_CLIENT_LIST_STACKING", "_NET_ACTIVE_WINDOW"})
            client.setNumbers(client.root(), list, XCB_ATOM_WINDOW, {});
    }

    xcb_window_t openWindow(const std::string& title) {
        const xcb_window_t opened = client.makeWindow({.x = 100, .y = 80, .width = 400, .height = 300});
        client.setText(opened, "_NET_WM_NAME", title);
        client.map(opened);
        return opened;
    }

    // As a tick of the panel's timer asks them.
    void askAll() {
        EXPECT_TRUE(queries->focusedAppName());
        EXPECT_EQ(queries->focusedWindowTitle(), "Letter");
        EXPECT_EQ(queries->focusedWindowRole(), "window");
        EXPECT_EQ(queries->focusedWindowFrameCG(), (Rect{{100, 80}, {400, 300}}));
        EXPECT_EQ(queries->focusedWindowFrameNS().size, (Size{400, 300}));
        EXPECT_EQ(queries->focusedWindowPositionCG(), (Point{100, 80}));
        EXPECT_TRUE(queries->focusedWindowScreen());
        EXPECT_EQ(queries->focusedWindowScreenArrayOrder(), 0);
        queries->focusedWindowScreenRectNS();
        queries->focusedWindowScreenRectCG();
        EXPECT_FALSE(queries->isFinderDesktopWindowActive());
        EXPECT_FALSE(queries->isAuxiliaryWindowActive());
        EXPECT_FALSE(queries->isFocusedWindowFullScreen());
        EXPECT_FALSE(queries->isFocusedWindowMinimized());
        EXPECT_FALSE(queries->isFocusedWindowHidden());
    }
    // How many requests the server gets for something.
    template <typename Function>
    unsigned requestsOf(Function function) {
        const unsigned before = xcb_no_operation(connection->get()).sequence;
        function();
        return xcb_no_operation(connection->get()).sequence - before - 1;
    }

    X11Client client{std::getenv("DISPLAY")};
    FakePlatform fake;
    std::unique_ptr<X11Connection> connection = X11Connection::connect(std::getenv("DISPLAY"));
    X11Windows windows{*connection};
    DesktopEntries entries{std::vector<std::filesystem::path>(), std::vector<std::string>()};
    LinuxAccessibility accessibility{windows, entries};
    X11Workspace workspace{*connection, windows, entries, fake.runLoop, [](const std::string&) { return false; }};
    xcb_window_t window = 0;
    std::unique_ptr<FocusedWindowQueries> queries;
};

TEST_F(FocusedWindowOnX11, IsNeverAskedForInAShallowBatchNeitherOfTheServerNorOverTheBus) {
    askAll();
    EXPECT_EQ(requestsOf([&] {
        const ReadBatch batch(accessibility, ReadBatchDepth::AsAsked);
        askAll();
    }),
        0U);
    EXPECT_EQ(accessibility.statistics().messagesSent, 0U);
}

TEST_F(FocusedWindowOnX11, IsSeenWhereItIsByTheBatchAfterTheServerHasToldIt) {
    {
        const ReadBatch batch(accessibility, ReadBatchDepth::AsAsked);
        askAll();
    }
    client.move(window, 150, 90);
    const auto positionInBatch = [&] {
        const ReadBatch batch(accessibility, ReadBatchDepth::AsAsked);
        return queries->focusedWindowPositionCG();
    };
    for (int batches = 0; batches < 1000 && positionInBatch() != Point{150, 90}; ++batches)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    EXPECT_EQ(positionInBatch(), (Point{150, 90}));
}

TEST_F(FocusedWindowOnX11, IsAskedForWithoutABatchAtAFewRequestsAQuestion) {
    askAll();
    for (const auto& [question, most] : std::vector<std::pair<std::function<void()>, unsigned>>{
             {[&] { queries->focusedAppName(); }, 1}, {[&] { queries->focusedWindowTitle(); }, 2},
             {[&] { queries->focusedWindowFrameCG(); }, 3}, {[&] { queries->isFinderDesktopWindowActive(); }, 4},
             {[&] { queries->isAuxiliaryWindowActive(); }, 4}, {[&] { queries->isFocusedWindowFullScreen(); }, 2},
             {[&] { queries->isFocusedWindowMinimized(); }, 1}, {[&] { queries->isFocusedWindowHidden(); }, 1}})
        EXPECT_LE(requestsOf(question), most);
    EXPECT_EQ(accessibility.statistics().messagesSent, 0U);
}

} // namespace
} // namespace tarragon
