#include "WiredInput.h"

#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/xkb/KeyCodes.h"
#include "platform/linux/xkb/X11HotKeys.h"
#include "platform/linux/xkb/X11KeyRecorder.h"
#include "platform/linux/xkb/XkbKeyboard.h"
#include "recorder/KeyComboWords.h"
#include "recorder/SRKeyCodeTransformer.h"
#include "recorder/control/SRRecorderControl.h"
#include "recorder/control/SRRecorderField.h"
#include "support/X11Client.h"

#include <array>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include <gmock/gmock.h>

namespace tarragon {

namespace {

using modifier::Command;
using modifier::Control;
using modifier::Option;
using modifier::Shift;

// X key codes, which are places on the keyboard.
struct ModifierKey {
    std::uint32_t flag;
    std::uint8_t keyCode;
};
constexpr std::array<ModifierKey, 4> ModifierKeys{{{Command, 37}, {Option, 64}, {Control, 133}, {Shift, 50}}};
constexpr std::uint8_t SpaceKey = 65;
constexpr std::uint8_t EscapeKey = 9;
constexpr std::uint8_t KKey = 45;

// The order in which the table names the layouts.
constexpr std::array<const char*, 3> Layouts{"us", "de", "fr"};

struct Row {
    std::uint8_t keyCode;
    std::uint32_t flags;
    std::array<const char*, 3> names; // in each layout; those after the first may be left out where they are the same

    std::string nameIn(std::size_t layout) const { return names[layout] ? names[layout] : names[0]; }
};

constexpr std::array<Row, 60> Rows{{
    // letters
    {24, Command | Option, {"Q", "Q", "A"}},
    {24, Control, {"Q", "Q", "A"}},
    {25, Command | Shift, {"W", "W", "Z"}},
    {38, Option, {"A", "A", "Q"}},
    {38, Control | Shift, {"A", "A", "Q"}},
    {52, Command, {"Z", "Y", "W"}},
    {52, Option | Shift, {"Z", "Y", "W"}},
    {29, Command | Control, {"Y", "Z", "Y"}},
    {58, Command | Option, {"M", "M", ","}},
    {58, Control, {"M", "M", ","}},
    {45, Option | Control, {"K"}},
    {45, Command | Option | Shift, {"K"}},
    {47, Command, {";", "Ö", "M"}},
    {47, Control | Option | Shift, {";", "Ö", "M"}},
    {34, Option, {"[", "Ü", "^"}},
    {48, Command | Shift, {"'", "Ä", "Ù"}},
    {45, 0, {"K"}},
    {56, Shift, {"B"}},
    // digits and signs
    {10, Command, {"1", "1", "&"}},
    {11, Option, {"2", "2", "É"}},
    {14, Control, {"5", "5", "("}},
    {14, Command | Option, {"5", "5", "("}},
    {19, Command | Shift, {"0", "0", "À"}},
    {21, Option | Shift, {"=", "´", "="}},
    {49, Control, {"`", "^", "²"}},
    {60, Command | Option, {".", ".", ":"}},
    {94, Command, {"<"}},
    {94, Control | Shift, {"<"}},
    // function keys
    {67, 0, {"F1"}},
    {68, Command, {"F2"}},
    {70, Option, {"F4"}},
    {71, Control, {"F5"}},
    {74, Shift, {"F8"}},
    {76, Option | Shift, {"F10"}},
    {95, Command | Shift, {"F11"}},
    {96, Control | Option, {"F12"}},
    // arrows and their neighbours
    {113, Command | Option, {"Left"}},
    {114, Control, {"Right"}},
    {111, Option | Shift, {"Up"}},
    {116, Command | Control, {"Down"}},
    {110, Control, {"Home"}},
    {115, Command | Shift, {"End"}},
    {112, Option, {"Page Up"}},
    {117, Control | Shift, {"Page Down"}},
    {118, Command, {"Help"}},
    {119, Command | Option, {"Delete"}},
    // keys with a name
    {65, Option, {"Space"}},
    {65, Command | Option | Control | Shift, {"Space"}},
    {36, Control, {"Return"}},
    {23, Command | Option, {"Tab"}},
    {9, Shift, {"Escape"}},
    {22, Control, {"Backspace"}},
    // keypad
    {87, Command, {"Pad 1"}},
    {84, Option, {"Pad 5"}},
    {81, Control | Shift, {"Pad 9"}},
    {90, Command | Option, {"Pad 0"}},
    {86, Control, {"Pad +"}},
    {63, Option, {"Pad *"}},
    {104, Command, {"Enter"}},
    {106, 0, {"Pad /"}},
}};

// A recorder in a window that has the focus, and a user at the keyboard.
class RecorderOnX11 : public testing::Test {
protected:
    RecorderOnX11() {
        _hotKeys.installPressedHandler([this] {
            ++_timesPressed;
            return true;
        });
        _control.setServices({&_keyboard, &_recorder, &_transformer, nullptr});
        auto* const column = new QVBoxLayout(&_window);
        column->addWidget(&_control);
        column->addWidget(&_other);
        _window.show();
        EXPECT_TRUE(waitUntil([this] { return _user.isMapped(nativeWindow()); }));
        _user.focus(nativeWindow());
        EXPECT_TRUE(waitUntil([this] { return _window.isActiveWindow(); }));
        _other.setFocus();
    }
    ~RecorderOnX11() override {
        _control.setParent(nullptr);
        _other.setParent(nullptr);
    }

