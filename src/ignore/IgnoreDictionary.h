#pragma once

#include "ignore/TarragonBlacklist.h"
#include "platform/Defaults.h"

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarragon {

// The ignore list in its stored form: bundle identifiers, each with the archive of that application's entry. What else
// a stored list holds under a string is kept as it is. Copies share the archives.
class IgnoreDictionary {
public:
    // Nothing when the bytes, which may be untrusted, are no archive of a dictionary. Objects of classes of their own
    // are left out.
    [[nodiscard]] static std::optional<IgnoreDictionary> unarchive(std::span<const std::uint8_t> archive);
    // What the setting holds; nothing when it does not unarchive.
    [[nodiscard]] static std::optional<IgnoreDictionary> load(Defaults& defaults);
    // One entry of an archived dictionary, without unpacking the others; nothing when there is none.
    static std::optional<TarragonBlacklist> unarchiveEntry(
        std::span<const std::uint8_t> archive, std::string_view bundleIdentifier);

    Data archivedData() const;
    // Stores the dictionary in the setting. One that could not be read again is not stored, and false answered.
    bool store(Defaults& defaults) const;

    // The bundle identifiers, and what else there is a value for, in stored order.
    std::vector<std::string> allKeys() const;
    std::size_t count() const { return _entries.size(); }
    // What stands at a place of the stored order, which is below count().
    const std::string& keyAt(std::size_t place) const { return _entries[place].first; }
    std::optional<TarragonBlacklist> entryAt(std::size_t place) const;
    // Where the key stands in the stored order; nothing when it is not there.
    std::optional<std::size_t> placeOf(std::string_view key) const;
    // Nothing when there is no entry, or none that can be read.
    std::optional<TarragonBlacklist> entry(std::string_view bundleIdentifier) const;
    // Replaces the application's entry or adds it at the end. An entry that could not be read again changes nothing,
    // and false is answered.
    bool setEntry(std::string_view bundleIdentifier, const TarragonBlacklist& entry);
    void removeEntry(std::string_view bundleIdentifier);

private:
    using Entries = std::vector<std::pair<std::string, ArchiveValue>>;

    Entries::const_iterator find(const std::string& key) const;

    Entries _entries;
};

} // namespace tarragon
