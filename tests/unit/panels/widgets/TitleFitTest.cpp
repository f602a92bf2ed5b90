#include "PaintedPanel.h"
#include "fake/FakeDisplays.h"
#include "panels/widgets/ButtonPlace.h"
#include "panels/widgets/QtPanelToolkit.h"
#include "panels/widgets/ScreenTopTitlePainter.h"
#include "panels/widgets/TitleFonts.h"
#include "panels/widgets/TitleLine.h"

#include <ctime>
#include <string>
#include <vector>

#include <QFontMetricsF>

#include <gtest/gtest.h>

namespace tarragon {

namespace {

constexpr int Beyond = 60; // points of room around a panel, to see what would have been cut off

struct Look {
    const char* name;
    ButtonLook look;
    ButtonDress dress;
    Size growth;
};

const Look looks[] = {
    {"round rectangle", ButtonLook::Bezel, {ButtonBezel::RoundRect, true, std::nullopt}, {}},
    {"recessed", ButtonLook::Bezel, {ButtonBezel::Recessed, true, std::nullopt}, {}},
    {"small square", ButtonLook::Bezel, {ButtonBezel::SmallSquare, true, std::nullopt}, {}},
    {"shadowless square", ButtonLook::Bezel, {ButtonBezel::ShadowlessSquare, true, std::nullopt}, {}},
    {"borderless", ButtonLook::Bezel, {ButtonBezel::Rounded, false, Grey{0.7, 0.1}}, {5, 10}},
    {"as made", ButtonLook::Bezel, {ButtonBezel::Rounded, true, std::nullopt}, {}},
    {"menu bar", ButtonLook::MenuBar, {}, {8, 0}},
    {"screen-top bar", ButtonLook::ScreenTopBar, {}, {16, 0}},
};

const std::vector<std::string> titles = {
    "Ågypt", "File", "Schriftzüge", "ÄÖÜß|()", "ملف تحرير", "עריכה", "Ünïçödé Ŋỹ", "jpgqy", "▿"};

ButtonContent button(const Look& look, const std::string& title, double fontSize, bool bold) {
    ButtonContent content;
    content.title = title;
    content.look = look.look;
    content.dress = look.dress;
    content.font = {fontSize, bold};
    const Size size = buttonSizeThatFits(content, 1000);
    content.frame = {{5, look.look == ButtonLook::ScreenTopBar ? 1.0 : 3.0},
        {size.width + look.growth.width, size.height + look.growth.height}};
    return content;
}

QSize panelSize(const Look& look) {
    return {400, look.look == ButtonLook::ScreenTopBar ? 22 : 24};
}

// The ink of the title alone, where it is drawn in the panel, without anything that cuts it off.
QRect inkOfTitle(const ButtonContent& content, const QSize& panel) {
    const ButtonPlace place = placeOf(content, panel);
    QImage image(panel + QSize(2 * Beyond, 2 * Beyond), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.translate(Beyond, Beyond);
    TitleLine title(content);
    const QRectF visible(place.visible);
    const QPointF baseline(visible.center().x() - title.width() / 2, title.baselineAround(visible.center().y()));
    title.draw(painter, baseline, place.visible, Qt::black);
    painter.end();
    return inkOf(image).translated(-Beyond, -Beyond);
}

TEST(TitleFit, NeverCutsATitleOff) {
    for (const Look& look : looks) {
        if (look.look == ButtonLook::ScreenTopBar)
            continue; // see below
        for (int size = 9; size <= 24; ++size) {
            for (const bool bold : {false, true}) {
                for (const std::string& title : titles) {
                    const ButtonContent content = button(look, title, size, bold);
                    const QSize panel = panelSize(look);
                    const QRect ink = inkOfTitle(content, panel);
                    ASSERT_FALSE(ink.isNull()) << title;
                    EXPECT_TRUE(placeOf(content, panel).visible.contains(ink))
                        << look.name << ' ' << size << ' ' << title << ": " << ink.top() << " to " << ink.bottom()
                        << ", " << ink.left() << " to " << ink.right();
                }
            }
        }
    }
}

TEST(TitleFit, ShowsTheSameInkInABarAsWithoutItsEdges) {
    const Look& bar = looks[7];
    const QSize panel = panelSize(bar);
    for (int size = 9; size <= 24; ++size) {
        for (const std::string& title : titles) {
            const ButtonContent content = button(bar, title, size, false);
            QImage whole(panel + QSize(2 * Beyond, 2 * Beyond), QImage::Format_ARGB32_Premultiplied);
            whole.fill(Qt::transparent);
            QPainter painter(&whole);
            painter.translate(Beyond, Beyond);
            paintScreenTopTitle(painter, content, placeOf(content, panel), lightPalette());
            painter.end();
            const QRect ink = inkOf(whole).translated(-Beyond, -Beyond);
            const QImage cut = paintedPanel(panelWith({content}), panel);
            EXPECT_EQ(inkOf(cut), ink) << size << ' ' << title;
            EXPECT_TRUE(QRect(QPoint(0, 0), panel).contains(ink)) << size << ' ' << title;
        }
    }
}

TEST(TitleFit, KeepsTheCapitalsInTheMiddleOfABarInEveryFont) {
    const Look& bar = looks[7];
    for (int size = 9; size <= 18; ++size) {
        ButtonContent content = button(bar, "HHH", size, false);
        const QRect ink = inkOf(paintedPanel(panelWith({content}), panelSize(bar)));
        EXPECT_NEAR((ink.top() + ink.bottom() + 1) / 2.0, 11, 0.5) << size;
        // Wherever its button is.
        content.frame.origin.y = 3;
        EXPECT_EQ(inkOf(paintedPanel(panelWith({content}), panelSize(bar))), ink) << size;
    }
}

TEST(TitleFit, ShowsTheSameInkInAPanelAsWithoutItsEdges) {
    for (const Look& look : looks) {
        if (look.look == ButtonLook::ScreenTopBar)
            continue;
        for (int size = 9; size <= 24; ++size) {
            for (const std::string& title : titles) {
                ButtonContent content = button(look, title, size, false);
                const QSize panel = panelSize(look);
                const QImage cut = paintedPanel(panelWith({content}), panel);
                // The same place in a panel that is higher at both ends.
                ButtonContent free = content;
                free.frame.origin.y += Beyond;
                const QImage whole = paintedPanel(panelWith({free}), panel + QSize(0, 2 * Beyond));
                // Only where the title has all the room it wants at its usual place.
                const QFontMetricsF metrics(titleFont(content));
                if (metrics.height() > content.frame.size.height || look.growth.height > 0)
                    continue;
                const QImage same = whole.copy(0, Beyond, panel.width(), panel.height());
                EXPECT_EQ(cut, same) << look.name << ' ' << size << ' ' << title;
            }
        }
    }
}

TEST(TitleFit, KeepsUsualFontsAndMakesThoseSmallerThatAPanelCannotHold) {
    for (int size = 9; size <= 24; ++size) {
        ButtonContent content;
        content.font.pointSize = size;
        const QFont font = titleFont(content);
        EXPECT_LE(QFontMetricsF(font).height(), 24) << size;
        if (size <= 18) {
            EXPECT_EQ(font.pixelSize(), size);
        }
        content.look = ButtonLook::ScreenTopBar;
        EXPECT_LE(QFontMetricsF(titleFont(content)).height(), 22) << size;
    }
}

TEST(TitleFit, GivesAButtonTheHeightOfItsFont) {
    const auto height = [](double size) {
        ButtonContent content;
        content.title = "File";
        content.font.pointSize = size;
        return buttonSizeThatFits(content, 1000).height;
    };
    EXPECT_EQ(height(9), 18);
    EXPECT_EQ(height(12), 18);
    EXPECT_EQ(height(13), 18);
    EXPECT_EQ(height(18), 21);
    EXPECT_EQ(height(24), 21);
    for (int size = 9; size < 24; ++size)
        EXPECT_LE(height(size), height(size + 1)) << size;
}

TEST(TitleFit, LeavesTheSameRoomBesideEveryTitle) {
    for (const Look& look : looks) {
        const auto padding = [&](const std::string& title) {
            const ButtonContent content = button(look, title, 13, false);
            return content.frame.size.width - TitleLine(content).width();
        };
        EXPECT_NEAR(padding("File"), padding("Typography"), 1) << look.name;
        EXPECT_GE(padding(""), 0) << look.name;
        if (look.look != ButtonLook::ScreenTopBar) {
            EXPECT_GE(padding("File"), 10) << look.name;
        }
    }
}

TEST(TitleFit, CountsBlanksAtTheEnd) {
    const Look& bar = looks[7];
    EXPECT_GT(button(bar, "Chrome  ", 13, true).frame.size.width, button(bar, "Chrome", 13, true).frame.size.width + 5);
}

TEST(TitleFit, WidensBoldTitles) {
    EXPECT_GT(button(looks[0], "Typography", 13, true).frame.size.width,
        button(looks[0], "Typography", 13, false).frame.size.width);
}

TEST(TitleFit, EndsTitlesAtHalfTheScreen) {
    FakeDisplays displays;
    displays.setScreens({{{{0, 0}, {1440, 900}}, {}}, {{{1440, 0}, {1000, 900}}, {}}});
    QtPanelToolkit toolkit(displays, nullptr);
    ButtonContent content;
    content.font.pointSize = 13;
    content.title = std::string(40, 'x');
    const double whole = toolkit.sizeThatFits(content).width;
    EXPECT_GT(whole, 300); // as it is
    content.title = std::string(10000, 'x');
    const double limited = toolkit.sizeThatFits(content).width;
    EXPECT_LE(limited, 500 + 20);
    EXPECT_GT(limited, 480);
    displays.setScreens({});
    EXPECT_GT(toolkit.sizeThatFits(content).width, 5000);
}

TEST(TitleFit, DrawsTheEllipsisInTheMiddle) {
    ButtonContent content;
    content.title = std::string(10000, 'x');
    content.font.pointSize = 13;
    TitleLine title(content);
    title.limitWidth(100);
    EXPECT_LE(title.width(), 100);
    EXPECT_GT(title.width(), 80);
}

// Thousands would take seconds if each were shaped as a whole.
TEST(TitleFit, IsFastForVeryLongTitles) {
    FakeDisplays displays;
    QtPanelToolkit toolkit(displays, nullptr);
    ButtonContent content;
    content.font.pointSize = 13;
    content.title = "a";
    (void)toolkit.sizeThatFits(content);
    const auto time = [&](const std::string& text) {
        content.title = text;
        const std::clock_t start = std::clock();
        for (int round = 0; round < 20; ++round)
            (void)toolkit.sizeThatFits(content);
        return std::clock() - start;
    };
    const std::clock_t long10000 = time(std::string(10000, 'm'));
    const std::clock_t long1000000 = time(std::string(1000000, 'm'));
    // Of processor time; hardly any more is left to do than to copy the text.
    EXPECT_LT(long1000000, 50 * long10000);
}

TEST(TitleFit, DrawsRightToLeftTitlesFromRightToLeft) {
    // A blank at the end is at the left then: the ink moves right.
    const auto left = [](const std::string& text) {
        ButtonContent content;
        content.title = text;
        content.font.pointSize = 13;
        QImage image(200, 24, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        TitleLine(content).draw(painter, {20, 16}, QRectF(0, 0, 200, 24), Qt::black);
        painter.end();
        return inkOf(image).left();
    };
    EXPECT_EQ(left("File"), left("File   "));
    EXPECT_GT(left("עריכה   "), left("עריכה") + 5);
}

TEST(TitleFit, ShowsLineBreaksAsBlanks) {
    ButtonContent broken;
    broken.title = "Save\nAs";
    ButtonContent plain;
    plain.title = "Save As";
    EXPECT_EQ(buttonSizeThatFits(broken, 1000), buttonSizeThatFits(plain, 1000));
}

} // namespace

} // namespace tarragon
