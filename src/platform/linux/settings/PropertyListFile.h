#pragma once

#include "platform/linux/settings/PropertyListDictionary.h"

#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>

namespace tarragon {

// New values by key; nothing removes the key.
using PropertyListChanges = std::map<std::string, std::optional<DefaultsValue>, std::less<>>;

// A property list on disk that several processes write. Every change is merged into what is there at that moment, and
// replaces the file in one step: whoever reads it, and whatever fails in between, sees the old file or the new one.
//
// A damaged file is moved aside, under a name that says when, and a new one begun. Failures are errors that the
// user is told, once until writing works again or fails for another reason.
class PropertyListFile {
public:
    // An empty path stands for no file at all: reading gives no values and every change fails. A symbolic link is
    // followed once, here, so that changes do not replace it.
    explicit PropertyListFile(const std::filesystem::path& file);

    const std::filesystem::path& path() const { return _file; }
    // Makes the folder when it is not there yet. False when there is none in the end.
    bool makeFolder();

    // No values when there is no file yet; nothing when it cannot be read.
    [[nodiscard]] std::optional<PropertyListValues> read();
    // The values afterwards; nothing when the changes could not be written. Other processes are waited for, but no
    // longer than a second.
    [[nodiscard]] std::optional<PropertyListValues> merge(const PropertyListChanges& changes);

private:
    enum class Lock { Held, NotHeld };

    [[nodiscard]] std::optional<PropertyListDictionary> readDictionary(Lock lock);
    [[nodiscard]] bool moveAside();
    [[nodiscard]] bool replace(const std::string& contents);
    void report(const std::string& what, int reason);

    std::filesystem::path _file;
    int _lastReason = 0; // of the failure that was told last; 0 after a success
};

} // namespace tarragon
