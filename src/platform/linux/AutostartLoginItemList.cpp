#include "platform/linux/AutostartLoginItemList.h"

#include "platform/linux/DesktopEntryFile.h"

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

std::string environmentVariable(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

std::vector<std::string> splitAtColons(std::string_view text) {
    std::vector<std::string> parts;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(':'), text.size());
        if (end > 0)
            parts.emplace_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return parts;
}

std::vector<fs::path> absolutePaths(std::string_view text) {
    std::vector<fs::path> paths;
    for (const fs::path path : splitAtColons(text)) {
        if (path.is_absolute())
            paths.push_back(path);
    }
    return paths;
}

// The user's languages, most wanted first. LANGUAGE counts only beside a locale that is not the plain one.
std::vector<std::string> sessionLanguages() {
    std::string locale;
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        if (locale.empty())
            locale = environmentVariable(name);
    }
    if (desktopLanguages({locale}).empty())
        return {};
    std::vector<std::string> locales = splitAtColons(environmentVariable("LANGUAGE"));
    locales.push_back(locale);
    return desktopLanguages(locales);
}

class Descriptor {
public:
    explicit Descriptor(int descriptor)
        : _descriptor(descriptor) { }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() {
        if (_descriptor >= 0)
            close(_descriptor);
    }
    int get() const { return _descriptor; }

private:
    int _descriptor;
};

// The text of a regular file of sensible size. Anything else in the folder, which anybody may have put there, is not
// waited for.
std::optional<std::string> contentsOf(const fs::path& file) {
    constexpr std::size_t LargestSize = std::size_t{1} << 20U;
    const Descriptor descriptor(open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat status { };
    if (descriptor.get() < 0 || fstat(descriptor.get(), &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    std::string text;
    char buffer[4096];
    while (text.size() <= LargestSize) {
        const ssize_t count = ::read(descriptor.get(), buffer, sizeof buffer);
        if (count < 0)
            return std::nullopt;
        if (count == 0)
            return text;
        text.append(buffer, static_cast<std::size_t>(count));
    }
    return std::nullopt;
}

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

bool isProgram(const fs::path& file) {
    std::error_code error;
    return fs::is_regular_file(file, error) && access(file.c_str(), X_OK) == 0;
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
    const fs::path configuration = environmentVariable("XDG_CONFIG_HOME");
    const fs::path home = environmentVariable("HOME");
    if (configuration.is_absolute())
        folders.user = configuration / "autostart";
    else if (home.is_absolute())
        folders.user = home / ".config" / "autostart";
    std::vector<fs::path> systemFolders = absolutePaths(environmentVariable("XDG_CONFIG_DIRS"));
    if (systemFolders.empty())
        systemFolders.emplace_back("/etc/xdg");
    for (const fs::path& folder : systemFolders)
        folders.system.push_back(folder / "autostart");
    folders.desktops = splitAtColons(environmentVariable("XDG_CURRENT_DESKTOP"));
    folders.languages = sessionLanguages();
    folders.searchPath = absolutePaths(environmentVariable("PATH"));
    return folders;
}

AutostartLoginItemList::AutostartLoginItemList(AutostartFolders folders)
    : _folders(std::move(folders)) { }

std::vector<std::string> AutostartLoginItemList::fileNames() const {
    std::set<std::string> ofSystem;
    // The user's, by when they were written.
    std::set<std::pair<fs::file_time_type, std::string>> ofUser;
    const auto collect = [](const fs::path& folder, auto&& take) {
        std::error_code error;
        for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
            if (entry->path().extension() == Extension)
                take(*entry);
        }
    };
    for (const fs::path& folder : _folders.system) {
        collect(folder, [&ofSystem](const fs::directory_entry& entry) { ofSystem.insert(entry.path().filename()); });
    }
    collect(_folders.user, [&](const fs::directory_entry& entry) {
        std::error_code error;
        const fs::file_time_type time = entry.last_write_time(error);
        ofUser.emplace(error ? fs::file_time_type::min() : time, entry.path().filename());
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
    const std::optional<std::string> text = contentsOf(file);
    return text ? AutostartEntry::parse(*text, _folders.languages) : std::nullopt;
}

bool AutostartLoginItemList::isInEffect(const AutostartEntry& entry) const {
    return !entry.isDeleted && entry.isEnabled && entry.isShownIn(_folders.desktops)
        && (entry.tryExecutable.empty() || resolve(entry.tryExecutable));
}

std::optional<std::string> AutostartLoginItemList::resolve(const std::string& executable) const {
    if (executable.empty())
        return std::nullopt;
    if (executable.front() == '/')
        return isProgram(executable) ? std::optional(executable) : std::nullopt;
    if (executable.find('/') != std::string::npos)
        return std::nullopt;
    for (const fs::path& folder : _folders.searchPath) {
        if (isProgram(folder / executable))
            return folder / executable;
    }
    return std::nullopt;
}

std::optional<std::vector<LoginItem>> AutostartLoginItemList::copySnapshot() {
    if (_folders.user.empty())
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
    if (_folders.user.empty())
        return false;
    const std::optional<std::string> fileName = fileNameForNewItem(path);
    if (!fileName)
        return false;
    AutostartEntry entry;
    entry.name = displayNameOfFile(path);
    entry.commandLine = autostartCommandLine(path);
    entry.startsHidden = isHidden;
    return write(*fileName, entry.text());
}

bool AutostartLoginItemList::removeItem(const LoginItem& item) {
    const bool isFileName = !item.reference.empty() && item.reference.find('/') == std::string::npos;
    if (_folders.user.empty() || !isFileName)
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
    const Descriptor descriptor(mkostemp(temporary.data(), O_CLOEXEC));
    if (descriptor.get() < 0)
        return false;
    constexpr mode_t ReadableByAll = 0644;
    const bool isWritten = writeAll(descriptor.get(), text) && fchmod(descriptor.get(), ReadableByAll) == 0
        && rename(temporary.c_str(), (_folders.user / fileName).c_str()) == 0;
    if (!isWritten)
        unlink(temporary.c_str());
    return isWritten;
}

} // namespace tarragon
