#include "LinuxAccessibilityFixture.h"

#include "bus/SilentBus.h"
#include "platform/linux/atspi/LinuxElements.h"

#include <chrono>
#include <condition_variable>
#include <future>
#include <mutex>
#include <thread>

// What the window system alone can answer, asked while the accessibility bus answers nothing.
namespace tarragon {
namespace {

// Asks all of it; true when the answers are those of a window with this title.
bool areAnswered(LinuxAccessibility& accessibility, std::uint32_t window, const std::string& title) {
    const auto value = [&](const Element& element, std::string_view name) {
        return accessibility.copyAttributeValue(element, name);
    };
    bool allAnswered = true;
    const auto require = [&](bool answered, std::string_view name) {
        EXPECT_TRUE(answered) << name;
        allAnswered = allAnswered && answered;
    };
    const Element system = elementOfSystem();
    const Element application = elementIn(value(system, attribute::FocusedApplication));
    require(static_cast<bool>(application), attribute::FocusedApplication);
    for (const std::string_view name : {attribute::Role, attribute::RoleDescription, attribute::Title,
             attribute::FocusedWindow, attribute::Windows, attribute::Hidden})
        require(!isNil(value(application, name)), name);
    const Element focused = elementIn(value(application, attribute::FocusedWindow));
    require(AtspiElement::of(focused)->window == window, attribute::FocusedWindow);
    for (const std::string_view name : {attribute::Role, attribute::RoleDescription, attribute::Title,
             attribute::Position, attribute::Size, attribute::FullScreen, std::string_view("AXMinimized"),
             std::string_view("AXSubrole"), attribute::Focused, attribute::Parent})
        require(!isNil(value(focused, name)), name);
    require(stringIn(value(focused, attribute::Title)) == title, attribute::Title);
    require(isNil(value(focused, attribute::TitleUIElement)), attribute::TitleUIElement);
    for (const Element& element : {system, application, focused}) {
        require(accessibility.attributeNames(element).has_value(), "names");
        require(accessibility.hasAttribute(element, attribute::Role), "has an attribute");
        require(accessibility.actionNames(element).has_value(), "actions");
        require(accessibility.actionDescription(element, action::Press) == std::nullopt, "description");
        static_cast<void>(accessibility.processIdentifier(element));
    }
    require(accessibility.attributeValueCount(application, attribute::Windows).has_value(), "windows");
    require(accessibility.isAttributeSettable(focused, attribute::Position), "settable");
    require(accessibility.setAttributeValue(focused, attribute::Position, Point{10, 20}), "set");
    require(accessibility.setAttributeValue(focused, attribute::Size, Size{300, 200}), "set");
    require(accessibility.actionDescription(focused, action::Raise).has_value(), "description");
    require(accessibility.performAction(focused, action::Raise), "raise");
    require(static_cast<bool>(accessibility.applicationElement(1)), "application of a process");
    return allAnswered;
}

bool areAnsweredInBatch(LinuxAccessibility& accessibility, std::uint32_t window, const std::string& title) {
    const ReadBatch batch(accessibility);
    const Element elements[] = {elementOfSystem(), elementOfApplication(1, window)};
    const std::string_view names[] = {attribute::Title};
    accessibility.readAhead(elements, names);
    return areAnswered(accessibility, window, title);
}

class SilentBusTest : public ::testing::Test {
protected:
    SilentBusTest() {
        ::setenv("AT_SPI_BUS_ADDRESS", bus.address().c_str(), 1);
        windows.add(1, "One", 1);
    }
    ~SilentBusTest() override { ::unsetenv("AT_SPI_BUS_ADDRESS"); }

    SilentBus bus;
    FakeWindowSource windows;
    FakeApplicationDirectory directory;
    LinuxAccessibility accessibility{windows, directory};
};

TEST_F(SilentBusTest, IsNotEvenConnectedToForWhatTheWindowSystemTells) {
    EXPECT_TRUE(areAnswered(accessibility, 1, "One"));
    EXPECT_TRUE(areAnsweredInBatch(accessibility, 1, "One"));
    std::thread([&] {
        EXPECT_TRUE(areAnswered(accessibility, 1, "One"));
        EXPECT_TRUE(areAnsweredInBatch(accessibility, 1, "One"));
    }).join();
    windows.remove(1);
    EXPECT_EQ(stringIn(accessibility.copyAttributeValue(elementOfApplication(1, 0), attribute::Title)), "process 1");
    EXPECT_EQ(bus.connections(), 0U);
    EXPECT_EQ(accessibility.statistics().messagesSent, 0U);
}

TEST_F(SilentBusTest, IsConnectedToForTheElementOfTheSystemWhichIsNilThen) {
    EXPECT_FALSE(accessibility.systemWideElement());
    EXPECT_EQ(bus.connections(), 1U);
}

// A bus with an application that can be kept from answering for as long as a test likes.
class HeldBusTest : public LinuxAccessibilityTest {
protected:
    HeldBusTest() {
        addWindow(1, "One");
        addMenuBar(1);
    }

    // Runs work in a thread while another thread reads a menu bar over the client of that thread, and holds it.
    template <typename Work>
    void whileClientIsHeld(Work work) {
        std::mutex mutex;
        std::condition_variable changed;
        bool isHeld = false;
        bool mayGoOn = false;
        std::thread::id holderThread;
        // A window is compared with the active one in the midst of the search for its frame.
        windows.beforeActiveWindow = [&] {
            std::unique_lock lock(mutex);
            if (std::this_thread::get_id() != holderThread)
                return;
            isHeld = true;
            changed.notify_all();
            changed.wait(lock, [&] { return mayGoOn; });
        };
        const Element window = elementOfWindow(windows.at(1));
        std::thread holder([&] {
            {
                const std::lock_guard lock(mutex);
                holderThread = std::this_thread::get_id();
            }
            accessibility.copyAttributeValue(window, attribute::Children);
        });
        {
            std::unique_lock lock(mutex);
            changed.wait(lock, [&] { return isHeld; });
        }
        auto done = std::async(std::launch::async, work);
        // Whoever waits for the client waits until this ends.
        EXPECT_EQ(done.wait_for(std::chrono::seconds(20)), std::future_status::ready);
        {
            const std::lock_guard lock(mutex);
            mayGoOn = true;
        }
        changed.notify_all();
        holder.join();
        done.wait();
    }
};

TEST_F(HeldBusTest, DoesNotKeepOthersFromWhatTheWindowSystemTells) {
    constexpr std::int64_t otherProcess = 1;
    windows.add(2, "Two", otherProcess);
    whileClientIsHeld([&] {
        EXPECT_TRUE(areAnswered(accessibility, 2, "Two"));
        EXPECT_TRUE(areAnsweredInBatch(accessibility, 2, "Two"));
    });
}

} // namespace
} // namespace tarragon
