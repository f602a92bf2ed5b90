#include "platform/linux/settings/PropertyListDefaults.h"

#include "platform/Log.h"
#include "platform/RunLoop.h"
#include "platform/linux/desktop/SessionEnvironment.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <set>
#include <sys/inotify.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace tarragon {

namespace {

// Seldom, because an attempt may wait for a process that holds the file.
constexpr double SecondsBetweenAttempts = 30;

void applyChanges(const PropertyListChanges& changes, PropertyListValues& values) {
    for (const auto& [key, value] : changes) {
        if (value)
            values.insert_or_assign(key, *value);
        else
            values.erase(key);
    }
}

std::optional<DefaultsValue> valueIn(const PropertyListValues& values, std::string_view key) {
    const auto found = values.find(key);
    return found == values.end() ? std::nullopt : std::optional(found->second);
}

} // namespace

PropertyListDefaults::PropertyListDefaults(RunLoop& runLoop, const std::filesystem::path& file)
    : _runLoop(runLoop)
    , _file(file) {
    // The watch comes first, so that no change falls between the two.
    watchFolder();
    _stored = _file.read().value_or(PropertyListValues());
}

PropertyListDefaults::~PropertyListDefaults() {
    if (const PropertyListChanges last = writableChanges(); !last.empty() && !_file.merge(last))
        logError(LogCategory::Settings, "settings that could not be written are lost");
    if (_folderEvents >= 0)
        close(_folderEvents);
}

std::filesystem::path PropertyListDefaults::fileOfUser() {
    const std::filesystem::path folder = userConfigurationFolder();
    if (folder.empty()) {
        logError(LogCategory::Settings, "neither XDG_CONFIG_HOME nor HOME names a folder; settings are not kept");
        return {};
    }
    return folder / "tarragon" / "tarragon.plist";
}

void PropertyListDefaults::registerDefaults(const DefaultsDictionary& values) {
    for (const auto& [key, value] : values)
        _registered.insert_or_assign(key, value);
}

void PropertyListDefaults::setInitialValues(const DefaultsDictionary& values) {
    _initialValues = values;
}

std::optional<DefaultsValue> PropertyListDefaults::value(std::string_view key) {
    auto value = valueIn(_stored, key);
    return value ? value : valueIn(_registered, key);
}

bool PropertyListDefaults::setValue(std::string_view key, const DefaultsValue& value) {
    if (!PropertyListDictionary::canHold(value))
        logError(LogCategory::Settings, "the setting " + std::string(key) + " has a null byte in it and is not kept");
    return change({{std::string(key), value}});
}

bool PropertyListDefaults::removeValue(std::string_view key) {
    return change({{std::string(key), std::nullopt}});
}

void PropertyListDefaults::revertToInitialValues() {
    Changes changes;
    for (const auto& [key, value] : _initialValues) {
        // A registered value comes back by itself, and follows a later version of the program.
        const bool isRegistered = valueIn(_registered, key) == value;
        changes.emplace_back(key, isRegistered ? std::nullopt : std::optional(value));
    }
    change(changes);
}

bool PropertyListDefaults::synchronize() {
    // A file that was never written is begun as well.
    std::error_code error;
    const bool isMissing = !_file.path().empty() && !std::filesystem::exists(_file.path(), error) && !error;
    if (!_pending.empty() || isMissing)
        return change({});
    reload();
    return true;
}

DefaultsObserver PropertyListDefaults::addObserver(const std::string& keyPath, Observer observer) {
    return _observers.add(keyPath, std::move(observer));
}

void PropertyListDefaults::removeObserver(DefaultsObserver observer) {
    _observers.remove(observer);
}

