// Monitors that come and go while bars are shown.
#include "ProcessTree.h"
#include "bars/BarEndToEndTest.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <memory>

#include <xcb/res.h>

namespace tarragon::e2e {

namespace {

// What all connections of a process keep on the server.
long serverResourcesOf(XDisplay& display, pid_t process) {
    xcb_connection_t* connection = display.connection();
    const std::unique_ptr<xcb_res_query_clients_reply_t, decltype(&std::free)> clients(
        xcb_res_query_clients_reply(connection, xcb_res_query_clients(connection), nullptr), &std::free);
    long count = 0;
    for (int index = 0; clients && index < xcb_res_query_clients_clients_length(clients.get()); ++index) {
        const std::uint32_t base = xcb_res_query_clients_clients(clients.get())[index].resource_base;
        if (display.processOf(base) != process)
            continue;
        const std::unique_ptr<xcb_res_query_client_resources_reply_t, decltype(&std::free)> resources(
            xcb_res_query_client_resources_reply(connection, xcb_res_query_client_resources(connection, base), nullptr),
            &std::free);
        for (int type = 0; resources && type < xcb_res_query_client_resources_types_length(resources.get()); ++type)
            count += xcb_res_query_client_resources_types(resources.get())[type].count;
    }
    return count;
}

long openFilesOf(pid_t process) {
    std::error_code error;
    const std::filesystem::directory_iterator files("/proc/" + std::to_string(process) + "/fd", error);
    return std::distance(begin(files), end(files));
}

} // namespace

class BarHotPlugTest : public WindowManagerBarTest { };

TEST_P(BarHotPlugTest, NothingIsLeftOfBarsWhoseMonitorsHaveGone) {
    launch(ApplicationKind::Titled, {"500", "300", "Basil", "Chervil", "Dill"});
    const pid_t process = agent().identifier();
    long resources = 0;
    long files = 0;
    long memory = 0;
    constexpr int Rounds = 20;
    constexpr int RoundsToWarmUp = 3;
    for (int round = 0; round < Rounds + RoundsToWarmUp; ++round) {
        if (round == RoundsToWarmUp) {
            // The toolkit lets go of a window a moment later.
            resources = serverResourcesOf(display(), process);
            waitUntil([&] { return std::exchange(resources, serverResourcesOf(display(), process)) == resources; });
            files = openFilesOf(process);
            memory = residentSizeOf(process);
        }
        arrange(besideEachOther(static_cast<std::size_t>(round % 2)));
        ASSERT_TRUE(hasBarsOn(besideEachOther(static_cast<std::size_t>(round % 2)).others())) << round;
        display().setOneMonitor();
        ASSERT_TRUE(waitUntil([&] { return bars().seen().empty(); })) << round;
    }
    EXPECT_TRUE(waitUntil([&] { return serverResourcesOf(display(), process) <= resources; }))
        << serverResourcesOf(display(), process) << " resources of " << resources;
    EXPECT_TRUE(waitUntil([&] { return openFilesOf(process) <= files; }))
        << openFilesOf(process) << " files of " << files;
    constexpr long MemoryOfNoLeak = 4L << 20;
    EXPECT_LE(residentSizeOf(process), memory + MemoryOfNoLeak);
}

TEST_P(BarHotPlugTest, BarsAreRightAfterManyQuickChanges) {
    launch(ApplicationKind::Titled, {"500", "300", "Basil", "Chervil", "Dill"});
    for (int round = 0; round < 20; ++round) {
        arrange(round % 2 == 0 ? besideEachOther() : aboveEachOther(1));
        if (round % 5 == 0)
            display().setOneMonitor();
    }
    const Arrangement last{{{0, 0, 600, 1200}, {600, 100, 500, 1100}, {1100, 0, 500, 1200}}, 2};
    arrange(last);
    EXPECT_TRUE(hasBarsOn(last.others()));
    EXPECT_TRUE(showsTitlesOnBar(1, {"Basil", "Chervil", "Dill"}));
    EXPECT_TRUE(showsTitlesOnBar(2, {"Basil", "Chervil", "Dill"}));
}

INSTANTIATE_TEST_SUITE_P(Under, BarHotPlugTest, EveryWindowManager, nameOfWindowManager);

} // namespace tarragon::e2e
