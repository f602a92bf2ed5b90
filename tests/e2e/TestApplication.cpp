#include "TestApplication.h"

#include <csignal>
#include <filesystem>
#include <stdexcept>

namespace tarragon::e2e {

const std::string TestApplication::Text = "rosemary\nthyme\n";

std::string nameOf(ApplicationKind kind) {
    switch (kind) {
    case ApplicationKind::Mousepad:
        return "mousepad";
    case ApplicationKind::Geany:
        return "geany";
    case ApplicationKind::FeatherPad:
        return "featherpad";
    case ApplicationKind::TwoWindows:
        return "two_windows";
    case ApplicationKind::HostileGtk:
        return "hostile_gtk";
    case ApplicationKind::HostileQt:
        return "hostile_qt";
    case ApplicationKind::Titled:
        return "titled";
    case ApplicationKind::Pressed:
        return "pressed";
    case ApplicationKind::Terminal:
        return "xterm";
    }
    return {};
}

TestApplication::TestApplication(Desktop& desktop, ApplicationKind kind, std::vector<std::string> arguments)
    : _desktop(desktop)
    , _kind(kind)
    , _arguments(std::move(arguments))
    , _process(desktop.start(command())) {
    XDisplay& display = desktop.display();
    const auto start = Clock::now();
    auto inFront = [&] {
        if (display.processOf(display.activeWindow()) == identifier())
            return true;
        // A window manager that is still starting leaves the focus where it is; people then click the window.
        auto windows = display.managedWindowsOf(identifier());
        if (!windows.empty() && Clock::now() - start > Duration(3000))
            display.activate(windows.front());
        return false;
    };
    if (!waitUntil(inFront, Duration(30000)))
        throw std::runtime_error(nameOf(kind) + " does not come to the front: " + _process->standardError());
    _window = display.activeWindow();
    if (kind == ApplicationKind::Terminal) {
        // Active even before it is shown, and forgotten by its window manager when it is moved then.
        waitUntil([&] { return display.isViewable(_window); });
        return;
    }
    // An application that has just started still fills its menus in: it is ready when two looks give the same. The
    // hostile ones never do.
    bool restless = kind == ApplicationKind::HostileGtk || kind == ApplicationKind::HostileQt;
    std::optional<Menu> before;
    bool settled = waitUntil(
        [&] {
            std::optional<Menu> now = restless ? _desktop.reader().level(identifier(), {}) : menus();
            bool same = now && !now->empty() && (restless || (before && countItems(*before) == countItems(*now)));
            before = std::move(now);
            return same;
        },
        Duration(30000));
    if (!settled)
        throw std::runtime_error(nameOf(kind) + " shows no menu bar: " + _process->standardError());
    // A window of its own that was there only for a moment may have been in front before.
    _window = display.activeWindow();
}

TestApplication::~TestApplication() {
    // Without asking for unsaved texts.
    _process->sendSignal(SIGKILL);
    _process->waitForExit();
    waitUntil([this] { return _desktop.display().managedWindowsOf(identifier()).empty(); });
}

std::vector<std::string> TestApplication::command() const {
    // A file of its own for each, lest one application finds that another has changed it.
    static int count = 0;
    auto document = [this] { return _desktop.writeFile("herbs-" + std::to_string(++count) + ".txt", Text).string(); };
    switch (_kind) {
    case ApplicationKind::Mousepad:
        return {"mousepad", "--disable-server", document()};
    case ApplicationKind::Geany:
        return {"geany", "--new-instance", "--no-session", "--no-terminal", document()};
    case ApplicationKind::FeatherPad:
        return {"featherpad", "--standalone", document()};
    case ApplicationKind::TwoWindows:
        return {E2E_TWO_WINDOWS};
    case ApplicationKind::HostileGtk:
        return {E2E_HOSTILE_GTK};
    case ApplicationKind::HostileQt:
        return {E2E_HOSTILE_QT};
    case ApplicationKind::Titled: {
        // Without a desktop entry a program has the name of its file.
        const bool isNamed = _arguments.size() > 2 && _arguments[0] == "--name";
        std::vector<std::string> command{E2E_TITLED_WINDOW};
        if (isNamed) {
            command[0] = _desktop.programFolder() / _arguments[1];
            std::filesystem::create_directories(_desktop.programFolder());
            std::error_code existsAlready;
            std::filesystem::create_symlink(E2E_TITLED_WINDOW, command[0], existsAlready);
        }
        command.insert(command.end(), _arguments.begin() + (isNamed ? 2 : 0), _arguments.end());
        return command;
    }
    case ApplicationKind::Pressed:
        return {E2E_PRESSED_WINDOW};
    case ApplicationKind::Terminal:
        return {"xterm", "-e", "sleep", "1000"};
    }
    return {};
}

bool TestApplication::bringToFront() {
    return bringToFront(_window);
}

bool TestApplication::bringToFront(xcb_window_t window) {
    _desktop.display().activate(window);
    return waitUntil([&] { return _desktop.display().activeWindow() == window; });
}

std::optional<Menu> TestApplication::menus() const {
    return _desktop.reader().menus(identifier());
}

Menu TestApplication::expectedMirror() const {
    return mirrorOf(menus().value_or(Menu{}));
}

std::vector<std::string> TestApplication::expectedTitles() const {
    return titlesOf(mirrorOf(_desktop.reader().level(identifier(), {}).value_or(Menu{})));
}

Menu TestApplication::expectedMenu(const std::string& title) const {
    MenuRecord menu;
    menu.title = title;
    menu.items = _desktop.reader().level(identifier(), {title}).value_or(Menu{});
    return mirrorOf({menu}).at(0).items;
}

std::string TestApplication::text() const {
    return _desktop.reader().text(identifier()).value_or("(no text)");
}

std::vector<std::string> TestApplication::switchPath() const {
    switch (_kind) {
    case ApplicationKind::Mousepad:
        return {"View", "Statusbar"};
    case ApplicationKind::Geany:
        return {"View", "Show Toolbar"};
    case ApplicationKind::FeatherPad:
        return {"Options", "Line Numbers"};
    default:
        return {};
    }
}

std::vector<std::string> TestApplication::editPath() const {
    switch (_kind) {
    case ApplicationKind::Mousepad:
        return {"Edit", "Duplicate Line / Selection"};
    case ApplicationKind::Geany:
        return {"Edit", "Commands", "Duplicate Line or Selection"};
    case ApplicationKind::FeatherPad:
        return {"Edit", "Paste Date and Time"};
    default:
        return {};
    }
}

bool TestApplication::switchState() const {
    // The items of Mousepad do not report their marks; its status bar is there to see.
    if (_kind == ApplicationKind::Mousepad)
        return _desktop.reader().shownElements(identifier(), "status bar") > 0;
    std::vector<std::string> path = switchPath();
    std::optional<Menu> now = _desktop.reader().level(identifier(), {path[0]});
    const MenuRecord* item = now ? itemAtPath(*now, {path[1]}) : nullptr;
    return item && item->checked;
}

} // namespace tarragon::e2e
