#pragma once

#include "PanelEndToEndTest.h"

#include <cstdint>
#include <set>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace tarragon::e2e {

// A test that uses the panel with the hands of a user.
class PanelUseEndToEndTest : public PanelEndToEndTest {
protected:
    using PanelEndToEndTest::PanelEndToEndTest;
    void TearDown() override;

    // A setting of any type. It has its built-in value again after the test.
    template <typename Value>
    void change(const std::string& key, const Value& value) {
        _changedSettings.insert(key);
        agent().preferences().set(key, value);
    }
    void changeBack(const std::string& key) { agent().preferences().remove(key); }
    // How often the program has laid its titles out so far.
    std::size_t layouts();

    // Waits until titles were laid out for a window since there had been that many layouts.
    void waitForLayoutAfter(std::size_t before);

    // Starts a window of its own with a menu for each title.
    TestApplication& launchTitled(const std::vector<std::string>& titles, int width = 900, int height = 300);
    // True when the panel shows these titles and the program's own one, all or as many as find room.
    bool showsTitles(std::vector<std::string> titles);
    bool showsTitlesOf(const TestApplication& application) { return showsTitles(application.expectedTitles()); }
    // Moves a window by the corner of its outer frame and gives it a size of its own; true when it and the panel above
    // it have arrived.
    bool place(const TestApplication& application, const PixelRect& frame);

    // Moves the pointer to the middle of a title of the panel. False when there is none.
    bool pointAtTitle(const std::string& title);
    // Clicks a title and waits for its menu.
    bool openTitle(const std::string& title);
    // True when the only menu that is open stands below this title.
    bool menuIsBelow(const std::string& title);
    bool waitForMenuBelow(const std::string& title);
    bool waitForNoMenu();
    bool waitForWindowTitle(const TestApplication& application, const std::string& title);
    bool waitForHighlight(const std::string& item);
    // Moves the pointer in small steps, as a hand does.
    void glide(int fromX, int fromY, int toX, int toY);

private:
    std::set<std::string> _changedSettings;
};

class WindowManagerPanelUseTest : public PanelUseEndToEndTest, public testing::WithParamInterface<WindowManager> {
protected:
    WindowManagerPanelUseTest()
        : PanelUseEndToEndTest(GetParam()) { }
};

class ApplicationPanelUseTest : public PanelUseEndToEndTest,
                                public testing::WithParamInterface<std::tuple<WindowManager, ApplicationKind>> {
protected:
    ApplicationPanelUseTest()
        : PanelUseEndToEndTest(std::get<0>(GetParam())) { }
    TestApplication& launch() {
        const std::size_t before = layouts();
        TestApplication& application = DesktopTest::launch(std::get<1>(GetParam()));
        waitForLayoutAfter(before);
        return application;
    }
};

} // namespace tarragon::e2e
