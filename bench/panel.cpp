// Measures the floating panel on a desktop of its own: what a tick costs, how soon it is there after a switch of
// applications, and how soon the menu of a title opens, beside a plain menu bar with the same menus.

#include "MenuWatcher.h"
#include "PanelPresses.h"
#include "ProcessorTime.h"
#include "Statistics.h"

#include "Agent.h"
#include "Desktop.h"
#include "MenuRecord.h"
#include "Panel.h"
#include "TestApplication.h"
#include "Wait.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

using namespace tarragon;
using namespace tarragon::e2e;

namespace {

constexpr double TickInterval = 450; // milliseconds

void waitForPanel(const Panel& panel) {
    if (!panel.waitUntilSeen(Duration(20000)) || !panel.waitUntilOpaque())
        throw std::runtime_error("the panel does not come");
}

void waitForPanel(const Panel& panel, const std::vector<std::string>& titles) {
    if (!panel.waitForTitles(titles, Duration(20000)))
        throw std::runtime_error("the panel does not show the titles");
    waitForPanel(panel);
}

// Processor time of the agent, milliseconds of it for each interval of the timer.
double costOfTick(Agent& agent, int seconds) {
    if (!waitUntil([&] { return holdsFor(Duration(3000), [&] { return !agent.isReadingAhead(); }); }, Duration(60000)))
        throw std::runtime_error("the menu cache is not filled");
    const double before = processorTimeOf(agent.identifier());
    const auto start = Clock::now();
    std::this_thread::sleep_for(std::chrono::seconds(seconds));
    const double passed = std::chrono::duration<double, std::milli>(Clock::now() - start).count();
    return (processorTimeOf(agent.identifier()) - before) / (passed / TickInterval);
}

void measureIdle(Desktop& desktop, ApplicationKind kind, int seconds) {
    const TestApplication application(desktop, kind);
    double withPanel = 0;
    double without = 0;
    {
        Agent agent(desktop, usualHotKey(), E2E_TARRAGON, Panel::TitlesInLog);
        Panel panel(desktop.display(), agent);
        waitForPanel(panel, application.expectedTitles());
        withPanel = costOfTick(agent, seconds);
    }
    {
        Agent agent(desktop, usualHotKey());
        agent.preferences().set("EnableButton", false);
        without = costOfTick(agent, seconds);
        agent.preferences().set("EnableButton", true);
    }
    std::printf("Idle over %s for %d s: %.3f ms of processor time a tick, %.3f ms without a panel\n",
        nameOf(kind).c_str(), seconds, withPanel, without);
    std::fflush(stdout);
}

// On six monitors, of which five have a bar.
void measureIdleBars(Desktop& desktop, int seconds) {
    std::vector<PixelRect> monitors;
    for (int index = 0; index < 6; ++index)
        monitors.push_back({index % 3 * 500, index / 3 * 600, 500, 600});
    desktop.display().setMonitors(monitors, 0);
    double withBars = 0;
    double without = 0;
    {
        const TestApplication application(desktop, ApplicationKind::Mousepad);
        Agent agent(desktop, usualHotKey(), E2E_TARRAGON, Panel::TitlesInLog);
        Panel panel(desktop.display(), agent);
        waitForPanel(panel, application.expectedTitles());
        withBars = costOfTick(agent, seconds);
        agent.preferences().set("EnableScreenTop", false);
        without = costOfTick(agent, seconds);
        agent.preferences().set("EnableScreenTop", true);
    }
    desktop.display().setOneMonitor();
    std::printf("Idle over mousepad on six monitors for %d s: %.3f ms of processor time a tick with five bars, "
                "%.3f ms without\n",
        seconds, withBars, without);
    std::fflush(stdout);
}

// With an agent that makes no pause for late menu bars.
void measureSwitches(Desktop& desktop, int switches) {
    TestApplication first(desktop, ApplicationKind::Mousepad);
    TestApplication second(desktop, ApplicationKind::Geany);
    Agent agent(desktop, usualHotKey(), BENCH_HURRIED_AGENT);
    Panel panel(desktop.display(), agent);
    waitForPanel(panel);
    Samples times;
    for (int round = 0; round < switches; ++round) {
        const TestApplication& next = round % 2 ? second : first;
        {
            MenuWatcher watcher(desktop.display());
            times.add(watcher.timeToWindow([&] { desktop.display().activate(next.window()); }));
        }
        waitForPanel(panel);
        if (!waitUntil([&] { return !agent.isReadingAhead(); }, Duration(60000)))
            throw std::runtime_error("the menu cache is not filled");
    }
    std::printf("Switch of applications to the mapped panel, pauses and fading aside, %zu switches: "
                "median %.1f ms, 95th percentile %.1f ms\n",
        times.count(), times.median(), times.quantile(0.95));
    std::fflush(stdout);
}

std::vector<TitlePlace> titlesOfPanel(const Panel& panel, const std::vector<std::string>& titles) {
    std::vector<TitlePlace> places;
    for (const std::string& title : titles) {
        if (const auto frame = panel.frameOfTitle(title))
            places.push_back({title, frame->x + frame->width / 2, frame->y + frame->height / 2});
    }
    return places;
}

std::vector<TitlePlace> titlesOfPeer(ChildProcess& peer) {
    if (!waitUntil([&] { return peer.standardOutput().ends_with("ready\n"); }))
        throw std::runtime_error("the plain menu bar does not come");
    std::istringstream lines(peer.standardOutput());
    std::vector<TitlePlace> places;
    for (TitlePlace place; lines >> place.x >> place.y && std::getline(lines >> std::ws, place.title);)
        places.push_back(place);
    return places;
}

// For the peer: its titles, and the items below each.
std::string listOf(const e2e::Menu& menus) {
    std::string list;
    for (const MenuRecord& menu : menus) {
        list += menu.title + '\n';
        for (const std::string& item : titlesOf(menu.items))
            list += '\t' + item + '\n';
    }
    return list;
}

void printPresses(const char* what, const Samples& times) {
    std::printf("  %-18s median %.2f ms, 95th percentile %.2f ms\n", what, times.median(), times.quantile(0.95));
}

void measurePresses(Desktop& desktop, ApplicationKind kind, int presses) {
    Samples ours;
    e2e::Menu menus;
    {
        const TestApplication application(desktop, kind);
        menus = application.expectedMirror();
        Agent agent(desktop, usualHotKey(), E2E_TARRAGON, Panel::TitlesInLog);
        Panel panel(desktop.display(), agent);
        waitForPanel(panel, titlesOf(menus));
        if (!waitUntil(
                [&] { return holdsFor(Duration(1500), [&] { return !agent.isReadingAhead(); }); }, Duration(60000)))
            throw std::runtime_error("the menu cache is not filled");
        ours = measurePresses(desktop, agent.identifier(), titlesOfPanel(panel, titlesOf(menus)), presses);
    }
    const auto peer = desktop.start({BENCH_BARE_MENU_BAR, desktop.writeFile("menus", listOf(menus)).string()});
    const Samples theirs = measurePresses(desktop, peer->identifier(), titlesOfPeer(*peer), presses);
    std::printf("Press on a title to the mapped menu, %d presses, the menus of %s (a frame is 16.7 ms):\n", presses,
        nameOf(kind).c_str());
    printPresses("panel", ours);
    printPresses("plain menu bar", theirs);
    std::printf("  ratio of medians %.2f, of 95th percentiles %.2f\n", ours.median() / theirs.median(),
        ours.quantile(0.95) / theirs.quantile(0.95));
    std::fflush(stdout);
}

} // namespace

// Usage: bench_panel [idle|bars|switches|presses], all of them unless told.
int main(int argumentCount, char** arguments) {
    const std::string only = argumentCount > 1 ? arguments[1] : "";
    const auto isWanted = [&](const char* part) { return only.empty() || only == part; };
    try {
        Desktop desktop(WindowManager::Openbox);
        if (isWanted("idle")) {
            for (const ApplicationKind kind : {ApplicationKind::Mousepad, ApplicationKind::Geany})
                measureIdle(desktop, kind, 30);
        }
        if (isWanted("bars"))
            measureIdleBars(desktop, 30);
        if (isWanted("switches"))
            measureSwitches(desktop, 100);
        if (isWanted("presses")) {
            for (const ApplicationKind kind : {ApplicationKind::Mousepad, ApplicationKind::FeatherPad})
                measurePresses(desktop, kind, 100);
        }
    } catch (const std::exception& error) {
        std::cerr << "bench: " << error.what() << "\n";
        return 1;
    }
    return 0;
}
