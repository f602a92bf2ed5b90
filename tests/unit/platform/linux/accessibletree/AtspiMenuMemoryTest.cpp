// What is remembered of menus, and how they are read again with it.
#include "bus/AtspiTreeFixture.h"

#include <thread>

namespace tarragon {
namespace {

AtspiNodes::Wanted items(std::size_t count) {
    AtspiNodes::Wanted result;
    for (std::size_t index = 0; index < count; ++index)
        result.emplace_back(AtspiReference{":1.1", "/item/" + std::to_string(index)}, AtspiFieldName);
    return result;
}

AtspiReference menu(int number) {
    return {":1.1", "/menu/" + std::to_string(number)};
}

TEST(AtspiMenuMemory, KeepsTheLatestOfEachMenu) {
    AtspiMenuMemory memory;
    EXPECT_TRUE(memory.itemsOf(menu(1)).empty());
    memory.remember(menu(1), items(3));
    memory.remember(menu(2), items(5));
    memory.remember(menu(1), items(4));
    EXPECT_EQ(memory.itemsOf(menu(1)), items(4));
    EXPECT_EQ(memory.itemsOf(menu(2)), items(5));
    memory.remember(menu(1), {});
    EXPECT_TRUE(memory.itemsOf(menu(1)).empty());
    memory.forget();
    EXPECT_TRUE(memory.itemsOf(menu(2)).empty());
}

TEST(AtspiMenuMemory, ForgetsWhatItKnewOfAnotherBus) {
    AtspiMenuMemory memory;
    memory.useBus(1);
    memory.remember(menu(1), items(3));
    memory.useBus(1);
    EXPECT_EQ(memory.itemsOf(menu(1)), items(3));
    memory.useBus(2);
    EXPECT_TRUE(memory.itemsOf(menu(1)).empty());
}

TEST(AtspiMenuMemory, KeepsNoLongMenus) {
    AtspiMenuMemory memory;
    memory.remember(menu(1), items(200));
    EXPECT_EQ(memory.itemsOf(menu(1)).size(), 200U);
    memory.remember(menu(1), items(201));
    EXPECT_TRUE(memory.itemsOf(menu(1)).empty());
}

TEST(AtspiMenuMemory, BeginsAnewWhenItIsFull) {
    AtspiMenuMemory memory;
    for (int number = 0; number < 10; ++number)
        memory.remember(menu(number), items(200));
    EXPECT_EQ(memory.itemsOf(menu(0)).size(), 200U);
    // In the place of one that is there.
    memory.remember(menu(0), items(200));
    EXPECT_EQ(memory.itemsOf(menu(9)).size(), 200U);
    memory.remember(menu(10), items(1));
    EXPECT_TRUE(memory.itemsOf(menu(0)).empty());
    EXPECT_EQ(memory.itemsOf(menu(10)).size(), 1U);
}

TEST(AtspiMenuMemory, IsUsedByTwoThreadsAtOnce) {
    AtspiMenuMemory memory;
    const auto use = [&memory](std::size_t first) {
        for (int round = 0; round < 2000; ++round) {
            memory.remember(menu(round % 7), items(first + static_cast<std::size_t>(round) % 5));
            const std::size_t count = memory.itemsOf(menu((round + 3) % 7)).size();
            EXPECT_LE(count, 300U);
            if (round % 500 == 0)
                memory.forget();
        }
    };
    std::thread other(use, 150);
    use(3);
    other.join();
}

class AtspiMenuReadAgainTest : public AtspiTreeTest, public ::testing::WithParamInterface<AtspiToolkit> {
protected:
    bool isGtk() const { return GetParam() == AtspiToolkit::Gtk; }
    std::string menuPath() const { return isGtk() ? "/bar/file" : "/popup"; }
    FakeAccessible& object(int index) { return application.objects[menuPath() + "/" + std::to_string(index)]; }

    void make(int count) {
        if (isGtk())
            makeGtkMenu(count);
        else
            makeQtMenu(count);
    }

    // The item of the menu bar, which knows what it opened before.
    Element file() {
        AtspiNodes nodes;
        AtspiTree bar(connection, nodes, memory, AtspiTree::Reading::OneLevel);
        const auto found = elements(bar.attributeValue(element("/bar", GetParam()), attribute::Children));
        return found.empty() ? Element() : found.front();
    }

    // Title, enabled, mark, key and number of menus of each item, read anew.
    std::vector<std::string> read(const Element& opened) {
        std::vector<std::string> lines;
        AtspiNodes nodes;
        AtspiTree fresh(connection, nodes, memory, AtspiTree::Reading::OneLevel);
        for (const Element& menu : elements(fresh.attributeValue(opened, attribute::Children))) {
            for (const Element& item : elements(fresh.attributeValue(menu, attribute::Children))) {
                std::string line;
                for (const auto name : {attribute::Title, attribute::MenuItemMarkChar, attribute::MenuItemShortcutText})
                    line += string(fresh.attributeValue(item, name)) + "|";
                line += fresh.attributeValue(item, attribute::Enabled) == Value(true) ? "enabled|" : "disabled|";
                line += std::to_string(elements(fresh.attributeValue(item, attribute::Children)).size());
                lines.push_back(line);
            }
        }
        return lines;
    }

