#include "panels/widgets/TitleFonts.h"

#include "menus/MenuFonts.h"
#include "panels/rules/HorizontalLayout.h"

#include <algorithm>
#include <cmath>

#include <QApplication>
#include <QFontDatabase>
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
    // Rounding to whole pixels may take a second step.
    for (double height = QFontMetricsF(font).height(); height > room; height = QFontMetricsF(font).height()) {
        const int size = QFontInfo(font).pixelSize();
        const int smaller = std::min(size - 1, static_cast<int>(std::floor(size * room / height)));
        if (smaller < 1)
            break;
        font.setPixelSize(smaller);
    }
    return font;
}

double desktopTitleBarFontSize() {
    return QFontInfo(QFontDatabase::systemFont(QFontDatabase::TitleFont)).pixelSize();
}

} // namespace tarragon
