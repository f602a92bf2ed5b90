#pragma once

#include <string>
#include <string_view>

namespace tarragon {

// The Unicode characters of UTF-8 text. A byte that belongs to no well-formed character stands for U+FFFD.
std::u32string charactersOf(std::string_view utf8);

// UTF-8 text of the characters. Numbers that are no character, surrogates among them, stand for U+FFFD.
std::string utf8Text(std::u32string_view characters);

// The UTF-8 text with every byte that belongs to no well-formed character replaced by U+FFFD.
std::string wellFormedText(std::string_view utf8);

// The UTF-8 text in upper case, whatever the user's language.
std::string uppercaseText(std::string_view utf8);

// The UTF-8 text in lower case, whatever the user's language.
std::string lowercaseText(std::string_view utf8);

} // namespace tarragon
