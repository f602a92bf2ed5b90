#pragma once

#include <QDir>
#include <QPalette>
#include <QString>

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

QPalette darkPalette();

} // namespace tarragon
