#include "menus/MenuSlots.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>

namespace tarragon {

namespace {

using testing::ElementsAre;

std::shared_ptr<MenuItem> item(const std::string& title) {
    return std::make_shared<MenuItem>(title, "act", "");
}

std::shared_ptr<MenuItem> alternate(const std::string& title, std::uint32_t mask) {
    auto result = item(title);
    result->setAlternate(true);
    result->setKeyEquivalentModifierMask(mask);
    return result;
}

// The titles of every place, joined by blanks.
std::vector<std::string> places(const std::vector<std::shared_ptr<MenuItem>>& items) {
    std::vector<std::string> result;
    for (const MenuSlot& slot : menuSlotsOf(items)) {
        std::string titles;
        for (const auto& member : slot)
            titles += (titles.empty() ? "" : " ") + (member->isSeparatorItem() ? "-" : member->title());
        result.push_back(titles);
    }
    return result;
}

TEST(MenuSlots, GivesEveryOrdinaryItemAPlaceOfItsOwn) {
    EXPECT_THAT(places({}), ElementsAre());
    EXPECT_THAT(places({item("A"), MenuItem::separatorItem(), item("B")}), ElementsAre("A", "-", "B"));
}

TEST(MenuSlots, PutsAlternatesIntoThePlaceOfTheItemBefore) {
    EXPECT_THAT(places({item("A"), alternate("A2", modifier::Option), alternate("A3", modifier::Shift), item("B")}),
        ElementsAre("A A2 A3", "B"));
}

TEST(MenuSlots, GivesAnAlternateAPlaceWhereThereIsNoneToTake) {
    EXPECT_THAT(places({alternate("A", modifier::Option), item("B")}), ElementsAre("A", "B"));
    EXPECT_THAT(
        places({item("A"), MenuItem::separatorItem(), alternate("B", modifier::Option)}), ElementsAre("A", "-", "B"));
}

TEST(MenuSlots, GivesAnAlternateWithoutModifiersAPlace) {
    EXPECT_THAT(places({item("A"), alternate("B", 0)}), ElementsAre("A", "B"));
}

TEST(MenuSlots, ShowsAnAlternateOnlyWhileExactlyItsModifiersAreHeld) {
    const MenuSlot slot = {
        item("A"), alternate("A2", modifier::Option), alternate("A3", modifier::Option | modifier::Command)};
    EXPECT_EQ(shownInSlot(slot, 0), 0U);
    EXPECT_EQ(shownInSlot(slot, modifier::Option), 1U);
    EXPECT_EQ(shownInSlot(slot, modifier::Option | modifier::Command), 2U);
    EXPECT_EQ(shownInSlot(slot, modifier::Command), 0U);
    EXPECT_EQ(shownInSlot(slot, modifier::Option | modifier::Shift), 0U);
}

TEST(MenuSlots, NeverMindsTheModifiersOfTheFirstItem) {
    EXPECT_EQ(shownInSlot({item("A")}, modifier::Command), 0U);
    EXPECT_EQ(shownInSlot({item("A")}, modifier::Shift), 0U);
}

} // namespace

} // namespace tarragon
