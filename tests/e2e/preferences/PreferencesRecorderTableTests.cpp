// Combinations of all kinds, each recorded in the preferences and then pressed, under several keyboard layouts.
#include "PopUp.h"
#include "preferences/PreferencesEndToEndTest.h"

#include <X11/keysym.h>

#include <array>

namespace tarragon::e2e {

namespace {

struct Modifiers {
    std::vector<xcb_keysym_t> symbols;
    std::uint16_t mask;
};

const std::array<Modifiers, 4> Held{{{{XK_Control_L, XK_Alt_L}, XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1},
    {{XK_Control_L, XK_Shift_L}, XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_SHIFT},
    {{XK_Alt_L, XK_Shift_L}, XCB_MOD_MASK_1 | XCB_MOD_MASK_SHIFT},
    {{XK_Control_L, XK_Super_L}, XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_4}}};

// By what is printed on them under the first layout; the places are the same under all.
constexpr std::array<xcb_keysym_t, 15> Keys{XK_q, XK_w, XK_a, XK_z, XK_m, XK_k, XK_1, XK_5, XK_period, XK_comma,
    XK_slash, XK_End, XK_Home, XK_Page_Down, XK_Insert};

} // namespace

class PreferencesRecorderTableTest : public PreferencesEndToEndTest, public testing::WithParamInterface<const char*> {
protected:
    PreferencesRecorderTableTest()
        : PreferencesEndToEndTest(WindowManager::Openbox) { }
    void TearDown() override {
        EXPECT_TRUE(switchLayout("us"));
        PreferencesEndToEndTest::TearDown();
    }
    bool switchLayout(const std::string& layout) { return desktop().start({"setxkbmap", layout})->waitForExit() == 0; }
};

TEST_P(PreferencesRecorderTableTest, EveryCombinationThatIsRecordedOpensTheMenus) {
    ASSERT_TRUE(switchLayout(GetParam()));
    launch(ApplicationKind::Mousepad);
    ASSERT_TRUE(preferences().open());
    ASSERT_TRUE(preferences().showPane("Hot Key"));
    const auto recorder = preferences().waitFor("Combination of keys that opens the menus: ");
    ASSERT_TRUE(recorder);
    for (const Modifiers& modifiers : Held) {
        for (const xcb_keysym_t key : Keys) {
            SCOPED_TRACE(testing::Message() << "key " << key << ", modifiers " << modifiers.mask);
            preferences().clickInto(*recorder);
            ASSERT_TRUE(waitUntil([&] { return display().keyboardIsGrabbed(); }));
            input().tap(key, modifiers.symbols);
            ASSERT_TRUE(waitUntil([&] {
                return !display().keyboardIsGrabbed() && display().keyIsGrabbed(input().keyCodeOf(key), modifiers.mask);
            }));
            input().tap(key, modifiers.symbols);
            ASSERT_TRUE(waitUntil([&] { return popUp().isOpen() && display().keyboardIsGrabbed(); }));
            input().tap(XK_Escape);
            ASSERT_TRUE(waitUntil([&] { return agent().openMenus().empty() && !display().keyboardIsGrabbed(); }));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(OnKeyboards, PreferencesRecorderTableTest, testing::Values("us", "de", "fr"),
    [](const auto& layout) { return std::string(layout.param); });

} // namespace tarragon::e2e
