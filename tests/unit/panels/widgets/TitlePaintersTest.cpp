#include "PaintedPanel.h"

#include <cmath>
#include <functional>

#include <gtest/gtest.h>

namespace tarragon {

namespace {

constexpr QSize Panel = {200, 24};
constexpr QSize Bar = {200, 22};

int count(const QImage& image, const QRect& area, const std::function<bool(const QColor&)>& isOfInterest) {
    int found = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x)
            found += isOfInterest(image.pixelColor(x, y)) ? 1 : 0;
    }
    return found;
}

bool isBlack(const QColor& color) {
    return color.alpha() > 200 && color.lightness() < 40;
}

bool isWhite(const QColor& color) {
    return color.alpha() > 200 && color.lightness() > 215;
}

// The columns and rows with ink of that kind.
QRect extent(const QImage& image, const std::function<bool(const QColor&)>& isOfInterest) {
    QRect area;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (isOfInterest(image.pixelColor(x, y)))
                area |= QRect(x, y, 1, 1);
        }
    }
    return area;
}

ButtonContent wide(ButtonContent button, double width) {
    button.frame.size.width = width;
    return button;
}

TEST(MenuBarTitlePainter, DrawsBlackTitlesOnASheen) {
    ButtonContent button = buttonTitled("", ButtonLook::MenuBar);
    button.frame = {{10, 3}, {60, 18}};
    const QImage empty = paintedPanel(panelWith({button}), Panel);
    EXPECT_EQ(inkOf(empty), QRect(10, 6, 60, 12)); // inset by three points above and below
    EXPECT_NEAR(alpha(empty, 30, 12), 26, 1);
    EXPECT_NEAR(red(empty, 30, 12), 255, 5);
    EXPECT_NEAR(red(paintedPanel(panelWith({button}), Panel, darkPalette()), 30, 12), 0, 5);

    button.title = "HHH";
    const QImage titled = paintedPanel(panelWith({button}), Panel);
    EXPECT_GT(count(titled, {10, 3, 60, 18}, isBlack), 10);
    EXPECT_EQ(count(titled, {10, 3, 60, 18}, isWhite), 0);
}

TEST(MenuBarTitlePainter, DrawsWhiteTitlesWhenPressedOrUnderThePointer) {
    for (const bool highlighted : {true, false}) {
        ButtonContent button = buttonTitled("HHH", ButtonLook::MenuBar);
        button.highlighted = highlighted;
        button.mouseIsOver = !highlighted;
        const QImage light = paintedPanel(panelWith({button}), Panel);
        EXPECT_GT(count(light, light.rect(), isWhite), 10);
        EXPECT_EQ(count(light, light.rect(), isBlack), 0);
        const QImage dark = paintedPanel(panelWith({button}), Panel, darkPalette());
        EXPECT_GT(count(dark, dark.rect(), isBlack), 10);
        EXPECT_EQ(count(dark, dark.rect(), isWhite), 0);
    }
}

TEST(MenuBarTitlePainter, CentresItsTitle) {
    const ButtonContent button = wide(buttonTitled("HHH", ButtonLook::MenuBar), 100);
    const QRect ink = extent(paintedPanel(panelWith({button}), Panel), isBlack);
    EXPECT_NEAR((ink.left() + ink.right() + 1) / 2.0, 55, 1.5);
    EXPECT_NEAR((ink.top() + ink.bottom() + 1) / 2.0, 12, 1);
}

TEST(MenuBarTitlePainter, DrawsTheLogoAtItsPlace) {
    ButtonContent button = buttonTitled(LogoTitle, ButtonLook::MenuBar);
    EXPECT_EQ(button.frame.size.width + 8, 25); // five points at both ends with what the layout adds
    const QImage usual = paintedPanel(panelWith({button}), Panel);
    const QRect ink = extent(usual, isBlack);
    EXPECT_TRUE(QRect(10, 5, 15, 14).contains(ink)) << ink.left() << ' ' << ink.top();
    button.mouseIsOver = true;
    const QImage hovered = paintedPanel(panelWith({button}), Panel);
    EXPECT_GT(count(hovered, hovered.rect(), isWhite), 5);
    EXPECT_EQ(count(hovered, hovered.rect(), isBlack), 0);
    const QImage dark = paintedPanel(panelWith({button}), Panel, darkPalette());
    EXPECT_GT(count(dark, dark.rect(), isBlack), 5);
}

TEST(ScreenTopTitlePainter, DrawsBlackTitlesOnNothing) {
    const ButtonContent button = buttonTitled("HHH", ButtonLook::ScreenTopBar);
    const QImage light = paintedPanel(panelWith({wide(button, 80)}), Bar);
    EXPECT_GT(count(light, light.rect(), isBlack), 10);
    EXPECT_EQ(alpha(light, 80, 10), 0);
    const QImage dark = paintedPanel(panelWith({wide(button, 80)}), Bar, darkPalette());
    EXPECT_GT(count(dark, dark.rect(), isWhite), 10);
}

