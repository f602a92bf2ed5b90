#pragma once

#include "platform/Log.h"

#include <bitset>
#include <string>
#include <string_view>

namespace tarragon {

// One bit for each category, in the order of the categories.
using LogCategorySet = std::bitset<LogCategoryNames.size()>;

// What a person's list of categories comes to.
struct LogCategoryList {
    LogCategorySet categories; // those that are known, whatever else the list holds
    std::string error; // empty, or a sentence about the first name that is none
};

// Reads names of categories separated by commas; "all" stands for every one.
[[nodiscard]] LogCategoryList parseLogCategories(std::string_view list);

} // namespace tarragon
