#pragma once

#include "ignore/KeyedCoding.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace tarragon {

class ArchivedObject;
class KeyedUnarchiver;

// One application's entry in the ignore list. The setters copy: who wants to change the titles takes a copy of them,
// changes it and sets it back. Nothing stands for nil, which a stored entry may hold in every place.
class TarragonBlacklist : public KeyedCoding {
public:
    // An entry that ignores nothing, without the two strings.
    TarragonBlacklist();

    // What was encoded, with nil for what was not and for values of other kinds than the entry has. Nothing when the
    // object is no entry.
    [[nodiscard]] static std::optional<TarragonBlacklist> initWithCoder(const ArchivedObject& coder);
    void encodeWithCoder(KeyedArchiver& coder) const override;
    std::vector<std::string> archivedClasses() const override;

    // One entry as an archive of its own.
    Data archivedData() const;
    // Nothing when the bytes, which may be untrusted, are no archive of an entry.
    [[nodiscard]] static std::optional<TarragonBlacklist> unarchive(std::span<const std::uint8_t> archive);

    // The bundle identifier of the application; also the entry's key in the list.
    const std::optional<std::string>& appBundleID() const { return _appBundleID; }
    void setAppBundleID(std::optional<std::string> identifier) { _appBundleID = std::move(identifier); }

    // The application's name for people.
    const std::optional<std::string>& appName() const { return _appName; }
    void setAppName(std::optional<std::string> name) { _appName = std::move(name); }

    // Every window of the application is ignored.
    const std::optional<bool>& ignoreAllAppWindows() const { return _ignoreAllAppWindows; }
    void setIgnoreAllAppWindows(std::optional<bool> ignore) { _ignoreAllAppWindows = ignore; }

    // Exact titles or wildcard patterns.
    const std::optional<std::vector<std::string>>& windowsWithTitlesToIgnore() const {
        return _windowsWithTitlesToIgnore;
    }
    void setWindowsWithTitlesToIgnore(std::optional<std::vector<std::string>> titles) {
        _windowsWithTitlesToIgnore = std::move(titles);
    }

    // The entry covers a window of that title; a window without a title is covered only with all the others.
    bool ignoresWindow(const std::optional<std::string>& title) const;

    bool operator==(const TarragonBlacklist& other) const;

private:
    std::optional<std::string> _appBundleID;
    std::optional<std::string> _appName;
    std::optional<bool> _ignoreAllAppWindows;
    std::optional<std::vector<std::string>> _windowsWithTitlesToIgnore;
};

} // namespace tarragon
