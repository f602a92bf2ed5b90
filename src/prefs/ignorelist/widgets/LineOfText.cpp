#include "prefs/ignorelist/widgets/LineOfText.h"

#include <QStringList>

namespace tarragon {

QString oneLineText(const std::string& text) {
    QString line = QString::fromStdString(text);
    for (QChar& character : line) {
        if (character.category() == QChar::Other_Control || character == QChar::LineSeparator
            || character == QChar::ParagraphSeparator)
            character = QChar::Space;
    }
    return line;
}

QString toolTipOfText(const QString& text) {
    // A few lines on the screen; names and titles of others may have any length.
    constexpr int MostLetters = 300;
    QStringList lines = text.split('\n');
    for (QString& line : lines) {
        if (line.size() > MostLetters)
            line = line.left(MostLetters) + QChar(0x2026);
        line = line.toHtmlEscaped();
    }
    return "<p>" + lines.join("<br>") + "</p>";
}

} // namespace tarragon
