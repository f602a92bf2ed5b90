#pragma once

#include "platform/DefaultsObservers.h"
#include "platform/linux/settings/PropertyListFile.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarragon {

class RunLoop;
class Timer;

// The user's settings in a property list, by default tarragon/tarragon.plist in the user's configuration folder. What
// other processes write is taken over from the run loop, and told to the observers of the keys whose values changed by
// it. An observer of a key is called for each set, removal and reset of this process, also when the value stays equal.
//
// Main thread only. The run loop outlives it and is not run after its end.
class PropertyListDefaults : public Defaults {
public:
    // An empty path stands for settings in memory only: every setValue answers false.
    PropertyListDefaults(RunLoop& runLoop, const std::filesystem::path& file);
    ~PropertyListDefaults() override;
    PropertyListDefaults(const PropertyListDefaults&) = delete;
    PropertyListDefaults& operator=(const PropertyListDefaults&) = delete;

    // From XDG_CONFIG_HOME or HOME. Empty, and an error told, when neither is set.
    static std::filesystem::path fileOfUser();

    void registerDefaults(const DefaultsDictionary& values) override;
    void setInitialValues(const DefaultsDictionary& values) override;
    std::optional<DefaultsValue> value(std::string_view key) override;
    bool setValue(std::string_view key, const DefaultsValue& value) override;
    bool removeValue(std::string_view key) override;
    void revertToInitialValues() override;
    bool synchronize() override;
    bool hasUnwrittenChanges() override { return !_pending.empty(); }
    DefaultsObserver addObserver(const std::string& keyPath, Observer observer) override;
    void removeObserver(DefaultsObserver observer) override;

private:
    // In order; nothing removes the key.
    using Changes = std::vector<std::pair<std::string, std::optional<DefaultsValue>>>;

    bool change(const Changes& changes);
    PropertyListChanges writableChanges() const;
    void tellOfUnwrittenChanges();
    void reload();
    void takeOver(PropertyListValues values, std::vector<std::string> keys);
    void watchFolder();
    void handleFolderEvents();

    RunLoop& _runLoop;
    PropertyListFile _file;
    // What the user has set, as this process sees it: the file's values with the pending changes.
    PropertyListValues _stored;
    PropertyListValues _registered;
    DefaultsDictionary _initialValues;
    // Changes that could not be written yet.
    PropertyListChanges _pending;
    bool _toldOfUnwrittenChanges = false;
    std::unique_ptr<Timer> _nextAttempt; // nullptr while nothing waits that a file can hold
    DefaultsObservers _observers;
    int _folderEvents = -1;
    int _folderWatch = -1;
};

} // namespace tarragon