TEST(ScreenTopTitlePainter, DrawsWhiteTitlesOnBlueWhenPressed) {
    ButtonContent button = buttonTitled("HHH", ButtonLook::ScreenTopBar);
    button.frame = {{5, 1}, {80, 18}};
    button.highlighted = true;
    for (const QPalette& palette : {lightPalette(), darkPalette()}) {
        const QImage image = paintedPanel(panelWith({button}), Bar, palette);
        EXPECT_EQ(inkOf(image), QRect(5, 3, 80, 18));
        const QColor top = image.pixelColor(80, 3);
        const QColor bottom = image.pixelColor(80, 20);
        EXPECT_NEAR(top.redF(), 0.212, 0.02);
        EXPECT_NEAR(top.greenF(), 0.365, 0.02);
        EXPECT_NEAR(top.blueF(), 0.949, 0.02);
        EXPECT_NEAR(bottom.redF(), 0.416, 0.02);
        EXPECT_NEAR(bottom.greenF(), 0.529, 0.02);
        EXPECT_NEAR(bottom.blueF(), 0.961, 0.02);
        EXPECT_GT(count(image, image.rect(), isWhite), 10);
    }
}

TEST(ScreenTopTitlePainter, DoesNotMindThePointer) {
    ButtonContent button = buttonTitled("HHH", ButtonLook::ScreenTopBar);
    const QImage usual = paintedPanel(panelWith({button}), Bar);
    button.mouseIsOver = true;
    EXPECT_EQ(paintedPanel(panelWith({button}), Bar), usual);
}

TEST(ScreenTopTitlePainter, BeginsItsTitleAtTheLeft) {
    const ButtonContent button = buttonTitled("HHH", ButtonLook::ScreenTopBar);
    const QRect narrow = extent(paintedPanel(panelWith({wide(button, button.frame.size.width + 16)}), Bar), isBlack);
    const QRect broad = extent(paintedPanel(panelWith({wide(button, 180)}), Bar), isBlack);
    EXPECT_EQ(narrow, broad);
    // As much room at its left as at its right, in a button of the bar.
    const double right = 5 + button.frame.size.width + 16;
    EXPECT_NEAR(narrow.left() - 5, right - narrow.right() - 1, 2);
    EXPECT_NEAR((narrow.top() + narrow.bottom() + 1) / 2.0, 11, 1.5); // the middle of the bar
}

TEST(ScreenTopTitlePainter, DrawsATitleInTheMiddleWhereThereIsLessRoom) {
    ButtonContent button = buttonTitled("\u25BF", ButtonLook::ScreenTopBar);
    const double fitting = button.frame.size.width;
    for (const double width : {fitting, fitting + 4, fitting + 8}) {
        const QRect ink = inkOf(paintedPanel(panelWith({wide(button, width)}), Bar));
        ASSERT_FALSE(ink.isNull()) << width;
        EXPECT_NEAR(ink.left() - 5, 5 + width - ink.right() - 1, 2) << width;
    }
}

TEST(ScreenTopTitlePainter, LeavesRoomBesideATitleThatIsTooLong) {
    ButtonContent button = buttonTitled("A title that goes on and on", ButtonLook::ScreenTopBar);
    const QRect ink = inkOf(paintedPanel(panelWith({wide(button, 90)}), Bar));
    EXPECT_GE(ink.left(), 5 + 7);
    EXPECT_LE(ink.right(), 5 + 90 - 8);
}

TEST(ScreenTopTitlePainter, ReachesFromTheTopEdgeToTheRuleBelowWhenPressed) {
    ButtonContent button = buttonTitled("HHH", ButtonLook::ScreenTopBar);
    EXPECT_EQ(button.frame.size.height, 23);
    button.highlighted = true;
    EXPECT_EQ(inkOf(paintedPanel(panelWith({wide(button, 80)}), Bar)), QRect(5, 0, 80, 21));
    button.title = LogoTitle;
    EXPECT_EQ(buttonSizeThatFits(button, 1000).height, 23);
}

TEST(ScreenTopTitlePainter, DrawsTheLogoAtItsPlace) {
    ButtonContent button = buttonTitled(LogoTitle, ButtonLook::ScreenTopBar);
    button.frame = {{5, 1}, {35, 18}};
    const QRect ink = extent(paintedPanel(panelWith({button}), Bar), isBlack);
    EXPECT_TRUE(QRect(15, 4, 15, 14).contains(ink));
    button.highlighted = true;
    const QImage image = paintedPanel(panelWith({button}), Bar);
    EXPECT_EQ(count(image, image.rect(), isBlack), 0);
    EXPECT_GT(count(image, image.rect(), isWhite), 5);
}

} // namespace

} // namespace tarragon
