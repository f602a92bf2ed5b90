#include "Pictures.h"

#include <iostream>

#include <QColor>
#include <QFileInfo>

namespace tarragon {

std::optional<PictureRequest> pictureRequest(int argumentCount, char** arguments, int& exitStatus) {
    if (argumentCount != 2 && argumentCount != 3) {
        std::cerr << "Usage: " << QFileInfo(arguments[0]).fileName().toStdString() << " FOLDER [LANGUAGE]\n";
        exitStatus = 2;
        return std::nullopt;
    }
    PictureRequest request{QDir(arguments[1])};
    if (argumentCount == 3)
        request.language = arguments[2];
    if (!request.folder.mkpath(".")) {
        std::cerr << "Cannot make the folder " << arguments[1] << '\n';
        exitStatus = 1;
        return std::nullopt;
    }
    return request;
}

QPalette darkPalette() {
    QPalette palette(QColor(49, 54, 59), QColor(35, 38, 41));
    palette.setColor(QPalette::Highlight, QColor(61, 174, 233));
    return palette;
}

} // namespace tarragon
