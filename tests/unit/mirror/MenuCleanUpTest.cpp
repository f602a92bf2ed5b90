#include "mirror/MenuCleanUp.h"

#include "MenuTitles.h"
#include "fake/FakePlatform.h"
#include "mirror/ProxyMenuItem.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarragon {
namespace {

using testing::ElementsAre;
using Titles = std::vector<std::string>;

std::shared_ptr<Menu> menuOf(const Titles& titles, const std::string& title = "File") {
    auto menu = std::make_shared<Menu>(title);
    for (const std::string& each : titles)
        menu->addItem(std::make_shared<MenuItem>(each, "", ""));
    return menu;
}

Titles withoutRepeats(const Titles& titles, const std::string& title = "File") {
    const auto menu = menuOf(titles, title);
    removeDuplicateMenuItems(*menu);
    return titlesOf(*menu);
}

TEST(RemovingRepeats, ShrinksARunToItsFirstItem) {
    EXPECT_THAT(withoutRepeats({"X", "A", "A", "A", "B"}), ElementsAre("X", "A", "B"));
    const auto menu = menuOf({"X", "A", "A"});
    const auto first = menu->itemAtIndex(1);
    removeDuplicateMenuItems(*menu);
    EXPECT_EQ(menu->itemAtIndex(1), first);
}

TEST(RemovingRepeats, ComparesNeighboursOnly) {
    EXPECT_THAT(withoutRepeats({"A", "B", "A"}), ElementsAre("A", "B", "A"));
    EXPECT_THAT(withoutRepeats({"X", "A", "", "", "A", "a"}), ElementsAre("X", "A", "", "A", "a"));
}

TEST(RemovingRepeats, EndsAfterARemovalAtTheSecondPlace) {
    EXPECT_THAT(withoutRepeats({"", "", "B", "B", "C", "C"}), ElementsAre("", "B", "B", "C", "C"));
    EXPECT_THAT(withoutRepeats({"A", "A", "B", "A"}), ElementsAre("A", "B", "A"));
    EXPECT_THAT(withoutRepeats({"A", "A", "A"}), ElementsAre("A", "A"));
    EXPECT_THAT(withoutRepeats({"A", "A"}), ElementsAre("A"));
}

TEST(RemovingRepeats, LeavesAMenuTitledWindowAlone) {
    EXPECT_THAT(withoutRepeats({"X", "A", "A"}, "Window"), ElementsAre("X", "A", "A"));
}

TEST(RemovingRepeats, KnowsTheWindowMenuByItsVeryTitle) {
    for (const char* title : {"Windows", "window", "My Window"})
        EXPECT_THAT(withoutRepeats({"X", "A", "A"}, title), ElementsAre("X", "A")) << title;
}

TEST(RemovingRepeats, LeavesShortMenusAlone) {
    EXPECT_EQ(withoutRepeats({}), Titles());
    EXPECT_THAT(withoutRepeats({"A"}), ElementsAre("A"));
}

// The pass as it is told: positions from 1, a step back after each removal.
Titles stepByStep(Titles titles) {
    std::size_t position = 1;
    while (!titles.empty() && position != titles.size()) {
        if (position == 0)
            return titles;
        if (titles[position] == titles[position - 1])
            titles.erase(titles.begin() + static_cast<std::ptrdiff_t>(position--));
        else
            ++position;
    }
    return titles;
}

TEST(RemovingRepeats, EqualsTheStepByStepPassForEveryMenuOfUpToSevenItems) {
    for (int length = 0; length <= 7; ++length) {
        int combinations = 1;
        for (int place = 0; place < length; ++place)
            combinations *= 3;
        for (int combination = 0; combination < combinations; ++combination) {
            Titles titles;
            for (int place = 0, rest = combination; place < length; ++place, rest /= 3)
                titles.push_back(std::string(1, static_cast<char>('A' + rest % 3)));
            ASSERT_EQ(withoutRepeats(titles), stepByStep(titles));
        }
    }
}

TEST(RemovingBrokenItems, DropsExactlyThoseNamedByTheirRole) {
    const auto menu = menuOf({"AXMenuBarItem", "File", "AXMenuBarItem", "AXMenuBarItem ", "AXMenuItem"});
    removeBrokenMenuItems(*menu);
    EXPECT_THAT(titlesOf(*menu), ElementsAre("File", "AXMenuBarItem ", "AXMenuItem"));
}

class RemovingServices : public testing::Test {
protected:
    Element add(const std::string& title, const std::optional<Size>& size) {
        const Element element = fake.accessibility.addElement(1, "AXMenuItem");
        if (size)
            fake.accessibility.setAttribute(element, "AXSize", *size);
        auto item = std::make_shared<MenuItem>(title, "", "");
        auto proxy = std::make_shared<ProxyMenuItem>(fake.accessibility);
        proxy->setItemAXUIElementRef(element);
        item->setTarget(proxy);
        menu.addItem(item);
        return element;
    }
    Titles remainingWithUnlistedSizes() {
        for (const auto& item : menu.items())
            fake.accessibility.unlistAttribute(
                std::dynamic_pointer_cast<ProxyMenuItem>(item->target())->itemAXUIElementRef(), "AXSize");
        return remaining();
    }
    Titles remaining() {
        removeDisabledServicesMenuItems(fake.accessibility, menu);
        return titlesOf(menu);
    }

    FakePlatform fake;
    Menu menu{"Services"};
};

TEST_F(RemovingServices, ReadsASizeThatIsNotListed) {
    add("Sized", Size{1, 1});
    EXPECT_THAT(remainingWithUnlistedSizes(), ElementsAre("Sized"));
}

TEST_F(RemovingServices, AsksEachItemForItsSize) {
    for (const char* title : {"A", "B", "C"})
        add(title, Size{1, 1});
    fake.accessibility.clearCalls();
    EXPECT_THAT(remaining(), ElementsAre("A", "B", "C"));
    EXPECT_EQ(fake.accessibility.callsOf(FakeCall::Operation::CopyAttributeValue).size(), 3U);
}

TEST_F(RemovingServices, DropsItemsUntilOneHasASize) {
    add("A", std::nullopt);
    add("B", std::nullopt);
    add("C", Size{1, 1});
    add("D", std::nullopt);
    EXPECT_THAT(remaining(), ElementsAre("C", "D"));
}

TEST_F(RemovingServices, DropsEverythingWhenNothingHasASize) {
    add("A", std::nullopt);
    menu.addItem(MenuItem::separatorItem());
    EXPECT_EQ(remaining(), Titles());
}

TEST_F(RemovingServices, KeepsASeparatorBehindAnItemThatHasASize) {
    add("A", Size{1, 1});
    menu.addItem(MenuItem::separatorItem());
    EXPECT_THAT(remaining(), ElementsAre("A", ""));
}

TEST_F(RemovingServices, TakesAFailedReadForNoSize) {
    fake.accessibility.setFault(add("A", Size{1, 1}), FakeFault::Dead);
    add("B", Size{1, 1});
    fake.accessibility.setFault(add("C", Size{1, 1}), FakeFault::Dead);
    EXPECT_THAT(remaining(), ElementsAre("B", "C"));
}

TEST_F(RemovingServices, CountsAnySizeAsOne) {
    add("A", Size{0, 0});
    add("B", std::nullopt);
    EXPECT_THAT(remaining(), ElementsAre("A", "B"));
}

} // namespace
} // namespace tarragon
