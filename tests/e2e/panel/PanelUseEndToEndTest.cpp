#include "PanelUseEndToEndTest.h"

#include <algorithm>
#include <cstdlib>

namespace tarragon::e2e {

void PanelUseEndToEndTest::TearDown() {
    for (const std::string& key : _changedSettings)
        changeBack(key);
    PanelEndToEndTest::TearDown();
}

std::size_t PanelUseEndToEndTest::layouts() {
    const std::string log = agent().process().standardError();
    // Bars tell of their titles in lines that begin otherwise.
    const std::string mark = " panel: titles: \"";
    std::size_t count = 0;
    for (std::size_t at = log.find(mark); at != std::string::npos; at = log.find(mark, at + 1))
        ++count;
    return count;
}

TestApplication& PanelUseEndToEndTest::launchTitled(const std::vector<std::string>& titles, int width, int height) {
    std::vector<std::string> arguments{std::to_string(width), std::to_string(height)};
    arguments.insert(arguments.end(), titles.begin(), titles.end());
    const std::size_t before = layouts();
    TestApplication& application = launch(ApplicationKind::Titled, arguments);
    // Without room for a title all of them are beside a panel, as they are without a window.
    constexpr int RoomForTitles = 100;
    if (width >= RoomForTitles)
        waitForLayoutAfter(before);
    return application;
}

void PanelUseEndToEndTest::waitForLayoutAfter(std::size_t before) {
    // Until then the panel is that of the application before, perhaps with the same titles. That of no window at all
    // has its titles beside it.
    EXPECT_TRUE(waitUntil([&] {
        const std::vector<PanelTitle> titles = panel().titles();
        return layouts() > before && !titles.empty() && titles.front().left >= 0;
    }));
}

bool PanelUseEndToEndTest::showsTitles(std::vector<std::string> titles) {
    titles.emplace_back("Tarragon");
    return panel().waitForTitles(titles) && panel().waitUntilOpaque();
}

bool PanelUseEndToEndTest::place(const TestApplication& application, const PixelRect& frame) {
    const xcb_window_t window = application.window();
    return resizeTo(window, frame.width, frame.height) && moveTo(window, frame.x, frame.y) && standsAbove(window)
        && panel().waitUntilOpaque();
}

bool PanelUseEndToEndTest::pointAtTitle(const std::string& title) {
    const auto frame = panel().frameOfTitle(title);
    if (!frame)
        return false;
    input().moveTo(frame->x + frame->width / 2, frame->y + frame->height / 2);
    return true;
}

bool PanelUseEndToEndTest::openTitle(const std::string& title) {
    // While it fades in, clicks may still be for what lies below.
    if (!panel().waitUntilOpaque() || !pointAtTitle(title))
        return false;
    popUp().startAnew();
    input().click();
    return waitForMenuBelow(title);
}

bool PanelUseEndToEndTest::menuIsBelow(const std::string& title) {
    constexpr int MenuDistance = 4; // below the panel
    const auto frame = panel().frameOfTitle(title);
    const std::vector<XWindow> menus = agent().openMenus();
    return frame && menus.size() == 1 && menus[0].frame.x == frame->x
        && menus[0].frame.y == frame->y + frame->height + MenuDistance;
}

bool PanelUseEndToEndTest::waitForMenuBelow(const std::string& title) {
    // Until the menu has the keyboard, keys would go to the application behind it.
    return waitUntil([&] { return menuIsBelow(title) && display().keyboardIsGrabbed(); });
}

bool PanelUseEndToEndTest::waitForNoMenu() {
    return waitUntil([&] { return agent().openMenus().empty() && !display().keyboardIsGrabbed(); });
}

bool PanelUseEndToEndTest::waitForWindowTitle(const TestApplication& application, const std::string& title) {
    return waitUntil([&] { return display().titleOf(application.window()) == title; });
}

bool PanelUseEndToEndTest::waitForHighlight(const std::string& item) {
    return waitUntil([&] { return session().observer().count() > 0 && session().observer().last().item == item; });
}

void PanelUseEndToEndTest::glide(int fromX, int fromY, int toX, int toY) {
    const int steps = std::max({std::abs(toX - fromX), std::abs(toY - fromY), 1}) / 5 + 1;
    for (int step = 1; step <= steps; ++step)
        input().moveTo(fromX + (toX - fromX) * step / steps, fromY + (toY - fromY) * step / steps);
}

} // namespace tarragon::e2e
