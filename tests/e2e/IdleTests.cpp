// What the program does while nothing happens.
#include "EndToEndTest.h"

#include <filesystem>
#include <fstream>

namespace tarragon::e2e {

namespace {

// How often the threads of a process have waited for something so far. Who calls another program waits for the answer.
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

TEST_P(IdleTest, AsksNobodyAnything) {
    TestApplication& application = launch(ApplicationKind::Mousepad);
    ASSERT_TRUE(popUp().openWith(titlesOf(application.expectedMirror())));
    ASSERT_TRUE(popUp().close());
    // The fillings of the cache come to their end.
    const pid_t process = agent().identifier();
    EXPECT_TRUE(waitUntil(
        [&] {
            const long before = waitsOf(process);
            return before > 0 && holdsFor(Duration(3000), [&] { return waitsOf(process) == before; });
        },
        Duration(30000)));
}

INSTANTIATE_TEST_SUITE_P(Under, IdleTest, EveryWindowManager, nameOfWindowManager);

} // namespace tarragon::e2e
