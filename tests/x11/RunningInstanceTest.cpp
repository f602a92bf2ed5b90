#include "WiredInput.h"

#include "platform/linux/x11/RunningInstance.h"

#include <array>
#include <csignal>
#include <memory>

#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

namespace tarragon {

namespace {

// A process of its own that is the agent until it is killed.
class AgentProcess {
public:
    AgentProcess() {
        std::array<int, 2> ends{};
        if (pipe(ends.data()) != 0)
            return;
        _process = fork();
        if (_process == 0) {
            const auto instance = RunningInstance::connect();
            const char claimed = instance && instance->claimOrReopen() ? 1 : 0;
            [[maybe_unused]] const ssize_t written = write(ends[1], &claimed, 1);
            pause();
            _exit(0);
        }
        close(ends[1]);
        char claimed = 0;
        _isAgent = read(ends[0], &claimed, 1) == 1 && claimed;
        close(ends[0]);
    }
    ~AgentProcess() { killAtOnce(); }
    AgentProcess(const AgentProcess&) = delete;
    AgentProcess& operator=(const AgentProcess&) = delete;

    bool isAgent() const { return _isAgent; }
    void killAtOnce() {
        if (_process <= 0)
            return;
        kill(_process, SIGKILL);
        waitpid(_process, nullptr, 0);
        _process = -1;
    }

private:
    pid_t _process = -1;
    bool _isAgent = false;
};

TEST(RunningInstance, IsTheOnlyOneOfItsDisplay) {
    const auto first = RunningInstance::connect();
    const auto second = RunningInstance::connect();
    ASSERT_TRUE(first && second);
    EXPECT_TRUE(first->claimOrReopen());
    EXPECT_FALSE(second->claimOrReopen());
    EXPECT_FALSE(second->claimOrReopen());
}

TEST(RunningInstance, HearsThatTheProgramIsStartedAgain) {
    QtRunLoop runLoop;
    const auto first = RunningInstance::connect();
    ASSERT_TRUE(first && first->claimOrReopen());
    // One start before the watch begins, as while the program is still starting, and two after it.
    EXPECT_FALSE(RunningInstance::connect()->claimOrReopen());
    int starts = 0;
    first->watchReopen(runLoop, [&] { ++starts; });
    EXPECT_TRUE(waitUntil([&] { return starts == 1; }));
    EXPECT_FALSE(RunningInstance::connect()->claimOrReopen());
    EXPECT_TRUE(waitUntil([&] { return starts == 2; }));
    EXPECT_FALSE(RunningInstance::connect()->claimOrReopen());
    EXPECT_TRUE(waitUntil([&] { return starts == 3; }));
}

TEST(RunningInstance, FreesTheDisplayWhenItGoes) {
    auto first = RunningInstance::connect();
    ASSERT_TRUE(first && first->claimOrReopen());
    first.reset();
    EXPECT_TRUE(waitUntil([] { return RunningInstance::connect()->claimOrReopen(); }));
}

TEST(RunningInstance, FreesTheDisplayWhenItsProcessIsKilled) {
    AgentProcess agent;
    ASSERT_TRUE(agent.isAgent());
    EXPECT_FALSE(RunningInstance::connect()->claimOrReopen());
    agent.killAtOnce();
    EXPECT_TRUE(waitUntil([] { return RunningInstance::connect()->claimOrReopen(); }));
}

TEST(RunningInstance, IsNoneWithoutAServer) {
    EXPECT_EQ(RunningInstance::connect(":no-such-server"), nullptr);
}

} // namespace

} // namespace tarragon
