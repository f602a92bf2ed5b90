#include "menus/MenuText.h"

namespace tarragon {

namespace {

// More than this fits on no screen, and shaping text takes time.
constexpr qsizetype LongestShapedText = 1000;

bool breaksLine(QChar character) {
    switch (character.category()) {
    case QChar::Other_Control:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    default:
        return false;
    }
}

// The first and last characters of a text that is far too long, without the halves of a surrogate pair.
QString ends(const QString& text) {
    QString first = text.left(LongestShapedText / 2);
    if (first.back().isHighSurrogate())
        first.chop(1);
    QString last = text.right(LongestShapedText / 2);
    if (last.front().isLowSurrogate())
        last.remove(0, 1);
    return first + QChar(0x2026) + last;
}

} // namespace

QString lineOfText(const std::string& utf8) {
    QString text = QString::fromStdString(utf8);
    for (QChar& character : text) {
        if (breaksLine(character))
            character = u' ';
    }
    return text;
}

QString elidedToWidth(const QString& line, const QFontMetrics& metrics, int widthLimit) {
    // Measuring thousands of titles takes long, and hardly a character is wider than a line is high.
    if (line.size() * metrics.height() <= widthLimit)
        return line;
    return metrics.elidedText(line.size() > LongestShapedText ? ends(line) : line, Qt::ElideMiddle, widthLimit);
}

QString menuText(const QString& title, const QString& shortcut) {
    QString text = title;
    if (!shortcut.isEmpty())
        text += u'\t' + shortcut;
    // A single ampersand would underline the next character and make it a mnemonic.
    return text.replace(u'&', QStringLiteral("&&"));
}

} // namespace tarragon
