#include "PanelFixture.h"

#include "panels/TarragonSTPanel.h"

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// The window of a bar, which is shown, and titles in it.
class TarragonSTPanelTest : public PanelTest {
protected:
    TarragonSTPanelTest() {
        panel = nullptr;
        controller = nullptr;
        bar = std::make_unique<TarragonSTPanel>(services, Place);
        barController = std::make_unique<TarragonPanelController>(*bar);
        bar->orderFrontRegardless();
    }
    ~TarragonSTPanelTest() override {
        bar->setSubviews({});
        barController = nullptr;
    }

    std::shared_ptr<TarragonHackButton> addTitle(const std::string& text) {
        auto title = TarragonHackButton::initForSTWithTitle(text, 0, {services, owner, *barController});
        title->setAppleBar(true);
        title->setMenu(std::make_shared<Menu>(text));
        title->menu()->addItem(std::make_shared<MenuItem>("Item", "act", ""));
        bar->setSubviews({title});
        return title;
    }

    static constexpr Rect Place{{0, 100}, {400, 22}};
    std::unique_ptr<TarragonSTPanel> bar;
    std::unique_ptr<TarragonPanelController> barController;
};

TEST_F(TarragonSTPanelTest, HasATitleOfItsOwnAndNoBackground) {
    EXPECT_EQ(window().name, "TarragonSTPanel128");
    EXPECT_FALSE(window().content.background.showGradient);
    EXPECT_EQ(window().alpha, 1.0);
    EXPECT_TRUE(window().visible);
}

TEST_F(TarragonSTPanelTest, NeitherFadesNorIsDragged) {
    bar->setAlphaValue(0.9);
    window().movePointer(Point{10, 10});
    window().press(Point{10, 10});
    window().drag({10, 10}, {300, 300});
    window().release();
    window().movePointer(std::nullopt);
    EXPECT_EQ(window().frameNS, Place);
    EXPECT_EQ(window().alpha, 0.9);
    EXPECT_THAT(fake.runLoop.validTimers(), IsEmpty());
}

TEST_F(TarragonSTPanelTest, HandsThePointerToItsTitles) {
    const auto title = addTitle("File");
    window().press("File");
    EXPECT_EQ(openMenu(), "File");
    EXPECT_TRUE(title->bShow());
    window().rightPress("File");
    EXPECT_THAT(owner.asked, ElementsAre("popUpIgnoreMenu"));
}

TEST_F(TarragonSTPanelTest, TakesNoNoticeOfTitlesThatKeepPanelsFromFading) {
    addTitle("File")->setAppleBar(false);
    window().press("File");
    EXPECT_EQ(openMenu(), "File");
    fake.menuPresenter.closeMenus();
    EXPECT_EQ(window().alpha, 1.0);
}

// Moving bit by bit.

TEST_F(TarragonSTPanelTest, MovesToItsNewPlaceInFifteenHundredthsOfASecond) {
    int arrived = 0;
    bar->setFrameOriginAnimated({0, 150}, [&] { ++arrived; });
    EXPECT_EQ(bar->frame(), (Rect{{0, 150}, {400, 22}}));
    EXPECT_EQ(window().frameNS, Place);
    fake.runLoop.advance(0.1);
    EXPECT_GT(window().frameNS.origin.y, 100);
    EXPECT_LT(window().frameNS.origin.y, 150);
    EXPECT_EQ(arrived, 0);
    fake.runLoop.advance(0.06);
    EXPECT_EQ(window().frameNS, (Rect{{0, 150}, {400, 22}}));
    EXPECT_EQ(arrived, 1);
    EXPECT_THAT(fake.runLoop.validTimers(), IsEmpty());
}

TEST_F(TarragonSTPanelTest, IsAtItsNewPlaceAtOnceWhereNobodySeesIt) {
    int arrived = 0;
    const auto moveTo = [&](double y) { bar->setFrameOriginAnimated({0, y}, [&] { ++arrived; }); };
    bar->orderOut();
    moveTo(150);
    EXPECT_EQ(window().frameNS.origin.y, 150);
    bar->orderFrontRegardless();
    bar->setAlphaValue(0);
    moveTo(200);
    EXPECT_EQ(window().frameNS.origin.y, 200);
    bar->setAlphaValue(1);
    bar->setOutOfSight(true);
    moveTo(250);
    EXPECT_EQ(window().frameNS.origin.y, 250);
    EXPECT_EQ(arrived, 3);
}

TEST_F(TarragonSTPanelTest, GivesUpAMoveForAnotherPlace) {
    int arrived = 0;
    bar->setFrameOriginAnimated({0, 150}, [&] { ++arrived; });
    fake.runLoop.advance(0.1);
    bar->setFrame({{10, 300}, {400, 22}});
    EXPECT_EQ(window().frameNS, (Rect{{10, 300}, {400, 22}}));
    fake.runLoop.advance(1);
    EXPECT_EQ(window().frameNS, (Rect{{10, 300}, {400, 22}}));
    EXPECT_EQ(arrived, 0);
    bar->setFrameOriginAnimated({10, 350}, [&] { ++arrived; });
    bar->setFrameOriginAnimated({10, 400}, [&] { ++arrived; });
    fake.runLoop.advance(1);
    EXPECT_EQ(arrived, 1);
}

// On the screen or not.

TEST_F(TarragonSTPanelTest, IsOutOfSightWithoutForgettingThatItIsShown) {
    bar->setOutOfSight(true);
    EXPECT_FALSE(window().visible);
    EXPECT_TRUE(bar->isVisible());
    bar->orderFrontRegardless();
    bar->setFrame({{0, 50}, {400, 22}});
    bar->setLevel(PanelLevel::Dock);
    EXPECT_FALSE(window().visible);
    bar->setOutOfSight(false);
    EXPECT_TRUE(window().visible);
    bar->orderOut();
    bar->setOutOfSight(true);
    bar->setOutOfSight(false);
    EXPECT_FALSE(window().visible);
}

TEST_F(TarragonSTPanelTest, IsHiddenWhileItBecomesADockOrNoneAndForNoOtherLevel) {
    std::vector<std::string>& told = window().told;
    told.clear();
    bar->setLevel(PanelLevel::PopUpMenu);
    bar->setLevel(PanelLevel::FrontWindow);
    EXPECT_THAT(told, ElementsAre("level", "level"));
    told.clear();
    bar->setLevel(PanelLevel::Dock);
    EXPECT_THAT(told, ElementsAre("out", "level", "front"));
    told.clear();
    bar->setLevel(PanelLevel::Dock);
    EXPECT_THAT(told, ElementsAre("level"));
    told.clear();
    bar->setLevel(PanelLevel::FrontWindow);
    EXPECT_THAT(told, ElementsAre("out", "level", "front"));
    bar->orderOut();
    told.clear();
    bar->setLevel(PanelLevel::Dock);
    EXPECT_THAT(told, ElementsAre("out", "level", "out"));
}

} // namespace
} // namespace tarragon
