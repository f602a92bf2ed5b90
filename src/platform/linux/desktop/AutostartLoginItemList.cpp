#include "platform/linux/desktop/AutostartLoginItemList.h"

#include "platform/linux/desktop/SessionEnvironment.h"

#include <algorithm>
#include <cstdlib>
#include <set>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tarragon {

namespace fs = std::filesystem;

namespace {

constexpr const char* Extension = ".desktop";

bool writeAll(int descriptor, std::string_view text) {
    while (!text.empty()) {
        const ssize_t count = ::write(descriptor, text.data(), text.size());
        if (count < 0)
            return false;
        text.remove_prefix(static_cast<std::size_t>(count));
    }
    return fsync(descriptor) == 0;
}

bool isThere(const fs::path& file) {
    std::error_code error;
    return fs::exists(fs::symlink_status(file, error));
}

template <typename Take>
void forEachEntry(const fs::path& folder, Take take) {
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        if (entry->path().extension() == Extension)
            take(*entry);
    }
}

// The earliest time of all for a file that cannot be looked at.
fs::file_time_type timeOf(const fs::directory_entry& entry) {
    std::error_code error;
    const fs::file_time_type time = entry.last_write_time(error);
    return error ? fs::file_time_type::min() : time;
}

// "tarragon" is called "Tarragon"; other names stay as they are but for the first letter.
std::string displayNameOfFile(const std::string& path) {
    std::string name = fs::path(path).filename();
    if (!name.empty() && name.front() >= 'a' && name.front() <= 'z')
        name.front() = static_cast<char>(name.front() - 'a' + 'A');
    return name;
}

// A file name that every file system and desktop takes.
std::string plainFileName(const std::string& path) {
    std::string name = fs::path(path).stem();
    for (char& character : name) {
        if (character >= 'A' && character <= 'Z')
            character = static_cast<char>(character - 'A' + 'a');
        const bool isPlain = (character >= 'a' && character <= 'z') || (character >= '0' && character <= '9')
            || character == '-' || character == '_';
        if (!isPlain)
            character = '-';
    }
    constexpr std::size_t LongestName = 100;
    return name.substr(0, LongestName);
}

} // namespace

AutostartFolders AutostartFolders::ofSession() {
    AutostartFolders folders;
    const fs::path configuration = userConfigurationFolder();
    if (!configuration.empty())
        folders.user = configuration / "autostart";
    for (const fs::path& folder : systemConfigurationFolders())
        folders.system.push_back(folder / "autostart");
    folders.desktops = sessionDesktops();
    folders.languages = sessionLanguages();
    folders.searchPath = programFolders();
    return folders;
}

AutostartLoginItemList::AutostartLoginItemList(AutostartFolders folders)
    : _folders(std::move(folders)) { }

std::vector<std::string> AutostartLoginItemList::fileNames() const {
    std::set<std::string> ofSystem;
    // The user's, by when they were written.
    std::set<std::pair<fs::file_time_type, std::string>> ofUser;
    for (const fs::path& folder : _folders.system)
        forEachEntry(folder, [&](const fs::directory_entry& entry) { ofSystem.insert(entry.path().filename()); });
    forEachEntry(_folders.user, [&](const fs::directory_entry& entry) {
        ofUser.emplace(timeOf(entry), entry.path().filename());
        ofSystem.erase(entry.path().filename());
    });
    std::vector<std::string> names(ofSystem.begin(), ofSystem.end());
    for (const auto& [time, name] : ofUser)
        names.push_back(name);
    return names;
}

bool AutostartLoginItemList::isOfSystem(const std::string& fileName) const {
    return std::any_of(_folders.system.begin(), _folders.system.end(),
        [&fileName](const fs::path& folder) { return isThere(folder / fileName); });
}

fs::path AutostartLoginItemList::effectiveFile(const std::string& fileName) const {
    if (isThere(_folders.user / fileName))
        return _folders.user / fileName;
    for (const fs::path& folder : _folders.system) {
        if (isThere(folder / fileName))
            return folder / fileName;
    }
    return {};
}

std::optional<AutostartEntry> AutostartLoginItemList::read(const fs::path& file) const {
    const std::optional<std::string> text = contentsOfSmallFile(file);
    return text ? AutostartEntry::parse(*text, _folders.languages) : std::nullopt;
}

