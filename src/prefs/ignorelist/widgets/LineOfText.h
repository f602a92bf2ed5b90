#pragma once

#include <QString>

#include <string>

namespace tarragon {

// The UTF-8 text in one line, as a row of a table has room for.
QString oneLineText(const std::string& text);

// The text as a tool tip, whatever characters it has. Very long lines end in an ellipsis.
QString toolTipOfText(const QString& text);

} // namespace tarragon
