// What the program says of windows while nobody can be asked over the accessibility bus.
#include "EndToEndTest.h"
#include "MirrorProbe.h"
#include "ProcessTree.h"

#include <csignal>
#include <iostream>

#include <unistd.h>

namespace tarragon::e2e {

namespace {

// The launcher of this desktop's accessibility bus, and the bus that it has started.
std::vector<pid_t> accessibilityBusOf(const Desktop& desktop) {
    const std::string home = "HOME=" + desktop.home().string();
    std::vector<pid_t> processes;
    for (pid_t process : descendantsOf(getpid())) {
        std::vector<std::string> names = threadNamesOf(process);
        if (!hasEnvironmentVariable(process, home) || names.empty() || names.front() != "at-spi-bus-laun")
            continue;
        processes = descendantsOf(process);
        processes.push_back(process);
    }
    return processes;
}

void signalAll(const std::vector<pid_t>& processes, int signal) {
    for (pid_t process : processes)
        kill(process, signal);
}

} // namespace

// Not one of the shared desktops: nothing is left of its accessibility.
class AccessibilityBusTest : public testing::TestWithParam<WindowManager> {
protected:
    // Compares what the server says with what the program says, and keeps for the record how long that takes.
    void expectAnswers(MirrorProbe& probe, xcb_window_t window, const std::string& state) {
        PixelRect frame = _desktop.display().outerFrameOf(window);
        nlohmann::json timings = probe.ask("timings");
        for (const auto& [query, milliseconds] : timings.items()) {
            std::cout << state << ": " << query << " " << milliseconds << " ms\n";
            RecordProperty(state + " " + query, std::to_string(milliseconds.get<double>()));
        }
        nlohmann::json answer = probe.ask("window");
        EXPECT_EQ(answer.at("frameCG"), nlohmann::json::array({frame.x, frame.y, frame.width, frame.height})) << state;
        EXPECT_EQ(answer.at("title"), _desktop.display().titleOf(window)) << state;
        EXPECT_EQ(answer.at("role"), "window") << state;
        EXPECT_EQ(answer.at("passing"), false) << state;
        EXPECT_EQ(answer.at("fullScreen"), false) << state;
        EXPECT_EQ(answer.at("minimized"), false) << state;
        EXPECT_EQ(answer.at("hidden"), false) << state;
        EXPECT_FALSE(answer.at("screen").is_null()) << state;
    }

    bool moves(MirrorProbe& probe, xcb_window_t window, int x, int y) {
        probe.ask("position " + std::to_string(x) + " " + std::to_string(y));
        return waitUntil([&] {
            PixelRect frame = _desktop.display().outerFrameOf(window);
            return frame.x == x && frame.y == y;
        });
    }

    Desktop _desktop{GetParam()};
};

TEST_P(AccessibilityBusTest, WindowsAreToldOfWhileItHangsAndWhenItIsDead) {
    TestApplication application(_desktop, ApplicationKind::Mousepad);
    MirrorProbe probe(_desktop);
    EXPECT_FALSE(probe.update().empty());
    expectAnswers(probe, application.window(), "alive");

    std::vector<pid_t> bus = accessibilityBusOf(_desktop);
    ASSERT_EQ(bus.size(), 2U);
    signalAll(bus, SIGSTOP);
    EXPECT_TRUE(moves(probe, application.window(), 61, 71));
    expectAnswers(probe, application.window(), "hung");

    signalAll(bus, SIGKILL);
    EXPECT_TRUE(moves(probe, application.window(), 131, 141));
    expectAnswers(probe, application.window(), "dead");
}

INSTANTIATE_TEST_SUITE_P(Under, AccessibilityBusTest, EveryWindowManager, nameOfWindowManager);

} // namespace tarragon::e2e