    static std::uint32_t rootWindow() {
        return xcb_setup_roots_iterator(xcb_get_setup(static_cast<xcb_connection_t*>(qtX11Connection()))).data->root;
    }
    xcb_window_t nativeWindow() const { return static_cast<xcb_window_t>(_window.winId()); }
    SRRecorderField& field() { return *_control.findChild<SRRecorderField*>(); }
    QLabel& message() { return *_control.findChild<QLabel*>(); }
    std::string shown() { return field().text().toStdString(); }

    void press(std::uint8_t keyCode, std::uint32_t flags) {
        for (const ModifierKey& key : ModifierKeys) {
            if (flags & key.flag)
                _user.pressKey(key.keyCode);
        }
        _user.typeKey(keyCode);
        for (const ModifierKey& key : ModifierKeys) {
            if (flags & key.flag)
                _user.releaseKey(key.keyCode);
        }
    }
    bool waitUntilKeysAreBack() {
        return waitUntil([this] {
            const bool isFree = _user.grabKeyboard();
            _user.ungrabKeyboard();
            return isFree;
        });
    }
    // False when the recording did not end, or the keys were not given back.
    bool record(std::uint8_t keyCode, std::uint32_t flags) {
        _control.startRecording();
        if (!_control.isRecording())
            return false;
        press(keyCode, flags);
        return waitUntil([this] { return !_control.isRecording(); }) && waitUntilKeysAreBack();
    }
    bool registerRecorded(HotKeyReference& reference) {
        const KeyCombo& combination = _control.keyCombo();
        return _hotKeys.registerHotKey(
            static_cast<std::uint32_t>(combination.code), cocoaToCarbonFlags(combination.flags), {}, reference);
    }
    // The server has the new layout, and everybody who follows it has been told.
    bool switchLayout(const char* layout) {
        std::string command = "setxkbmap ";
        command += layout;
        if (std::system(command.c_str()) != 0)
            return false;
        QCoreApplication::processEvents();
        return true;
    }