    // The same without any memory.
    std::vector<std::string> readForTheFirstTime(const Element& opened) {
        memory.forget();
        return read(opened);
    }

    std::uint64_t messages() const { return connection.statistics().messagesSent; }
};

TEST_P(AtspiMenuReadAgainTest, AsksOnlyOnceForAllOfAMenuThatItHasRead) {
    make(40);
    const Element opened = file();
    const auto first = readForTheFirstTime(opened);
    EXPECT_EQ(first.size(), 40U);
    const auto before = connection.statistics();
    EXPECT_EQ(read(opened), first);
    EXPECT_EQ(connection.statistics().roundTrips - before.roundTrips, 1U);
    // And for no more than is needed.
    const auto messagesOfSecond = messages() - before.messagesSent;
    EXPECT_EQ(read(opened), first);
    EXPECT_EQ(messages() - before.messagesSent, 2 * messagesOfSecond);
    readForTheFirstTime(opened);
    EXPECT_LE(messagesOfSecond, messages() - before.messagesSent - 2 * messagesOfSecond);
}

TEST_P(AtspiMenuReadAgainTest, ReadsWhatHasChangedInAMenuThatItHasRead) {
    constexpr std::uint64_t checked = 1ULL << 4U;
    constexpr std::uint64_t enabled = (1ULL << 8U) | (1ULL << 24U);
    const std::vector<std::function<void()>> changes{
        [&] { object(1).name = "Renamed"; },
        [&] { object(1).states ^= enabled; },
        [&] { object(1).states ^= checked; },
        [&] { object(1).keyBinding = isGtk() ? ";;<Primary>q" : "Ctrl+Q"; },
        [&] {
            object(1) = {AtspiRoleSeparator, "", isGtk() ? Visible : 0, {}, "", menuPath(), true, 5, false};
        },
        [&] { object(1).name.clear(); },
        // Gone, all gone, one that was not there, others in another order.
        [&] { application.objects[menuPath()].children.erase(application.objects[menuPath()].children.begin() + 1); },
        [&] { application.objects[menuPath()].children.clear(); },
        [&] {
            application.objects[menuPath()].children.insert(
                application.objects[menuPath()].children.begin(), menuPath() + "/new");
            application.objects[menuPath() + "/new"] = object(1);
        },
        [&] { std::ranges::reverse(application.objects[menuPath()].children); },
        // It opens a menu now, or none any more.
        [&] {
            if (isGtk())
                object(1).role = AtspiRoleMenu;
            else
                object(1).children = {menuPath() + "/4/popup"};
        },
        [&] {
            object(4).role = AtspiRoleMenuItem;
            object(4).children.clear();
        },
        // Hidden, and shown again.
        [&] {
            object(1).states = 0;
            object(1).height = 0;
        },
    };
    for (std::size_t index = 0; index < changes.size(); ++index) {
        make(8);
        const Element opened = file();
        const auto before = readForTheFirstTime(opened);
        EXPECT_EQ(before.size(), 8U);
        const auto objects = application.objects;
        application.change(changes[index]);
        const auto now = read(opened);
        EXPECT_NE(now, before) << index;
        EXPECT_EQ(now, readForTheFirstTime(opened)) << index;
        application.change([&] { application.objects = objects; });
        EXPECT_EQ(read(opened), before) << index;
    }
}

TEST_P(AtspiMenuReadAgainTest, ReadsAllLevelsAgainWithAsManyWaitsAsThereAreLevels) {
    make(40);
    const auto readAll = [&] {
        AtspiNodes nodes;
        AtspiTree all(connection, nodes, memory, AtspiTree::Reading::AllLevels);
        const auto before = connection.statistics().roundTrips;
        EXPECT_EQ(elements(all.attributeValue(element("/bar", GetParam()), attribute::Children)).size(), 1U);
        return connection.statistics().roundTrips - before;
    };
    const auto first = readAll();
    const auto second = readAll();
    // The menu bar, its menu, and the empty ones below.
    EXPECT_LE(second, 3U);
    EXPECT_LT(second, first);
}

INSTANTIATE_TEST_SUITE_P(Toolkits, AtspiMenuReadAgainTest, ::testing::Values(AtspiToolkit::Gtk, AtspiToolkit::Qt),
    [](const auto& tested) { return tested.param == AtspiToolkit::Gtk ? "Gtk" : "Qt"; });

} // namespace
} // namespace tarragon
