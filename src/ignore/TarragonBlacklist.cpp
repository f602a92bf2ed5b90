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

// The texts of an array of strings; nothing for anything else.
std::optional<std::vector<std::string>> strings(const ArchivedObject& object) {
    const std::optional<std::vector<ArchivedObject>> elements = object.array();
    if (!elements)
        return std::nullopt;
    std::vector<std::string> texts;
    texts.reserve(elements->size());
    for (const ArchivedObject& element : *elements) {
        std::optional<std::string> text = element.string();
        if (!text)
            return std::nullopt;
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
    const ArchivedObject identifier = coder.decodeObjectForKey(AppBundleIDKey);
    const ArchivedObject name = coder.decodeObjectForKey(AppNameKey);
    const ArchivedObject ignoreAll = coder.decodeObjectForKey(IgnoreAllAppWindowsKey);
    const ArchivedObject titles = coder.decodeObjectForKey(WindowsWithTitlesToIgnoreKey);

    TarragonBlacklist entry;
    entry._appBundleID = identifier.string();
    entry._appName = name.string();
    entry._ignoreAllAppWindows = ignoreAll.boolValue();
    entry._windowsWithTitlesToIgnore = strings(titles);

    // A missing value is kept as nil. One of another kind was not written by anybody who means us.
    const bool sound = (identifier.isNil() || entry._appBundleID) && (name.isNil() || entry._appName)
        && (ignoreAll.isNil() || entry._ignoreAllAppWindows) && (titles.isNil() || entry._windowsWithTitlesToIgnore);
    return sound ? std::optional(entry) : std::nullopt;
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
    // Stored titles are well-formed text, whatever the window's was when it was stored.
    if (std::find(titles.begin(), titles.end(), wellFormedText(*title)) != titles.end())
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
