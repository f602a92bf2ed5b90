#include "prefs/widgets/LineOfText.h"

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
    return "<p>" + text.toHtmlEscaped().replace('\n', "<br>") + "</p>";
}

} // namespace tarragon
