// Reads the only menu of a running application, with ours and with the plain walk in turns, and prints what a long menu
// costs both. Usage: read_crowd NAME PROCESS ITEMS ROUNDS. Runs within the session of that application.

#include "MeasuredReader.h"
#include "PlainWalk.h"
#include "Statistics.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <string>

namespace tarragon {
namespace {

constexpr std::chrono::seconds LongestWalk{60};
// After so many milliseconds of walking, the peer has told enough.
constexpr double EnoughWalking = 30000;

double microsecondsForEach(double milliseconds, std::size_t items) {
    return items > 0 ? milliseconds * 1000 / static_cast<double>(items) : 0;
}

int measure(const std::string& name, int process, std::size_t items, int rounds) {
    constexpr int Crowd = 0;
    MeasuredReader reader(name, process);
    if (reader->menu()->numberOfItems() < 1) {
        std::cerr << "read_crowd: " << name << " shows no menu\n";
        return 1;
    }
    // Lets the walk find the menu bar, which is no part of what is measured.
    walkOneMenu(process, Crowd, std::chrono::seconds(0));
    const auto menu = reader.menuAt(Crowd);
    auto open = [&] { reader->menuNeedsUpdate(*menu); };
    // Applications make the accessible objects of a menu when somebody first asks for them.
    Samples first;
    first.time(open);
    const std::size_t firstItems = menu->numberOfItems();

    Samples ours, peer;
    std::size_t ourItems = items;
    std::size_t peerItems = items;
    double walked = 0;
    for (int round = 0; round < rounds; ++round) {
        ours.time(open);
        ourItems = std::min(ourItems, menu->numberOfItems());
        if (walked > EnoughWalking)
            continue;
        Samples walk;
        std::size_t walkedItems = 0;
        walk.time([&] { walkedItems = walkOneMenu(process, Crowd, LongestWalk); });
        peerItems = std::min(peerItems, walkedItems);
        peer.add(walk.median());
        walked += walk.median();
    }
    const double ourShare = microsecondsForEach(ours.median(), ourItems);
    const double peerShare = microsecondsForEach(peer.median(), peerItems);
    std::printf(
        "%-9s %5zu items   ours %8.2f ms, %6.1f us each (first opening %8.2f ms)   plain walk %9.2f ms, %7.1f us "
        "each   ratio %5.1f   %zu and %zu rounds\n",
        name.c_str(), items, ours.median(), ourShare, first.median(), peer.median(), peerShare,
        ourShare > 0 ? peerShare / ourShare : 0, ours.count(), peer.count());
    if (firstItems != items || ourItems != items)
        std::printf(
            "          ours did not get all: %zu items at the first opening, %zu later\n", firstItems, ourItems);
    if (peerItems != items)
        std::printf("          the plain walk was stopped after %lld s and %zu items; the ratio is that of one item\n",
            static_cast<long long>(LongestWalk.count()), peerItems);
    return 0;
}

} // namespace
} // namespace tarragon

int main(int argumentCount, char** arguments) {
    if (argumentCount != 5) {
        std::cerr << "Usage: read_crowd NAME PROCESS ITEMS ROUNDS\n";
        return 2;
    }
    try {
        return tarragon::measure(arguments[1], std::atoi(arguments[2]),
            static_cast<std::size_t>(std::atoi(arguments[3])), std::atoi(arguments[4]));
    } catch (const std::exception& error) {
        std::cerr << "read_crowd: " << error.what() << "\n";
        return 1;
    }
}
