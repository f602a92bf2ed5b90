#include "fake/FakeKeyboard.h"

namespace tarragon {

FakeKeyboard::FakeKeyboard()
    : _typed{
        {0, "a"},
        {1, "s"},
        {2, "d"},
        {3, "f"},
        {4, "h"},
        {5, "g"},
        {6, "z"},
        {7, "x"},
        {8, "c"},
        {9, "v"},
        {11, "b"},
        {12, "q"},
        {13, "w"},
        {14, "e"},
        {15, "r"},
        {16, "y"},
        {17, "t"},
        {18, "1"},
        {19, "2"},
        {20, "3"},
        {21, "4"},
        {22, "6"},
        {23, "5"},
        {24, "="},
        {25, "9"},
        {26, "7"},
        {27, "-"},
        {28, "8"},
        {29, "0"},
        {30, "]"},
        {31, "o"},
        {32, "u"},
        {33, "["},
        {34, "i"},
        {35, "p"},
        {37, "l"},
        {38, "j"},
        {39, "'"},
        {40, "k"},
        {41, ";"},
        {42, "\\"},
        {43, ","},
        {44, "/"},
        {45, "n"},
        {46, "m"},
        {47, "."},
        {50, "`"},
        {65, "."},
        {67, "*"},
        {69, "+"},
        {75, "/"},
        {78, "-"},
        {81, "="},
        {82, "0"},
        {83, "1"},
        {84, "2"},
        {85, "3"},
        {86, "4"},
        {87, "5"},
        {88, "6"},
        {89, "7"},
        {91, "8"},
        {92, "9"},
    } { }

void FakeKeyboard::setTyped(std::uint16_t keyCode, std::optional<std::string> text) {
    if (text)
        _typed.insert_or_assign(keyCode, std::move(*text));
    else
        _typed.erase(keyCode);
}

std::optional<std::string> FakeKeyboard::translateKeyCode(std::uint16_t keyCode) {
    const auto found = _typed.find(keyCode);
    return !_layoutReadable || found == _typed.end() ? std::nullopt : std::optional(found->second);
}

} // namespace tarragon
