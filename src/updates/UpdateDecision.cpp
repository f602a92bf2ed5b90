#include "updates/UpdateDecision.h"

#include <algorithm>

namespace tarragon {

namespace {

// What a message box shows without growing past the screen.
constexpr std::size_t MostCharacters = 1500;
constexpr std::ptrdiff_t MostLines = 24;
// Nobody writes longer ones.
constexpr std::size_t LongestVersion = 64;

std::string shortenedNotes(const std::string& notes) {
    std::size_t length = std::min(notes.size(), MostCharacters);
    std::ptrdiff_t lines = 0;
    for (std::size_t index = 0; index < length; ++index) {
        if (notes[index] == '\n' && ++lines == MostLines)
            length = index;
    }
    if (length == notes.size())
        return notes;
    // Not between the bytes of one character.
    while (length > 0 && (static_cast<unsigned char>(notes[length]) & 0xC0) == 0x80)
        --length;
    return notes.substr(0, length) + "…";
}

// Only pages in the web: the link may come from anywhere and is handed to the desktop to open.
std::string safeLink(const std::string& link) {
    const bool isWeb = link.starts_with("https://") || link.starts_with("http://");
    const bool isPlain = std::all_of(link.begin(), link.end(), [](unsigned char c) { return c > 0x20 && c != 0x7F; });
    constexpr std::size_t MostBytes = 2000;
    return isWeb && isPlain && link.size() <= MostBytes ? link : std::string();
}

} // namespace

UpdateOutcome decideUpdate(
    const std::vector<Release>& releases, const std::string& runningVersion, const CompareVersions& compare) {
    const Release* newest = nullptr;
    for (const Release& release : releases) {
        if (release.version.empty() || release.version.size() > LongestVersion || !release.isForEverybody)
            continue;
        if (!newest || compare(release.version, newest->version) > 0)
            newest = &release;
    }
    if (!newest)
        return UpdateUnknown{UpdateProblem::NoRelease, {}};
    if (compare(newest->version, runningVersion) <= 0)
        return UpToDate{};
    return NewerVersion{newest->version, shortenedNotes(newest->notes), safeLink(newest->link)};
}

} // namespace tarragon
