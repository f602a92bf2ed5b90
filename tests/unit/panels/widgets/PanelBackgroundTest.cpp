#include "PaintedPanel.h"

#include <gtest/gtest.h>

namespace tarragon {

namespace {

constexpr QSize Panel = {200, 24};

QImage painted(const ZDGradientView& background, const QPalette& palette = lightPalette(), double scale = 1) {
    PanelContent content;
    content.background = background;
    return paintedPanel(content, Panel, palette, scale);
}

ZDGradientView panelBackground() {
    return {.startingColor = {0.45, 1},
        .endingColor = Grey{0.95, 1},
        .angle = 90,
        .showGradient = true,
        .roundedCorners = true};
}

ZDGradientView barBackground() {
    return {.startingColor = {0.807, 1},
        .endingColor = Grey{0.98, 1},
        .angle = 90,
        .showGradient = true,
        .roundedCorners = false};
}

TEST(PanelBackground, IsNotDrawnUnlessItIsShown) {
    ZDGradientView background = panelBackground();
    background.showGradient = false;
    EXPECT_TRUE(inkOf(painted(background)).isNull());
    EXPECT_TRUE(inkOf(painted(ZDGradientView{})).isNull());
}

TEST(PanelBackground, IsFlatWithoutAnEndingColour) {
    for (const auto& ending : {std::optional<Grey>(), std::optional<Grey>(Grey{0.6, 1})}) {
        for (const bool rounded : {true, false}) {
            const QImage image = painted({.startingColor = {0.6, 1},
                .endingColor = ending,
                .angle = 270,
                .showGradient = true,
                .roundedCorners = rounded});
            // To the corners, without an outline and without a rule.
            for (int y = 0; y < image.height(); ++y) {
                for (int x = 0; x < image.width(); ++x)
                    ASSERT_EQ(image.pixel(x, y), qRgb(153, 153, 153)) << x << ' ' << y;
            }
        }
    }
}

TEST(PanelBackground, RisesFromTheStartingColourAtAQuarterTurn) {
    const QImage image = painted(panelBackground());
    EXPECT_NEAR(grey(image, 100, 22), 0.45 * 255 + 0.5 * 255 * 1.5 / 24, 2);
    EXPECT_NEAR(grey(image, 100, 12), 0.70 * 255, 4);
    EXPECT_NEAR(grey(image, 100, 1), 0.95 * 255 - 0.5 * 255 * 1.5 / 24, 2);
}

TEST(PanelBackground, FollowsTheAngle) {
    ZDGradientView background = barBackground();
    background.startingColor = {0, 1};
    background.endingColor = Grey{1, 1};
    struct Row {
        int angle;
        QPoint darkest;
        QPoint brightest;
    };
    const Row rows[] = {
        {0, {0, 10}, {199, 10}},
        {180, {199, 10}, {0, 10}},
        {90, {100, 21}, {100, 0}},
        {270, {100, 0}, {100, 21}},
        {-90, {100, 0}, {100, 21}},
        {450, {100, 21}, {100, 0}},
        {45, {0, 21}, {199, 0}},
        {135, {199, 21}, {0, 0}},
    };
    for (const Row& row : rows) {
        background.angle = row.angle;
        const QImage image = painted(background);
        EXPECT_LT(grey(image, row.darkest.x(), row.darkest.y()), 30) << row.angle;
        EXPECT_GT(grey(image, row.brightest.x(), row.brightest.y()), 255 - 30) << row.angle;
    }
}

TEST(PanelBackground, HasHighRoundedCorners) {
    const QImage image = painted(panelBackground());
    for (const int x : {0, 199}) {
        for (const int y : {0, 23})
            EXPECT_LT(alpha(image, x, y), 128) << x << ' ' << y;
    }
    // Two points wide and ten high.
    EXPECT_LT(alpha(image, 0, 3), 255);
    EXPECT_EQ(alpha(image, 0, 11), 255);
    EXPECT_EQ(alpha(image, 3, 0), 255);
    EXPECT_EQ(alpha(image, 3, 23), 255);
}

TEST(PanelBackground, HasADarkHairlineAroundRoundedCorners) {
    for (const double scale : {1.0, 1.5, 2.0}) {
        const QImage image = painted(panelBackground(), lightPalette(), scale);
        const int middle = image.width() / 2;
        const int bottom = image.height() - 1;
        EXPECT_EQ(grey(image, middle, 0), 85) << scale;
        EXPECT_EQ(grey(image, middle, bottom), 85) << scale;
        EXPECT_NEAR(grey(image, 0, image.height() / 2), 85, 1) << scale;
        // One pixel at every scale.
        EXPECT_GT(grey(image, middle, 1), 220) << scale;
        EXPECT_GT(grey(image, middle, bottom - 1), 110) << scale;
    }
}

TEST(PanelBackground, HasARuleBelowWithoutRoundedCorners) {
    const QImage image = painted(barBackground());
    for (const int x : {0, 100, 199}) {
        EXPECT_EQ(image.pixel(x, 23), qRgb(0, 0, 0)) << x;
        EXPECT_GT(grey(image, x, 22), 200) << x;
        EXPECT_GT(grey(image, x, 0), 240) << x; // no outline
    }
    EXPECT_EQ(alpha(image, 0, 0), 255);
}

TEST(PanelBackground, IsTurnedRoundUnderADarkTheme) {
    const QImage rounded = painted(panelBackground(), darkPalette());
    EXPECT_NEAR(grey(rounded, 100, 22), 0.55 * 255 - 0.5 * 255 * 1.5 / 24, 2);
    EXPECT_NEAR(grey(rounded, 100, 1), 0.05 * 255 + 0.5 * 255 * 1.5 / 24, 2);
    EXPECT_EQ(grey(rounded, 100, 0), 170);
    const QImage bar = painted(barBackground(), darkPalette());
    EXPECT_EQ(bar.pixel(100, 23), qRgb(0, 0, 0)); // the rule stays dark
    EXPECT_GT(grey(bar, 100, 22), 40);
    EXPECT_NEAR(grey(bar, 100, 0), 0.02 * 255, 2);
}

TEST(PanelBackground, KeepsTranslucentGreys) {
    const QImage image = painted({.startingColor = {1, 0.5},
        .endingColor = std::nullopt,
        .angle = 0,
        .showGradient = true,
        .roundedCorners = true});
    EXPECT_NEAR(alpha(image, 100, 12), 128, 1);
}

TEST(PanelBackground, FitsIntoTheSmallestPanel) {
    PanelContent content;
    content.background = panelBackground();
    EXPECT_GT(alpha(paintedPanel(content, {1, 1}), 0, 0), 0);
}

} // namespace

} // namespace tarragon
