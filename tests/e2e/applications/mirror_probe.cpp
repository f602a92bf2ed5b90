// The program's own reader on the real desktop, without the agent around it: answers what it is asked, one line of JSON
// for every line that it reads from a pipe.
//
//   mirror_probe PIPE
//
//   update              rebuilds the root menu for the application in front: its titles
//   fill on|off         whether the rebuilds that follow fill the cache, as they normally do
//   cache TITLE         fills one menu of the root and waits until that is done
//   forget              drops what is cached of the application in front
//   open TITLE          opens one menu of the root, and each below it: {"cached", "items"}
//   window              every query about the focused window
//   timings             how long these take in milliseconds, where the window system alone answers
//   point X Y           the screens at a point in Cocoa space
//   convert X Y W H     a rectangle of Cocoa space in screen space
//   position X Y        moves the focused window
//   size W H            resizes it
#include "cli/MirrorPrinter.h"
#include "mirror/AppAccessibility.h"
#include "mirror/ProxyMenuItem.h"
#include "mirror/ShortcutText.h"
#include "mirror/SystemFillingThreads.h"
#include "mirror/ZDScreenTools.h"
#include "platform/linux/LinuxPlatform.h"

#include <nlohmann/json.hpp>

#include <QCoreApplication>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <fstream>
#include <iostream>
#include <mutex>
#include <sstream>
#include <string>
#include <vector>

namespace tarragon {
namespace {

using Json = nlohmann::json;

// The usual threads, which can be waited for or left out.
class CountedFillingThreads : public FillingThreads {
public:
    struct State {
        std::mutex mutex;
        std::condition_variable changed;
        int running = 0;
        bool on = true;
    };

    explicit CountedFillingThreads(State& state)
        : _state(state) { }

    void detachNewThread(std::function<void()> work) override {
        const std::lock_guard lock(_state.mutex);
        if (!_state.on)
            return;
        ++_state.running;
        _threads.detachNewThread([&state = _state, work = std::move(work)] {
            work();
            const std::lock_guard guard(state.mutex);
            --state.running;
            state.changed.notify_all();
        });
    }

private:
    State& _state;
    SystemFillingThreads _threads;
};

Json asJson(const Point& point) {
    return Json::array({point.x, point.y});
}

Json asJson(const Rect& rect) {
    return Json::array({rect.origin.x, rect.origin.y, rect.size.width, rect.size.height});
}

Json asJson(const std::optional<Screen>& screen) {
    return screen ? Json{{"frame", asJson(screen->frameNS)}, {"visible", asJson(screen->visibleFrameNS)}} : Json();
}

Json asJson(const std::optional<std::string>& text) {
    return text ? Json(*text) : Json();
}

class Probe {
public:
    explicit Probe(const Platform& platform)
        : _platform(platform) { }

    Json answer(const std::string& command, std::istringstream& arguments) {
        if (!_reader) {
            _reader =
                AppAccessibility::initWithFocusedApp(_platform, std::make_unique<CountedFillingThreads>(_fillings));
            if (!_reader)
                return {{"error", "no application is in front"}};
            _reader->setShowAppleMenu(true);
            _reader->setShowApplicationMenu(true);
            _reader->setKeyEquivalents(true);
        }
        const std::string rest = restOf(arguments);
        std::istringstream numbers(rest);
        double a = 0, b = 0, c = 0, d = 0;
        numbers >> a >> b >> c >> d;
        if (command == "update")
            return update();
        if (command == "fill")
            return setFilling(rest == "on");
        if (command == "cache")
            return cache(rest);
        if (command == "forget")
            _reader->clearCacheForAppKey(_reader->focusedAppName().value_or(""));
        else if (command == "open")
            return open(rest);
        else if (command == "window")
            return window();
        else if (command == "timings")
            return timings();
        else if (command == "point")
            return point({a, b});
        else if (command == "convert")
            return asJson(_reader->convertNSToCGRectCoords({{a, b}, {c, d}}));
        else if (command == "position")
            _reader->setPositionOfFocusedWindow(static_cast<float>(a), static_cast<float>(b));
        else if (command == "size")
            _reader->setSizeOfFocusedWindow(static_cast<float>(a), static_cast<float>(b));
        else
            return {{"error", "unknown command " + command}};
        return true;
    }

private:
    static std::string restOf(std::istringstream& line) {
        std::string rest;
        std::getline(line >> std::ws, rest);
        return rest;
    }

    void waitForFillings() {
        std::unique_lock lock(_fillings.mutex);
        _fillings.changed.wait(lock, [this] { return _fillings.running == 0; });
    }

    Json setFilling(bool on) {
        const std::lock_guard lock(_fillings.mutex);
        _fillings.on = on;
        return true;
    }

    Json update() {
        _reader->update();
        waitForFillings();
        Json titles = Json::array();
        for (const auto& item : _reader->menu()->items())
            titles.push_back(item->title());
        return titles;
    }

    Json cache(const std::string& title) {
        const auto item = _reader->menu()->itemWithTitle(title);
        if (!item || !_reader->menuShouldBeCached(*item))
            return false;
        setFilling(true);
        _reader->cacheMenuForMenuItem(*item);
        waitForFillings();
        return true;
    }

