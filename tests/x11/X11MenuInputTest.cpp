#include "OtherClient.h"
#include "RelayedConnection.h"

#include "platform/linux/x11/X11MenuInput.h"

#include <array>
#include <cstdlib>
#include <memory>
#include <vector>

#include <gtest/gtest.h>
#include <xcb/xinput.h>

namespace tarragon {

namespace {

constexpr std::uint32_t KeyDown = 0xFF54;

// What the toolkit gets to see.
struct Seen {
    int type = 0; // of the core protocol
    xcb_window_t window = XCB_WINDOW_NONE;
    bool operator==(const Seen&) const = default;
};

// A program with an open menu, without a toolkit.
class MenuProgram {
public:
    explicit MenuProgram(xcb_connection_t* connection)
        : _connection(connection)
        , _input(connection)
        , _menu(xcb_generate_id(connection)) {
        const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
        const std::array<std::uint32_t, 2> values{1, XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_FOCUS_CHANGE};
        xcb_create_window(connection, XCB_COPY_FROM_PARENT, _menu, screen->root, 400, 300, 200, 200, 0,
            XCB_WINDOW_CLASS_INPUT_OUTPUT, screen->root_visual, XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK,
            values.data());
        xcb_map_window(connection, _menu);
    }

    X11MenuInput& input() { return _input; }
    bool take() { return _input.take(_menu); }
    xcb_window_t menu() const { return _menu; }

    // The keys, buttons and changes of focus that have come since the last call.
    std::vector<Seen> seen() {
        std::free(xcb_get_input_focus_reply(_connection, xcb_get_input_focus(_connection), nullptr));
        std::vector<Seen> result;
        while (xcb_generic_event_t* event = xcb_poll_for_event(_connection)) {
            if (!_input.redirect(event))
                note(*event, result);
            std::free(event);
        }
        return result;
    }

private:
    static void note(const xcb_generic_event_t& event, std::vector<Seen>& result) {
        const int type = event.response_type & 0x7F;
        switch (type) {
        case XCB_KEY_PRESS:
        case XCB_BUTTON_PRESS: // of one form
            result.push_back({type, reinterpret_cast<const xcb_key_press_event_t&>(event).event});
            break;
        case XCB_FOCUS_OUT:
            result.push_back({type, reinterpret_cast<const xcb_focus_out_event_t&>(event).event});
            break;
        case XCB_GE_GENERIC: {
            const auto& button = reinterpret_cast<const xcb_input_button_press_event_t&>(event);
            if (button.event_type == XCB_INPUT_BUTTON_PRESS)
                result.push_back({XCB_BUTTON_PRESS, button.event});
            break;
        }
        default:
            break;
        }
    }

    xcb_connection_t* _connection;
    X11MenuInput _input;
    xcb_window_t _menu;
};

enum class InputExtension { Present, Absent };

// On a server with the input extension and on one without.
class X11MenuInputTest : public testing::TestWithParam<InputExtension> {
protected:
    X11MenuInputTest() {
        if (GetParam() == InputExtension::Absent) {
            _relayed = std::make_unique<RelayedConnection>(std::getenv("DISPLAY"));
            _connection = _relayed->get();
        } else {
            _connection = xcb_connect(nullptr, nullptr);
        }
        _program = std::make_unique<MenuProgram>(_connection);
        _user.movePointer(100, 100);
        _user.told();
    }
    ~X11MenuInputTest() override {
        if (!_relayed)
            xcb_disconnect(_connection);
    }

    std::vector<Seen> keyPressOfMenu() const { return {{XCB_KEY_PRESS, _program->menu()}}; }

    OtherClient _user;
    std::unique_ptr<RelayedConnection> _relayed;
    xcb_connection_t* _connection = nullptr;
    std::unique_ptr<MenuProgram> _program;
};

TEST_P(X11MenuInputTest, RunsOnAServerAsTheTestMeansIt) {
    const xcb_query_extension_reply_t* extension = xcb_get_extension_data(_connection, &xcb_input_id);
    EXPECT_EQ(extension && extension->present, GetParam() == InputExtension::Present);
}

TEST_P(X11MenuInputTest, GivesTheMenuTheKeysWhileTheOtherProgramKeepsTheFocus) {
    ASSERT_TRUE(_program->take());
    _user.type(KeyDown);
    EXPECT_EQ(_program->seen(), keyPressOfMenu());
    EXPECT_TRUE(_user.hasFocus());
    const OtherClient::Told told = _user.told();
    EXPECT_EQ(told.keyPresses, 0);
    EXPECT_TRUE(told.believesToHaveFocus);
}

TEST_P(X11MenuInputTest, GivesTheMenuThePressOfAButtonBesideIt) {
    ASSERT_TRUE(_program->take());
    _user.movePointer(50, 50);
    _user.click();
    EXPECT_EQ(_program->seen(), (std::vector<Seen>{{XCB_BUTTON_PRESS, _program->menu()}}));
}

TEST_P(X11MenuInputTest, IsRefusedWhileAnotherProgramHoldsTheKeyboard) {
    ASSERT_TRUE(_user.grabKeyboard());
    EXPECT_FALSE(_program->take());
    EXPECT_TRUE(_user.grabPointer()) << "the pointer alone would keep the user from everything else";
    _user.releaseGrabs();
    EXPECT_TRUE(_program->take());
    _user.type(KeyDown);
    EXPECT_EQ(_program->seen(), keyPressOfMenu());
}

TEST_P(X11MenuInputTest, TakesWhatItHasOnceMore) {
    ASSERT_TRUE(_program->take());
    EXPECT_TRUE(_program->take());
    _user.type(KeyDown);
    EXPECT_EQ(_program->seen(), keyPressOfMenu());
    EXPECT_TRUE(_user.told().believesToHaveFocus);
}

TEST_P(X11MenuInputTest, GivesTheMenuTheKeysWhenNoWindowHasTheFocus) {
    _user.focusNothing();
    ASSERT_TRUE(_program->take());
    _user.type(KeyDown);
    EXPECT_EQ(_program->seen(), keyPressOfMenu());
}

TEST_P(X11MenuInputTest, FollowsTheFocusThatAWindowGetsLater) {
    _user.focusNothing();
    ASSERT_TRUE(_program->take());
    _user.takeFocus();
    _user.told();
    ASSERT_TRUE(_program->take());
    // Neither the menu nor the other program hears of the keyboard that changes hands.
    EXPECT_EQ(_program->seen(), std::vector<Seen>());
    EXPECT_TRUE(_user.told().believesToHaveFocus);
    _user.type(KeyDown);
    EXPECT_EQ(_program->seen(), keyPressOfMenu());
}

TEST_P(X11MenuInputTest, GivesEverythingBackWhenItIsReleased) {
    ASSERT_TRUE(_program->take());
    EXPECT_FALSE(_user.grabKeyboard());
    EXPECT_FALSE(_user.grabPointer());
    _program->input().release();
    EXPECT_EQ(_program->seen(), std::vector<Seen>());
    EXPECT_TRUE(_user.grabsAreFree());
    _user.type(KeyDown);
    EXPECT_EQ(_user.told().keyPresses, 1);
    EXPECT_EQ(_program->seen(), std::vector<Seen>());
}

INSTANTIATE_TEST_SUITE_P(Servers, X11MenuInputTest, testing::Values(InputExtension::Present, InputExtension::Absent),
    [](const auto& information) {
        return information.param == InputExtension::Present ? "WithInputExtension" : "WithoutInputExtension";
    });

} // namespace

} // namespace tarragon