bool AutostartLoginItemList::isInEffect(const AutostartEntry& entry) const {
    return !entry.isDeleted && entry.isEnabled && entry.isShownIn(_folders.desktops)
        && (entry.tryExecutable.empty() || resolve(entry.tryExecutable));
}

std::optional<std::string> AutostartLoginItemList::resolve(const std::string& executable) const {
    return programNamed(executable, _folders.searchPath);
}

std::optional<std::vector<LoginItem>> AutostartLoginItemList::copySnapshot() {
    if (!isAvailable())
        return std::nullopt;
    std::vector<LoginItem> items;
    for (const std::string& fileName : fileNames()) {
        const std::optional<AutostartEntry> entry = read(effectiveFile(fileName));
        if (!entry || !isInEffect(*entry))
            continue;
        LoginItem& item = items.emplace_back();
        item.reference = fileName;
        item.displayName = entry->name.empty() ? fileName : entry->name;
        item.path = resolve(entry->executable());
        item.isHidden = entry->startsHidden;
    }
    return items;
}

std::optional<std::string> AutostartLoginItemList::fileNameForNewItem(const std::string& path) const {
    constexpr int LastNumber = 1000;
    const std::string name = plainFileName(path);
    for (int number = 1; number <= LastNumber; ++number) {
        const std::string fileName = (number == 1 ? name : name + "-" + std::to_string(number)) + Extension;
        const fs::path file = effectiveFile(fileName);
        if (file.empty())
            return fileName;
        const std::optional<AutostartEntry> entry = read(file);
        const bool isDead = entry && (!isInEffect(*entry) || !resolve(entry->executable()));
        if (isDead && entry->isOurs && file.parent_path() == _folders.user)
            return fileName;
    }
    return std::nullopt;
}

bool AutostartLoginItemList::insertItem(const std::string& path, bool isHidden) {
    if (!isAvailable())
        return false;
    const std::optional<std::string> fileName = fileNameForNewItem(path);
    if (!fileName)
        return false;
    AutostartEntry entry;
    entry.name = displayNameOfFile(path);
    entry.commandLine = autostartCommandLine(path);
    entry.startsHidden = isHidden;
    if (!write(*fileName, entry.text()))
        return false;
    makeNewest(*fileName);
    return true;
}

// The user's entries are listed in the order in which they were written. Files that are written soon after one another
// may have the same time, though, and some have one that is still to come.
void AutostartLoginItemList::makeNewest(const std::string& fileName) const {
    fs::file_time_type newestOfOthers = fs::file_time_type::min();
    forEachEntry(_folders.user, [&](const fs::directory_entry& entry) {
        if (entry.path().filename() != fileName)
            newestOfOthers = std::max(newestOfOthers, timeOf(entry));
    });
    std::error_code error;
    const fs::path file = _folders.user / fileName;
    if (fs::last_write_time(file, error) <= newestOfOthers && !error)
        fs::last_write_time(file, newestOfOthers + fs::file_time_type::duration(1), error);
}

bool AutostartLoginItemList::removeItem(const LoginItem& item) {
    const bool isFileName = !item.reference.empty() && item.reference.find('/') == std::string::npos;
    if (!isAvailable() || !isFileName)
        return false;
    if (!isOfSystem(item.reference))
        return unlink((_folders.user / item.reference).c_str()) == 0;
    AutostartEntry deleted = read(effectiveFile(item.reference)).value_or(AutostartEntry());
    deleted.isDeleted = true;
    return write(item.reference, deleted.text());
}

bool AutostartLoginItemList::write(const std::string& fileName, std::string_view text) const {
    std::error_code error;
    if (!fs::exists(_folders.user.parent_path(), error)) {
        fs::create_directories(_folders.user.parent_path(), error);
        fs::permissions(_folders.user.parent_path(), fs::perms::owner_all, error);
    }
    fs::create_directories(_folders.user, error);

    std::string temporary = _folders.user / ".tarragon.XXXXXX";
    const int descriptor = mkostemp(temporary.data(), O_CLOEXEC);
    if (descriptor < 0)
        return false;
    constexpr mode_t ReadableByAll = 0644;
    const bool isComplete = writeAll(descriptor, text) && fchmod(descriptor, ReadableByAll) == 0;
    close(descriptor);
    if (isComplete && rename(temporary.c_str(), (_folders.user / fileName).c_str()) == 0)
        return true;
    unlink(temporary.c_str());
    return false;
}

} // namespace tarragon
