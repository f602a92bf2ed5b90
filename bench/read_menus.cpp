// Reads the menus of a running application, with ours and with the plain walk in turns, and prints both with their
// ratio. Usage: read_menus NAME PROCESS ROUNDS. Runs within the session of that application.

#include "MeasuredReader.h"
#include "PlainWalk.h"
#include "Statistics.h"

#include "cli/MirrorTree.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

namespace tarragon {
namespace {

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
    MeasuredReader reader(name, process);
    if (reader->menu()->numberOfItems() < 2 || walkWholeMenuBar(process) == 0) {
        std::cerr << "read_menus: " << name << " shows no menus\n";
        return 1;
    }

    constexpr int EditMenu = 1;
    Samples ourTree, ourFirstTree, peerTree, ourMenu, ourFirstMenu, peerMenu;
    std::size_t ourTreeItems = 0, peerTreeItems = 0, ourMenuItems = 0, peerMenuItems = 0;
    const auto readTree = [&](MeasuredReader& from) {
        const ReadBatch batch(from.accessibility(), ReadBatchDepth::AllLevels);
        from->update();
        ourTreeItems = countItems(readMirrorTree(*from, 0));
    };
    const auto readOurTree = [&] { readTree(reader); };
    for (int round = 0; round < rounds; ++round) {
        ourTree.time(readOurTree);
        peerTree.time([&] { peerTreeItems = walkWholeMenuBar(process); });
        const auto menu = reader.menuAt(EditMenu);
        ourMenu.time([&] {
            reader->menuNeedsUpdate(*menu);
            ourMenuItems = menu->numberOfItems();
        });
        peerMenu.time([&] { peerMenuItems = walkOneMenu(process, EditMenu); });
    }
    // Before anything is cached.
    const auto costOf = [&](auto read) {
        const AtspiStatistics before = reader.accessibility().statistics();
        read();
        const AtspiStatistics after = reader.accessibility().statistics();
        return std::to_string(after.messagesSent - before.messagesSent) + " messages in "
            + std::to_string(after.roundTrips - before.roundTrips) + " round trips";
    };
    const std::string menuCost = costOf([&] { reader->menuNeedsUpdate(*reader.menuAt(EditMenu)); });
    const std::string treeCost = costOf(readOurTree);

    // By readers that have read no menu before. They are few and stay until the end: each connection, and each that has
    // ended, makes an application slower.
    constexpr int fewRounds = 5;
    std::vector<std::unique_ptr<MeasuredReader>> newcomers;
    for (int round = 0; round < fewRounds; ++round) {
        MeasuredReader& forMenu = *newcomers.emplace_back(std::make_unique<MeasuredReader>(name, process));
        const auto menu = forMenu.menuAt(EditMenu);
        peerMenu.time([&] { walkOneMenu(process, EditMenu); });
        ourFirstMenu.time([&] { forMenu->menuNeedsUpdate(*menu); });
        MeasuredReader& forTree = *newcomers.emplace_back(std::make_unique<MeasuredReader>(name, process));
        peerTree.time([&] { walkWholeMenuBar(process); });
        ourFirstTree.time([&] { readTree(forTree); });
    }
    newcomers.clear();

    Samples switching, cachedMenu;
    for (int round = 0; round < rounds; ++round) {
        reader.setFills(false);
        switching.time([&] { reader->update(); });
        const auto item = reader->menu()->itemAtIndex(EditMenu);
        reader.setFills(true);
        reader->cacheMenuForMenuItem(*item);
        if (!reader->cacheExistsForMenu(*item->submenu())) {
            std::cerr << "read_menus: " << name << " is not cached\n";
            return 1;
        }
        cachedMenu.time([&] { reader->menuNeedsUpdate(*item->submenu()); });
    }
    report(name.c_str(), "first menu", ourFirstMenu, peerMenu, ourMenuItems, peerMenuItems, {});
    report(name.c_str(), "same again", ourMenu, peerMenu, ourMenuItems, peerMenuItems, menuCost);
    report(name.c_str(), "first tree", ourFirstTree, peerTree, ourTreeItems, peerTreeItems, {});
    report(name.c_str(), "same again", ourTree, peerTree, ourTreeItems, peerTreeItems, treeCost);
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
    try {
        return tarragon::measure(arguments[1], std::atoi(arguments[2]), std::atoi(arguments[3]));
    } catch (const std::exception& error) {
        std::cerr << "read_menus: " << error.what() << "\n";
        return 1;
    }
}
