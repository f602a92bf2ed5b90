#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tarragon {

// One thing that is started when the user logs in.
struct LoginItem {
    std::string reference; // names the item to the list that it came from; means nothing elsewhere
    std::optional<std::string> displayName; // with a file extension, if it has one; nothing when unknown
    std::optional<std::string> path; // of what is started; nothing when it cannot be found
    bool isHidden = false; // to be started without showing itself
    bool operator==(const LoginItem&) const = default;
};

// What is started when the user logs in. Failures are silent. Main thread only.
class LoginItemList {
public:
    virtual ~LoginItemList() = default;

    // The session has such a list.
    virtual bool isAvailable() const = 0;
    // The items as they are now, in the list's order; nothing when there is no such list.
    virtual std::optional<std::vector<LoginItem>> copySnapshot() = 0;
    // Inserts an item at the end of the list, named after its file. False when it could not be inserted.
    [[nodiscard]] virtual bool insertItem(const std::string& path, bool isHidden) = 0;
    // Takes an item of a snapshot out of the list. False when it is still there.
    [[nodiscard]] virtual bool removeItem(const LoginItem& item) = 0;
};

} // namespace tarragon
