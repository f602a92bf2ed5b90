#pragma once

#include <string>

#include <QFontMetrics>
#include <QString>

namespace tarragon {

// The text in one line: control characters, tabs and line breaks become blanks. Damaged UTF-8 becomes U+FFFD.
QString lineOfText(const std::string& utf8);

// The text with its middle left out where it is wider than the limit, in device-independent pixels.
QString elidedToWidth(const QString& line, const QFontMetrics& metrics, int widthLimit);

// What a QMenu has to be given to show title and shortcut as they stand, the shortcut at the other edge. The shortcut
// may be empty.
QString menuText(const QString& title, const QString& shortcut);

} // namespace tarragon
