#pragma once

#include "platform/LoginItemList.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace tarragon {

// What callers learn of a login item, under the keys "Name" (display name without its file extension), "Path" and
// "Hide" (true). A key that does not apply is absent.
using LoginItemValue = std::variant<bool, std::string>;
using LoginItemDictionary = std::map<std::string, LoginItemValue>;
using LoginItemArray = std::vector<LoginItemDictionary>;

struct LoginItemsError {
    std::string domain;
    std::int64_t code = 0;
    bool operator==(const LoginItemsError&) const = default;
};

// The index of nothing.
inline constexpr std::int64_t NSNotFound = 0x7FFFFFFFFFFFFFFF;

// Reads and changes the list of what is started when the user logs in. A list that is missing, nullptr, or that the
// session does not have answers every question with nothing and is left alone. Failures are silent.
//
// Paths are those of programs: a link to a program is that program.
class GTMLoginItems {
public:
    // The session's list; nullptr when the session has none.
    [[nodiscard]] static LoginItemList* loginItemsFileListRef(LoginItemList* list);
    // The items of the list as they are now; nothing when there is no list.
    [[nodiscard]] static std::optional<std::vector<LoginItem>> loginItemsArrayForFileListRef(LoginItemList* list);

    // Nothing when there is no list; error is then filled in, unless it is nullptr.
    static std::optional<LoginItemArray> loginItems(LoginItemList* list, LoginItemsError* error);

    // The index of the first item with that value for the key, or NSNotFound, also when any of the three is missing.
    [[nodiscard]] static std::int64_t indexOfLoginItemWithValue(const std::optional<LoginItemValue>& value,
        const std::optional<std::string>& key, const std::optional<LoginItemArray>& loginItems);

    [[nodiscard]] static bool pathInLoginItems(LoginItemList* list, const std::string& path);
    [[nodiscard]] static bool itemWithNameInLoginItems(LoginItemList* list, const std::string& name);

    // Does nothing for an empty path and for one that is in the list.
    static void addPathToLoginItems(LoginItemList* list, const std::string& path, bool hide);
    // Removes every item that starts what is at that path; does nothing for an empty one.
    static void removePathFromLoginItems(LoginItemList* list, const std::string& path);
    // Removes every item of that name, whatever it starts; does nothing for an empty one.
    static void removeItemWithNameFromLoginItems(LoginItemList* list, const std::string& name);
};

} // namespace tarragon
