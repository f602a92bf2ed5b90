#include "Pictures.h"

#include <iostream>

#include <QColor>
#include <QFileInfo>
#include <QGuiApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QScreen>
#include <QTemporaryFile>
#include <QWindow>

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

void usePictureScreens() {
    constexpr int Width = 2400; // points, each
    constexpr int Height = 1600;
    constexpr int DotsPerInch = 96;
    QJsonArray screens;
    for (const double scale : PictureScales)
        screens.append(
            QJsonObject{{"name", QString::number(scale)}, {"x", Width * screens.size()}, {"y", 0}, {"width", Width},
                {"height", Height}, {"logicalDpi", DotsPerInch}, {"logicalBaseDpi", DotsPerInch}, {"dpr", scale}});
    static QTemporaryFile file; // read when the application object is made
    if (!file.open() || file.write(QJsonDocument(QJsonObject{{"screens", screens}}).toJson()) < 0 || !file.flush())
        qFatal("Cannot describe the screens");
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + QFile::encodeName(file.fileName()));
}

void moveToScreen(QWidget& window, double scale) {
    for (QScreen* screen : QGuiApplication::screens()) {
        if (screen->devicePixelRatio() != scale)
            continue;
        window.winId();
        window.windowHandle()->setScreen(screen);
        window.move(screen->geometry().topLeft());
    }
}

QPalette darkPalette() {
    QPalette palette(QColor(49, 54, 59), QColor(35, 38, 41));
    palette.setColor(QPalette::Highlight, QColor(61, 174, 233));
    return palette;
}

} // namespace tarragon
