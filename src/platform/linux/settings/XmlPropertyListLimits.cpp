#include "platform/linux/settings/XmlPropertyListLimits.h"

#include <cstddef>

namespace tarragon {

bool isXmlPropertyListWithinReason(std::string_view contents) {
    const std::size_t first = contents.find_first_not_of(" \t\r\n\xEF\xBB\xBF");
    if (first == std::string_view::npos || contents[first] != '<')
        return false;
    constexpr std::size_t Limit = 10000;
    std::size_t count = 0;
    for (const std::string_view tag : {"<array", "<dict"}) {
        for (std::size_t at = contents.find(tag); at != std::string_view::npos && count <= Limit;
             at = contents.find(tag, at + 1))
            ++count;
    }
    return count <= Limit;
}

} // namespace tarragon