    X11Client _user{std::getenv("DISPLAY")};
    QtRunLoop _runLoop;
    std::unique_ptr<X11Connection> _connection = X11Connection::connect();
    X11HotKeys _hotKeys{static_cast<xcb_connection_t*>(qtX11Connection()), rootWindow(), _runLoop};
    QtNativeEvents _nativeEvents{_runLoop,
        [this](const void* event) { return _hotKeys.handleEvent(static_cast<const xcb_generic_event_t*>(event)); },
        [](void*) { return false; }};
    XkbKeyboard _keyboard{_connection->connectAnother(), _runLoop,
        [this](auto keyCode, auto modifiers) { return _hotKeys.isOwnCombination(keyCode, modifiers); },
        [] { return std::vector<DesktopShortcut>(); }};
    X11KeyRecorder _recorder{*_connection, _runLoop};
    SRKeyCodeTransformer _transformer{_keyboard};
    QWidget _window;
    SRRecorderControl _control;
    QLineEdit _other;
    int _timesPressed = 0;
};

class RecorderTableOnX11 : public RecorderOnX11, public testing::WithParamInterface<std::size_t> {
protected:
    void TearDown() override { EXPECT_TRUE(switchLayout("us")); }
};

// Each combination is recorded, and then opens what it was chosen for; recorded once more it opens nothing.
TEST_P(RecorderTableOnX11, RecordsCombinationsThatThenAreHotKeys) {
    ASSERT_TRUE(switchLayout(Layouts[GetParam()]));
    for (const Row& row : Rows) {
        std::string expected = modifierWords(row.flags);
        expected += row.nameIn(GetParam());
        SCOPED_TRACE(expected);
        ASSERT_TRUE(record(row.keyCode, row.flags));
        EXPECT_EQ(shown(), expected);
        EXPECT_EQ(_control.keyCombo(),
            (KeyCombo{static_cast<std::int16_t>(virtualKeyCode(row.keyCode).value_or(999)), row.flags}));

        HotKeyReference reference = 0;
        ASSERT_TRUE(registerRecorded(reference));
        _timesPressed = 0;
        press(row.keyCode, row.flags);
        ASSERT_TRUE(waitUntil([this] { return _timesPressed > 0; }));
        EXPECT_EQ(_timesPressed, 1);

        ASSERT_TRUE(record(row.keyCode, row.flags));
        EXPECT_EQ(shown(), expected) << "it is our own";
        QCoreApplication::processEvents();
        EXPECT_EQ(_timesPressed, 1);
        EXPECT_TRUE(_hotKeys.unregisterHotKey(reference));
    }
    EXPECT_EQ(_other.text(), "") << "nobody else has got a key";
}

INSTANTIATE_TEST_SUITE_P(Layouts, RecorderTableOnX11, testing::Range<std::size_t>(0, Layouts.size()),
    [](const auto& parameter) { return std::string(Layouts[parameter.param]); });

TEST_F(RecorderOnX11, IsWalkedAndUsedByTheKeyboardAlone) {
    constexpr std::uint8_t TabKey = 23;
    _control.setKeyCombo({49, Option});
    _user.pressKey(50);
    _user.typeKey(TabKey);
    _user.typeKey(TabKey);
    _user.releaseKey(50);
    ASSERT_TRUE(waitUntil([this] { return field().hasFocus(); }));
    _user.typeKey(SpaceKey);
    ASSERT_TRUE(waitUntil([this] { return _control.isRecording(); }));
    press(KKey, Command | Control);
    ASSERT_TRUE(waitUntil([this] { return !_control.isRecording(); }));
    EXPECT_EQ(shown(), "Command+Control+K");
    ASSERT_TRUE(waitUntilKeysAreBack());
    _user.typeKey(TabKey);
    ASSERT_TRUE(waitUntil([this] { return !field().hasFocus(); })) << "the keys are the window's own again";
}

TEST_F(RecorderOnX11, ShowsTheModifiersAsTheyAreHeldAndGoesBack) {
    _control.startRecording();
    _user.pressKey(64);
    ASSERT_TRUE(waitUntil([this] { return shown() == "Option+…"; }));
    _user.pressKey(50);
    ASSERT_TRUE(waitUntil([this] { return shown() == "Option+Shift+…"; }));
    _user.releaseKey(64);
    ASSERT_TRUE(waitUntil([this] { return shown() == "Shift+…"; }));
    _user.releaseKey(50);
    ASSERT_TRUE(waitUntil([this] { return shown() == "Press the keys"; }));
    _user.typeKey(EscapeKey);
    ASSERT_TRUE(waitUntil([this] { return !_control.isRecording(); }));
    EXPECT_TRUE(waitUntilKeysAreBack());
}

// The key that was recorded is held, and so repeats itself.
TEST_F(RecorderOnX11, TypesAndOpensNothingWhileTheRecordedKeyIsHeld) {
    _control.startRecording();
    _user.pressKey(KKey);
    ASSERT_TRUE(waitUntil([this] { return !_control.isRecording(); }));
    HotKeyReference reference = 0;
    ASSERT_TRUE(registerRecorded(reference));
    EXPECT_FALSE(_user.grabKeyboard()) << "the keys are still kept";
    _user.releaseKey(KKey);
    EXPECT_TRUE(waitUntilKeysAreBack());
    EXPECT_EQ(_timesPressed, 0);
    _user.typeKey(KKey);
    EXPECT_TRUE(waitUntil([this] { return _timesPressed == 1; }));
    EXPECT_TRUE(_hotKeys.unregisterHotKey(reference));
}

TEST_F(RecorderOnX11, DoesNotTakeOverWhatAnotherProgramHasGrabbed) {
    ASSERT_TRUE(_user.grabKey(SpaceKey, XCB_MOD_MASK_1));
    _control.setKeyCombo({96, Command});
    ASSERT_TRUE(record(SpaceKey, Option));
    EXPECT_EQ(_control.keyCombo(), (KeyCombo{96, Command}));
    EXPECT_THAT(message().text().toStdString(), testing::HasSubstr("already used by a system-wide keyboard shortcut"));
    EXPECT_TRUE(message().isVisible());
}

TEST_F(RecorderOnX11, EndsTheRecordingWhenAnotherWindowGetsTheFocus) {
    const xcb_window_t window = _user.makeWindow({.overrideRedirect = true});
    _user.map(window);
    _control.startRecording();
    ASSERT_TRUE(_control.isRecording());
    _user.focus(window);
    EXPECT_TRUE(waitUntil([this] { return !_control.isRecording(); }));
    EXPECT_TRUE(waitUntilKeysAreBack());
}

TEST_F(RecorderOnX11, SaysSoWhenAnotherProgramHasTheKeyboard) {
    ASSERT_TRUE(_user.grabKeyboard());
    _control.startRecording();
    EXPECT_FALSE(_control.isRecording());
    EXPECT_THAT(message().text().toStdString(), testing::HasSubstr("Another program is using the keyboard"));
    _user.ungrabKeyboard();
    _control.startRecording();
    EXPECT_TRUE(_control.isRecording());
}

} // namespace

} // namespace tarragon
