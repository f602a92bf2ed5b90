// Switches between real applications, opens their menus and moves their windows for a long time, and tells what the
// agent has kept of it: memory, descriptors, processes, resources of the X server. The agent shows its panel meanwhile
// and follows the windows with it. At last the program itself opens and closes its preferences. Usage: soak [SWITCHES
// [OPENINGS [openbox|xfwm4 [TICKS [PREFERENCES]]]]], 10,000, 2,000, openbox, 5,000 and 500 unless told otherwise. With
// each tick of the panel's timer the window has moved.

#include "Holdings.h"
#include "PreferencesSoak.h"

#include "Agent.h"
#include "Desktop.h"
#include "ProcessTree.h"
#include "TestApplication.h"
#include "Wait.h"

#include <X11/keysym.h>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

using namespace tarragon;
using namespace tarragon::e2e;

namespace {

constexpr int WarmUpRounds = 1000;
constexpr long MostThreads = 12;
constexpr Duration Patience{20000};
constexpr Duration TickInterval{45}; // of an agent in haste

void print(int round, int openings, int emptyMirrors, long heap, const Holdings& holdings) {
    std::printf("%6d switches, %5d openings, %3d empty mirrors: %7.3f MiB resident, %6.3f MiB of heap, "
                "%ld descriptors, %ld threads, %ld children, %ld X resources\n",
        round, openings, emptyMirrors, mebibytes(holdings.memory), mebibytes(heap), holdings.descriptors,
        holdings.threads, holdings.children, holdings.x.resources);
    std::fflush(stdout);
}

class Soak {
public:
    Soak(Desktop& desktop, int switches, int openings, int ticks)
        : _desktop(desktop)
        , _switches(switches)
        , _openings(openings)
        , _ticks(ticks) {
        for (const ApplicationKind kind :
            {ApplicationKind::Mousepad, ApplicationKind::Geany, ApplicationKind::FeatherPad})
            _applications.push_back(std::make_unique<TestApplication>(desktop, kind));
        _agent = std::make_unique<Agent>(desktop, usualHotKey(), SOAK_AGENT);
        _lines.open(_agent->process().outputFile());
        // Somewhere in the middle, where a menu fits to every side.
        desktop.input().moveTo(700, 300);
    }

    // True when nothing has leaked.
    bool run() {
        const int warmUp = std::min(WarmUpRounds, _switches / 2);
        const int report = std::max(1, _switches / 10);
        Holdings first;
        for (int round = 1; round <= _switches; ++round) {
            switchTo(*_applications[static_cast<std::size_t>(round) % _applications.size()]);
            // Spread evenly over the switches, and over the applications and their menus.
            while (static_cast<long>(_opened) * _switches < static_cast<long>(round) * _openings)
                openMenu();
            if (round == warmUp)
                first = restingHoldingsOf(_desktop.display(), _agent->identifier());
            if (round == warmUp || round % report == 0)
                print(round, _opened, _emptyMirrors, _heap, holdingsOf(_desktop.display(), _agent->identifier()));
        }
        moveWindows();
        const Holdings last = restingHoldingsOf(_desktop.display(), _agent->identifier());
        print(_switches, _opened, _emptyMirrors, _heap, last);
        return nothingLeaked(first, last, "after the first rounds");
    }

private:
    void fail(const std::string& what) const {
        throw std::runtime_error(
            what + (_agent->isRunning() ? "" : ", the agent has ended") + ": " + _agent->process().standardError());
    }

    // The newest switch that the agent has handled.
    void readAlong() {
        _lines.clear();
        for (std::string line; std::getline(_lines, line);) {
            // The end of the file may be in the middle of a line.
            _begun += line;
            if (_lines.eof())
                return;
            std::istringstream(_begun) >> _handled >> _items >> _heap;
            _begun.clear();
        }
    }

    // Without the pauses, switches would outrun the threads that fill the menu cache.
    void waitForFillings() {
        const std::filesystem::path threads = "/proc/" + std::to_string(_agent->identifier()) + "/task";
        if (!waitUntil([&] { return entriesOf(threads) <= MostThreads; }, Patience))
            fail("the fillings of the menu cache do not end");
    }

