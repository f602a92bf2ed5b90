#include "fake/FakePanelToolkit.h"

#include <algorithm>
#include <stdexcept>

namespace tarragon {

namespace {

class FakePanelWindow : public PanelWindow {
public:
    FakePanelWindow(FakePanelToolkit::Window& window, PanelWindowHandler& handler)
        : _window(window) {
        _window.handler = &handler;
    }
    ~FakePanelWindow() override {
        _window.handler = nullptr;
        _window.visible = false;
    }
    FakePanelWindow(const FakePanelWindow&) = delete;
    FakePanelWindow& operator=(const FakePanelWindow&) = delete;

    void setFrame(const Rect& frameNS) override {
        _window.frameNS = frameNS;
        _window.frames.push_back(frameNS);
        _window.told.emplace_back("frame");
    }
    void orderFront() override {
        _window.visible = true;
        _window.told.emplace_back("front");
    }
    void orderOut() override {
        _window.visible = false;
        _window.told.emplace_back("out");
    }
    void setAlpha(double alpha) override { _window.alpha = alpha; }
    void setLevel(PanelLevel level) override {
        _window.level = level;
        _window.told.emplace_back("level");
    }
    void display(const PanelContent& content) override {
        _window.content = content;
        ++_window.timesDisplayed;
    }

private:
    FakePanelToolkit::Window& _window;
};

} // namespace

const ButtonContent* FakePanelToolkit::Window::button(std::string_view title) const {
    const auto found =
        std::ranges::find_if(content.buttons, [&](const ButtonContent& button) { return button.title == title; });
    return found == content.buttons.end() ? nullptr : &*found;
}

std::vector<std::string> FakePanelToolkit::Window::titles() const {
    std::vector<std::string> titles;
    for (const ButtonContent& button : content.buttons)
        titles.push_back(button.title);
    return titles;
}

Point FakePanelToolkit::Window::middleOf(std::string_view title) const {
    const ButtonContent* found = button(title);
    if (!found)
        throw std::invalid_argument("no button '" + std::string(title) + "'");
    const Rect& frame = found->frame;
    return {frame.origin.x + frame.size.width / 2, frame.origin.y + frame.size.height / 2};
}

Point FakePanelToolkit::Window::inCocoaSpace(const Point& location) const {
    return {frameNS.origin.x + location.x, frameNS.origin.y + location.y};
}

void FakePanelToolkit::Window::press(const Point& location, bool controlKey) {
    if (handler)
        handler->mouseDown({location, inCocoaSpace(location), controlKey});
}

void FakePanelToolkit::Window::rightPress(const Point& location) {
    if (handler)
        handler->rightMouseDown({location, inCocoaSpace(location), false});
}

void FakePanelToolkit::Window::drag(const Point& from, const Point& toNS) {
    if (handler)
        handler->mouseDragged({from, toNS, false});
}

void FakePanelToolkit::Window::release() {
    if (handler)
        handler->mouseUp({});
}

void FakePanelToolkit::Window::movePointer(const std::optional<Point>& location) {
    if (handler)
        handler->pointerMoved(location);
}

void FakePanelToolkit::Window::press(std::string_view title, bool controlKey) {
    press(middleOf(title), controlKey);
}

void FakePanelToolkit::Window::rightPress(std::string_view title) {
    rightPress(middleOf(title));
}

void FakePanelToolkit::Window::movePointer(std::string_view title) {
    movePointer(middleOf(title));
}

std::size_t FakePanelToolkit::livingWindows() const {
    return static_cast<std::size_t>(
        std::ranges::count_if(_windows, [](const Window& window) { return window.handler != nullptr; }));
}

std::unique_ptr<PanelWindow> FakePanelToolkit::makeWindow(PanelWindowHandler& handler, const std::string& title) {
    Window& window = _windows.emplace_back();
    window.name = title;
    return std::make_unique<FakePanelWindow>(window, handler);
}

Size FakePanelToolkit::sizeThatFits(const ButtonContent& content) {
    return {8.0 * static_cast<double>(content.title.size()) + 10, 18};
}

} // namespace tarragon
