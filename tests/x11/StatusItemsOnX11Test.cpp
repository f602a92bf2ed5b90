#include "EmbeddingTrayWindow.h"
#include "NotifierTray.h"

#include "platform/linux/tray/X11EmbeddingTray.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/qt/QtRunLoop.h"
#include "platform/qt/QtStatusItems.h"

#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include <QApplication>
#include <QMenu>
#include <QTest>

#include <gmock/gmock.h>

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::IsSupersetOf;

class StatusItemsOnX11 : public testing::Test {
protected:
    std::unique_ptr<StatusItem> addItem() {
        return items.addItem({"statusItemIcon", "statusItemIconInverse",
            {{"About Tarragon...", [this] { chosen += "about "; }}, {"Preferences...", [this] { chosen += "prefs "; }},
                {"Check for Updates", [this] { chosen += "updates "; }}, {"Help...", [this] { chosen += "help "; }},
                {"Quit & more", [this] { chosen += "quit "; }}}});
    }
    template <typename Condition>
    static bool waitFor(Condition condition) {
        return QTest::qWaitFor(condition, 20000);
    }
    template <typename Tray>
    static bool waitForItems(Tray& tray, std::size_t count) {
        return waitFor([&] { return tray.itemCount() == count; });
    }
    // Until all that was under way has been seen.
    static void settle() { QTest::qWait(100); }
    static QMenu* openMenu() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }
    static std::vector<std::string> titlesOf(NotifierTray& tray) {
        std::vector<std::string> titles;
        for (const auto& [number, title] : tray.menu())
            titles.push_back(title);
        return titles;
    }

    QtRunLoop runLoop;
    std::unique_ptr<X11Connection> connection = X11Connection::connect(std::getenv("DISPLAY"));
    X11EmbeddingTray embeddingTray{*connection, runLoop};
    QtStatusItems items{runLoop, &embeddingTray};
    std::string chosen;
};

TEST_F(StatusItemsOnX11, WaitWithoutATray) {
    auto item = addItem();
    settle();
    item.reset();
    settle();
}

TEST_F(StatusItemsOnX11, AppearInAnEmbeddingTrayAndGoWithTheirObject) {
    EmbeddingTrayWindow tray;
    auto item = addItem();
    EXPECT_TRUE(waitForItems(tray, 1));
    item.reset();
    EXPECT_TRUE(waitForItems(tray, 0));
}

TEST_F(StatusItemsOnX11, AppearInAnEmbeddingTrayThatComesLater) {
    const auto item = addItem();
    settle();
    EmbeddingTrayWindow tray;
    EXPECT_TRUE(waitForItems(tray, 1));
}

TEST_F(StatusItemsOnX11, SurviveTheEndOfAnEmbeddingTrayAndAppearInTheNextOne) {
    auto tray = std::make_unique<EmbeddingTrayWindow>();
    const auto item = addItem();
    EXPECT_TRUE(waitForItems(*tray, 1));
    tray.reset();
    settle();
    tray = std::make_unique<EmbeddingTrayWindow>();
    EXPECT_TRUE(waitForItems(*tray, 1));
}

TEST_F(StatusItemsOnX11, MoveToAnEmbeddingTrayThatTakesThePlaceOfAnother) {
    EmbeddingTrayWindow first;
    const auto item = addItem();
    EXPECT_TRUE(waitForItems(first, 1));
    EmbeddingTrayWindow second;
    EXPECT_TRUE(waitForItems(second, 1));
    EXPECT_TRUE(waitForItems(first, 0));
}

TEST_F(StatusItemsOnX11, LieOnTheColourOfTheEmbeddingTrayInInkThatStandsOut) {
    for (const auto& [colour, ink] : {std::pair{0xF0F0F0U, 0x2E3436U}, std::pair{0x202428U, 0xFFFFFFU}}) {
        EmbeddingTrayWindow tray(colour);
        const auto item = addItem();
        // The corner is free and the middle is the stem of the sprig.
        EXPECT_TRUE(waitFor([&] { return tray.pixel(12, 12) == ink; })) << std::hex << tray.pixel(12, 12);
        EXPECT_EQ(tray.pixel(0, 0), colour);
    }
}

TEST_F(StatusItemsOnX11, AreDrawnAnewInTheSizeOfTheEmbeddingTray) {
    EmbeddingTrayWindow tray(0xF0F0F0, 24);
    const auto item = addItem();
    EXPECT_TRUE(waitFor([&] { return tray.pixel(12, 12) == 0x2E3436U; }));
    tray.resize(48);
    // The lower end of the stem, which the smaller picture does not reach.
    EXPECT_TRUE(waitFor([&] { return tray.pixel(24, 46) == 0x2E3436U; }));
}

TEST_F(StatusItemsOnX11, OpenTheirMenuInAnEmbeddingTrayWithEitherButton) {
    EmbeddingTrayWindow tray;
    const auto item = addItem();
    ASSERT_TRUE(waitFor([&] { return tray.pixel(12, 12) == 0x2E3436U; }));
    for (const std::uint8_t button : {1, 3}) {
        tray.click(button);
        ASSERT_TRUE(waitFor([] { return openMenu() != nullptr; }));
        ASSERT_EQ(openMenu()->actions().size(), 5);
        EXPECT_EQ(openMenu()->actions().at(4)->text(), "Quit && more");
        openMenu()->close();
    }
}