    void switchTo(TestApplication& application) {
        waitForFillings();
        _desktop.display().activate(application.window());
        const bool handled = waitUntil(
            [&] {
                readAlong();
                return _handled == application.identifier();
            },
            Patience);
        if (!handled)
            fail("the switch to " + nameOf(application.kind()) + " is not handled");
        _emptyMirrors += _items == 0 ? 1 : 0;
    }

    void waitForMenus(std::size_t count) {
        if (!waitUntil([&] { return _agent->openMenus().size() == count; }, Patience))
            fail("there are not " + std::to_string(count) + " open menus");
    }

    void openMenu() {
        if (_items == 0)
            return;
        SyntheticInput& input = _desktop.input();
        _agent->pressHotKey();
        waitForMenus(1);
        if (!waitUntil([&] { return _desktop.display().keyboardIsGrabbed(); }, Patience))
            fail("the menu has not got the keyboard");
        // All applications here have at least five menus.
        constexpr int Menus = 5;
        for (int step = 0; step <= _opened % Menus; ++step)
            input.tap(XK_Down);
        input.tap(XK_Right);
        waitForMenus(2);
        input.tap(XK_Escape);
        waitForMenus(1);
        input.tap(XK_Escape);
        waitForMenus(0);
        ++_opened;
    }

    // The panel looks for the window at each tick, and finds it elsewhere.
    void moveWindows() {
        XDisplay& display = _desktop.display();
        const xcb_window_t window = display.activeWindow();
        for (int tick = 1; tick <= _ticks; ++tick) {
            display.moveWindow(window, 40 + tick * 7 % 300, 80 + tick * 5 % 200);
            std::this_thread::sleep_for(TickInterval);
            if (tick % std::max(1, _ticks / 5) == 0)
                std::printf("%6d ticks with a window that moves: %7.3f MiB resident\n", tick,
                    mebibytes(holdingsOf(display, _agent->identifier()).memory));
            std::fflush(stdout);
        }
    }

    Desktop& _desktop;
    int _switches;
    int _openings;
    int _ticks;
    std::vector<std::unique_ptr<TestApplication>> _applications;
    std::unique_ptr<Agent> _agent;
    std::ifstream _lines;
    std::string _begun;
    pid_t _handled = 0;
    long _items = 0;
    long _heap = 0; // bytes
    int _opened = 0;
    int _emptyMirrors = 0;
};

} // namespace

int main(int argumentCount, char** arguments) {
    const int switches = argumentCount > 1 ? std::atoi(arguments[1]) : 10000;
    const int openings = argumentCount > 2 ? std::atoi(arguments[2]) : 2000;
    const std::string windowManager = argumentCount > 3 ? arguments[3] : nameOf(WindowManager::Openbox);
    const int ticks = argumentCount > 4 ? std::atoi(arguments[4]) : 5000;
    const int preferences = argumentCount > 5 ? std::atoi(arguments[5]) : 500;
    const bool isKnown =
        windowManager == nameOf(WindowManager::Openbox) || windowManager == nameOf(WindowManager::Xfwm4);
    if (switches < 2 || openings < 0 || !isKnown || ticks < 0 || preferences < 0 || argumentCount > 6) {
        std::cerr << "usage: soak [SWITCHES [OPENINGS [openbox|xfwm4 [TICKS [PREFERENCES]]]]]\n";
        return 2;
    }
    try {
        adoptOrphans();
        Desktop desktop(windowManager == nameOf(WindowManager::Xfwm4) ? WindowManager::Xfwm4 : WindowManager::Openbox);
        const auto start = Clock::now();
        const bool soundInUse = Soak(desktop, switches, openings, ticks).run();
        const bool sound = openAndClosePreferences(desktop, preferences) && soundInUse;
        std::printf("%ld seconds: %s\n",
            static_cast<long>(std::chrono::duration_cast<std::chrono::seconds>(Clock::now() - start).count()),
            sound ? "nothing leaked" : "SOMETHING LEAKED");
        return sound ? 0 : 1;
    } catch (const std::exception& error) {
        std::cerr << "soak: " << error.what() << "\n";
        return 1;
    }
}
