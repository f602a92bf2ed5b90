// The desktop and the applications by themselves, without the program under test: when these fail, nothing else counts.
#include "EndToEndTest.h"
#include "ProcessTree.h"

#include <algorithm>
#include <csignal>

#include <unistd.h>

namespace tarragon::e2e {

class DesktopAlone : public testing::TestWithParam<WindowManager> { };

TEST_P(DesktopAlone, LeavesNothingBehind) {
    const std::vector<pid_t> before = descendantsOf(getpid());
    std::filesystem::path home;
    {
        Desktop desktop(GetParam());
        home = desktop.home();
        TestApplication mousepad(desktop, ApplicationKind::Mousepad);
        // Not even one that has left its parents and does not listen.
        desktop.run({"sh", "-c", "setsid sh -c \"trap '' TERM HUP; sleep 1000\" &"});
        EXPECT_GT(descendantsOf(getpid()).size(), before.size() + 5);
        mousepad.process().sendSignal(SIGSTOP);
    }
    EXPECT_FALSE(std::filesystem::exists(home));
    for (pid_t process : descendantsOf(getpid()))
        EXPECT_NE(std::ranges::find(before, process), before.end()) << describeProcess(process);
}

// A process that ends gives back its memory first, for a large one a while before it has ended.
TEST(ProcessTree, WaitsUntilAProcessHasEndedThatTakesAWhileToGiveItsMemoryBack) {
    const TemporaryFolder folder;
    for (int round = 0; round < 5; ++round) {
        const Environment environment{{"PATH", "/usr/bin:/bin"}, {"ROUND", std::to_string(round)}};
        const ChildProcess large({"dd", "if=/dev/zero", "of=/dev/null", "bs=300M"}, environment, folder.path());
        ASSERT_TRUE(waitUntil([&] { return residentSizeOf(large.identifier()) > 250'000'000; }));
        endDescendants("ROUND=" + std::to_string(round));
        EXPECT_EQ(std::ranges::count(descendantsOf(getpid()), large.identifier()), 0);
    }
}

TEST_P(DesktopAlone, LetsApplicationsBeReadAndUsed) {
    Desktop desktop(GetParam());
    for (ApplicationKind kind : {ApplicationKind::Mousepad, ApplicationKind::Geany, ApplicationKind::FeatherPad}) {
        TestApplication application(desktop, kind);
        Menu mirror = application.expectedMirror();
        EXPECT_GT(countItems(mirror), 80U) << nameOf(kind);
        EXPECT_EQ(mirror.at(0).title, "File");
        EXPECT_EQ(application.text(), TestApplication::Text) << nameOf(kind);
        bool before = application.switchState();
        ASSERT_TRUE(desktop.reader().press(application.identifier(), application.switchPath())) << nameOf(kind);
        EXPECT_TRUE(waitUntil([&] { return application.switchState() != before; })) << nameOf(kind);
    }
}

TEST_P(DesktopAlone, LetsHostileMenusBeRead) {
    Desktop desktop(GetParam());
    for (ApplicationKind kind : {ApplicationKind::HostileGtk, ApplicationKind::HostileQt}) {
        TestApplication application(desktop, kind);
        Menu mirror = application.expectedMirror();
        const MenuRecord* crowd = itemAtPath(mirror, {"Crowd"});
        ASSERT_NE(crowd, nullptr);
        EXPECT_EQ(crowd->items.size(), kind == ApplicationKind::HostileGtk ? 5000U : 500U);
        EXPECT_NE(itemAtPath(mirror, {"Depth", "Level 1", "Level 2", "Level 3", "Level 4", "Level 5"}), nullptr);
        EXPECT_NE(itemAtPath(mirror, {"Strange", "Plain"}), nullptr);
    }
}

INSTANTIATE_TEST_SUITE_P(Under, DesktopAlone, EveryWindowManager, nameOfWindowManager);

} // namespace tarragon::e2e
