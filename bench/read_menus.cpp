// Reads the menus of a running application, with ours and with the plain walk in turns, and prints both with their
// ratio. Usage: read_menus NAME PROCESS ROUNDS. Runs within the session of that application.

#include "PlainWalk.h"
#include "Statistics.h"

#include "cli/ChosenApplication.h"
#include "cli/MirrorTree.h"
#include "fake/FakePlatform.h"
#include "mirror/AppAccessibility.h"
#include "mirror/FillingThreads.h"
#include "platform/linux/DesktopEntries.h"
#include "platform/linux/LinuxAccessibility.h"
#include "platform/linux/X11Connection.h"
#include "platform/linux/X11Windows.h"

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <memory>
#include <string>

namespace tarragon {
namespace {

// A filling in the background would read the same menus at the same time: fillings run when they are called for.
class CalledFillings : public FillingThreads {
public:
    explicit CalledFillings(const bool& isCalledFor)
        : _isCalledFor(isCalledFor) { }
    void detachNewThread(std::function<void()> work) override {
        if (_isCalledFor)
            work();
    }

private:
    const bool& _isCalledFor;
};

std::size_t countItems(const std::vector<MirrorNode>& nodes) {
    std::size_t count = nodes.size();
    for (const MirrorNode& node : nodes)
        count += countItems(node.items);
    return count;
}

// Prints how long both took, and how many times faster ours was.
void report(const char* application, const char* what, const Samples& ours, const Samples& peer, std::size_t ourItems,
    std::size_t peerItems, const std::string& cost) {
    std::printf("%-11s %-14s ours %8.2f ms (%zu items)   plain walk %8.2f ms (%zu items)   ratio %5.1f   %s\n",
        application, what, ours.median(), ourItems, peer.median(), peerItems, peer.median() / ours.median(),
        cost.c_str());
}

int measure(const std::string& name, int process, int rounds) {
    const auto connection = X11Connection::connect();
    if (!connection) {
        std::cerr << "read_menus: no X server\n";
        return 1;
    }
    X11Windows windows(*connection);
    DesktopEntries desktopEntries;
    LinuxAccessibility linuxAccessibility(windows, desktopEntries);
    const Element application = linuxAccessibility.applicationElement(process);
    ChosenApplicationAccessibility accessibility(linuxAccessibility, application);
    // Everything but the accessibility interface is beside the point here.
    FakePlatform fake;
    fake.workspace.setActiveApplication(RunningApplication{name, process, {}, {}});
    const Platform platform{accessibility, fake.workspace, fake.displays, fake.hotKeys, fake.defaults, fake.runLoop,
        fake.notificationCenter};
    bool fills = false;
    const auto reader = AppAccessibility::initWithFocusedApp(platform, std::make_unique<CalledFillings>(fills));
    if (!reader) {
        std::cerr << "read_menus: " << name << " cannot be reached\n";
        return 1;
    }
    reader->setShowAppleMenu(true);
    reader->setKeyEquivalents(true);
    reader->update();
    if (reader->menu()->numberOfItems() < 2 || walkWholeMenuBar(process) == 0) {
        std::cerr << "read_menus: " << name << " shows no menus\n";
        return 1;
    }

    constexpr int EditMenu = 1;
    Samples ourTree, peerTree, ourMenu, peerMenu;
    std::size_t ourTreeItems = 0, peerTreeItems = 0, ourMenuItems = 0, peerMenuItems = 0;
    for (int round = 0; round < rounds; ++round) {
        ourTree.time([&] {
            const ReadBatch batch(linuxAccessibility, ReadBatchDepth::AllLevels);
            reader->update();
            ourTreeItems = countItems(readMirrorTree(*reader, 0));
        });
        peerTree.time([&] { peerTreeItems = walkWholeMenuBar(process); });
        const auto menu = reader->menu()->itemAtIndex(EditMenu)->submenu();
        ourMenu.time([&] {
            reader->menuNeedsUpdate(*menu);
            ourMenuItems = menu->numberOfItems();
        });
        peerMenu.time([&] { peerMenuItems = walkOneMenu(process, EditMenu); });
    }
    Samples switching, cachedMenu;
    for (int round = 0; round < rounds; ++round) {
        fills = false;
        switching.time([&] { reader->update(); });
        const auto item = reader->menu()->itemAtIndex(EditMenu);
        fills = true;
        reader->cacheMenuForMenuItem(*item);
        if (!reader->cacheExistsForMenu(*item->submenu())) {
            std::cerr << "read_menus: " << name << " is not cached\n";
            return 1;
        }
        cachedMenu.time([&] { reader->menuNeedsUpdate(*item->submenu()); });
    }
    const AtspiStatistics before = linuxAccessibility.statistics();
    reader->menuNeedsUpdate(*reader->menu()->itemAtIndex(EditMenu)->submenu());
    const AtspiStatistics after = linuxAccessibility.statistics();
    const std::string cost = std::to_string(after.messagesSent - before.messagesSent) + " messages in "
        + std::to_string(after.roundTrips - before.roundTrips) + " round trips";
    report(name.c_str(), "one menu", ourMenu, peerMenu, ourMenuItems, peerMenuItems, cost);
    report(name.c_str(), "whole tree", ourTree, peerTree, ourTreeItems, peerTreeItems, "");
    std::printf("%-11s switch to finished root menu %.2f ms, cached menu opens in %.2f ms (medians)\n", name.c_str(),
        switching.median(), cachedMenu.median());
    return 0;
}

} // namespace
} // namespace tarragon

int main(int argumentCount, char** arguments) {
    if (argumentCount != 4) {
        std::cerr << "Usage: read_menus NAME PROCESS ROUNDS\n";
        return 2;
    }
    return tarragon::measure(arguments[1], std::atoi(arguments[2]), std::atoi(arguments[3]));
}
