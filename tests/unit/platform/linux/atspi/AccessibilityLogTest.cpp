#include "LinuxAccessibilityFixture.h"

#include "bus/SilentBus.h"
#include "platform/Log.h"
#include "platform/linux/atspi/LinuxElements.h"

#include <chrono>
#include <mutex>
#include <thread>

// What the log says when something does not come about.
namespace tarragon {
namespace {

class LineKeeper final : public LogSink {
public:
    LineKeeper() { setLogSink(this); }
    ~LineKeeper() override { setLogSink(nullptr); }
    LineKeeper(const LineKeeper&) = delete;
    LineKeeper& operator=(const LineKeeper&) = delete;

    bool isOn(LogCategory category) const override { return category == LogCategory::Accessibility; }
    void write(LogCategory /*category*/, const std::string& line) override {
        const std::lock_guard lock(_mutex);
        _lines.push_back(line);
    }
    void writeError(LogCategory /*category*/, const std::string& line) override { ADD_FAILURE() << line; }

    std::size_t count(const std::string& text) {
        const std::lock_guard lock(_mutex);
        return static_cast<std::size_t>(
            std::ranges::count_if(_lines, [&](const std::string& line) { return line.find(text) != line.npos; }));
    }
    std::string all() {
        const std::lock_guard lock(_mutex);
        std::string text;
        for (const std::string& line : _lines)
            text += line + "\n";
        return text;
    }

private:
    std::mutex _mutex;
    std::vector<std::string> _lines;
};

class AccessibilityLogTest : public LinuxAccessibilityTest {
protected:
    LineKeeper log;
};

TEST_F(AccessibilityLogTest, SaysNothingWhereAllGoesWell) {
    addWindow(1, "One");
    addMenuBar(1);
    ASSERT_EQ(menuBarPath(), barPath(1));
    accessibility.copyAttributeValue(childOf(childOf(childOf(menuBar())), 1), attribute::Position);
    accessibility.copyAttributeValue(focusedWindow(), attribute::Children);
    EXPECT_EQ(log.all(), "");
}

TEST_F(AccessibilityLogTest, TellsOfProcessesThatAreNotOnTheBus) {
    windows.add(1, "One", 1);
    EXPECT_EQ(menuBarPath(), "none");
    EXPECT_EQ(log.count("process 1 has no application on the accessibility bus"), 1U) << log.all();
    EXPECT_EQ(log.count("no menu bar to show for window 1 \"One\" of process 1"), 1U) << log.all();
}

TEST_F(AccessibilityLogTest, TellsOfWindowsWithoutAFrame) {
    windows.add(1, "One", ownProcess);
    EXPECT_EQ(menuBarPath(), "none");
    EXPECT_EQ(log.count("no frame for window 1 \"One\""), 1U) << log.all();
}

TEST_F(AccessibilityLogTest, TellsOfFramesWithoutAMenuBar) {
    addWindow(1, "One");
    EXPECT_EQ(menuBarPath(), "none");
    EXPECT_EQ(log.count("no menu bar in frame " + framePath(1)), 1U) << log.all();
}

TEST_F(AccessibilityLogTest, TellsOfRepliesThatAreMalformed) {
    addWindow(1, "One");
    addMenuBar(1);
    const Element file = childOf(menuBar());
    ASSERT_TRUE(file);
    application.change([&] { application.answersNonsense = true; });
    EXPECT_TRUE(isNil(accessibility.copyAttributeValue(file, attribute::Title)));
    EXPECT_EQ(log.count(barPath(1) + "/file to Name is malformed: its signature is \"a{sv}(ys)\""), 1U) << log.all();
    EXPECT_EQ(log.count(barPath(1) + "/file to GetRole is malformed"), 1U) << log.all();
}

TEST_F(AccessibilityLogTest, FollowsAnApplicationThroughItsBackOff) {
    addWindow(1, "One");
    addMenuBar(1);
    const Element bar = menuBar();
    ASSERT_TRUE(bar);
    application.change([&] { application.isSilent = true; });
    EXPECT_TRUE(isNil(accessibility.copyAttributeValue(bar, attribute::Children)));
    EXPECT_EQ(log.count(application.busName() + " has timed out at "), 1U) << log.all();
    EXPECT_TRUE(isNil(accessibility.copyAttributeValue(bar, attribute::Children)));
    EXPECT_GE(log.count(application.busName() + " is in back-off"), 1U) << log.all();
    EXPECT_EQ(log.count("answers again"), 0U) << log.all();
    application.change([&] {
        application.isSilent = false;
        application.answersLate = true;
    });
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (isNil(accessibility.copyAttributeValue(bar, attribute::Children))
        && std::chrono::steady_clock::now() < deadline)
        std::this_thread::yield();
    EXPECT_EQ(log.count(application.busName() + " answers again"), 1U) << log.all();
}

TEST_F(AccessibilityLogTest, TellsWhyTheBusCannotBeReached) {
    const SilentBus silent;
    for (const auto& [address, reason] : {std::pair{silent.address(), "does not let us in"},
             std::pair{std::string("unix:path=/nowhere/at/all"), "does not accept connections"}}) {
        ::setenv("AT_SPI_BUS_ADDRESS", address.c_str(), 1);
        LinuxAccessibility other(windows, directory);
        EXPECT_FALSE(other.isTrusted());
        EXPECT_EQ(log.count("the accessibility bus cannot be reached: " + address + " " + reason), 1U) << log.all();
    }
    ::unsetenv("AT_SPI_BUS_ADDRESS");
    ::setenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere/at/all", 1);
    LinuxAccessibility other(windows, directory);
    EXPECT_FALSE(other.isTrusted());
    EXPECT_EQ(log.count("the session bus does not tell its address"), 1U) << log.all();
    ::unsetenv("DBUS_SESSION_BUS_ADDRESS");
}

} // namespace
} // namespace tarragon
