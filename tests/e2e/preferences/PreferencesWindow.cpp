#include "preferences/PreferencesWindow.h"

#include <nlohmann/json.hpp>

#include <algorithm>

#include <X11/keysym.h>

namespace tarragon::e2e {

namespace {

Control controlFrom(const nlohmann::json& record) {
    Control control;
    control.window = record.at("window");
    control.role = record.at("role");
    control.name = record.at("name");
    control.description = record.at("description");
    control.text = record.at("text");
    for (const auto& state : record.at("states"))
        control.states.insert(state);
    control.frame = {record.at("x"), record.at("y"), record.at("width"), record.at("height")};
    return control;
}

bool isSame(const Control& left, const Control& right) {
    return left.role == right.role && left.name == right.name && left.frame == right.frame;
}

} // namespace

PreferencesWindow::PreferencesWindow(Desktop& desktop, pid_t process)
    : _desktop(desktop)
    , _process(process) { }

std::vector<xcb_window_t> PreferencesWindow::windows() {
    return _desktop.display().managedWindowsOf(_process);
}

bool PreferencesWindow::waitUntilOpen(Duration deadline) {
    return waitUntil(
        [this] {
            const std::vector<xcb_window_t> open = windows();
            // A window manager may tell of it as active before it is shown and gets the keys.
            return open.size() == 1 && _desktop.display().activeWindow() == open[0]
                && _desktop.display().focusedWindow() == open[0] && _desktop.display().isViewable(open[0])
                && !controls().empty();
        },
        deadline);
}

bool PreferencesWindow::waitUntilClosed(Duration deadline) {
    return waitUntil([this] { return windows().empty(); }, deadline);
}

bool PreferencesWindow::open() {
    return Agent::run(_desktop, {"preferences"}).status == 0 && waitUntilOpen();
}

bool PreferencesWindow::close() {
    for (int round = 0; round < 5 && isOpen(); ++round) {
        const std::size_t before = windows().size();
        _desktop.display().activate(windows().back());
        waitUntil([this] { return _desktop.display().processOf(_desktop.display().focusedWindow()) == _process; },
            Duration(2000));
        _desktop.input().tap(XK_Escape);
        waitUntil([&] { return windows().size() < before; }, Duration(1500));
    }
    return !isOpen();
}

std::string PreferencesWindow::title() {
    const std::vector<xcb_window_t> open = windows();
    return open.empty() ? std::string() : _desktop.display().titleOf(open.front());
}

std::vector<Control> PreferencesWindow::controls() const {
    const CommandResult result = _desktop.run({E2E_READER, "elements", std::to_string(_process)});
    std::vector<Control> controls;
    if (result.status == 0) {
        for (const auto& record : nlohmann::json::parse(result.output))
            controls.push_back(controlFrom(record));
    }
    return controls;
}

std::optional<Control> PreferencesWindow::find(const std::function<bool(const Control&)>& condition) const {
    const std::vector<Control> shown = controls();
    const auto found = std::find_if(shown.begin(), shown.end(), condition);
    return found == shown.end() ? std::nullopt : std::optional(*found);
}

std::optional<Control> PreferencesWindow::control(const std::string& name, const std::string& role) const {
    return find([&](const Control& control) {
        // Groups and rows have names too, and frames those of their panes.
        return control.name.starts_with(name) && (role.empty() ? control.has("focusable") : control.role == role);
    });
}

bool PreferencesWindow::says(const std::string& words) const {
    return find([&](const Control& control) {
        return control.name.find(words) != std::string::npos || control.text.find(words) != std::string::npos;
    }).has_value();
}

std::optional<Control> PreferencesWindow::waitFor(const std::string& name,
    const std::function<bool(const Control&)>& condition, const std::string& role, Duration deadline) const {
    std::optional<Control> found;
    const bool isThere = waitUntil(
        [&] {
            found = control(name, role);
            return found && condition(*found);
        },
        deadline);
    return isThere ? found : std::nullopt;
}

bool PreferencesWindow::waitUntilGone(const std::string& name, const std::string& role) const {
    return waitUntil([&] { return !control(name, role); });
}

bool PreferencesWindow::waitUntilSays(const std::string& words) const {
    return waitUntil([&] { return says(words); });
}

bool PreferencesWindow::showPane(const std::string& paneTitle) {
    if (title() == paneTitle)
        return true;
    const auto item = control(paneTitle);
    if (!item)
        return false;
    clickInto(*item);
    if (!waitUntil([&] { return title() == paneTitle; }))
        return false;
    // The window grows or shrinks in many small steps.
    return waitUntil([&] {
        const PixelRect frame = _desktop.display().frameOf(windows().front());
        return holdsFor(Duration(200), [&] { return _desktop.display().frameOf(windows().front()) == frame; });
    });
}

bool PreferencesWindow::click(const std::string& name, const std::string& role) {
    const auto found = waitFor(
        name, [](const Control& control) { return control.isEnabled(); }, role);
    if (found)
        click(*found);
    return found.has_value();
}

void PreferencesWindow::click(const Control& control) {
    constexpr int IntoItsSign = 9;
    _desktop.input().moveTo(
        control.frame.x + std::min(IntoItsSign, control.frame.width / 2), control.frame.y + control.frame.height / 2);
    _desktop.input().click();
}

void PreferencesWindow::clickInto(const Control& control, std::uint8_t button) {
    _desktop.input().moveTo(control.frame.x + control.frame.width / 2, control.frame.y + control.frame.height / 2);
    _desktop.input().click(button);
}

void PreferencesWindow::type(const std::string& text) {
    for (const char letter : text) {
        const bool isCapital = letter >= 'A' && letter <= 'Z';
        // Latin letters have their own codes as symbols.
        const auto symbol = static_cast<xcb_keysym_t>(isCapital ? letter - 'A' + 'a' : letter);
        if (letter == '*')
            _desktop.input().tap(XK_8, {XK_Shift_L});
        else if (letter == '?')
            _desktop.input().tap(XK_slash, {XK_Shift_L});
        else
            _desktop.input().tap(
                symbol, isCapital ? std::vector<xcb_keysym_t>{XK_Shift_L} : std::vector<xcb_keysym_t>());
    }
}

std::optional<Control> PreferencesWindow::focused() const {
    // What contains the focus may say so too.
    std::optional<Control> innermost;
    for (const Control& control : controls()) {
        if (control.isFocused())
            innermost = control;
    }
    return innermost;
}

std::vector<Control> PreferencesWindow::tabThrough(std::size_t most) {
    std::vector<Control> visited;
    while (visited.size() < most) {
        const std::optional<Control> now = focused();
        if (!now || (!visited.empty() && isSame(*now, visited.front())))
            break;
        visited.push_back(*now);
        _desktop.input().tap(XK_Tab);
        waitUntil(
            [&] {
                const std::optional<Control> next = focused();
                return next && !isSame(*next, *now);
            },
            Duration(2000));
    }
    return visited;
}

} // namespace tarragon::e2e
