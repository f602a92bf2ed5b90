#include "panels/widgets/TitleFonts.h"

#include "menus/MenuFonts.h"
#include "panels/rules/HorizontalLayout.h"

#include <algorithm>
#include <cmath>

#include <QApplication>
#include <QFontInfo>
#include <QFontMetricsF>

namespace tarragon {

namespace {

// Screen-top bars are as high as the menu bar that they stand for.
constexpr double ScreenTopBarHeight = 22;

} // namespace

double roomForTitle(ButtonLook look) {
    return look == ButtonLook::ScreenTopBar ? ScreenTopBarHeight : HorizontalPanelHeight;
}

QFont titleFont(const ButtonContent& button) {
    const double room = roomForTitle(button.look);
    QFont font = menuFont(button.font, QApplication::font("QMenuBar"));
    const double height = QFontMetricsF(font).height();
    if (height <= room)
        return font;
    int size = static_cast<int>(std::floor(QFontInfo(font).pixelSize() * room / height));
    font.setPixelSize(std::max(size, 1));
    // Heights are rounded, so that it may take another step.
    while (size > 1 && QFontMetricsF(font).height() > room)
        font.setPixelSize(--size);
    return font;
}

double desktopTitleBarFontSize() {
    // That of title bars, or of everything where the theme has none for them.
    return QFontInfo(QApplication::font("QTitleBar")).pixelSize();
}

} // namespace tarragon
