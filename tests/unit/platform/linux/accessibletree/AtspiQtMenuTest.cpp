// Menus of Qt as their places tell: hidden items, lines, sections and widgets among them, read for the first time,
// again and with all other menus.
#include "bus/AtspiTreeFixture.h"

#include <cmath>
#include <random>

namespace tarragon {
namespace {

using Titles = std::vector<std::string>;

struct QtItem {
    enum class Kind : std::uint8_t { Item, Hidden, Line, Widget };

    int number;
    Kind kind;
    int height;
    bool opensMenu;
    bool isEnabled;
};

class AtspiQtMenuTest : public AtspiTreeTest {
protected:
    static FakeAccessible qtItem(const std::string& name, int top, int height) {
        return {AtspiRoleMenuItem, name, 0, {}, "", "/popup", true, height, true, top};
    }

    void make(const std::vector<FakeAccessible>& items) {
        makeQtMenu(0);
        application.change([&] {
            auto& children = application.objects["/popup"].children;
            for (std::size_t index = 0; index < items.size(); ++index) {
                children.push_back("/popup/" + std::to_string(index));
                application.objects[children.back()] = items[index];
            }
        });
    }

    // One below the other; coordinates are rounded after they were scaled.
    void make(const std::vector<QtItem>& items, double scale) {
        makeQtMenu(0);
        application.change([&] {
            int top = 0;
            for (const QtItem& item : items) {
                const std::string path = "/popup/" + std::to_string(item.number);
                application.objects["/popup"].children.push_back(path);
                const bool hasName = item.kind == QtItem::Kind::Item || item.kind == QtItem::Kind::Hidden;
                const bool isShown = item.kind != QtItem::Kind::Hidden;
                FakeAccessible object = qtItem(hasName ? "Item " + std::to_string(item.number) : "",
                    isShown ? static_cast<int>(std::lround(top * scale)) : 0,
                    isShown ? static_cast<int>(std::lround(item.height * scale)) : 0);
                object.states = item.isEnabled ? Visible : 0;
                if (item.kind == QtItem::Kind::Line)
                    object.role = AtspiRoleSeparator;
                if (item.opensMenu && hasName)
                    object.children = {path + "/popup"};
                application.objects[path + "/popup"] = {AtspiRolePopupMenu, "", 0, {}, "", path};
                application.objects[path] = object;
                top += isShown ? item.height : 0;
            }
        });
    }

    Titles titles(AtspiTree& from, const Element& item) {
        Titles result;
        for (const Element& menu : elements(from.attributeValue(item, attribute::Children))) {
            for (const Element& entry : elements(from.attributeValue(menu, attribute::Children)))
                result.push_back(string(from.attributeValue(entry, attribute::Title)));
        }
        return result;
    }

    // Title, state and number of menus.
    Titles read(AtspiTree::Reading reading = AtspiTree::Reading::OneLevel) {
        AtspiNodes nodes;
        AtspiTree fresh(connection, nodes, memory, reading);
        Titles result;
        connection.beginOperation();
        const Element file = element("/bar/file", AtspiToolkit::Qt, Place::InMenuBar);
        for (const Element& menu : elements(fresh.attributeValue(file, attribute::Children))) {
            for (const Element& item : elements(fresh.attributeValue(menu, attribute::Children))) {
                const std::string title = string(fresh.attributeValue(item, attribute::Title));
                if (title.empty() || title == "nil") {
                    result.push_back(title);
                    continue;
                }
                const bool isEnabled = fresh.attributeValue(item, attribute::Enabled) == Value(true);
                result.push_back(title + (isEnabled ? " on " : " off ")
                    + std::to_string(elements(fresh.attributeValue(item, attribute::Children)).size()));
            }
        }
        return result;
    }

    static Titles expected(const std::vector<QtItem>& items) {
        const bool isAllHidden =
            std::ranges::all_of(items, [](const QtItem& item) { return item.kind == QtItem::Kind::Hidden; });
        Titles result;
        for (const QtItem& item : items) {
            if (item.kind == QtItem::Kind::Line)
                result.emplace_back();
            else if (item.kind == QtItem::Kind::Widget)
                result.emplace_back("nil");
            else if (item.kind == QtItem::Kind::Item || isAllHidden)
                result.push_back("Item " + std::to_string(item.number) + (item.isEnabled ? " on " : " off ")
                    + (item.opensMenu ? "1" : "0"));
        }
        return result;
    }

