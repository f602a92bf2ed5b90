#include "PreferencesSoak.h"

#include "Agent.h"
#include "Holdings.h"
#include "TestApplication.h"
#include "Wait.h"

#include <algorithm>
#include <cstdio>
#include <stdexcept>
#include <string>
#include <vector>

namespace tarragon {

namespace {

constexpr e2e::Duration Patience{20000};

void openAndClose(e2e::Desktop& desktop, pid_t process, int round) {
    const auto windows = [&] { return desktop.display().managedWindowsOf(process); };
    const auto isShown = [&] { return windows().size() == 1 && desktop.display().isViewable(windows().front()); };
    if (e2e::Agent::run(desktop, {"preferences"}).status != 0 || !e2e::waitUntil(isShown, Patience))
        throw std::runtime_error("the preferences do not open in round " + std::to_string(round));
    desktop.display().close(windows().front());
    if (!e2e::waitUntil([&] { return windows().empty(); }, Patience))
        throw std::runtime_error("the preferences do not close in round " + std::to_string(round));
}

} // namespace

bool openAndClosePreferences(e2e::Desktop& desktop, int times) {
    // The program takes up its work when an application is in front.
    const e2e::TestApplication application(desktop, e2e::ApplicationKind::Mousepad);
    e2e::Agent agent(desktop, e2e::usualHotKey());
    Holdings first;
    for (int round = 1; round <= times; ++round) {
        openAndClose(desktop, agent.identifier(), round);
        if (round == times / 5)
            first = restingHoldingsOf(desktop.display(), agent.identifier());
        if (round % std::max(1, times / 5) == 0)
            std::printf("%6d times the preferences: %7.3f MiB resident\n", round,
                mebibytes(holdingsOf(desktop.display(), agent.identifier()).memory));
        std::fflush(stdout);
    }
    return times < 5
        || nothingLeaked(
            first, restingHoldingsOf(desktop.display(), agent.identifier()), "after the first preferences");
}

} // namespace tarragon
