#include "platform/UnicodeText.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <locale>
#include <stdexcept>

namespace tarragon {

namespace {

constexpr char32_t ReplacementCharacter = 0xFFFD;

bool isCharacter(char32_t character) {
    return character < 0xD800 || (character > 0xDFFF && character <= 0x10FFFF);
}

bool isAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
}

struct DecodedCharacter {
    char32_t character;
    std::size_t length;
};

// The character that begins the text, which is not empty.
DecodedCharacter firstCharacter(std::string_view text) {
    const auto lead = static_cast<unsigned char>(text.front());
    if (lead < 0x80)
        return {lead, 1};
    std::size_t length = 0;
    char32_t character = 0;
    char32_t smallest = 0; // anything below could have been written shorter, and is then not well-formed
    if ((lead & 0xE0U) == 0xC0) {
        length = 2;
        character = lead & 0x1FU;
        smallest = 0x80;
    } else if ((lead & 0xF0U) == 0xE0) {
        length = 3;
        character = lead & 0x0FU;
        smallest = 0x800;
    } else if ((lead & 0xF8U) == 0xF0) {
        length = 4;
        character = lead & 0x07U;
        smallest = 0x10000;
    }
    if (length == 0 || length > text.size())
        return {ReplacementCharacter, 1};
    for (std::size_t index = 1; index < length; ++index) {
        const auto byte = static_cast<unsigned char>(text[index]);
        if ((byte & 0xC0U) != 0x80)
            return {ReplacementCharacter, 1};
        character = (character << 6U) | (byte & 0x3FU);
    }
    if (character < smallest || !isCharacter(character))
        return {ReplacementCharacter, 1};
    return {character, length};
}

void appendUtf8(std::string& text, char32_t character) {
    if (!isCharacter(character))
        character = ReplacementCharacter;
    if (character < 0x80) {
        text += static_cast<char>(character);
    } else if (character < 0x800) {
        text += static_cast<char>(0xC0U | (character >> 6U));
        text += static_cast<char>(0x80U | (character & 0x3FU));
    } else if (character < 0x10000) {
        text += static_cast<char>(0xE0U | (character >> 12U));
        text += static_cast<char>(0x80U | ((character >> 6U) & 0x3FU));
        text += static_cast<char>(0x80U | (character & 0x3FU));
    } else {
        text += static_cast<char>(0xF0U | (character >> 18U));
        text += static_cast<char>(0x80U | ((character >> 12U) & 0x3FU));
        text += static_cast<char>(0x80U | ((character >> 6U) & 0x3FU));
        text += static_cast<char>(0x80U | (character & 0x3FU));
    }
}

// The rules of no language in particular; ASCII only where the system lacks them.
const std::locale& neutralLocale() {
    static const std::locale locale = [] {
        try {
            return std::locale("C.UTF-8");
        } catch (const std::runtime_error&) {
            return std::locale::classic();
        }
    }();
    return locale;
}

} // namespace

std::u32string charactersOf(std::string_view utf8) {
    std::u32string characters;
    characters.reserve(utf8.size());
    while (!utf8.empty()) {
        const DecodedCharacter decoded = firstCharacter(utf8);
        characters += decoded.character;
        utf8.remove_prefix(decoded.length);
    }
    return characters;
}

std::string utf8Text(std::u32string_view characters) {
    std::string text;
    text.reserve(characters.size());
    for (const char32_t character : characters)
        appendUtf8(text, character);
    return text;
}

std::string wellFormedText(std::string_view utf8) {
    if (isAscii(utf8))
        return std::string(utf8);
    return utf8Text(charactersOf(utf8));
}

std::string uppercaseText(std::string_view utf8) {
    constexpr char32_t SharpS = 0xDF; // the one letter of a keyboard whose upper case is two characters
    std::string text;
    text.reserve(utf8.size());
    const auto& type = std::use_facet<std::ctype<wchar_t>>(neutralLocale());
    for (const char32_t character : charactersOf(utf8)) {
        if (character == SharpS)
            text += "SS";
        else
            appendUtf8(text, static_cast<char32_t>(type.toupper(static_cast<wchar_t>(character))));
    }
    return text;
}

std::string lowercaseText(std::string_view utf8) {
    std::string text;
    text.reserve(utf8.size());
    const auto& type = std::use_facet<std::ctype<wchar_t>>(neutralLocale());
    for (const char32_t character : charactersOf(utf8))
        appendUtf8(text, static_cast<char32_t>(type.tolower(static_cast<wchar_t>(character))));
    return text;
}

} // namespace tarragon
