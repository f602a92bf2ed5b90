#include "platform/Texts.h"

namespace tarragon {

namespace {

TextTranslator installedTranslator = nullptr;

} // namespace

void setTextTranslator(TextTranslator translator) {
    installedTranslator = translator;
}

std::string translated(const char* context, const char* source) {
    return installedTranslator ? installedTranslator(context, source) : source;
}

std::string withArguments(std::string_view text, std::initializer_list<std::string_view> arguments) {
    constexpr std::string_view Placeholder = "%@";
    std::string whole;
    for (const std::string_view argument : arguments) {
        const std::size_t place = text.find(Placeholder);
        if (place == std::string_view::npos)
            break;
        whole.append(text.substr(0, place)).append(argument);
        text.remove_prefix(place + Placeholder.size());
    }
    return whole.append(text);
}

} // namespace tarragon
