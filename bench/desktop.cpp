// Measures the program on a desktop of its own: reading menus beside a plain walk, long ones among them, the hot key
// with the menu cache as it is and filled, and the idle agent's memory beside a bare program of the same toolkit.

#include "CrowdApplication.h"
#include "HotKeyLatency.h"
#include "Statistics.h"

#include "Agent.h"
#include "Desktop.h"
#include "TestApplication.h"
#include "Wait.h"

#include <cstdio>
#include <exception>
#include <fstream>
#include <iostream>
#include <string>

using namespace tarragon;
using namespace tarragon::e2e;

namespace {

constexpr ApplicationKind applications[] = {
    ApplicationKind::Mousepad, ApplicationKind::Geany, ApplicationKind::FeatherPad};

// The walk that we measure beside takes its time.
constexpr Duration LongestReading(180000);

void measureReading(Desktop& desktop) {
    std::puts("Reading menus, beside a plain synchronous walk of the same attributes (medians, in turns):");
    for (const ApplicationKind kind : applications) {
        TestApplication application(desktop, kind);
        if (!waitUntil([&] { return application.menus().has_value(); }))
            throw std::runtime_error(nameOf(kind) + " shows no menus");
        const auto reading =
            desktop.start({BENCH_READ_MENUS, nameOf(kind), std::to_string(application.identifier()), "15"});
        if (reading->waitForExit(LongestReading) != 0)
            throw std::runtime_error(nameOf(kind) + " cannot be read: " + reading->standardError());
        std::fputs(reading->standardOutput().c_str(), stdout);
        std::fflush(stdout);
    }
}

void measureGrowth(Desktop& desktop) {
    std::puts("\nOne long menu of a real application, beside the plain walk of it (medians, in turns):");
    for (const Toolkit toolkit : {Toolkit::Gtk, Toolkit::Qt}) {
        for (const int items : {100, 1000, 10000}) {
            const CrowdApplication application(desktop, toolkit, items);
            const auto reading = desktop.start({BENCH_READ_CROWD, CrowdApplication::nameOf(toolkit),
                std::to_string(application.identifier()), std::to_string(items), items > 100 ? "3" : "15"});
            if (reading->waitForExit(LongestReading) != 0)
                throw std::runtime_error("a long menu cannot be read: " + reading->standardError());
            std::fputs(reading->standardOutput().c_str(), stdout);
            std::fflush(stdout);
        }
    }
}

// Kilobytes; 0 when the process is gone.
long residentMemoryOf(pid_t process) {
    std::ifstream status("/proc/" + std::to_string(process) + "/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("VmRSS:"))
            return std::stol(line.substr(6));
    }
    return 0;
}

void printOpening(const char* what, const Samples& times) {
    std::printf("%s median %.2f ms, 95th percentile %.2f ms", what, times.median(), times.quantile(0.95));
}

void measureHotKey(Desktop& desktop) {
    // The agent registers its hot key when there is an application to mirror.
    const TestApplication application(desktop, ApplicationKind::Mousepad);
    Agent agent(desktop, usualHotKey());
    const OpeningTimes times = measureHotKeyLatency(desktop, agent, 100);
    std::printf(
        "\nHot key to mapped pop-up, %zu presses right after the start, the menu cache still being filled at %d:",
        times.popUp.count(), times.whileReadingAhead);
    printOpening("", times.popUp);
    std::puts(" (a frame is 16.7 ms)");
}

void printFilledOpenings(Desktop& desktop, const std::string& what) {
    Agent agent(desktop, usualHotKey());
    const OpeningTimes times = measureFilledOpenings(desktop, agent, 100);
    std::printf("  %-42s", what.c_str());
    printOpening("pop-up", times.popUp);
    printOpening("; first submenu", times.submenu);
    std::puts("");
    std::fflush(stdout);
}

void measureFilledHotKey(Desktop& desktop) {
    std::puts(
        "The same with all fillings of the menu cache ended, 100 openings, and from the key to the first submenu:");
    {
        const TestApplication application(desktop, ApplicationKind::Mousepad);
        // Of several menus the cache keeps the one that was filled last, which the first one hardly ever is.
        printFilledOpenings(desktop, "mousepad, File (seldom the cached menu)");
    }
    // An only menu is the one that the cache keeps.
    constexpr int Items = 20;
    for (const Toolkit toolkit : {Toolkit::Gtk, Toolkit::Qt}) {
        const CrowdApplication application(desktop, toolkit, Items);
        printFilledOpenings(
            desktop, CrowdApplication::nameOf(toolkit) + ", " + std::to_string(Items) + " items from the cache");
    }
}

void measureMemory(Desktop& desktop) {
    const TestApplication application(desktop, ApplicationKind::Mousepad);
    Agent agent(desktop, usualHotKey());
    const auto bare = desktop.start({BENCH_BARE_MENU});
    // Idle means that neither grows any more.
    long ours = 0;
    long peer = 0;
    waitUntil(
        [&] {
            const long oursBefore = ours;
            const long peerBefore = peer;
            ours = residentMemoryOf(agent.identifier());
            peer = residentMemoryOf(bare->identifier());
            return !holdsFor(Duration(1000), [&] { return residentMemoryOf(agent.identifier()) == ours; })
                ? false
                : ours == oursBefore && peer == peerBefore && peer > 0;
        },
        Duration(20000));
    std::printf("\nResident memory: idle agent %.1f MiB, bare program with one menu %.1f MiB, ratio %.2f\n",
        static_cast<double>(ours) / 1024, static_cast<double>(peer) / 1024,
        static_cast<double>(ours) / static_cast<double>(peer));
}

} // namespace

int main() {
    try {
        Desktop desktop(WindowManager::Openbox);
        measureReading(desktop);
        measureGrowth(desktop);
        measureHotKey(desktop);
        measureFilledHotKey(desktop);
        measureMemory(desktop);
    } catch (const std::exception& error) {
        std::cerr << "bench: " << error.what() << "\n";
        return 1;
    }
    return 0;
}
