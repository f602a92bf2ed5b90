#include "panels/TitleRow.h"

#include "PanelFixture.h"
#include "panels/rules/HorizontalLayout.h"

namespace tarragon {

class TitleRowTest : public PanelTest {
protected:
    void add(const std::vector<std::string>& texts) {
        for (const std::string& text : texts) {
            titles.push_back(makeTitle(text, 0));
            titles.back()->sizeToFit(toolkit);
            auto item = std::make_shared<MenuItem>(text, "act", "");
            row.add(item, titles.back());
        }
    }
    std::vector<std::shared_ptr<PanelButton>> lineUp(
        const std::vector<std::int32_t>& positions, const std::optional<std::size_t>& firstInBunch = std::nullopt) {
        return row.lineUp(positions, firstInBunch, bunchButton, bunch, {13, false}, toolkit);
    }

    TitleRow row;
    std::shared_ptr<TarragonHackButton> bunchButton = makeTitle("", 400, false);
    std::shared_ptr<Menu> bunch = std::make_shared<Menu>("");
};

TEST_F(TitleRowTest, TellsTheWidthsOfItsTitles) {
    EXPECT_TRUE(row.widths().empty());
    add({"File", "Window"});
    EXPECT_EQ(row.widths(), (std::vector<double>{titles[0]->frame().size.width, titles[1]->frame().size.width}));
    EXPECT_LT(row.widths()[0], row.widths()[1]);
}

TEST_F(TitleRowTest, MovesEachTitleRightFromWhereItWasMade) {
    add({"File", "Edit"});
    const Point made = titles[0]->frame().origin;
    const auto shown = lineUp({10, 70});
    ASSERT_EQ(shown.size(), 2U);
    EXPECT_EQ(shown[0], titles[0]);
    EXPECT_EQ(shown[1], titles[1]);
    EXPECT_EQ(titles[0]->frame().origin, (Point{made.x + 10, made.y}));
    EXPECT_EQ(titles[1]->frame().origin, (Point{made.x + 70, made.y}));
    EXPECT_EQ(bunchButton->title(), "");
    EXPECT_EQ(bunchButton->menu(), nullptr);
    EXPECT_EQ(bunch->numberOfItems(), 0);
}

TEST_F(TitleRowTest, PutsThoseThatFindNoRoomIntoTheMenuOfTheBunchButton) {
    add({"File", "Edit", "View"});
    const auto shown = lineUp({0}, 1);
    ASSERT_EQ(shown.size(), 2U);
    EXPECT_EQ(shown[0], titles[0]);
    EXPECT_EQ(shown[1], bunchButton);
    EXPECT_EQ(bunchButton->title(), "▿");
    EXPECT_EQ(bunchButton->menu(), bunch);
    ASSERT_EQ(bunch->numberOfItems(), 2);
    EXPECT_EQ(bunch->items()[0]->title(), "Edit");
    EXPECT_EQ(bunch->items()[1]->title(), "View");
    EXPECT_EQ(bunch->font(), (MenuFont{13, false}));
    EXPECT_EQ(bunchButton->frame().origin, bunchButtonOrigin(titles[0]->frame()));
}

TEST_F(TitleRowTest, LeavesTheBunchButtonWhereItIsWhenItIsAlone) {
    add({"File"});
    const Point made = bunchButton->frame().origin;
    const auto shown = lineUp({}, 0);
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(shown[0], bunchButton);
    EXPECT_EQ(bunchButton->frame().origin, made);
}

TEST_F(TitleRowTest, PlacesTheBunchButtonByTheLastTitleButOneWhenAllFindRoom) {
    add({"File", "Edit", "View"});
    EXPECT_EQ(lineUp({0, 60, 120}).size(), 3U);
    EXPECT_EQ(bunchButton->frame().origin, bunchButtonOrigin(titles[1]->frame()));
}

} // namespace tarragon
