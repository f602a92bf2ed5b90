#pragma once

#include "platform/StatusItems.h"

#include <QColor>
#include <QIcon>
#include <QImage>
#include <QSvgRenderer>

namespace tarragon {

// What an image lies on: the one is for light ground, the other for dark ground and for the highlighted item.
enum class ImageGround : bool { Light, Dark };

// Dark when light ink is what stands out from the colour.
ImageGround groundOfColour(const QColor& colour);

// The image of a status item, drawn from the program's resources: ":/images/NAME.svg" in any size. Without such a file
// it is the desktop theme's picture of a menu.
class StatusItemImage {
public:
    explicit StatusItemImage(const StatusItemDescription& description);

    // Square, with transparent ground.
    QImage image(int pixels, ImageGround ground);
    // In the sizes that trays take.
    QIcon icon(ImageGround ground);

private:
    QSvgRenderer _onLight;
    QSvgRenderer _onDark;
};

} // namespace tarragon
