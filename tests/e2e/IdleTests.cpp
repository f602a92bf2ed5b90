// What the program does while nothing happens.
#include "EndToEndTest.h"

#include <csignal>
#include <filesystem>
#include <fstream>

namespace tarragon::e2e {

namespace {

// How often the threads of a process have waited for something so far. Who calls another program waits for the answer,
// and who is called waits for the next call.
long waitsOf(pid_t process) {
    long waits = 0;
    std::error_code error;
    for (const auto& thread :
        std::filesystem::directory_iterator("/proc/" + std::to_string(process) + "/task", error)) {
        std::ifstream status(thread.path() / "status");
        const std::string field = "voluntary_ctxt_switches:";
        for (std::string line; std::getline(status, line);) {
            if (line.starts_with(field))
                waits += std::stol(line.substr(field.size()));
        }
    }
    return waits;
}

} // namespace

class IdleTest : public WindowManagerTest { };

// The window in front is looked at twice a second, which is the window system's business alone.
TEST_P(IdleTest, AsksTheApplicationNothing) {
    TestApplication& application = launch(ApplicationKind::Mousepad);
    ASSERT_TRUE(popUp().openWith(titlesOf(application.expectedMirror())));
    ASSERT_TRUE(popUp().close());
    const pid_t process = application.process().identifier();
    const auto waitsWithin = [process](Duration time) {
        const long before = waitsOf(process);
        holdsFor(time, [] { return true; });
        return waitsOf(process) - before;
    };
    // Whoever is asked twice a second wakes up as often. Applications wake up by themselves too, and those that have
    // just been read take a while to settle.
    constexpr Duration Time(3000);
    constexpr long FewerThanTicks = 3;
    EXPECT_TRUE(waitUntil(
        [&] {
            agent().process().sendSignal(SIGSTOP);
            const long byItself = waitsWithin(Time);
            agent().process().sendSignal(SIGCONT);
            return waitsWithin(Time) <= byItself + FewerThanTicks;
        },
        Duration(30000)));
}

TEST_P(IdleTest, WaitsSeldom) {
    launch(ApplicationKind::Mousepad);
    const pid_t process = agent().identifier();
    constexpr long MostWaits = 60; // in three seconds
    // The fillings of the cache come to their end.
    EXPECT_TRUE(waitUntil(
        [&] {
            const long before = waitsOf(process);
            holdsFor(Duration(3000), [] { return true; });
            return waitsOf(process) - before <= MostWaits;
        },
        Duration(30000)));
}

INSTANTIATE_TEST_SUITE_P(Under, IdleTest, EveryWindowManager, nameOfWindowManager);

} // namespace tarragon::e2e
