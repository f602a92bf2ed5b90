#pragma once

#include "updates/UpdateOutcome.h"

#include <functional>
#include <string>
#include <vector>

namespace tarragon {

// One entry of a release list.
struct Release {
    std::string version = {}; // empty when the list gives none
    bool isForEverybody = true; // and not for those who test what is being developed
    std::string notes = {}; // plain text
    std::string link = {};
};

// Less than 0, 0 or more than 0, as the first version is older than the second, the same, or newer.
using CompareVersions = std::function<int(const std::string&, const std::string&)>;

// What the listed releases mean to somebody who runs this version. Their order does not matter, and neither do their
// dates: a release that is listed is out.
UpdateOutcome decideUpdate(
    const std::vector<Release>& releases, const std::string& runningVersion, const CompareVersions& compare);

} // namespace tarragon
