#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace tarragon {

// Answers the words that the user is shown in place of a source text. The context names the class that shows it.
using TextTranslator = std::string (*)(const char* context, const char* source);

// The program's one translator, set before a text is shown. nullptr, as at the start, for none: texts are then shown as
// their sources read.
void setTextTranslator(TextTranslator translator);

// The words for a source text, in UTF-8. Both must be literals, for a tool collects them from the code. Texts that are
// compared, such as the titles of menus that are looked for, are not translated. Main thread only.
std::string translated(const char* context, const char* source);

// Marks a source text for that tool where it only stands in a table and is translated later, in the same context.
constexpr const char* sourceText(const char* /*context*/, const char* source) {
    return source;
}

// The text with each "%@" replaced by the next argument; one too many of either stays out or stands.
std::string withArguments(std::string_view text, std::initializer_list<std::string_view> arguments);

} // namespace tarragon
