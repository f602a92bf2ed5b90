#include "ignore/TarragonBlacklist.h"

#include "ignore/KeyedArchiver.h"
#include "ignore/KeyedUnarchiver.h"
#include "ignore/LikePattern.h"
#include "platform/UnicodeText.h"

#include <algorithm>

namespace tarragon {

namespace {

constexpr const char* ClassName = "TarragonBlacklist";
constexpr const char* AppBundleIDKey = "appBundleID";
constexpr const char* AppNameKey = "appName";
constexpr const char* IgnoreAllAppWindowsKey = "ignoreAllAppWindows";
constexpr const char* WindowsWithTitlesToIgnoreKey = "windowsWithTitlesToIgnore";

template <typename T>
ArchiveValue valueOrNil(const std::optional<T>& value) {
    return value ? ArchiveValue(*value) : ArchiveValue();
}

// The strings of an array, without what else it holds; nothing for anything that is no array.
std::optional<std::vector<std::string>> strings(const ArchivedObject& object) {
    const std::optional<std::vector<ArchivedObject>> elements = object.array();
    if (!elements)
        return std::nullopt;
    std::vector<std::string> texts;
    texts.reserve(elements->size());
    for (const ArchivedObject& element : *elements) {
        if (std::optional<std::string> text = element.string())
            texts.push_back(std::move(*text));
    }
    return texts;
}

} // namespace

TarragonBlacklist::TarragonBlacklist()
    : _ignoreAllAppWindows(false)
    , _windowsWithTitlesToIgnore(std::vector<std::string>()) { }

std::optional<TarragonBlacklist> TarragonBlacklist::initWithCoder(const ArchivedObject& coder) {
    if (!coder.isKindOfClass(ClassName))
        return std::nullopt;
    TarragonBlacklist entry;
    entry._appBundleID = coder.decodeObjectForKey(AppBundleIDKey).string();
    entry._appName = coder.decodeObjectForKey(AppNameKey).string();
    entry._ignoreAllAppWindows = coder.decodeObjectForKey(IgnoreAllAppWindowsKey).boolValue();
    entry._windowsWithTitlesToIgnore = strings(coder.decodeObjectForKey(WindowsWithTitlesToIgnoreKey));
    return entry;
}

void TarragonBlacklist::encodeWithCoder(KeyedArchiver& coder) const {
    coder.encodeObject(valueOrNil(_appBundleID), AppBundleIDKey);
    coder.encodeObject(valueOrNil(_appName), AppNameKey);
    coder.encodeObject(valueOrNil(_ignoreAllAppWindows), IgnoreAllAppWindowsKey);
    ArchiveValue titles;
    if (_windowsWithTitlesToIgnore) {
        ArchiveArray array;
        array.elements.assign(_windowsWithTitlesToIgnore->begin(), _windowsWithTitlesToIgnore->end());
        titles = std::make_shared<const ArchiveArray>(std::move(array));
    }
    coder.encodeObject(titles, WindowsWithTitlesToIgnoreKey);
}

std::vector<std::string> TarragonBlacklist::archivedClasses() const {
    return {ClassName, "NSObject"};
}

Data TarragonBlacklist::archivedData() const {
    return KeyedArchiver::archivedDataWithRootObject(std::make_shared<const TarragonBlacklist>(*this));
}

std::optional<TarragonBlacklist> TarragonBlacklist::unarchive(std::span<const std::uint8_t> archive) {
    const KeyedUnarchiver unarchiver(archive);
    const std::optional<ArchivedObject> root = unarchiver.root();
    std::optional<TarragonBlacklist> entry = root ? initWithCoder(*root) : std::nullopt;
    if (unarchiver.isDamaged())
        return std::nullopt;
    return entry;
}

bool TarragonBlacklist::ignoresWindow(const std::optional<std::string>& title) const {
    if (_ignoreAllAppWindows.value_or(false))
        return true;
    if (!title || !_windowsWithTitlesToIgnore)
        return false;
    const std::vector<std::string>& titles = *_windowsWithTitlesToIgnore;
    // Stored titles are text that a property list can hold, whatever the window's was when it was stored.
    const std::string storedForm = propertyListText(*title);
    if (std::any_of(titles.begin(), titles.end(),
            [&](const std::string& stored) { return stored == *title || stored == storedForm; }))
        return true;
    const std::u32string characters = charactersOf(*title);
    return std::any_of(titles.begin(), titles.end(),
        [&characters](const std::string& pattern) { return isLike(characters, charactersOf(pattern)); });
}

bool TarragonBlacklist::operator==(const TarragonBlacklist& other) const {
    return _appBundleID == other._appBundleID && _appName == other._appName
        && _ignoreAllAppWindows == other._ignoreAllAppWindows
        && _windowsWithTitlesToIgnore == other._windowsWithTitlesToIgnore;
}

} // namespace tarragon
