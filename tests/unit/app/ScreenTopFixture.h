#pragma once

#include "AppFixture.h"

#include "panels/RKMenuBar.h"
#include "panels/TarragonPanel.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace tarragon {

// The first screen has 1440 by 900 points, and the second 1000 by 900 to its right; a third has 800 by 600 right of
// that, their tops in line. The window in front begins at (1500, 200), on the second screen.
class ScreenTopTest : public AppTest {
protected:
    static constexpr double TickInterval = 0.45;

    ScreenTopTest() {
        setScreenCount(2);
        moveWindow({{1500, 200}, {900, 500}});
    }

    static std::vector<Screen> screens(std::size_t count) {
        const std::vector<Screen> all = {{{{0, 0}, {1440, 900}}, {{0, 0}, {1440, 878}}},
            {{{1440, 0}, {1000, 900}}, {{1440, 0}, {1000, 900}}},
            {{{2440, 300}, {800, 600}}, {{2440, 300}, {800, 600}}}};
        return {all.begin(), all.begin() + static_cast<std::ptrdiff_t>(count)};
    }
    void setScreenCount(std::size_t count) { fake.displays.setScreens(screens(count)); }
    // A screen is connected or removed.
    void plug(std::size_t count) {
        setScreenCount(count);
        fake.displays.reconfigure(displayReconfiguration::Added);
    }

    void settle() { fake.runLoop.advance(0.3); }
    void launchAndSettle() {
        launch();
        settle();
    }
    void tick() { controller().performTimerBasedUpdateOnce(); }

    void moveWindow(const Element& window, const Rect& frameCG) {
        fake.accessibility.setAttribute(window, "AXPosition", frameCG.origin);
        fake.accessibility.setAttribute(window, "AXSize", frameCG.size);
    }
    void moveWindow(const Rect& frameCG) { moveWindow(inbox, frameCG); }
    Rect frameOf(const Element& window) {
        const Value position = fake.accessibility.attribute(window, "AXPosition");
        const Value size = fake.accessibility.attribute(window, "AXSize");
        return {*valueAs<Point>(position), *valueAs<Size>(size)};
    }
    Rect windowFrame() { return frameOf(inbox); }
    // The window stays whatever it is told.
    void holdWindow(bool held) {
        fake.accessibility.setSettable(inbox, "AXPosition", !held);
        fake.accessibility.setSettable(inbox, "AXSize", !held);
    }
    // How often windows were told to move or to take another size while this ran.
    template <class Function>
    std::size_t timesTold(Function function) {
        fake.accessibility.clearCalls();
        function();
        return fake.accessibility.callsOf(FakeCall::Operation::SetAttributeValue).size();
    }

    // The windows of the bars there are, in the order of their screens.
    std::vector<FakePanelToolkit::Window*> bars() {
        std::vector<FakePanelToolkit::Window*> found;
        for (FakePanelToolkit::Window& window : panelToolkit.windows()) {
            if (window.handler && window.name == "TarragonSTPanel128")
                found.push_back(&window);
        }
        return found;
    }
    FakePanelToolkit::Window& bar(std::size_t index) { return *bars().at(index); }
    std::vector<Rect> barFrames() {
        std::vector<Rect> frames;
        for (const FakePanelToolkit::Window* window : bars())
            frames.push_back(window->frameNS);
        return frames;
    }
    bool isSeen(std::size_t index) { return bar(index).isSeen(); }
    FakePanelToolkit::Window& panelWindow() {
        FakePanelToolkit::Window* latest = nullptr;
        for (FakePanelToolkit::Window& window : panelToolkit.windows()) {
            if (window.handler && window.name != "TarragonSTPanel128")
                latest = &window;
        }
        return *latest;
    }

    // The user drags the window in front by its title bar, the pointer being there in Cocoa space.
    void drag(const Point& pointerNS, std::string_view role = "AXWindow") {
        const Point pointerCG{pointerNS.x, 900 - pointerNS.y};
        fake.accessibility.addHitArea(
            {{pointerCG.x - 1, pointerCG.y - 1}, {2, 2}}, fake.accessibility.addElement(100, role));
        fake.displays.setMouseLocationNS(pointerNS);
        fake.inputEvents.setLeftButtonHeld(true);
        fake.inputEvents.send({InputEventType::LeftMouseDragged, 0});
    }
    void release() {
        fake.inputEvents.setLeftButtonHeld(false);
        fake.inputEvents.send({InputEventType::LeftMouseUp, 0});
    }

    static constexpr Rect FrameOnSecondScreen{{1440, 878}, {1000, 22}};
    static constexpr Rect FrameOnThirdScreen{{2440, 878}, {800, 22}};
};

} // namespace tarragon
