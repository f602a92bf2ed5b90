#include "platform/LogCategories.h"

#include <algorithm>

namespace tarragon {

namespace {

constexpr std::string_view EveryCategory = "all";

std::string errorAbout(std::string_view name) {
    std::string error = "unknown log category '" + std::string(name) + "' (known are ";
    for (const std::string_view known : LogCategoryNames)
        error.append(known).append(", ");
    return error.append("and ").append(EveryCategory).append(")");
}

} // namespace

LogCategoryList parseLogCategories(std::string_view list) {
    LogCategoryList result;
    for (bool more = true; more;) {
        const std::size_t comma = list.find(',');
        const std::string_view name = list.substr(0, comma);
        const auto* const found = std::ranges::find(LogCategoryNames, name);
        if (name == EveryCategory)
            result.categories.set();
        else if (found != LogCategoryNames.end())
            result.categories.set(static_cast<std::size_t>(found - LogCategoryNames.begin()));
        else if (result.error.empty())
            result.error = errorAbout(name);
        more = comma != std::string_view::npos;
        if (more)
            list.remove_prefix(comma + 1);
    }
    return result;
}

} // namespace tarragon