    std::uint64_t messages() const { return connection.statistics().messagesSent; }
};

TEST_F(AtspiQtMenuTest, IsReadAgainWheneverItsItemsAreReplacedMeanwhile) {
    constexpr int count = 5;
    const auto titlesAre = [](const Titles& titles, const std::string& begin) {
        return titles.size() == count && std::ranges::all_of(titles, [&](const std::string& title) {
            return title.starts_with(begin) && title.ends_with(" on 0");
        });
    };
    bool wasLate = false;
    for (int question = 1; !wasLate; ++question) {
        ASSERT_LT(question, 100);
        std::vector<QtItem> items;
        for (int number = 0; number < count; ++number)
            items.push_back({number, QtItem::Kind::Item, 24, false, true});
        make(items, 1);
        application.change([&] {
            // This question about an item finds others in their place.
            application.beforeReply = [this, question, asked = 0](const std::string& path) mutable {
                if (!path.starts_with("/popup/") || ++asked != question)
                    return;
                auto& objects = application.objects;
                for (std::string& child : objects["/popup"].children) {
                    auto item = objects.extract(child);
                    item.key() = child = child + "new";
                    item.mapped().name = "New " + item.mapped().name;
                    objects.insert(std::move(item));
                }
            };
        });
        memory.forget();
        const Titles titles = read();
        wasLate = titlesAre(titles, "Item ");
        EXPECT_TRUE(wasLate || titlesAre(titles, "New ")) << "question " << question << ": " << titles.front();
    }
}

struct Style {
    const char* name;
    int extraHeight; // some items are up to so much higher than others
    bool hasWidgets;
    double scale;
};

class AtspiQtLayoutTest : public AtspiQtMenuTest, public ::testing::WithParamInterface<Style> {
protected:
    int below(int limit) { return static_cast<int>(_random() % static_cast<unsigned>(limit)); }

    QtItem randomItem() {
        QtItem item{_next++, QtItem::Kind::Item, 24, below(6) == 0, below(3) != 0};
        const int kind = below(10);
        if (kind < 2) {
            item = {item.number, QtItem::Kind::Line, 7, false, true};
        } else if (kind < 4) {
            item.kind = QtItem::Kind::Hidden;
        } else if (GetParam().hasWidgets && below(10) == 0) {
            item = {item.number, QtItem::Kind::Widget, 20 + below(50), false, true};
        } else if (GetParam().extraHeight > 0 && below(3) == 0) {
            item.height += below(GetParam().extraHeight + 1);
        }
        return item;
    }

