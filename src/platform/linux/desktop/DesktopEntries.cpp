#include "platform/linux/desktop/DesktopEntries.h"

#include "platform/linux/desktop/DesktopEntryFile.h"
#include "platform/linux/desktop/ProcessNames.h"
#include "platform/linux/desktop/SessionEnvironment.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <fstream>
#include <iterator>
#include <map>
#include <mutex>
#include <set>
#include <string_view>
#include <system_error>
#include <tuple>
#include <unordered_map>
#include <utility>

namespace tarragon {

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> applicationFolders() {
    std::vector<fs::path> folders = dataFolders();
    for (fs::path& folder : folders)
        folder /= "applications";
    return folders;
}

std::string identifierOfFile(const fs::path& file, const fs::path& folder) {
    std::string identifier = file.lexically_relative(folder).replace_extension().string();
    std::replace(identifier.begin(), identifier.end(), '/', '-');
    return identifier;
}

// "org.xfce.mousepad" gives "mousepad".
std::string_view lastPart(std::string_view identifier) {
    return identifier.substr(identifier.rfind('.') + 1);
}

} // namespace

class DesktopEntries::Index {
public:
    Index(std::vector<fs::path> folders, const std::vector<std::string>& locales, CurrentLook currentLook)
        : _currentLook(std::move(currentLook))
        , _folders(std::move(folders))
        , _languages(desktopLanguages(locales)) { }

    std::optional<DesktopEntry> entryForWindow(const WindowDescription& window) {
        const std::lock_guard lock(_mutex);
        const auto namesOfProgram = [&] { return executableNames(window.processIdentifier); };
        const Effort effort = effortOfLook();
        if (effort == Effort::Look)
            refresh();
        const DesktopEntry* entry = match(window, namesOfProgram);
        // It may have been installed just now.
        if (!entry && effort == Effort::Spare) {
            refresh();
            entry = match(window, namesOfProgram);
        }
        return entry ? std::optional(*entry) : std::nullopt;
    }

    std::optional<DesktopEntry> entryForProgram(const std::string& name, const std::string& gtkApplicationIdentifier) {
        const std::lock_guard lock(_mutex);
        refresh();
        WindowDescription window;
        window.instanceName = name;
        window.className = name;
        window.gtkApplicationIdentifier = gtkApplicationIdentifier;
        const DesktopEntry* entry = match(window, [&] { return std::vector{name}; });
        return entry ? std::optional(*entry) : std::nullopt;
    }

    std::vector<DesktopEntry> allEntries() {
        const std::lock_guard lock(_mutex);
        refresh();
        return _entries;
    }

    const std::vector<fs::path>& folders() const { return _folders; }

private:
    struct Candidate {
        std::size_t entry;
        std::string text; // as the entry spells it
        bool isDisplayed;
    };
    // From lower-cased texts to the entries that have them.
    using Map = std::unordered_map<std::string, std::vector<Candidate>>;
    enum class Effort : std::uint8_t {
        None, // the folders were looked at for the same purpose
        Spare, // they were looked at lately
        Look,
    };

    // namesOfProgram is called when the window itself matches nothing.
    template <typename NamesOfProgram>
    const DesktopEntry* match(const WindowDescription& window, NamesOfProgram namesOfProgram) const {
        const DesktopEntry* entry = find(_byWindowClass, window.instanceName);
        if (!entry)
            entry = find(_byWindowClass, window.className);
        if (!entry)
            entry = find(_byIdentifier, window.gtkApplicationIdentifier);
        for (const std::string* name : {&window.className, &window.instanceName}) {
            if (!entry)
                entry = find(_byIdentifier, *name);
            if (!entry)
                entry = find(_byLastPart, *name);
        }
        if (entry)
            return entry;
        for (const std::string& name : namesOfProgram()) {
            if ((entry = find(_byExecutable, name)))
                return entry;
        }
        return nullptr;
    }

    // The best entry is the one that spells the text alike, then one that menus show, then one that is named like it,
    // then the first.
    const DesktopEntry* find(const Map& map, const std::string& text) const {
        const auto found = map.find(lowerCased(text));
        if (text.empty() || found == map.end())
            return nullptr;
        const auto rank = [&](const Candidate& candidate) {
            const std::string& identifier = _entries[candidate.entry].identifier;
            return std::tuple(candidate.text != text, !candidate.isDisplayed,
                lowerCased(lastPart(identifier)) != found->first, candidate.entry);
        };
        const auto best = std::min_element(found->second.begin(), found->second.end(),
            [&](const Candidate& left, const Candidate& right) { return rank(left) < rank(right); });
        return &_entries[best->entry];
    }

