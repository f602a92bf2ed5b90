// Runs the tests in a child, so that whatever happens to it, somebody is left who ends everything that the tests have
// started and removes what they have written.
#include "ProcessTree.h"
#include "Session.h"
#include "TemporaryFolder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdio>
#include <filesystem>
#include <string>

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

volatile std::sig_atomic_t testProcess = 0;

void endTests(int) {
    if (testProcess > 0)
        kill(static_cast<pid_t>(testProcess), SIGKILL);
}

// Lets the shared desktops go with the tests, as long as everything they need still exists.
class SharedDesktops : public testing::Environment {
public:
    void TearDown() override { tarragon::e2e::Session::discardAll(); }
};

int runTests() {
    tarragon::e2e::adoptOrphans();
    testing::AddGlobalTestEnvironment(new SharedDesktops);
    int result = RUN_ALL_TESTS();
    // What ends by itself once its desktop is gone may take a moment.
    const std::vector<pid_t> left = tarragon::e2e::waitForDescendantsToEnd(std::chrono::seconds(10));
    for (pid_t process : left)
        std::fprintf(stderr, "process still running: %s\n", tarragon::e2e::describeProcess(process).c_str());
    return left.empty() ? result : 1;
}

} // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    std::string folder = (std::filesystem::temp_directory_path() / "tarragon-tests-XXXXXX").string();
    if (!mkdtemp(folder.data()))
        return 1;
    tarragon::e2e::TemporaryFolder::setParent(folder);
    tarragon::e2e::adoptOrphans();

    pid_t parent = getpid();
    pid_t child = fork();
    if (child < 0)
        return 1;
    if (child == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        if (getppid() != parent)
            return 1;
        return runTests();
    }
    testProcess = child;
    std::signal(SIGTERM, endTests);
    std::signal(SIGINT, endTests);
    std::signal(SIGHUP, endTests);
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) { }
    tarragon::e2e::endDescendants({});
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}
