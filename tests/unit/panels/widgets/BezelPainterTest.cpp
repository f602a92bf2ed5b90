#include "PaintedPanel.h"

#include <algorithm>
#include <cmath>

#include <gtest/gtest.h>

namespace tarragon {

namespace {

constexpr QSize Panel = {80, 24};

// Without a title, 40 points wide in the middle of the panel's height.
ButtonContent button(ButtonBezel bezel, bool highlighted = false, bool mouseIsOver = false) {
    ButtonContent content;
    content.frame = {{10, 3}, {40, 18}};
    content.dress.bezel = bezel;
    content.highlighted = highlighted;
    content.mouseIsOver = mouseIsOver;
    return content;
}

QImage painted(const ButtonContent& content, const QPalette& palette = lightPalette(), double scale = 1) {
    return paintedPanel(panelWith({content}), Panel, palette, scale);
}

constexpr ButtonBezel Bordered[] = {
    ButtonBezel::Rounded, ButtonBezel::ShadowlessSquare, ButtonBezel::SmallSquare, ButtonBezel::RoundRect};

TEST(BezelPainter, FillsTheFrameAndNothingElse) {
    for (const ButtonBezel bezel : Bordered)
        EXPECT_EQ(inkOf(painted(button(bezel))), QRect(10, 3, 40, 18)) << int(bezel);
}

TEST(BezelPainter, DrawsABorderOfOneSharpLineAtEveryScale) {
    for (const ButtonBezel bezel : Bordered) {
        for (const double scale : {1.0, 1.5, 2.0}) {
            const QImage image = painted(button(bezel), lightPalette(), scale);
            const int x = int(30 * scale);
            const int top = int(std::floor(3 * scale + 0.5));
            const int line = std::max(1, int(scale));
            const QRgb border = image.pixel(x, top);
            EXPECT_EQ(qAlpha(border), 255) << int(bezel) << ' ' << scale;
            EXPECT_LT(qGray(border), 170) << int(bezel) << ' ' << scale;
            for (int y = top; y < top + line; ++y)
                EXPECT_EQ(image.pixel(x, y), border) << int(bezel) << ' ' << scale;
            EXPECT_GT(grey(image, x, top + line), 220) << int(bezel) << ' ' << scale;
            EXPECT_EQ(alpha(image, x, top - 1), 0) << int(bezel) << ' ' << scale;
        }
    }
}

TEST(BezelPainter, RoundsTheCornersOfRoundBezelsOnly) {
    // How much of a corner of five points is painted.
    const auto corner = [](ButtonBezel bezel) {
        const QImage image = painted(button(bezel));
        double sum = 0;
        for (int y = 3; y < 8; ++y) {
            for (int x = 10; x < 15; ++x)
                sum += alpha(image, x, y) / 255.0;
        }
        return sum / 25;
    };
    EXPECT_LT(corner(ButtonBezel::RoundRect), 0.95);
    EXPECT_EQ(corner(ButtonBezel::SmallSquare), 1);
    EXPECT_EQ(corner(ButtonBezel::ShadowlessSquare), 1);
    // The bezel that buttons are made with is the rounder one.
    EXPECT_LT(corner(ButtonBezel::Rounded), corner(ButtonBezel::RoundRect));
}

TEST(BezelPainter, DrawsAShadowBelowTheSmallSquareOnly) {
    // Translucent, in the last line.
    EXPECT_LT(alpha(painted(button(ButtonBezel::SmallSquare)), 30, 20), 255);
    EXPECT_EQ(alpha(painted(button(ButtonBezel::SmallSquare)), 30, 19), 255);
    EXPECT_EQ(alpha(painted(button(ButtonBezel::ShadowlessSquare)), 30, 20), 255);
}

TEST(BezelPainter, DrawsARecessUnderThePointerOnly) {
    EXPECT_TRUE(inkOf(painted(button(ButtonBezel::Recessed))).isNull());
    const QImage hovered = painted(button(ButtonBezel::Recessed, false, true));
    EXPECT_EQ(inkOf(hovered), QRect(10, 3, 40, 18));
    EXPECT_GT(alpha(hovered, 30, 3), alpha(hovered, 30, 12)); // the border
    EXPECT_EQ(alpha(painted(button(ButtonBezel::Recessed, true)), 30, 12), 255);
}

TEST(BezelPainter, DrawsOnlyTheBackgroundOfAButtonWithoutBorder) {
    ButtonContent content = button(ButtonBezel::Rounded);
    content.dress.bordered = false;
    EXPECT_TRUE(inkOf(painted(content)).isNull());
    content.dress.background = Grey{0.7, 0.1};
    const QImage image = painted(content);
    EXPECT_EQ(inkOf(image), QRect(10, 3, 40, 18));
    EXPECT_NEAR(alpha(image, 30, 12), 26, 1);
    EXPECT_NEAR(red(image, 30, 12), 179, 6); // unpremultiplied from few bits
    EXPECT_NEAR(red(painted(content, darkPalette()), 30, 12), 77, 6);
}

TEST(BezelPainter, IgnoresTheBackgroundOfAButtonWithBorder) {
    ButtonContent content = button(ButtonBezel::ShadowlessSquare);
    const QImage plain = painted(content);
    content.dress.background = Grey{0, 1};
    EXPECT_EQ(painted(content), plain);
}

TEST(BezelPainter, ShowsWhichButtonIsPressedOrUnderThePointer) {
    for (const bool bordered : {true, false}) {
        for (const ButtonBezel bezel : Bordered) {
            const auto middle = [&](bool highlighted, bool mouseIsOver) {
                ButtonContent content = button(bezel, highlighted, mouseIsOver);
                content.dress.bordered = bordered;
                return painted(content).pixel(30, 18);
            };
            EXPECT_NE(middle(false, true), middle(false, false)) << int(bezel);
            EXPECT_EQ(middle(true, false), middle(true, true)) << int(bezel);
            const QColor pressed(middle(true, false));
            EXPECT_GT(pressed.blue(), pressed.red() + 80) << int(bezel); // the theme's highlight
        }
    }
}

TEST(BezelPainter, TakesItsColoursFromTheTheme) {
    for (const ButtonBezel bezel : Bordered) {
        EXPECT_GT(grey(painted(button(bezel)), 30, 12), 200) << int(bezel);
        EXPECT_LT(grey(painted(button(bezel), darkPalette()), 30, 12), 90) << int(bezel);
    }
    QPalette green = lightPalette();
    green.setColor(QPalette::Button, QColor(120, 200, 120));
    const QColor face(painted(button(ButtonBezel::ShadowlessSquare), green).pixel(30, 12));
    EXPECT_GT(face.green(), face.red() + 40);
}

TEST(BezelPainter, CutsAButtonAtTheEdgesOfThePanel) {
    ButtonContent content = button(ButtonBezel::ShadowlessSquare);
    content.frame = {{60, 3}, {40, 28}};
    const QImage image = painted(content);
    EXPECT_EQ(inkOf(image), QRect(60, 0, 20, 21));
    EXPECT_LT(grey(image, 79, 10), 170); // with a border there
}

TEST(BezelPainter, DrawsTheLogoInTheColourOfTheTitle) {
    ButtonContent content = button(ButtonBezel::Recessed);
    content.title = LogoTitle;
    const QImage image = painted(content);
    EXPECT_TRUE(QRect(22, 5, 16, 15).contains(inkOf(image)));
    EXPECT_FALSE(inkOf(image).isNull());
    EXPECT_EQ(red(image, 30, 17), 0);
    EXPECT_EQ(red(painted(content, darkPalette()), 30, 17), 255);
}

} // namespace

} // namespace tarragon