    std::vector<MirrorNode> nodesOf(Menu& menu) {
        _reader->menuNeedsUpdate(menu);
        std::vector<MirrorNode> nodes;
        for (const auto& item : menu.items()) {
            const auto proxy = std::dynamic_pointer_cast<ProxyMenuItem>(item->target());
            MirrorNode node{item, proxy ? proxy->itemKey() : "", shortcutAsShown(*item), {}};
            if (item->submenu())
                node.items = nodesOf(*item->submenu());
            nodes.push_back(std::move(node));
        }
        return nodes;
    }

    Json open(const std::string& title) {
        const auto item = _reader->menu()->itemWithTitle(title);
        if (!item || !item->submenu())
            return {{"error", "no menu " + title}};
        const bool cached = _reader->cacheExistsForMenu(*item->submenu());
        return {{"cached", cached}, {"items", Json::parse(mirrorAsJson(nodesOf(*item->submenu())))}};
    }

    Json window() {
        Json screens = Json::array();
        for (const Screen& screen : _platform.displays.screens())
            screens.push_back(asJson(std::optional(screen)));
        const Size primary = ZDScreenTools::primaryScreenSize(_platform.displays);
        return {
            {"application", asJson(_reader->focusedAppName())},
            {"role", asJson(_reader->focusedWindowRole())},
            {"title", asJson(_reader->focusedWindowTitle())},
            {"frameNS", asJson(_reader->focusedWindowFrameNS())},
            {"frameCG", asJson(_reader->focusedWindowFrameCG())},
            {"positionNS", asJson(_reader->focusedWindowPosition())},
            {"positionCG", asJson(_reader->focusedWindowPositionCG())},
            {"titlePosition", asJson(_reader->focusedWindowTitlePosition())},
            {"titleFrame", asJson(_reader->focusedWindowTitleFrame())},
            {"desktopLike", _reader->isFinderDesktopWindowActive()},
            {"passing", _reader->isAuxiliaryWindowActive()},
            {"fullScreen", _reader->isFocusedWindowFullScreen()},
            {"minimized", _reader->isFocusedWindowMinimized()},
            {"hidden", _reader->isFocusedWindowHidden()},
            {"screen", asJson(_reader->focusedWindowScreen())},
            {"screenOrder", _reader->focusedWindowScreenArrayOrder()},
            {"screenRectNS", asJson(_reader->focusedWindowScreenRectNS())},
            {"screenRectCG", asJson(_reader->focusedWindowScreenRectCG())},
            {"screens", screens},
            {"mainDisplay", asJson(_platform.displays.mainDisplayBoundsCG())},
            {"primarySize", Json::array({primary.width, primary.height})},
            {"pointerScreen", asJson(ZDScreenTools::screenWithMousePointer(_platform.displays))},
        };
    }

    // The median in milliseconds: a machine that is busy with other things spoils single times.
    template <typename Query>
    static double timeOf(Query query) {
        constexpr std::size_t times = 51;
        std::vector<double> taken;
        while (taken.size() < times) {
            const auto start = std::chrono::steady_clock::now();
            static_cast<void>(query());
            taken.push_back(
                std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count());
        }
        std::ranges::nth_element(taken, taken.begin() + times / 2);
        return taken[times / 2];
    }

    // Of the queries that the window system alone answers.
    Json timings() {
        return {
            {"role", timeOf([this] { return _reader->focusedWindowRole(); })},
            {"title", timeOf([this] { return _reader->focusedWindowTitle(); })},
            {"frameNS", timeOf([this] { return _reader->focusedWindowFrameNS(); })},
            {"frameCG", timeOf([this] { return _reader->focusedWindowFrameCG(); })},
            {"position", timeOf([this] { return _reader->focusedWindowPosition(); })},
            {"passing", timeOf([this] { return _reader->isAuxiliaryWindowActive(); })},
            {"fullScreen", timeOf([this] { return _reader->isFocusedWindowFullScreen(); })},
            {"minimized", timeOf([this] { return _reader->isFocusedWindowMinimized(); })},
            {"hidden", timeOf([this] { return _reader->isFocusedWindowHidden(); })},
            {"screen", timeOf([this] { return _reader->focusedWindowScreen(); })},
            {"screenRectNS", timeOf([this] { return _reader->focusedWindowScreenRectNS(); })},
        };
    }

    Json point(const Point& pointNS) {
        return {{"screen", asJson(ZDScreenTools::screenWithPoint(_platform.displays, pointNS))},
            {"order", ZDScreenTools::numberOrderOfScreenWithPoint(_platform.displays, pointNS)}};
    }

    CountedFillingThreads::State _fillings;
    Platform _platform;
    std::shared_ptr<AppAccessibility> _reader;
};

} // namespace
} // namespace tarragon

int main(int argumentCount, char** arguments) {
    if (argumentCount != 2) {
        std::cerr << "usage: mirror_probe PIPE\n";
        return 2;
    }
    const auto created = tarragon::createLinuxPlatform({arguments[0], "Tarragon", "probe"});
    if (const auto* error = std::get_if<tarragon::DesktopError>(&created)) {
        std::cerr << "mirror_probe: " << error->message << "\n";
        return 2;
    }
    tarragon::Probe probe(std::get<std::unique_ptr<tarragon::DesktopSession>>(created)->platform());
    std::ifstream commands(arguments[1]);
    for (std::string line; std::getline(commands, line);) {
        // What the server has said of its monitors meanwhile.
        QCoreApplication::processEvents();
        std::istringstream words(line);
        std::string command;
        words >> command;
        std::cout << probe.answer(command, words).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace)
                  << std::endl;
    }
    return 0;
}