TEST_F(StatusItemsOnX11, CallTheActionOfTheChosenItemFromTheRunLoop) {
    EmbeddingTrayWindow tray;
    const auto item = addItem();
    ASSERT_TRUE(waitFor([&] { return tray.pixel(12, 12) == 0x2E3436U; }));
    tray.click();
    ASSERT_TRUE(waitFor([] { return openMenu() != nullptr; }));
    QMenu* const menu = openMenu();
    menu->actions().at(4)->trigger();
    EXPECT_EQ(chosen, "");
    EXPECT_TRUE(waitFor([&] { return chosen == "quit "; }));
    menu->close();
}

TEST_F(StatusItemsOnX11, CanBeTakenAwayByTheirOwnAction) {
    NotifierTray tray;
    std::unique_ptr<StatusItem> item;
    item = items.addItem({"statusItemIcon", "", {{"Remove", [&] { item.reset(); }}}});
    ASSERT_TRUE(waitForItems(tray, 1));
    ASSERT_EQ(tray.menu().size(), 1U);
    tray.choose(tray.menu().front().first);
    EXPECT_TRUE(waitFor([&] { return !item; }));
    EXPECT_TRUE(waitForItems(tray, 0));
}

TEST_F(StatusItemsOnX11, AppearAsNotifierItemsAndGoWithTheirObject) {
    NotifierTray tray;
    auto item = addItem();
    EXPECT_TRUE(waitForItems(tray, 1));
    item.reset();
    EXPECT_TRUE(waitForItems(tray, 0));
}

TEST_F(StatusItemsOnX11, AppearAsNotifierItemsOfAWatcherThatComesLater) {
    const auto item = addItem();
    settle();
    NotifierTray tray;
    EXPECT_TRUE(waitForItems(tray, 1));
}

TEST_F(StatusItemsOnX11, WaitForTheHostOfAWatcher) {
    const auto item = addItem();
    NotifierTray tray(NotifierTray::Host::Absent);
    settle();
    EXPECT_EQ(tray.itemCount(), 0U);
    tray.registerHost();
    EXPECT_TRUE(waitForItems(tray, 1));
}

TEST_F(StatusItemsOnX11, SurviveTheEndOfAWatcherAndAppearWithTheNextOne) {
    auto tray = std::make_unique<NotifierTray>();
    const auto item = addItem();
    EXPECT_TRUE(waitForItems(*tray, 1));
    tray.reset();
    settle();
    tray = std::make_unique<NotifierTray>();
    EXPECT_TRUE(waitForItems(*tray, 1));
    EXPECT_EQ(titlesOf(*tray).size(), 5U);
}

TEST_F(StatusItemsOnX11, MoveToAWatcherThatComesAndBackToTheEmbeddingTrayWhenItGoes) {
    EmbeddingTrayWindow embedding;
    const auto item = addItem();
    EXPECT_TRUE(waitForItems(embedding, 1));
    auto notifier = std::make_unique<NotifierTray>();
    EXPECT_TRUE(waitForItems(*notifier, 1));
    EXPECT_TRUE(waitForItems(embedding, 0));
    notifier.reset();
    EXPECT_TRUE(waitForItems(embedding, 1));
}

TEST_F(StatusItemsOnX11, StayWithTheWatcherWhenAnEmbeddingTrayComes) {
    NotifierTray notifier;
    const auto item = addItem();
    EXPECT_TRUE(waitForItems(notifier, 1));
    EmbeddingTrayWindow embedding;
    settle();
    EXPECT_EQ(embedding.itemCount(), 0U);
    EXPECT_EQ(notifier.itemCount(), 1U);
}

TEST_F(StatusItemsOnX11, ShowTheirMenuOverTheBusAndCallItsActions) {
    NotifierTray tray;
    const auto item = addItem();
    ASSERT_TRUE(waitForItems(tray, 1));
    EXPECT_THAT(titlesOf(tray),
        ElementsAre(
            "About Tarragon...", "Preferences...", "Check for Updates", "Help...", testing::EndsWith("& more")));
    for (const auto& [number, title] : tray.menu())
        tray.choose(number);
    EXPECT_TRUE(waitFor([&] { return chosen == "about prefs updates help quit "; })) << chosen;
}

TEST_F(StatusItemsOnX11, TellTheirPictureInTheSizesOfTrays) {
    NotifierTray tray;
    const auto item = addItem();
    ASSERT_TRUE(waitForItems(tray, 1));
    EXPECT_THAT(tray.iconSizes(), IsSupersetOf({16, 22, 24, 32}));
    EXPECT_EQ(tray.iconPixel(24, 12, 12), 0xFF2E3436U);
    EXPECT_EQ(tray.iconPixel(24, 0, 0), 0U);
}

TEST_F(StatusItemsOnX11, FollowTheColoursOfTheDesktop) {
    NotifierTray tray;
    const auto item = addItem();
    ASSERT_TRUE(waitForItems(tray, 1));
    const QPalette light = QApplication::palette();
    QPalette dark = light;
    dark.setColor(QPalette::Window, QColor(30, 30, 30));
    QApplication::setPalette(dark);
    EXPECT_TRUE(waitFor([&] { return tray.iconPixel(24, 12, 12) == 0xFFFFFFFFU; }));
    QApplication::setPalette(light);
    EXPECT_TRUE(waitFor([&] { return tray.iconPixel(24, 12, 12) == 0xFF2E3436U; }));
}

} // namespace
} // namespace tarragon