    void changeSomething(std::vector<QtItem>& items) {
        const auto index = static_cast<std::size_t>(below(static_cast<int>(items.size())));
        QtItem& item = items[index];
        const auto position = items.begin() + static_cast<std::ptrdiff_t>(index);
        switch (below(5)) {
        case 0:
            items.insert(position, randomItem());
            break;
        case 1:
            if (items.size() > 1)
                items.erase(position);
            break;
        case 2:
            if (item.kind == QtItem::Kind::Hidden)
                item.kind = QtItem::Kind::Item;
            else if (item.kind == QtItem::Kind::Item)
                item.kind = QtItem::Kind::Hidden;
            break;
        case 3:
            item.opensMenu = !item.opensMenu;
            break;
        default:
            item.isEnabled = !item.isEnabled;
        }
    }

private:
    std::mt19937 _random{7};
    int _next = 0;
};

TEST_P(AtspiQtLayoutTest, IsReadAsItIsForTheFirstTimeAndAgain) {
    constexpr int menus = 25;
    constexpr int changes = 3;
    for (int number = 0; number < menus; ++number) {
        memory.forget();
        std::vector<QtItem> items;
        for (int count = 1 + below(70); count > 0; --count)
            items.push_back(randomItem());
        for (int change = 0; change <= changes; ++change) {
            make(items, GetParam().scale);
            const Titles wanted = expected(items);
            ASSERT_EQ(read(), wanted) << "menu " << number << " after " << change << " changes";
            ASSERT_EQ(read(AtspiTree::Reading::AllLevels), wanted) << number;
            for (int count = below(6); count > 0; --count)
                changeSomething(items);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Styles, AtspiQtLayoutTest,
    ::testing::Values(Style{"Plain", 0, false, 1}, Style{"SeveralHeights", 8, false, 1}, Style{"Widgets", 0, true, 1},
        Style{"Scaled", 0, false, 1.3}, Style{"ScaledHeights", 8, false, 1.3}),
    [](const auto& tested) { return tested.param.name; });

TEST_F(AtspiQtMenuTest, HidesAnItemBesideAWidget) {
    make({qtItem("A", 0, 24), qtItem("Hidden", 0, 0), qtItem("", 24, 30), qtItem("D", 54, 24), qtItem("E", 78, 24)});
    EXPECT_EQ(
        readLevel(tree, element("/bar/file", AtspiToolkit::Qt, Place::InMenuBar)), (Titles{"A", "nil", "D", "E"}));
}

TEST_F(AtspiQtMenuTest, ShowsTheTextThatALineHasGot) {
    FakeAccessible line = qtItem("", 0, 24);
    line.role = AtspiRoleSeparator;
    make({qtItem("A", 0, 24), line, qtItem("B", 48, 24)});
    EXPECT_EQ(read(), (Titles{"A off 0", "", "B off 0"}));
    application.change([&] { application.objects["/popup/1"].name = "Section"; });
    EXPECT_EQ(read(), (Titles{"A off 0", "Section off 0", "B off 0"}));
}

TEST_F(AtspiQtMenuTest, ShowsAnItemThatHasMovedToAMenuReadBefore) {
    application.change([&] {
        auto& objects = application.objects;
        objects["/bar"] = {AtspiRoleMenuBar, "", Visible, {"/a", "/b"}, "", ""};
        objects["/a"] = {AtspiRoleMenuItem, "A", Visible, {"/pa"}, "", "/bar"};
        objects["/b"] = {AtspiRoleMenuItem, "B", Visible, {"/pb"}, "", "/bar"};
        objects["/pa"] = {AtspiRolePopupMenu, "", 0, {"/1"}, "", "/a"};
        objects["/pb"] = {AtspiRolePopupMenu, "", 0, {"/2", "/x"}, "", "/b"};
        for (const char* name : {"1", "2", "x"})
            objects["/" + std::string(name)] = {AtspiRoleMenuItem, name, 0, {}, "", ""};
    });
    const auto readAll = [&] {
        AtspiNodes nodes;
        AtspiTree all(connection, nodes, memory, AtspiTree::Reading::AllLevels);
        std::vector<Titles> menus;
        for (const Element& item : elements(all.attributeValue(element("/bar", AtspiToolkit::Qt), attribute::Children)))
            menus.push_back(titles(all, item));
        return menus;
    };
    EXPECT_EQ(readAll(), (std::vector<Titles>{{"1"}, {"2", "x"}}));
    application.change([&] {
        application.objects["/pa"].children = {"/1", "/x"};
        application.objects["/pb"].children = {"/2"};
    });
    EXPECT_EQ(readAll(), (std::vector<Titles>{{"1", "x"}, {"2"}}));
}

TEST_F(AtspiQtMenuTest, AsksNoMoreOfHiddenItemsOnceTheMenuWasLaidOut) {
    make(std::vector<FakeAccessible>(30, qtItem("Item", 0, 0)));
    read();
    application.change([&] {
        for (int index = 0; index < 30; ++index) {
            FakeAccessible& item = application.objects["/popup/" + std::to_string(index)];
            item.top = index / 2 * 24;
            item.height = index % 2 == 0 ? 24 : 0;
        }
    });
    read();
    const auto before = messages();
    EXPECT_EQ(read().size(), 15U);
    // The states, keys and children of those that are to be seen; names and places of all; the opened item and its
    // menu.
    EXPECT_EQ(messages() - before, 15U * 3 + 30U * 2 + 3U);
}

TEST_F(AtspiTreeTest, KnowsTheLengthOfAMenuThatAnItemHasBecome) {
    makeGtkMenu(8);
    const auto lengthOfSecond = [&] {
        AtspiNodes nodes;
        AtspiTree fresh(connection, nodes, memory, AtspiTree::Reading::OneLevel);
        const Element file = element("/bar/file", AtspiToolkit::Gtk, Place::InMenuBar, 8);
        const auto menus = elements(fresh.attributeValue(file, attribute::Children));
        return AtspiElement::of(elements(fresh.attributeValue(menus.at(0), attribute::Children)).at(1))->childCount;
    };
    EXPECT_EQ(lengthOfSecond(), -1);
    application.change([&] {
        application.objects["/bar/file/1"].role = AtspiRoleMenu;
        application.objects["/bar/file/1"].children = {"/x", "/y", "/z"};
    });
    lengthOfSecond();
    EXPECT_EQ(lengthOfSecond(), 3);
}

} // namespace
} // namespace tarragon
