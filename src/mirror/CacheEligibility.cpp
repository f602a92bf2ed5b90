#include "mirror/CacheEligibility.h"

#include <algorithm>
#include <initializer_list>
#include <string_view>

namespace tarragon {

namespace {

bool isOneOf(std::string_view text, std::initializer_list<std::string_view> texts) {
    return std::ranges::find(texts, text) != texts.end();
}

} // namespace

bool menuMayBeCached(const std::optional<std::string>& appName, const std::string& title) {
    if (isOneOf(title, {"", "AXMenuBarItem", "Window"}))
        return false;
    if (appName == "Finder" && title == "Edit")
        return false;
    if (isOneOf(title, {"Recent Items", "Open Recent", "History", "Bookmarks"}))
        return false;
    if (!appName)
        return true;
    if (isOneOf(*appName, {"Mail", "IBM Lotus Symphony", "Photoshop", "Audacity", "OfficeTime", "Avid Media Composer"}))
        return false;
    if (isOneOf(*appName,
            {"Microsoft Word", "Microsoft Excel", "Mail", "OfficeTime", "Safari", "Xcode", "Firefox", "Camino",
                "Thunderbird"}))
        return false;
    if (*appName == "Word" && isOneOf(title, {"Edit", "Insert"}))
        return false;
    if (isOneOf(*appName, {"iPhoto", "Bookends", "Parallels Desktop"}))
        return false;
    return !appName->starts_with("FileMaker");
}

} // namespace tarragon