    void refresh() {
        if (_isSettled && foldersAreUnchanged())
            return;
        _entries.clear();
        for (Map* map : {&_byWindowClass, &_byIdentifier, &_byLastPart, &_byExecutable})
            map->clear();
        _folderTimes.clear();
        std::set<std::string> seen;
        // Time stamps advance in steps, of up to two seconds on some file systems, so that a second change right after
        // this scan may leave no trace in them. A folder that has only just changed is therefore scanned again.
        const fs::file_time_type recent = fs::file_time_type::clock::now() - std::chrono::seconds(2);
        for (const fs::path& folder : _folders)
            scan(folder, seen);
        _isSettled = std::all_of(
            _folderTimes.begin(), _folderTimes.end(), [&](const auto& folder) { return folder.second < recent; });
    }

    // Looks come twice a second for as long as the program runs, far more often than applications are installed.
    Effort effortOfLook() {
        const std::optional<std::uint64_t> look = _currentLook ? _currentLook() : std::nullopt;
        if (std::exchange(_lastLook, look) == look && look)
            return Effort::None;
        const auto now = std::chrono::steady_clock::now();
        if (look && _isSettled && now - _lastLookedAt < std::chrono::seconds(2))
            return Effort::Spare;
        _lastLookedAt = now;
        return Effort::Look;
    }

    bool foldersAreUnchanged() const {
        return std::all_of(_folderTimes.begin(), _folderTimes.end(),
            [](const auto& folder) { return timeOf(folder.first) == folder.second; });
    }

    // The earliest time of all for a folder that does not exist.
    static fs::file_time_type timeOf(const fs::path& folder) {
        std::error_code error;
        const fs::file_time_type time = fs::last_write_time(folder, error);
        return error ? fs::file_time_type::min() : time;
    }

    void scan(const fs::path& folder, std::set<std::string>& seen) {
        _folderTimes[folder] = timeOf(folder);
        // Sorted, so that which of two equally good entries is found does not depend on the file system.
        std::map<std::string, fs::path> files;
        std::error_code error;
        const auto options = fs::directory_options::skip_permission_denied;
        for (auto file = fs::recursive_directory_iterator(folder, options, error);
             !error && file != fs::recursive_directory_iterator(); file.increment(error)) {
            std::error_code ignored;
            if (file->is_directory(ignored))
                _folderTimes[file->path()] = timeOf(file->path());
            else if (file->path().extension() == ".desktop")
                files.emplace(identifierOfFile(file->path(), folder), file->path());
        }
        for (const auto& [identifier, path] : files) {
            if (!seen.contains(identifier) && add(identifier, path))
                seen.insert(identifier);
        }
    }

    // False when the file is no entry, so that another of the same identifier may take its place.
    bool add(const std::string& identifier, const fs::path& path) {
        std::ifstream stream(path, std::ios::binary);
        const std::string text((std::istreambuf_iterator<char>(stream)), std::istreambuf_iterator<char>());
        const std::optional<DesktopEntryFile> file = DesktopEntryFile::parse(text, _languages);
        if (!file)
            return false;
        if (file->isDeleted)
            return true;
        const std::size_t number = _entries.size();
        _entries.push_back({identifier, path.string(), file->name.empty() ? identifier : file->name});
        const auto note = [&](Map& map, std::string_view key) {
            if (!key.empty())
                map[lowerCased(key)].push_back({number, std::string(key), file->isDisplayed});
        };
        note(_byWindowClass, file->startupWindowClass);
        note(_byIdentifier, identifier);
        note(_byLastPart, lastPart(identifier));
        note(_byExecutable, file->executable);
        return true;
    }

    std::mutex _mutex;
    CurrentLook _currentLook;
    std::optional<std::uint64_t> _lastLook;
    std::chrono::steady_clock::time_point _lastLookedAt;
    std::vector<fs::path> _folders;
    std::vector<std::string> _languages;
    bool _isSettled = false;
    std::map<fs::path, fs::file_time_type> _folderTimes;
    std::vector<DesktopEntry> _entries;
    Map _byWindowClass;
    Map _byIdentifier;
    Map _byLastPart;
    Map _byExecutable;
};

DesktopEntries::DesktopEntries(CurrentLook currentLook)
    : DesktopEntries(applicationFolders(), sessionLocales(), std::move(currentLook)) { }

DesktopEntries::DesktopEntries(
    std::vector<fs::path> folders, const std::vector<std::string>& locales, CurrentLook currentLook)
    : _index(std::make_unique<Index>(std::move(folders), locales, std::move(currentLook))) { }

DesktopEntries::~DesktopEntries() = default;

std::optional<DesktopEntry> DesktopEntries::entryForWindow(const WindowDescription& window) {
    return _index->entryForWindow(window);
}

std::optional<DesktopEntry> DesktopEntries::entryForProgram(
    const std::string& name, const std::string& gtkApplicationIdentifier) {
    return _index->entryForProgram(name, gtkApplicationIdentifier);
}

std::vector<DesktopEntry> DesktopEntries::allEntries() {
    return _index->allEntries();
}

const std::vector<fs::path>& DesktopEntries::folders() const {
    return _index->folders();
}

std::string DesktopEntries::applicationName(const WindowDescription& window) {
    if (const auto entry = entryForWindow(window))
        return entry->name;
    return window.className.empty() ? processName(window.processIdentifier) : window.className;
}

} // namespace tarragon
