#include "ignore/IgnoreDictionary.h"
#include "platform/PreferenceKeys.h"

#include "ignore/KeyedArchiver.h"
#include "ignore/KeyedUnarchiver.h"
#include "platform/UnicodeText.h"

#include <algorithm>
#include <unordered_set>

namespace tarragon {

namespace {

using ArchivedEntry = std::pair<std::string, std::span<const std::uint8_t>>;

// The strings of an archived dictionary with the data that they stand for; nothing when it is damaged.
std::optional<std::vector<ArchivedEntry>> archivedEntries(std::span<const std::uint8_t> archive) {
    const KeyedUnarchiver unarchiver(archive);
    const std::optional<ArchivedObject> root = unarchiver.root();
    const auto dictionary = root ? root->dictionary() : std::nullopt;
    if (!dictionary)
        return std::nullopt;
    std::vector<ArchivedEntry> entries;
    entries.reserve(dictionary->size());
    std::size_t size = 0;
    for (const auto& [key, object] : *dictionary) {
        if (const std::optional<std::span<const std::uint8_t>> data = object.data()) {
            entries.emplace_back(key, *data);
            size += data->size();
        }
    }
    // More data than there are bytes: the same ones are claimed again and again, to be multiplied by whoever copies.
    if (unarchiver.isDamaged() || size > archive.size())
        return std::nullopt;
    return entries;
}

} // namespace

std::optional<IgnoreDictionary> IgnoreDictionary::unarchive(std::span<const std::uint8_t> archive) {
    const std::optional<std::vector<ArchivedEntry>> entries = archivedEntries(archive);
    if (!entries)
        return std::nullopt;
    IgnoreDictionary dictionary;
    std::unordered_set<std::string_view> keys;
    for (const auto& [key, data] : *entries) {
        if (keys.insert(key).second)
            dictionary._entries.emplace_back(key, std::make_shared<const Data>(data.begin(), data.end()));
    }
    return dictionary;
}

std::optional<IgnoreDictionary> IgnoreDictionary::load(Defaults& defaults) {
    const std::optional<DefaultsValue> setting = defaults.value(preference::IgnoreWindowList);
    const Data* archive = setting ? std::get_if<Data>(&*setting) : nullptr;
    return archive ? unarchive(*archive) : std::nullopt;
}

std::optional<TarragonBlacklist> IgnoreDictionary::unarchiveEntry(
    std::span<const std::uint8_t> archive, std::string_view bundleIdentifier) {
    const std::optional<std::vector<ArchivedEntry>> entries = archivedEntries(archive);
    if (!entries)
        return std::nullopt;
    const auto found = std::find_if(entries->begin(), entries->end(),
        [key = wellFormedText(bundleIdentifier)](const ArchivedEntry& entry) { return entry.first == key; });
    return found == entries->end() ? std::nullopt : TarragonBlacklist::unarchive(found->second);
}

Data IgnoreDictionary::archivedData() const {
    ArchiveDictionary dictionary;
    dictionary.mutability = Mutability::Mutable;
    dictionary.entries.assign(_entries.begin(), _entries.end());
    return KeyedArchiver::archivedDataWithRootObject(std::make_shared<const ArchiveDictionary>(std::move(dictionary)));
}

bool IgnoreDictionary::store(Defaults& defaults) const {
    Data archive = archivedData();
    return unarchive(archive) && defaults.setValue(preference::IgnoreWindowList, std::move(archive));
}

std::vector<std::string> IgnoreDictionary::allKeys() const {
    std::vector<std::string> keys;
    keys.reserve(_entries.size());
    for (const auto& entry : _entries)
        keys.push_back(entry.first);
    return keys;
}

IgnoreDictionary::Entries::const_iterator IgnoreDictionary::find(const std::string& key) const {
    return std::find_if(_entries.begin(), _entries.end(), [&key](const auto& entry) { return entry.first == key; });
}

std::optional<TarragonBlacklist> IgnoreDictionary::entry(std::string_view bundleIdentifier) const {
    const auto found = find(wellFormedText(bundleIdentifier));
    return found == _entries.end() ? std::nullopt : TarragonBlacklist::unarchive(*found->second);
}

bool IgnoreDictionary::setEntry(std::string_view bundleIdentifier, const TarragonBlacklist& entry) {
    auto archive = std::make_shared<const Data>(entry.archivedData());
    if (!TarragonBlacklist::unarchive(*archive))
        return false;
    std::string key = wellFormedText(bundleIdentifier);
    const auto found = find(key);
    if (found == _entries.end())
        _entries.emplace_back(std::move(key), std::move(archive));
    else
        _entries[static_cast<std::size_t>(found - _entries.begin())].second = std::move(archive);
    return true;
}

void IgnoreDictionary::removeEntry(std::string_view bundleIdentifier) {
    const auto found = find(wellFormedText(bundleIdentifier));
    if (found != _entries.end())
        _entries.erase(found);
}

} // namespace tarragon
