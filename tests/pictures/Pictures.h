#pragma once

#include <QDir>
#include <QPalette>
#include <QString>
#include <QWidget>

#include <optional>

namespace tarragon {

// What a program that draws pictures is asked for: NAME FOLDER [LANGUAGE].
struct PictureRequest {
    QDir folder; // exists
    QString language = "en";
};

// Nothing where the command line makes no sense or the folder cannot be made; exitStatus is set then, and standard
// error says why.
std::optional<PictureRequest> pictureRequest(int argumentCount, char** arguments, int& exitStatus);

// Screens in memory, one for each scale and all of them larger than any window. To be called before the application
// object is made, which works with them then.
void usePictureScreens();
inline constexpr double PictureScales[] = {1, 1.5, 2};

// Puts a window that is not shown yet on the screen of that scale.
void moveToScreen(QWidget& window, double scale);

QPalette darkPalette();

} // namespace tarragon
