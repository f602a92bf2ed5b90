#include "ignore/IgnoreDictionary.h"

#include "ignore/ArchivedCopies.h"
#include "ignore/KeyedArchiver.h"
#include "ignore/KeyedUnarchiver.h"
#include "platform/Log.h"
#include "platform/PreferenceKeys.h"

#include <algorithm>
#include <unordered_set>

namespace tarragon {

namespace {

using ArchivedEntry = std::pair<std::string, ArchivedObject>;

// The dictionary that an archive of a given size holds; nothing when it is damaged.
std::optional<std::vector<ArchivedEntry>> archivedEntries(const KeyedUnarchiver& unarchiver, std::size_t archiveSize) {
    const std::optional<ArchivedObject> root = unarchiver.root();
    std::optional<std::vector<ArchivedEntry>> entries = root ? root->dictionary() : std::nullopt;
    if (!entries || unarchiver.isDamaged())
        return std::nullopt;
    std::size_t dataSize = 0;
    for (auto& [key, object] : *entries) {
        // Another program may have stored what ours do not: the key is known by what it becomes when it is stored
        // again.
        if (key.find('\0') != std::string::npos)
            key = propertyListText(key);
        if (const std::optional<std::span<const std::uint8_t>> data = object.data())
            dataSize += data->size();
    }
    // More data than there are bytes: the same ones are claimed again and again, to be multiplied by whoever copies.
    return unarchiver.isDamaged() || dataSize > archiveSize ? std::nullopt : std::move(entries);
}

std::optional<std::vector<ArchivedEntry>> archivedEntriesOrLog(
    const KeyedUnarchiver& unarchiver, std::size_t archiveSize) {
    std::optional<std::vector<ArchivedEntry>> entries = archivedEntries(unarchiver, archiveSize);
    if (!entries)
        log(LogCategory::Settings, [] { return std::string("the stored ignore list cannot be read"); });
    return entries;
}

std::optional<TarragonBlacklist> unarchivedEntry(std::span<const std::uint8_t> archive, std::string_view key) {
    std::optional<TarragonBlacklist> entry = TarragonBlacklist::unarchive(archive);
    if (!entry) {
        log(LogCategory::Settings,
            [key] { return "the ignore list's entry for " + std::string(key) + " cannot be read"; });
    }
    return entry;
}

} // namespace

std::optional<IgnoreDictionary> IgnoreDictionary::unarchive(std::span<const std::uint8_t> archive) {
    const KeyedUnarchiver unarchiver(archive);
    const std::optional<std::vector<ArchivedEntry>> entries = archivedEntriesOrLog(unarchiver, archive.size());
    if (!entries)
        return std::nullopt;
    IgnoreDictionary dictionary;
    ArchivedCopies copies(archive.size());
    std::unordered_set<std::string_view> keys;
    for (const auto& [key, object] : *entries) {
        if (!keys.insert(key).second)
            continue;
        if (std::optional<ArchiveValue> value = copies.copyOf(object))
            dictionary._entries.emplace_back(key, std::move(*value));
        else
            log(LogCategory::Settings, [&key = key] { return "left out of the ignore list: what is under " + key; });
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
    const KeyedUnarchiver unarchiver(archive);
    const std::optional<std::vector<ArchivedEntry>> entries = archivedEntriesOrLog(unarchiver, archive.size());
    if (!entries)
        return std::nullopt;
    const auto found = std::find_if(entries->begin(), entries->end(),
        [key = propertyListText(bundleIdentifier)](const ArchivedEntry& entry) { return entry.first == key; });
    const auto data = found == entries->end() ? std::nullopt : found->second.data();
    return data ? unarchivedEntry(*data, found->first) : std::nullopt;
}

Data IgnoreDictionary::archivedData() const {
    ArchiveDictionary dictionary;
    dictionary.mutability = Mutability::Mutable;
    dictionary.entries.assign(_entries.begin(), _entries.end());
    return KeyedArchiver::archivedDataWithRootObject(std::make_shared<const ArchiveDictionary>(std::move(dictionary)));
}

bool IgnoreDictionary::store(Defaults& defaults) const {
    Data archive = archivedData();
    if (unarchive(archive))
        return defaults.setValue(preference::IgnoreWindowList, std::move(archive));
    log(LogCategory::Settings, [] { return std::string("the ignore list has grown too large and is not stored"); });
    return false;
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

std::optional<TarragonBlacklist> IgnoreDictionary::entryAt(std::size_t place) const {
    const auto& [key, value] = _entries[place];
    const auto* archive = std::get_if<std::shared_ptr<const Data>>(&value);
    return archive ? unarchivedEntry(**archive, key) : std::nullopt;
}

std::optional<std::size_t> IgnoreDictionary::placeOf(std::string_view key) const {
    const auto found = find(propertyListText(key));
    return found == _entries.end() ? std::nullopt : std::optional(static_cast<std::size_t>(found - _entries.begin()));
}

std::optional<TarragonBlacklist> IgnoreDictionary::entry(std::string_view bundleIdentifier) const {
    const std::optional<std::size_t> place = placeOf(bundleIdentifier);
    return place ? entryAt(*place) : std::nullopt;
}

bool IgnoreDictionary::setEntry(std::string_view bundleIdentifier, const TarragonBlacklist& entry) {
    auto archive = std::make_shared<const Data>(entry.archivedData());
    if (!TarragonBlacklist::unarchive(*archive)) {
        log(LogCategory::Settings, [bundleIdentifier] {
            return "an entry of the ignore list has grown too large and is not stored: "
                + std::string(bundleIdentifier);
        });
        return false;
    }
    std::string key = propertyListText(bundleIdentifier);
    const auto found = find(key);
    if (found == _entries.end())
        _entries.emplace_back(std::move(key), std::move(archive));
    else
        _entries[static_cast<std::size_t>(found - _entries.begin())].second = std::move(archive);
    return true;
}

void IgnoreDictionary::removeEntry(std::string_view bundleIdentifier) {
    const auto found = find(propertyListText(bundleIdentifier));
    if (found != _entries.end())
        _entries.erase(found);
}

} // namespace tarragon
