#include "AtspiTreeFixture.h"

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
    EXPECT_EQ(readLevel(AtspiTree(connection, nodes, AtspiTree::Reading::OneLevel),
                  element("/bar/file", AtspiToolkit::Qt, Place::InMenuBar))
                  .size(),
        2U);
}

TEST_F(AtspiTreeTest, WaitsTwiceForTheMenuOfAnItemWhoseAttributesAreAskedFor) {
    makeGtkMenu(10);
    ASSERT_TRUE(connection.ensureOpen());
    const auto before = connection.statistics().roundTrips;
    AtspiNodes nodes;
    AtspiTree fresh(connection, nodes, AtspiTree::Reading::OneLevel);
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
    const auto one = describeGtkLevel(AtspiTree(connection, nodes, AtspiTree::Reading::OneLevel), file);
    EXPECT_GT(application.calls("GetState"), 12U);
    EXPECT_EQ(quick, one);
    EXPECT_EQ(quick.size(), 10U);
    AtspiNodes otherNodes;
    application.change([&] { application.searches = true; });
    EXPECT_EQ(describeGtkLevel(AtspiTree(connection, otherNodes, AtspiTree::Reading::AllLevels), file), one);
}

TEST_F(AtspiTreeTest, AsksEachPlainItemOfAGtkMenuForItsNameAndKey) {
    makeGtkMenu(100);
    ASSERT_TRUE(connection.ensureOpen());
    const auto before = connection.statistics().messagesSent;
    AtspiNodes nodes;
    readLevel(AtspiTree(connection, nodes, AtspiTree::Reading::OneLevel),
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

TEST_F(AtspiTreeTest, ReadsAMenuAgainWhoseItemsWereReplacedMeanwhile) {
    for (const AtspiToolkit toolkit : {AtspiToolkit::Gtk, AtspiToolkit::Qt}) {
        const bool isGtk = toolkit == AtspiToolkit::Gtk;
        if (isGtk)
            makeGtkMenu(3);
        else
            makeQtMenu(3);
        const std::string menu = isGtk ? "/bar/file" : "/popup";
        application.change([&] {
            // The first question about an item finds others in its place.
            application.beforeReply = [this, menu, isDone = false](const std::string& path) mutable {
                if (isDone || !path.starts_with(menu + "/"))
                    return;
                isDone = true;
                auto& objects = application.objects;
                for (std::string& child : objects[menu].children) {
                    auto item = objects.extract(child);
                    item.key() = child = child + "new";
                    item.mapped().name = "New " + item.mapped().name;
                    objects.insert(std::move(item));
                }
            };
        });
        AtspiNodes nodes;
        EXPECT_EQ(readLevel(AtspiTree(connection, nodes, AtspiTree::Reading::OneLevel),
                      element("/bar/file", toolkit, Place::InMenuBar, isGtk ? 3 : -1)),
            (std::vector<std::string>{"New Item 0", "New Item 1", "New Item 2"}));
    }
}

TEST_F(AtspiTreeTest, ShowsWhatIsLeftOfAMenuThatNeverComesToRest) {
    makeGtkMenu(3);
    application.change([&] { application.objects.erase("/bar/file/1"); });
    EXPECT_EQ(readLevel(tree, element("/bar/file", AtspiToolkit::Gtk, Place::InMenuBar, 3)),
        (std::vector<std::string>{"Item 0", "Item 2"}));
    // Once more, in case that others are there now.
    EXPECT_EQ(application.calls("GetChildren"), 2U);
}

TEST_F(AtspiTreeTest, ShowsWhatAnApplicationToldBeforeItFellSilent) {
    makeGtkMenu(3);
    application.change([&] {
        application.beforeReply = [this](const std::string& path) {
            if (path == "/bar/file/2")
                std::this_thread::sleep_for(1200ms);
        };
    });
    connection.beginOperation();
    EXPECT_EQ(readLevel(tree, element("/bar/file", AtspiToolkit::Gtk, Place::InMenuBar, 3)),
        (std::vector<std::string>{"Item 0", "Item 1", "nil"}));
}

TEST_F(AtspiTreeTest, SurvivesAMenuThatIsAmongItsOwnItems) {
    for (const AtspiToolkit toolkit : {AtspiToolkit::Gtk, AtspiToolkit::Qt}) {
        const bool isGtk = toolkit == AtspiToolkit::Gtk;
        if (isGtk)
            makeGtkMenu(1);
        else
            makeQtMenu(1);
        const std::string menu = isGtk ? "/bar/file" : "/popup";
        application.change([&] {
            application.objects[menu].children = {menu, "/missing", application.objects[menu].children[0]};
        });
        AtspiNodes nodes;
        const auto titles = readLevel(AtspiTree(connection, nodes, AtspiTree::Reading::OneLevel),
            element("/bar/file", toolkit, Place::InMenuBar, isGtk ? 3 : -1));
        EXPECT_EQ(titles, std::vector<std::string>{"Item 0"});
    }
}

TEST_F(AtspiTreeTest, SearchesNoLongMenus) {
    // The toolkit's searches take longer for each child the more children there are.
    makeGtkMenu(101);
    AtspiNodes nodes;
    AtspiTree fresh(connection, nodes, AtspiTree::Reading::OneLevel);
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
        EXPECT_EQ(readLevel(AtspiTree(connection, nodes, AtspiTree::Reading::OneLevel),
                      element("/bar/file", AtspiToolkit::Qt, Place::InMenuBar)),
            shown)
            << hidden;
    }
}

TEST_F(AtspiTreeTest, AsksALineInAQtMenuForItsNameAndActionOnly) {
    makeQtMenu(9);
    application.change([&] {
        int top = 0;
        for (int index = 0; index < 9; ++index) {
            FakeAccessible& item = application.objects["/popup/" + std::to_string(index)];
            if (index % 3 == 1)
                item = {AtspiRoleSeparator, "", 0, {}, "", "/popup", true, 40, false};
            item.top = top;
            top += item.height;
        }
    });
    ASSERT_TRUE(connection.ensureOpen());
    const auto before = connection.statistics().messagesSent;
    readLevel(tree, element("/bar/file", AtspiToolkit::Qt, Place::InMenuBar));
    // Name and key of all, states and children of the six items, the places of every other one; the opened item's role
    // and children, and those of its menu.
    EXPECT_EQ(connection.statistics().messagesSent - before, 9U * 2 + 6U * 2 + 5U + 3U);
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

TEST_F(AtspiTreeTest, TellsASeparatorInAQtMenuByTheActionThatItLacks) {
    makeQtMenu(3);
    application.change([&] {
        application.objects["/popup/0"] = {AtspiRoleSeparator, "", 0, {}, "", "/popup", true, 40, false};
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
    AtspiTree all(connection, batch, AtspiTree::Reading::AllLevels);
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
    AtspiTree all(connection, batch, AtspiTree::Reading::AllLevels);
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
        EXPECT_EQ(readLevel(AtspiTree(connection, nodes, AtspiTree::Reading::OneLevel), items[0]).size(), 6U);
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

TEST_F(AtspiTreeTest, AnswersLiveOutsideABatch) {
    makeGtkMenu(10);
    const Element entry = element("/bar/file/3", AtspiToolkit::Gtk, Place::InMenu);
    const auto title = [&] {
        AtspiNodes nodes;
        return string(
            AtspiTree(connection, nodes, AtspiTree::Reading::OneAttribute).attributeValue(entry, attribute::Title));
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

// Walks down all children; gives up beyond any reasonable number.
std::size_t sizeOfTree(AtspiTree& tree, const Element& element, std::size_t limit) {
    std::size_t size = 1;
    const Value children = tree.attributeValue(element, attribute::Children);
    if (const auto* list = valueAs<std::vector<Element>>(children)) {
        for (const Element& child : *list) {
            if (size < limit)
                size += sizeOfTree(tree, child, limit - size);
        }
    }
    return size;
}

TEST_F(AtspiTreeTest, CutsOffTreesThatBiteTheirTail) {
    application.change([&] {
        application.objects["/bar"] = {AtspiRoleMenuBar, "", Visible, {"/bar", "/menu"}, "", ""};
        application.objects["/menu"] = {AtspiRoleMenu, "M", Visible, {"/menu", "/inner", "/bar"}, "", "/bar"};
        application.objects["/inner"] = {AtspiRoleMenu, "I", Visible, {"/menu"}, "", "/menu"};
    });
    EXPECT_LT(sizeOfTree(tree, element("/bar", AtspiToolkit::Gtk), 1000), 20U);
    AtspiNodes nodes;
    AtspiTree all(connection, nodes, AtspiTree::Reading::AllLevels);
    EXPECT_LT(sizeOfTree(all, element("/bar", AtspiToolkit::Gtk), 1000), 20U);
}

TEST_F(AtspiTreeTest, CutsOffTreesThatNeverEnd) {
    application.change([&] {
        std::string path = "/endless";
        for (int depth = 0; depth < 300; ++depth) {
            const std::string next = path + "/x";
            application.objects[path] = {AtspiRoleMenu, "M", Visible, {next}, "", ""};
            path = next;
        }
    });
    EXPECT_LT(sizeOfTree(tree, element("/endless", AtspiToolkit::Gtk, Place::InMenu), 1000), 150U);
    AtspiNodes nodes;
    AtspiTree all(connection, nodes, AtspiTree::Reading::AllLevels);
    EXPECT_LT(sizeOfTree(all, element("/endless", AtspiToolkit::Gtk, Place::InMenu), 1000), 150U);
}

TEST_F(AtspiTreeTest, TakesNonsenseForNothing) {
    makeGtkMenu(3);
    application.change([&] { application.answersNonsense = true; });
    const Element entry = element("/bar/file", AtspiToolkit::Gtk, Place::InMenuBar);
    EXPECT_FALSE(tree.attributeNames(entry));
    for (const std::string_view name :
        {attribute::Role, attribute::Title, attribute::Enabled, attribute::Children, attribute::Position,
            attribute::Size, attribute::Value, attribute::Description, attribute::MenuItemCmdChar})
        EXPECT_TRUE(isNil(tree.attributeValue(entry, name))) << name;
}

TEST_F(AtspiTreeTest, CutsOffHugeTextsBetweenCharacters) {
    application.change([&] {
        FakeAccessible item{AtspiRoleMenuItem, "x", Visible, {}, "", ""};
        for (int count = 0; count < 50'000; ++count)
            item.name += "\u00e4";
        application.objects["/item"] = item;
    });
    const std::string title =
        string(tree.attributeValue(element("/item", AtspiToolkit::Gtk, Place::InMenu), attribute::Title));
    EXPECT_LE(title.size(), AtspiReply::TextLimit);
    EXPECT_EQ(title.size() % 2, 1U); // "x" and whole characters of two bytes
}

TEST_F(AtspiTreeTest, GivesNothingForObjectsAndApplicationsThatAreGone) {
    EXPECT_TRUE(isNil(tree.attributeValue(element("/none", AtspiToolkit::Gtk), attribute::Title)));
    auto handle = std::make_shared<AtspiElement>();
    handle->kind = AtspiElement::Kind::Node;
    handle->reference = {":1.9999", "/bar"};
    const Element gone{handle};
    EXPECT_TRUE(isNil(tree.attributeValue(gone, attribute::Title)));
    EXPECT_TRUE(connection.isGone(":1.9999"));
    handle = std::make_shared<AtspiElement>();
    handle->kind = AtspiElement::Kind::Node;
    handle->reference = {"no bus name", "no path"};
    EXPECT_TRUE(isNil(tree.attributeValue(Element{handle}, attribute::Title)));
}

TEST_F(AtspiTreeTest, LeavesASilentApplicationAfterASecondAndThenAtOnce) {
    makeGtkMenu(50);
    application.change([&] { application.isSilent = true; });
    const Element file = element("/bar/file", AtspiToolkit::Gtk, Place::InMenuBar);
    auto start = Clock::now();
    connection.beginOperation();
    EXPECT_TRUE(isNil(tree.attributeValue(file, attribute::Children)));
    EXPECT_GE(Clock::now() - start, 950ms);
    EXPECT_LT(Clock::now() - start, 1900ms);

    start = Clock::now();
    for (int count = 0; count < 100; ++count) {
        AtspiNodes nodes;
        connection.beginOperation();
        EXPECT_TRUE(isNil(
            AtspiTree(connection, nodes, AtspiTree::Reading::OneLevel).attributeValue(file, attribute::Children)));
    }
    EXPECT_LT(Clock::now() - start, 300ms);

    // Others are not affected.
    AtspiFakeApplication other(bus);
    other.change([&] { other.objects["/x"] = {AtspiRoleMenuItem, "X", Visible, {}, "", ""}; });
    auto handle = std::make_shared<AtspiElement>();
    handle->kind = AtspiElement::Kind::Node;
    handle->reference = {other.busName(), "/x"};
    EXPECT_EQ(string(tree.attributeValue(Element{handle}, attribute::Title)), "X");
}

TEST_F(AtspiTreeTest, AsksAnApplicationAgainOnceItAnsweredTheProbe) {
    application.change([&] {
        application.objects["/org/a11y/atspi/accessible/root"] = {AtspiRoleApplication, "App", Visible, {}, "", ""};
        application.objects["/x"] = {AtspiRoleMenuItem, "X", Visible, {}, "", ""};
        // Gives no answer in time, then goes on with its work as if nothing had been.
        application.beforeReply = [&, first = true](const auto&) mutable {
            if (first)
                std::this_thread::sleep_for(1200ms);
            first = false;
        };
    });
    connection.beginOperation();
    EXPECT_TRUE(isNil(tree.attributeValue(element("/x", AtspiToolkit::Gtk), attribute::Title)));
    EXPECT_FALSE(connection.mayAsk(application.busName()));
    const auto deadline = Clock::now() + 5s;
    while (!connection.mayAsk(application.busName()) && Clock::now() < deadline)
        std::this_thread::yield();
    AtspiNodes nodes;
    connection.beginOperation();
    EXPECT_EQ(string(AtspiTree(connection, nodes, AtspiTree::Reading::OneAttribute)
                         .attributeValue(element("/x", AtspiToolkit::Gtk), attribute::Title)),
        "X");
}

TEST_F(AtspiTreeTest, HearsASlowApplicationOut) {
    makeGtkMenu(800);
    application.change([&] { application.beforeReply = [](const auto&) { std::this_thread::sleep_for(1ms); }; });
    const auto start = Clock::now();
    connection.beginOperation();
    EXPECT_EQ(readLevel(tree, element("/bar/file", AtspiToolkit::Gtk, Place::InMenuBar)).size(), 800U);
    EXPECT_GT(Clock::now() - start, 1200ms);
}

TEST_F(AtspiTreeTest, HandsAPressOverWithoutWaitingForItsEnd) {
    makeGtkMenu(3);
    ASSERT_TRUE(connection.ensureOpen());
    const auto start = Clock::now();
    EXPECT_TRUE(connection.post(
        {{application.busName(), "/bar/file/1"}, "org.a11y.atspi.Action", "DoAction", std::int32_t{0}, {}}));
    EXPECT_LT(Clock::now() - start, 500ms);
    const auto deadline = Clock::now() + 5s;
    while (application.calls("DoAction") == 0 && Clock::now() < deadline)
        std::this_thread::yield();
    EXPECT_EQ(application.calls("DoAction"), 1U);
}

TEST_F(AtspiTreeTest, ConnectsAgainWhenTheBusCameBack) {
    ASSERT_TRUE(connection.ensureOpen());
    const auto identity = connection.busIdentity();
    bus.stop();
    const auto deadline = Clock::now() + 10s;
    makeGtkMenu(1);
    while (connection.busIdentity() != 0 && Clock::now() < deadline) {
        AtspiNodes nodes;
        nodes.fetch(connection, {application.busName(), "/bar"}, AtspiFieldRole);
        connection.ensureOpen();
    }
    EXPECT_EQ(connection.busIdentity(), 0U);
    const AtspiFakeBus another;
    ::setenv("AT_SPI_BUS_ADDRESS", another.address().c_str(), 1);
    while (!connection.ensureOpen() && Clock::now() < deadline)
        std::this_thread::yield();
    EXPECT_NE(connection.busIdentity(), 0U);
    EXPECT_NE(connection.busIdentity(), identity);
}

TEST_F(AtspiTreeTest, ReadsOverTwoConnectionsFromTwoThreads) {
    makeGtkMenu(700);
    const Element file = element("/bar/file", AtspiToolkit::Gtk, Place::InMenuBar);
    std::vector<std::string> titles;
    std::thread other([&] {
        AtspiSessionBus otherSessionBus;
        AtspiConnection otherConnection(otherSessionBus);
        AtspiNodes nodes;
        titles = readLevel(AtspiTree(otherConnection, nodes, AtspiTree::Reading::OneLevel), file);
    });
    const auto ownTitles = readLevel(tree, file);
    other.join();
    EXPECT_EQ(ownTitles.size(), 700U);
    EXPECT_EQ(titles, ownTitles);
}

} // namespace
} // namespace tarragon
