#pragma once

#include "updates/UpdateDecision.h"

#include <optional>
#include <string>
#include <vector>

namespace tarragon {

// The releases of an AppStream document, in no particular order: a list that stands alone (<releases>), or that of a
// <component>. Nothing when it is neither, or damaged. Notes are those for readers of any language.
std::optional<std::vector<Release>> readReleaseList(const std::string& document);

// As AppStream orders versions: number by number (0.10 is newer than 0.9), "1.0~rc1" before "1.0".
int compareVersions(const std::string& one, const std::string& other);

} // namespace tarragon
