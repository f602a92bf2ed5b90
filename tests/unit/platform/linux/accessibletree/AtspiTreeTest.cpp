#include "bus/AtspiTreeFixture.h"

namespace tarragon {
namespace {

TEST_F(AtspiTreeTest, PutsAMenuBetweenAnItemAndItsChildrenWhereTheToolkitHasNone) {
    makeGtkMenu(3);
    const auto items = elements(tree.attributeValue(element("/bar", AtspiToolkit::Gtk), attribute::Children));
    ASSERT_EQ(items.size(), 1U);
    EXPECT_EQ(string(tree.attributeValue(items[0], attribute::Role)), role::MenuBarItem);
    EXPECT_EQ(string(tree.attributeValue(items[0], attribute::Title)), "File");
    const auto menus = elements(tree.attributeValue(items[0], attribute::Children));
    ASSERT_EQ(menus.size(), 1U);
    EXPECT_EQ(string(tree.attributeValue(menus[0], attribute::Role)), role::Menu);
    EXPECT_EQ(string(tree.attributeValue(menus[0], attribute::Title)), "nil");
    EXPECT_FALSE(menus[0] == items[0]);
    const auto entries = elements(tree.attributeValue(menus[0], attribute::Children));
    ASSERT_EQ(entries.size(), 3U);
    EXPECT_EQ(string(tree.attributeValue(entries[1], attribute::Role)), role::MenuItem);
    EXPECT_EQ(string(tree.attributeValue(entries[1], attribute::Title)), "Item 1");
    EXPECT_TRUE(elements(tree.attributeValue(entries[1], attribute::Children)).empty());
    EXPECT_EQ(tree.attributeValue(entries[1], attribute::Parent), Value{menus[0]});
    EXPECT_EQ(tree.attributeValue(menus[0], attribute::Parent), Value{items[0]});
}

TEST_F(AtspiTreeTest, TakesTheMenuBetweenWhereTheToolkitHasOne) {
    makeQtMenu(3);
    const auto items = elements(tree.attributeValue(element("/bar", AtspiToolkit::Qt), attribute::Children));
    ASSERT_EQ(items.size(), 1U);
    EXPECT_EQ(string(tree.attributeValue(items[0], attribute::Role)), role::MenuBarItem);
    const auto menus = elements(tree.attributeValue(items[0], attribute::Children));
    ASSERT_EQ(menus.size(), 1U);
    EXPECT_EQ(string(tree.attributeValue(menus[0], attribute::Role)), role::Menu);
    EXPECT_EQ(elements(tree.attributeValue(menus[0], attribute::Children)).size(), 3U);
}

TEST_F(AtspiTreeTest, LeavesOutWhatGtkHidesButNotWhatIsClosed) {
    makeGtkMenu(2);
    application.change([&] { application.objects["/bar/file/0"].states = 0; });
    EXPECT_EQ(
        readLevel(tree, element("/bar/file", AtspiToolkit::Gtk, Place::InMenuBar)), std::vector<std::string>{"Item 1"});
    makeQtMenu(2);
    AtspiNodes nodes;
    EXPECT_EQ(readLevel(AtspiTree(connection, nodes, memory, AtspiTree::Reading::OneLevel),
                  element("/bar/file", AtspiToolkit::Qt, Place::InMenuBar))
                  .size(),
        2U);
}

TEST_F(AtspiTreeTest, WaitsTwiceForTheMenuOfAnItemWhoseAttributesAreAskedFor) {
    makeGtkMenu(10);
    ASSERT_TRUE(connection.ensureOpen());
    const auto before = connection.statistics().roundTrips;
    AtspiNodes nodes;
    AtspiTree fresh(connection, nodes, memory, AtspiTree::Reading::OneLevel);
    const Element file = element("/bar/file", AtspiToolkit::Gtk, Place::InMenuBar);
    fresh.attributeNames(file);
    EXPECT_EQ(readLevel(fresh, file).size(), 10U);
    EXPECT_EQ(connection.statistics().roundTrips - before, 2U);
}

// Role, title, enabled, mark and key of every item of "/bar/file".
std::vector<std::string> describeGtkLevel(AtspiTree tree, const Element& file) {
    std::vector<std::string> lines;
    const auto list = [&](const Element& parent) {
        const Value children = tree.attributeValue(parent, attribute::Children);
        const auto* elements = valueAs<std::vector<Element>>(children);
        return elements != nullptr ? *elements : std::vector<Element>();
    };
    for (const Element& menu : list(file)) {
        for (const Element& item : list(menu)) {
            std::string line;
            for (const auto name : {attribute::Role, attribute::Title, attribute::MenuItemMarkChar,
                     attribute::MenuItemCmdChar, attribute::MenuItemShortcutText}) {
                const Value value = tree.attributeValue(item, name);
                const auto* text = valueAs<std::string>(value);
                line += (text != nullptr ? *text : "nil") + "|";
            }
            const Value enabled = tree.attributeValue(item, attribute::Enabled);
            line += enabled == Value(true) ? "enabled" : "disabled";
            lines.push_back(line + "|" + std::to_string(list(item).size()));
        }
    }
    return lines;
}

TEST_F(AtspiTreeTest, ReadsTheSameBySearchingForEachKind) {
    constexpr std::uint64_t checked = 1ULL << 4U;
    constexpr std::uint64_t enabled = 1ULL << 8U;
    constexpr std::uint64_t sensitive = 1ULL << 24U;
    makeGtkMenu(12);
    application.change([&] {
        const auto item = [&](int index) -> FakeAccessible& {
            return application.objects["/bar/file/" + std::to_string(index)];
        };
        item(0).role = AtspiRoleSeparator;
        item(0).name.clear();
        for (const int index : {0, 4, 9})
            item(index).keyBinding.clear();
        item(1).role = AtspiRoleCheckMenuItem;
        item(1).states |= checked;
        item(2).role = AtspiRoleRadioMenuItem;
        item(3).states &= ~enabled;
        item(5).states &= ~sensitive;
        item(6).states &= ~(sensitive | enabled);
        item(7).states = 0;
        // These never have a label.
        item(8).role = AtspiRoleTearoffMenuItem;
        item(8).name.clear();
        item(10).role = AtspiRolePushButton;
    });
    const Element file = element("/bar/file", AtspiToolkit::Gtk, Place::InMenuBar, 12);
    const auto quick = describeGtkLevel(tree, file);
    // Of those that are not visible and enabled.
    EXPECT_EQ(application.calls("GetState"), 4U);
    application.change([&] { application.searches = false; });
    AtspiNodes nodes;
    const auto one = describeGtkLevel(AtspiTree(connection, nodes, memory, AtspiTree::Reading::OneLevel), file);
    EXPECT_GT(application.calls("GetState"), 12U);
    EXPECT_EQ(quick, one);
    EXPECT_EQ(quick.size(), 10U);
    AtspiNodes otherNodes;
    application.change([&] { application.searches = true; });
    EXPECT_EQ(describeGtkLevel(AtspiTree(connection, otherNodes, memory, AtspiTree::Reading::AllLevels), file), one);
}

TEST_F(AtspiTreeTest, AsksEachPlainItemOfAGtkMenuForItsNameAndKey) {
    makeGtkMenu(100);
    ASSERT_TRUE(connection.ensureOpen());
    const auto before = connection.statistics().messagesSent;
    AtspiNodes nodes;
    readLevel(AtspiTree(connection, nodes, memory, AtspiTree::Reading::OneLevel),
        element("/bar/file", AtspiToolkit::Gtk, Place::InMenuBar, 100));
    // The name of each, the key of those that open no menu and the size of the menus of the others, two questions about
    // the opened item and four searches.
    EXPECT_EQ(connection.statistics().messagesSent - before, 100U + 80U + 20U + 6U);
}

TEST_F(AtspiTreeTest, AsksALineInAGtkMenuForNothing) {
    makeGtkMenu(4);
    application.change([&] { application.objects["/bar/file/2"] = {AtspiRoleSeparator, "", Visible, {}, "", ""}; });
    const auto asked = [&] { return application.calls("Get") + application.calls("GetKeyBinding"); };
    const auto before = asked();
    EXPECT_EQ(readLevel(tree, element("/bar/file", AtspiToolkit::Gtk, Place::InMenuBar, 4)),
        (std::vector<std::string>{"Item 0", "Item 1", "", "Item 3"}));
    EXPECT_EQ(asked() - before, 3U + 3U);
}

TEST_F(AtspiTreeTest, AsksForTheChildrenOfALongMenuOneByOne) {
    makeGtkMenu(1200);
    const Element file = element("/bar/file", AtspiToolkit::Gtk, Place::InMenuBar, 1100);
    const auto menus = elements(tree.attributeValue(file, attribute::Children));
    ASSERT_EQ(menus.size(), 1U);
    // Whoever does not go into the menu costs nothing.
    EXPECT_EQ(application.calls("GetChildAtIndex"), 0U);
    const auto titles = readLevel(tree, file);
    ASSERT_EQ(titles.size(), 1200U);
    EXPECT_EQ(titles.front(), "Item 0");
    EXPECT_EQ(titles.back(), "Item 1199");
    EXPECT_EQ(application.calls("GetChildren"), 0U);
    EXPECT_EQ(application.calls("GetChildAtIndex"), 1200U);
}

TEST_F(AtspiTreeTest, ShowsAnItemOfALongMenuOnceThatIsToldTwice) {
    makeGtkMenu(1200);
    application.change([&] { application.objects["/bar/file"].children[7] = "/bar/file/6"; });
    const auto titles = readLevel(tree, element("/bar/file", AtspiToolkit::Gtk, Place::InMenuBar, 1200));
    EXPECT_EQ(titles.size(), 1199U);
    EXPECT_EQ(std::ranges::count(titles, "Item 6"), 1);
}

TEST_F(AtspiTreeTest, SearchesNoLongMenus) {
    // The toolkit's searches take longer for each child the more children there are.
    makeGtkMenu(101);
    AtspiNodes nodes;
    AtspiTree fresh(connection, nodes, memory, AtspiTree::Reading::OneLevel);
    EXPECT_EQ(readLevel(fresh, element("/bar/file", AtspiToolkit::Gtk, Place::InMenuBar, 101)).size(), 101U);
    EXPECT_EQ(application.calls("GetMatches"), 0U);
}

TEST_F(AtspiTreeTest, KnowsWithinABatchThatWhatStoodInAMenuIsAnItemOfIt) {
    makeGtkMenu(2);
    const Element entry = element("/bar/file/1", AtspiToolkit::Gtk, Place::InMenu);
    EXPECT_TRUE(tree.hasAttribute(entry, attribute::MenuItemMarkChar));
    EXPECT_FALSE(tree.hasAttribute(entry, attribute::Focused));
    EXPECT_EQ(connection.statistics().messagesSent, 0U);
    EXPECT_EQ(tree.attributeValue(entry, attribute::Enabled), Value(true));
    EXPECT_EQ(connection.statistics().messagesSent, 1U);
}

TEST_F(AtspiTreeTest, HasTheAttributesThatItNames) {
    makeGtkMenu(2);
    for (const char* path : {"/bar", "/bar/file", "/bar/file/0"}) {
        const Element object = element(path, AtspiToolkit::Gtk);
        const auto names = tree.attributeNames(object).value();
        for (const std::string_view name : {attribute::Role, attribute::Title, attribute::Enabled,
                 attribute::MenuItemMarkChar, attribute::Focused, attribute::Description})
            EXPECT_EQ(tree.hasAttribute(object, name), std::ranges::count(names, name) == 1) << path << " " << name;
    }
    EXPECT_FALSE(tree.hasAttribute(element("/missing", AtspiToolkit::Gtk), attribute::Role));
}

TEST_F(AtspiTreeTest, KnowsFromTheMenuBarHowLongEachMenuIs) {
    makeGtkMenu(10);
    const auto items = elements(tree.attributeValue(element("/bar", AtspiToolkit::Gtk), attribute::Children));
    ASSERT_EQ(items.size(), 1U);
    EXPECT_EQ(AtspiElement::of(items[0])->childCount, 10);
}

TEST_F(AtspiTreeTest, AsksOnlyTitlesWithoutMenusInAQtMenuBarForTheirKeys) {
    makeQtMenu(1);
    application.change([&] {
        application.objects["/bar"].children = {"/bar/file", "/bar/about", "/bar/line"};
        application.objects["/bar/about"] = {AtspiRoleMenuItem, "About", Visible, {}, "Ctrl+B", "/bar"};
        application.objects["/bar/line"] = {AtspiRoleSeparator, "", Visible, {}, "", "/bar"};
        application.objects["/bar/line"].hasAction = false;
    });
    const auto items = elements(tree.attributeValue(element("/bar", AtspiToolkit::Qt), attribute::Children));
    ASSERT_EQ(items.size(), 3U);
    EXPECT_EQ(application.calls("GetKeyBinding"), 2U);
    EXPECT_EQ(string(tree.attributeValue(items[0], attribute::MenuItemCmdChar)), "nil");
    EXPECT_EQ(string(tree.attributeValue(items[1], attribute::MenuItemCmdChar)), "B");
    EXPECT_EQ(string(tree.attributeValue(items[2], attribute::Title)), "");
    EXPECT_EQ(application.calls("GetKeyBinding"), 2U);
}

TEST_F(AtspiTreeTest, LeavesOutWhatQtHides) {
    makeQtMenu(4);
    application.change([&] {
        application.objects["/popup/1"].hasExtents = false;
        application.objects["/popup/2"].height = 0;
    });
    EXPECT_EQ(readLevel(tree, element("/bar/file", AtspiToolkit::Qt, Place::InMenuBar)),
        (std::vector<std::string>{"Item 0", "Item 3"}));
}

TEST_F(AtspiTreeTest, TellsFromItsNeighboursWhetherAnItemOfAQtMenuIsHidden) {
    // Hidden are all with a bit in the number, for every combination of hidden ones.
    constexpr int count = 6;
    for (unsigned hidden = 0; hidden + 1 < (1U << count); ++hidden) {
        makeQtMenu(count);
        std::vector<std::string> shown;
        application.change([&] {
            int top = 20;
            for (int index = 0; index < count; ++index) {
                FakeAccessible& item = application.objects["/popup/" + std::to_string(index)];
                const bool isHidden = ((hidden >> static_cast<unsigned>(index)) & 1U) != 0;
                item.top = isHidden ? 0 : top;
                item.height = isHidden ? 0 : 24 + index;
                top += item.height;
                if (!isHidden)
                    shown.push_back("Item " + std::to_string(index));
            }
        });
        AtspiNodes nodes;
        EXPECT_EQ(readLevel(AtspiTree(connection, nodes, memory, AtspiTree::Reading::OneLevel),
                      element("/bar/file", AtspiToolkit::Qt, Place::InMenuBar)),
            shown)
            << hidden;
    }
}

TEST_F(AtspiTreeTest, AsksALineInAQtMenuForItsNameOnly) {
    makeQtMenu(9);
    application.change([&] {
        int top = 0;
        for (int index = 0; index < 9; ++index) {
            FakeAccessible& item = application.objects["/popup/" + std::to_string(index)];
            if (index % 3 == 1)
                item = {AtspiRoleSeparator, "", 0, {}, "", "/popup", true, 7, false};
            item.top = top;
            top += item.height;
        }
    });
    ASSERT_TRUE(connection.ensureOpen());
    const auto before = connection.statistics().messagesSent;
    readLevel(tree, element("/bar/file", AtspiToolkit::Qt, Place::InMenuBar));
    // The name of all, state, key and children of the six items, the places of every fourth one and the last; the
    // opened item's role and children, and those of its menu.
    EXPECT_EQ(connection.statistics().messagesSent - before, 9U + 6U * 3 + 3U + 3U);
}

TEST_F(AtspiTreeTest, AsksAHiddenItemOfAQtMenuForNothingElse) {
    makeQtMenu(5);
    application.change([&] {
        int top = 0;
        for (int index = 0; index < 5; ++index) {
            FakeAccessible& item = application.objects["/popup/" + std::to_string(index)];
            item.height = index == 0 || index == 3 ? 0 : 24;
            item.top = top;
            top += item.height;
        }
    });
    EXPECT_EQ(readLevel(tree, element("/bar/file", AtspiToolkit::Qt, Place::InMenuBar)),
        (std::vector<std::string>{"Item 1", "Item 2", "Item 4"}));
    // The first is known to be hidden when the states are asked, the other one not yet.
    EXPECT_EQ(application.calls("GetState"), 4U);
    EXPECT_EQ(application.calls("GetExtents"), 5U);
}

TEST_F(AtspiTreeTest, ShowsAllItemsOfAMenuThatHasNotBeenLaidOut) {
    makeQtMenu(2);
    application.change([&] {
        for (const char* path : {"/popup/0", "/popup/1"})
            application.objects[path].height = 0;
    });
    EXPECT_EQ(readLevel(tree, element("/bar/file", AtspiToolkit::Qt, Place::InMenuBar)).size(), 2U);
}

TEST_F(AtspiTreeTest, TellsSeparatorsFromNamelessItems) {
    makeQtMenu(3);
    application.change([&] {
        application.objects["/popup/0"] = {AtspiRoleSeparator, "", 0, {}, "", "/popup"};
        application.objects["/popup/1"].name.clear();
    });
    EXPECT_EQ(readLevel(tree, element("/bar/file", AtspiToolkit::Qt, Place::InMenuBar)),
        (std::vector<std::string>{"", "nil", "Item 2"}));
}

TEST_F(AtspiTreeTest, TellsASeparatorInAQtMenuByItsHeight) {
    makeQtMenu(3);
    application.change([&] {
        application.objects["/popup/0"] = {AtspiRoleSeparator, "", 0, {}, "", "/popup", true, 5, false};
        application.objects["/popup/1"].name.clear();
    });
    const auto askedBefore = application.calls("GetRole");
    EXPECT_EQ(readLevel(tree, element("/bar/file", AtspiToolkit::Qt, Place::InMenuBar)),
        (std::vector<std::string>{"", "nil", "Item 2"}));
    // The opened item and the nameless item that is none.
    EXPECT_EQ(application.calls("GetRole") - askedBefore, 2U);
}

// Walks down all children and reads as the menu reader does; gives the titles of all items.
std::vector<std::string> readAllLevels(AtspiTree& tree, const Element& element) {
    std::vector<std::string> titles;
    const Value children = tree.attributeValue(element, attribute::Children);
    const auto* list = valueAs<std::vector<Element>>(children);
    for (const Element& child : list != nullptr ? *list : std::vector<Element>()) {
        // Menus have nothing to tell but their role.
        if (tree.attributeValue(child, attribute::Role) != Value(std::string(role::Menu))) {
            tree.attributeValue(child, attribute::Enabled);
            tree.attributeValue(child, attribute::MenuItemCmdChar);
        }
        const Value title = tree.attributeValue(child, attribute::Title);
        if (const auto* text = valueAs<std::string>(title))
            titles.push_back(*text);
        const auto below = readAllLevels(tree, child);
        titles.insert(titles.end(), below.begin(), below.end());
    }
    return titles;
}

TEST_F(AtspiTreeTest, ReadsAllLevelsOfGtkMenusWithTwoWaitsForEach) {
    makeGtkMenu(40);
    application.change([&] {
        for (const int index : {4, 9, 34}) {
            const std::string path = "/bar/file/" + std::to_string(index);
            application.objects[path].children = {path + "/a", path + "/b"};
            for (const char* name : {"/a", "/b"})
                application.objects[path + name] = {AtspiRoleMenuItem, "Inner", Visible, {}, "", path};
        }
    });
    AtspiTree all(connection, batch, memory, AtspiTree::Reading::AllLevels);
    const auto before = connection.statistics().roundTrips;
    const auto titles = readAllLevels(all, element("/bar", AtspiToolkit::Gtk));
    EXPECT_EQ(titles.size(), 1U + 40U + 6U);
    EXPECT_EQ(std::ranges::count(titles, "Inner"), 6);
    // Three levels of items, and once more to see that the innermost open nothing.
    EXPECT_LE(connection.statistics().roundTrips - before, 6U);
}

TEST_F(AtspiTreeTest, ReadsAllLevelsOfQtMenusWithThreeWaitsForEach) {
    makeQtMenu(40);
    application.change([&] {
        for (const int index : {4, 9, 34}) {
            const std::string path = "/popup/" + std::to_string(index) + "/popup";
            application.objects[path].children = {path + "/a", path + "/b"};
            for (const char* name : {"/a", "/b"})
                application.objects[path + name] = {AtspiRoleMenuItem, "Inner", 0, {}, "", path};
        }
    });
    AtspiTree all(connection, batch, memory, AtspiTree::Reading::AllLevels);
    const auto before = connection.statistics().roundTrips;
    const auto titles = readAllLevels(all, element("/bar", AtspiToolkit::Qt));
    EXPECT_EQ(titles.size(), 1U + 40U + 6U);
    EXPECT_EQ(std::ranges::count(titles, "Inner"), 6);
    EXPECT_LE(connection.statistics().roundTrips - before, 8U);
}

TEST_F(AtspiTreeTest, ReadsTheMenuThatOpensTogetherWithItsItems) {
    makeQtMenu(6);
    const auto items = elements(tree.attributeValue(element("/bar", AtspiToolkit::Qt), attribute::Children));
    ASSERT_EQ(items.size(), 1U);
    const auto roundTrips = [&] {
        AtspiNodes nodes;
        const auto before = connection.statistics().roundTrips;
        EXPECT_EQ(readLevel(AtspiTree(connection, nodes, memory, AtspiTree::Reading::OneLevel), items[0]).size(), 6U);
        return connection.statistics().roundTrips - before;
    };
    EXPECT_LE(roundTrips(), 3U);
    // It opens another menu now.
    application.change([&] {
        application.objects["/other"] = application.objects["/popup"];
        application.objects["/popup"].children.clear();
        application.objects["/bar/file"].children = {"/other"};
    });
    EXPECT_LE(roundTrips(), 4U);
}

TEST_F(AtspiTreeTest, TellsWhereAnObjectIs) {
    makeGtkMenu(1);
    const Element bar = element("/bar", AtspiToolkit::Gtk);
    EXPECT_EQ(tree.attributeValue(bar, attribute::Position), (Value{Point{10, 20}}));
    EXPECT_EQ(tree.attributeValue(bar, attribute::Size), (Value{Size{300, 40}}));
}

TEST_F(AtspiTreeTest, WaitsEquallyOftenForSmallAndLargeMenus) {
    makeGtkMenu(5);
    const auto small = roundTripsOfLevel(AtspiToolkit::Gtk, 5);
    makeGtkMenu(1500);
    const auto large = roundTripsOfLevel(AtspiToolkit::Gtk, 1500);
    EXPECT_EQ(small, large);
    EXPECT_LE(large, 2U);
}

TEST_F(AtspiTreeTest, WaitsEquallyOftenForSmallAndLargeMenusWithPopups) {
    makeQtMenu(5);
    const auto small = roundTripsOfLevel(AtspiToolkit::Qt, 5);
    makeQtMenu(1500);
    const auto large = roundTripsOfLevel(AtspiToolkit::Qt, 1500);
    EXPECT_EQ(small, large);
    EXPECT_LE(large, 5U);
}

TEST_F(AtspiTreeTest, AnswersWithinABatchFromWhatWasRead) {
    makeGtkMenu(10);
    const Element file = element("/bar/file", AtspiToolkit::Gtk, Place::InMenuBar);
    readLevel(tree, file);
    const auto sent = connection.statistics().messagesSent;
    application.change([&] { application.objects["/bar/file/3"].name = "Changed"; });
    EXPECT_EQ(readLevel(tree, file)[3], "Item 3");
    EXPECT_EQ(connection.statistics().messagesSent, sent);
}

TEST_F(AtspiTreeTest, ReadsNothingAheadWhereSomeAttributesAreWanted) {
    for (const AtspiToolkit toolkit : {AtspiToolkit::Gtk, AtspiToolkit::Qt}) {
        if (toolkit == AtspiToolkit::Gtk)
            makeGtkMenu(10);
        else
            makeQtMenu(10);
        const Element file = element("/bar/file", toolkit, Place::InMenuBar, 10);
        AtspiNodes known;
        readLevel(AtspiTree(connection, known, memory, AtspiTree::Reading::OneLevel), file);
        AtspiNodes nodes;
        AtspiTree fresh(connection, nodes, memory, AtspiTree::Reading::SomeAttributes);
        const auto before = connection.statistics();
        EXPECT_TRUE(fresh.hasAttribute(file, attribute::Children));
        const auto menus = elements(fresh.attributeValue(file, attribute::Children));
        ASSERT_EQ(menus.size(), 1U);
        EXPECT_EQ(string(fresh.attributeValue(menus[0], attribute::Role)), role::Menu);
        // Role and children of the item.
        EXPECT_EQ(connection.statistics().messagesSent - before.messagesSent, 2U);
        EXPECT_EQ(connection.statistics().roundTrips - before.roundTrips, 1U);
        EXPECT_EQ(elements(fresh.attributeValue(menus[0], attribute::Children)).size(), 10U);
    }
}

TEST_F(AtspiTreeTest, AnswersLiveOutsideABatch) {
    makeGtkMenu(10);
    const Element entry = element("/bar/file/3", AtspiToolkit::Gtk, Place::InMenu);
    const auto title = [&] {
        AtspiNodes nodes;
        return string(AtspiTree(connection, nodes, memory, AtspiTree::Reading::OneAttribute)
                          .attributeValue(entry, attribute::Title));
    };
    EXPECT_EQ(title(), "Item 3");
    application.change([&] { application.objects["/bar/file/3"].name = "Changed"; });
    EXPECT_EQ(title(), "Changed");
}

TEST_F(AtspiTreeTest, AsksAnItemWithoutKnownPlaceWhatItStandsIn) {
    makeGtkMenu(2);
    EXPECT_EQ(string(tree.attributeValue(element("/bar/file", AtspiToolkit::Gtk), attribute::Role)), role::MenuBarItem);
    EXPECT_EQ(string(tree.attributeValue(element("/bar/file/0", AtspiToolkit::Gtk), attribute::Role)), role::MenuItem);
}

TEST_F(AtspiTreeTest, EndsEveryLineageAtTheApplication) {
    application.change([&] {
        application.objects["/self"] = {AtspiRolePanel, "", Visible, {}, "", "/self"};
        application.objects["/a"] = {AtspiRolePanel, "", Visible, {}, "", "/b"};
        application.objects["/b"] = {AtspiRolePanel, "", Visible, {}, "", "/a"};
        application.objects["/orphan"] = {AtspiRolePanel, "", Visible, {}, "", ""};
    });
    for (const char* path : {"/self", "/a", "/orphan", "/missing"}) {
        Element current = element(path, AtspiToolkit::Gtk);
        int steps = 0;
        while (AtspiElement::of(current)->kind == AtspiElement::Kind::Node && steps < 1000) {
            const Value parent = tree.attributeValue(current, attribute::Parent);
            ASSERT_NE(valueAs<Element>(parent), nullptr);
            current = *valueAs<Element>(parent);
            ++steps;
        }
        EXPECT_EQ(AtspiElement::of(current)->kind, AtspiElement::Kind::Application) << path;
        EXPECT_EQ(AtspiElement::of(current)->processIdentifier, 42);
    }
}

} // namespace
} // namespace tarragon
