#pragma once

#include "mirror/Menu.h"

#include <string>
#include <vector>

namespace tarragon {

inline std::vector<std::string> titlesOf(const Menu& menu) {
    std::vector<std::string> titles;
    for (const auto& item : menu.items())
        titles.push_back(item->title());
    return titles;
}

} // namespace tarragon
