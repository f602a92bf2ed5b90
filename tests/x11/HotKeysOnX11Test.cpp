#include "OtherClient.h"
#include "WiredInput.h"

#include "platform/linux/xkb/X11HotKeys.h"

#include <string>
#include <vector>

#include <QCoreApplication>
#include <QCursor>

#include <gtest/gtest.h>

namespace tarragon {

namespace {

constexpr std::uint32_t F4 = 118;
constexpr std::uint32_t KeyF4 = 0xFFC1;
constexpr std::uint32_t KeyF5 = 0xFFC2;
constexpr std::uint32_t KeyControl = 0xFFE3;

// Keys that a user presses while another program has the focus.
class HotKeysOnX11 : public testing::Test {
protected:
    std::function<bool()> handler(const std::string& name, bool answer) {
        return [this, name, answer] {
            _called.push_back(name);
            return answer;
        };
    }
    void pressControlF4() {
        _user.pressKey(KeyControl);
        _user.type(KeyF4);
        _user.releaseKey(KeyControl);
    }
    static std::uint32_t rootWindow() {
        return xcb_setup_roots_iterator(xcb_get_setup(static_cast<xcb_connection_t*>(qtX11Connection()))).data->root;
    }

    OtherClient _user;
    QtRunLoop _runLoop;
    X11HotKeys _hotKeys{static_cast<xcb_connection_t*>(qtX11Connection()), rootWindow(), _runLoop};
    QtNativeEvents _nativeEvents{_runLoop,
        [this](const void* event) { return _hotKeys.handleEvent(static_cast<const xcb_generic_event_t*>(event)); },
        [](void*) { return false; }};
    std::vector<std::string> _called;
};

TEST_F(HotKeysOnX11, CallTheNewestHandlerFirstAndStopWhereOneHasHandledThePress) {
    HotKeyReference reference = 0;
    ASSERT_TRUE(_hotKeys.registerHotKey(F4, hotkey::CommandKey, {}, reference));
    _hotKeys.installPressedHandler(handler("oldest", true));
    _hotKeys.installPressedHandler(handler("handles it", true));
    _hotKeys.installPressedHandler(handler("passes it on", false));
    _hotKeys.installPressedHandler(handler("newest", false));
    pressControlF4();
    ASSERT_TRUE(waitUntil([this] { return _called.size() >= 3; }));
    _runLoop.post([this] { _called.emplace_back("later"); });
    ASSERT_TRUE(waitUntil([this] { return _called.back() == "later"; }));
    EXPECT_EQ(_called, (std::vector<std::string>{"newest", "passes it on", "handles it", "later"}));
    EXPECT_TRUE(_hotKeys.unregisterHotKey(reference));
}

TEST_F(HotKeysOnX11, CallEveryHandlerWhenNoneHasHandledThePress) {
    HotKeyReference reference = 0;
    ASSERT_TRUE(_hotKeys.registerHotKey(F4, hotkey::CommandKey, {}, reference));
    _hotKeys.installPressedHandler(handler("oldest", false));
    _hotKeys.installPressedHandler(handler("newest", false));
    pressControlF4();
    ASSERT_TRUE(waitUntil([this] { return _called.size() == 2; }));
    EXPECT_EQ(_called, (std::vector<std::string>{"newest", "oldest"}));
    EXPECT_TRUE(_hotKeys.unregisterHotKey(reference));
}

TEST_F(HotKeysOnX11, CallNoHandlerForOtherKeysOrAfterTheyAreUnregistered) {
    HotKeyReference reference = 0;
    ASSERT_TRUE(_hotKeys.registerHotKey(F4, hotkey::CommandKey, {}, reference));
    _hotKeys.installPressedHandler(handler("called", true));
    _user.told();
    _user.type(KeyF4);
    _user.pressKey(KeyControl);
    _user.type(KeyF5);
    _user.releaseKey(KeyControl);
    EXPECT_EQ(_user.told().keyPresses, 3);
    pressControlF4();
    ASSERT_TRUE(waitUntil([this] { return !_called.empty(); }));
    EXPECT_EQ(_user.told().keyPresses, 1) << "that of the modifier alone";
    EXPECT_TRUE(_hotKeys.unregisterHotKey(reference));
    QCursor::pos(); // answered after the server has let go of the combination
    pressControlF4();
    EXPECT_EQ(_user.told().keyPresses, 2);
    QCoreApplication::processEvents();
    EXPECT_EQ(_called.size(), 1U);
}

} // namespace

} // namespace tarragon