bool PropertyListDefaults::change(const Changes& changes) {
    for (const auto& [key, value] : changes)
        _pending.insert_or_assign(key, value);
    const PropertyListChanges writable = writableChanges();
    const std::optional<PropertyListValues> written = _file.merge(writable);
    if (written) {
        std::erase_if(_pending, [&](const auto& entry) { return writable.contains(entry.first); });
        // The folder may have come into being just now.
        if (_folderWatch < 0)
            watchFolder();
    }
    const bool isWritten = written && _pending.empty();
    const bool isWaiting = !written && !writable.empty();
    _nextAttempt = isWaiting ? _runLoop.scheduleTimer(SecondsBetweenAttempts, false, [this] { change({}); }) : nullptr;
    std::vector<std::string> told;
    for (const auto& [key, value] : changes)
        told.push_back(key);
    takeOver(written.value_or(_stored), std::move(told));
    tellOfUnwrittenChanges();
    return isWritten;
}

// All that wait, but for values that no file can hold.
PropertyListChanges PropertyListDefaults::writableChanges() const {
    PropertyListChanges writable = _pending;
    std::erase_if(
        writable, [](const auto& entry) { return entry.second && !PropertyListDictionary::canHold(*entry.second); });
    return writable;
}

void PropertyListDefaults::tellOfUnwrittenChanges() {
    if (std::exchange(_toldOfUnwrittenChanges, hasUnwrittenChanges()) != hasUnwrittenChanges())
        _observers.tell(std::string(UnwrittenChangesKeyPath));
}

void PropertyListDefaults::reload() {
    if (const auto values = _file.read())
        takeOver(*values, {});
}

// Makes the file's values, with the pending changes, the current ones, and tells the observers of the given keys and of
// those whose value is another one now.
void PropertyListDefaults::takeOver(PropertyListValues values, std::vector<std::string> keys) {
    applyChanges(_pending, values);
    std::set<std::string> candidates;
    for (const PropertyListValues* all : {&_stored, &values}) {
        for (const auto& [key, value] : *all)
            candidates.insert(key);
    }
    const auto effective = [&](const PropertyListValues& stored, const std::string& key) {
        auto value = valueIn(stored, key);
        return value ? value : valueIn(_registered, key);
    };
    for (const std::string& key : candidates) {
        const bool isListed = std::find(keys.begin(), keys.end(), key) != keys.end();
        if (!isListed && effective(_stored, key) != effective(values, key))
            keys.push_back(key);
    }
    _stored = std::move(values);
    for (const std::string& key : keys)
        _observers.tell("values." + key);
}

// The folder is watched and not the file, because every change puts another file in its place.
void PropertyListDefaults::watchFolder() {
    if (!_file.makeFolder())
        return;
    if (_folderEvents < 0) {
        _folderEvents = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
        if (_folderEvents < 0)
            return;
        _runLoop.watchDescriptor(_folderEvents, [this] { handleFolderEvents(); });
    }
    constexpr std::uint32_t Mask =
        IN_MOVED_TO | IN_MOVED_FROM | IN_CLOSE_WRITE | IN_DELETE | IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR;
    _folderWatch = inotify_add_watch(_folderEvents, _file.path().parent_path().c_str(), Mask);
}

void PropertyListDefaults::handleFolderEvents() {
    const std::string fileName = _file.path().filename().string();
    bool concernsFile = false;
    alignas(inotify_event) std::array<char, 4096> buffer = {};
    ssize_t count = 0;
    while ((count = read(_folderEvents, buffer.data(), buffer.size())) > 0) {
        for (ssize_t offset = 0; offset < count;) {
            const auto& event = *reinterpret_cast<const inotify_event*>(buffer.data() + offset);
            offset += static_cast<ssize_t>(sizeof(inotify_event)) + event.len;
            concernsFile |= (event.mask & IN_Q_OVERFLOW) != 0 || (event.len > 0 && fileName == event.name);
            // The folder has gone or has another name; the next change makes a new one.
            if (event.wd == _folderWatch && (event.mask & (IN_DELETE_SELF | IN_MOVE_SELF | IN_IGNORED)) != 0) {
                concernsFile = true;
                inotify_rm_watch(_folderEvents, std::exchange(_folderWatch, -1));
            }
        }
    }
    if (concernsFile)
        reload();
}

} // namespace tarragon
