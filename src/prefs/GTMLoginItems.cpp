#include "prefs/GTMLoginItems.h"

#include "platform/Log.h"

#include <algorithm>
#include <filesystem>

namespace tarragon {

namespace {

constexpr const char* NameKey = "Name";
constexpr const char* PathKey = "Path";
constexpr const char* HideKey = "Hide";

// "Tarragon.app" is called "Tarragon", but ".app" is no extension.
std::string withoutExtension(const std::string& name) {
    const std::size_t dot = name.rfind('.');
    const std::size_t separator = name.rfind('/');
    const std::size_t first = separator == std::string::npos ? 0 : separator + 1;
    return dot == std::string::npos || dot <= first ? name : name.substr(0, dot);
}

std::optional<std::string> nameOf(const LoginItem& item) {
    return item.displayName ? std::optional(withoutExtension(*item.displayName)) : std::nullopt;
}

// The path without links, where there is something at it; otherwise the path as it stands.
std::string canonicalPath(const std::string& path) {
    std::error_code error;
    const std::filesystem::path canonical = std::filesystem::canonical(path, error);
    return error ? path : canonical.string();
}

template <typename Predicate>
void removeItems(LoginItemList* list, Predicate shouldRemove) {
    LoginItemList* const available = GTMLoginItems::loginItemsFileListRef(list);
    const auto items = GTMLoginItems::loginItemsArrayForFileListRef(available);
    for (const LoginItem& item : items.value_or(std::vector<LoginItem>())) {
        if (shouldRemove(item) && !available->removeItem(item))
            log(LogCategory::Settings, [&item] { return "a login item could not be removed: " + item.reference; });
    }
}

} // namespace

LoginItemList* GTMLoginItems::loginItemsFileListRef(LoginItemList* list) {
    return list && list->isAvailable() ? list : nullptr;
}

std::optional<std::vector<LoginItem>> GTMLoginItems::loginItemsArrayForFileListRef(LoginItemList* list) {
    return list ? list->copySnapshot() : std::nullopt;
}

std::optional<LoginItemArray> GTMLoginItems::loginItems(LoginItemList* list, LoginItemsError* error) {
    const std::optional<std::vector<LoginItem>> items = loginItemsArrayForFileListRef(loginItemsFileListRef(list));
    if (!items) {
        if (error)
            *error = {"GTMLoginItems", -1};
        return std::nullopt;
    }
    LoginItemArray dictionaries;
    for (const LoginItem& item : *items) {
        LoginItemDictionary& dictionary = dictionaries.emplace_back();
        if (std::optional<std::string> name = nameOf(item))
            dictionary.emplace(NameKey, std::move(*name));
        if (item.path)
            dictionary.emplace(PathKey, *item.path);
        if (item.isHidden)
            dictionary.emplace(HideKey, true);
    }
    return dictionaries;
}

std::int64_t GTMLoginItems::indexOfLoginItemWithValue(const std::optional<LoginItemValue>& value,
    const std::optional<std::string>& key, const std::optional<LoginItemArray>& loginItems) {
    if (!value || !key || !loginItems)
        return NSNotFound;
    const auto found =
        std::find_if(loginItems->begin(), loginItems->end(), [&value, &key](const LoginItemDictionary& dictionary) {
            const auto entry = dictionary.find(*key);
            return entry != dictionary.end() && entry->second == *value;
        });
    return found == loginItems->end() ? NSNotFound : found - loginItems->begin();
}

bool GTMLoginItems::pathInLoginItems(LoginItemList* list, const std::string& path) {
    const auto items = loginItemsArrayForFileListRef(loginItemsFileListRef(list));
    return items && std::any_of(items->begin(), items->end(), [canonical = canonicalPath(path)](const LoginItem& item) {
        return item.path && canonicalPath(*item.path) == canonical;
    });
}

bool GTMLoginItems::itemWithNameInLoginItems(LoginItemList* list, const std::string& name) {
    return indexOfLoginItemWithValue(name, NameKey, loginItems(list, nullptr)) != NSNotFound;
}

void GTMLoginItems::addPathToLoginItems(LoginItemList* list, const std::string& path, bool hide) {
    LoginItemList* const available = loginItemsFileListRef(list);
    if (path.empty() || !available || pathInLoginItems(available, path))
        return;
    if (!available->insertItem(path, hide))
        log(LogCategory::Settings, [&path] { return "the login item could not be written: " + path; });
}

void GTMLoginItems::removePathFromLoginItems(LoginItemList* list, const std::string& path) {
    if (path.empty())
        return;
    removeItems(list, [canonical = canonicalPath(path)](const LoginItem& item) {
        return item.path && canonicalPath(*item.path) == canonical;
    });
}

void GTMLoginItems::removeItemWithNameFromLoginItems(LoginItemList* list, const std::string& name) {
    if (name.empty())
        return;
    removeItems(list, [&name](const LoginItem& item) { return nameOf(item) == name; });
}

} // namespace tarragon
