// The menus as they open, read afresh and from the cache, against what an independent reader says of the application.
#include "EndToEndTest.h"
#include "MirrorProbe.h"

#include <iostream>

namespace tarragon::e2e {

class CacheTest : public ApplicationTest {
protected:
    static std::string report(const std::vector<std::string>& sentences) {
        std::string text;
        for (const std::string& sentence : sentences)
            text += sentence + "\n";
        return text;
    }

    // One menu of the mirror that the application ought to give.
    static const Menu& menuOf(const Menu& mirror, const std::string& title) {
        static const Menu none;
        const MenuRecord* menu = itemAtPath(mirror, {title});
        return menu ? menu->items : none;
    }

    // Presses an item with another program's hands, and waits until the application shows it.
    void switchFromOutside(TestApplication& application) {
        bool before = application.switchState();
        ASSERT_TRUE(desktop().reader().press(application.identifier(), application.switchPath()));
        ASSERT_TRUE(waitUntil([&] { return application.switchState() != before; }));
    }
};

TEST_P(CacheTest, CachedAndUncachedOpeningsShowTheSameItems) {
    TestApplication& application = launch();
    MirrorProbe probe(desktop());
    probe.ask("fill off");
    Menu mirror = application.expectedMirror();
    std::vector<std::string> titles = probe.update();
    EXPECT_EQ(titles, titlesOf(mirror));
    std::size_t items = 0;
    int cachedMenus = 0;
    for (const std::string& title : titles) {
        probe.ask("forget");
        MirrorProbe::Opening fresh = probe.open(title);
        EXPECT_FALSE(fresh.cached) << title;
        EXPECT_EQ(report(differences(menuOf(mirror, title), fresh.items)), "") << title;
        // Only menus that the rules exclude are not filled.
        bool mayBeCached = title != "Window";
        ASSERT_EQ(probe.ask("cache " + title), mayBeCached) << title;
        MirrorProbe::Opening cached = probe.open(title);
        EXPECT_EQ(cached.cached, mayBeCached) << title;
        EXPECT_EQ(report(differences(menuOf(mirror, title), cached.items)), "") << title;
        items += countItems(fresh.items) + countItems(cached.items);
        cachedMenus += cached.cached ? 1 : 0;
    }
    EXPECT_GE(cachedMenus, 5);
    std::cout << items << " items compared, " << cachedMenus << " cached menus\n";
}

TEST_P(CacheTest, OpensEveryMenuRightAfterARebuildThatFillsTheCache) {
    TestApplication& application = launch();
    MirrorProbe probe(desktop());
    Menu mirror = application.expectedMirror();
    for (int round = 0; round < 3; ++round) {
        std::vector<std::string> titles = probe.update();
        int cachedMenus = 0;
        for (const std::string& title : titles) {
            MirrorProbe::Opening opening = probe.open(title);
            EXPECT_EQ(report(differences(menuOf(mirror, title), opening.items)), "") << title << " round " << round;
            cachedMenus += opening.cached ? 1 : 0;
        }
        EXPECT_GE(cachedMenus, 1);
    }
}

TEST_P(CacheTest, ShowsAMarkThatChangedAfterTheFilling) {
    TestApplication& application = launch();
    MirrorProbe probe(desktop());
    probe.ask("fill off");
    probe.update();
    std::string title = application.switchPath()[0];
    for (int round = 0; round < 2; ++round) {
        probe.ask("forget");
        ASSERT_EQ(probe.ask("cache " + title), true);
        Menu before = menuOf(application.expectedMirror(), title);
        ASSERT_LE(before.size(), 75U);
        switchFromOutside(application);
        Menu after = menuOf(application.expectedMirror(), title);
        MirrorProbe::Opening opening = probe.open(title);
        EXPECT_TRUE(opening.cached);
        EXPECT_EQ(report(differences(after, opening.items)), "") << "round " << round;
        // Mousepad's items never say that they are marked.
        if (application.kind() != ApplicationKind::Mousepad) {
            EXPECT_NE(report(differences(before, opening.items)), "") << "round " << round;
        }
    }
}

TEST_P(CacheTest, ShowsAnEnabledStateThatChangedAfterTheFilling) {
    TestApplication& application = launch();
    MirrorProbe probe(desktop());
    probe.ask("fill off");
    probe.update();
    ASSERT_EQ(probe.ask("cache Edit"), true);
    auto canUndo = [&] {
        Menu menu = application.expectedMenu("Edit");
        const MenuRecord* undo = itemAtPath(menu, {"Undo"});
        return undo && undo->enabled;
    };
    ASSERT_FALSE(canUndo());
    MirrorProbe::Opening before = probe.open("Edit");
    EXPECT_TRUE(before.cached);
    ASSERT_NE(itemAtPath(before.items, {"Undo"}), nullptr);
    EXPECT_FALSE(itemAtPath(before.items, {"Undo"})->enabled);

    // A letter is typed, which can be undone.
    input().tap('x');
    ASSERT_TRUE(waitUntil(canUndo));
    Menu after = menuOf(application.expectedMirror(), "Edit");
    ASSERT_LE(after.size(), 75U);
    MirrorProbe::Opening opening = probe.open("Edit");
    EXPECT_TRUE(opening.cached);
    EXPECT_TRUE(itemAtPath(opening.items, {"Undo"})->enabled);
    EXPECT_EQ(report(differences(after, opening.items)), "");
}

INSTANTIATE_TEST_SUITE_P(Under, CacheTest, testing::Combine(EveryWindowManager, EveryApplication), nameOfApplication);

} // namespace tarragon::e2e
