#include "cli/PrintableText.h"

#include <algorithm>

namespace tarragon {

std::string printable(const std::string& text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t index = 0; index < text.size(); ++index) {
        const auto byte = static_cast<unsigned char>(text[index]);
        const auto next = index + 1 < text.size() ? static_cast<unsigned char>(text[index + 1]) : 0;
        if (byte == 0xC2 && next >= 0x80 && next < 0xA0) {
            // A control character of two bytes.
            result += ' ';
            ++index;
        } else if ((byte < 0x20 && byte != '\n') || byte == 0x7F) {
            result += ' ';
        } else {
            result += text[index];
        }
    }
    return result;
}

std::string printableLine(const std::string& text) {
    std::string result = printable(text);
    std::replace(result.begin(), result.end(), '\n', ' ');
    return result;
}

} // namespace tarragon
