#include "platform/linux/x11/QtPixelScale.h"

#include <cmath>
#include <utility>
#include <vector>

#include <QGuiApplication>
#include <QScreen>

namespace tarragon {

PixelScale pixelScaleOfQt() {
    std::vector<ScaledScreen> screens;
    for (const QScreen* screen : QGuiApplication::screens()) {
        const QRect points = screen->geometry();
        const double scale = screen->devicePixelRatio();
        // While no screen is connected there is one of the toolkit's own making, without a size.
        if (points.isEmpty())
            continue;
        // The toolkit leaves the corner where it is.
        screens.push_back({{{double(points.x()), double(points.y())},
                               {std::round(points.width() * scale), std::round(points.height() * scale)}},
            scale});
    }
    return PixelScale(std::move(screens));
}

} // namespace tarragon
