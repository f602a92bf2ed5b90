#include "menus/MenuFonts.h"

#include <QFontInfo>

#include <gtest/gtest.h>

namespace tarragon {

namespace {

TEST(MenuFonts, KeepTheDesktopsSizeForZero) {
    QFont standard;
    standard.setPixelSize(17);
    EXPECT_EQ(menuFont({}, standard), standard);
    const QFont bold = menuFont({.pointSize = 0, .bold = true}, standard);
    EXPECT_EQ(bold.pixelSize(), 17);
    EXPECT_TRUE(bold.bold());
}

TEST(MenuFonts, TakePointsForPixels) {
    EXPECT_EQ(menuFont({.pointSize = 11, .bold = false}, QFont()).pixelSize(), 11);
    EXPECT_EQ(menuFont({.pointSize = 12.5, .bold = false}, QFont()).pixelSize(), 13);
    EXPECT_FALSE(menuFont({.pointSize = 11, .bold = false}, QFont()).bold());
}

TEST(MenuFonts, StayWithinReason) {
    EXPECT_EQ(menuFont({.pointSize = 0.1, .bold = false}, QFont()).pixelSize(), 1);
    EXPECT_EQ(menuFont({.pointSize = 1e300, .bold = false}, QFont()).pixelSize(), 200);
}

TEST(MenuFonts, AreInheritedFromTheNearestMenuAbove) {
    const auto root = std::make_shared<Menu>("root");
    const auto item = std::make_shared<MenuItem>("item", "", "");
    const auto submenu = std::make_shared<Menu>("submenu");
    root->addItem(item);
    item->setSubmenu(submenu);
    EXPECT_EQ(fontOfMenu(*submenu), std::nullopt);
    root->setFont(MenuFont{.pointSize = 9, .bold = false});
    EXPECT_EQ(fontOfMenu(*submenu), (MenuFont{.pointSize = 9, .bold = false}));
    submenu->setFont(MenuFont{.pointSize = 10, .bold = false});
    EXPECT_EQ(fontOfMenu(*submenu), (MenuFont{.pointSize = 10, .bold = false}));
    EXPECT_EQ(fontOfMenu(*root), (MenuFont{.pointSize = 9, .bold = false}));
}

} // namespace

} // namespace tarragon
