#include "platform/linux/settings/PropertyListFile.h"

#include "platform/Log.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <cstddef>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <string_view>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <thread>
#include <unistd.h>
#include <utility>

namespace tarragon {

namespace {

namespace fs = std::filesystem;

// Closes the file, and thereby gives up a lock on it, at the end of its life.
class FileDescriptor {
public:
    FileDescriptor(const fs::path& path, int flags)
        : _descriptor(open(path.c_str(), flags | O_CLOEXEC, 0600)) { }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    ~FileDescriptor() { closeNow(); }

    explicit operator bool() const { return _descriptor >= 0; }
    int get() const { return _descriptor; }
    bool closeNow() { return _descriptor < 0 || close(std::exchange(_descriptor, -1)) == 0; }

private:
    int _descriptor;
};

// Settings are small; whatever is larger is not ours to load.
constexpr std::size_t MaximumSize = 32 << 20;

// 0 or the reason of the failure.
int readAll(int descriptor, std::string& contents) {
    std::array<char, 65536> buffer = {};
    for (;;) {
        const ssize_t count = read(descriptor, buffer.data(), buffer.size());
        if (count == 0)
            return 0;
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return errno;
        contents.append(buffer.data(), static_cast<std::size_t>(count));
        if (contents.size() > MaximumSize)
            return EFBIG;
    }
}

bool writeAll(int descriptor, std::string_view contents) {
    while (!contents.empty()) {
        const ssize_t count = write(descriptor, contents.data(), contents.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return false;
        contents.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

// A process that holds the lock and hangs must not make this one hang. Another one's write takes about a millisecond.
bool lockWithinReason(const FileDescriptor& file) {
    constexpr std::chrono::seconds Patience{1};
    constexpr std::chrono::microseconds Interval{200};
    const auto end = std::chrono::steady_clock::now() + Patience;
    while (flock(file.get(), LOCK_EX | LOCK_NB) != 0) {
        if ((errno != EWOULDBLOCK && errno != EINTR) || std::chrono::steady_clock::now() > end)
            return false;
        std::this_thread::sleep_for(Interval);
    }
    return true;
}

std::string dateAndTime() {
    const std::time_t now = std::time(nullptr);
    std::tm local = {};
    localtime_r(&now, &local);
    std::array<char, 32> text = {};
    return {text.data(), std::strftime(text.data(), text.size(), "%Y%m%d-%H%M%S", &local)};
}

fs::path withSuffix(fs::path path, const std::string& suffix) {
    path += suffix;
    return path;
}

} // namespace

PropertyListFile::PropertyListFile(const fs::path& file)
    : _file(file) {
    std::error_code error;
    if (fs::is_symlink(file, error)) {
        const fs::path target = fs::weakly_canonical(file, error);
        if (!error)
            _file = target;
    }
}

bool PropertyListFile::makeFolder() {
    if (_file.empty())
        return false;
    std::error_code error;
    fs::create_directories(_file.parent_path(), error);
    return fs::is_directory(_file.parent_path(), error);
}

std::optional<PropertyListValues> PropertyListFile::read() {
    if (_file.empty())
        return PropertyListValues();
    const std::optional<PropertyListDictionary> dictionary = readDictionary(Lock::NotHeld);
    return dictionary ? std::optional(dictionary->values()) : std::nullopt;
}

std::optional<PropertyListValues> PropertyListFile::merge(const PropertyListChanges& changes) {
    if (_file.empty())
        return std::nullopt;
    makeFolder();
    // A file of its own, because the settings' file is replaced by each change. It is never removed: a process could
    // still be waiting for the removed one.
    const FileDescriptor lock(withSuffix(_file, ".lock"), O_RDWR | O_CREAT);
    if (!lock || !lockWithinReason(lock)) {
        report("cannot be locked for writing", errno);
        return std::nullopt;
    }
    std::optional<PropertyListDictionary> dictionary = readDictionary(Lock::Held);
    if (!dictionary)
        return std::nullopt;
    // A file that was never written is begun: whoever wants to see the settings has something to open.
    std::error_code error;
    bool isChanged = !std::filesystem::exists(_file, error);
    for (const auto& [key, value] : changes)
        isChanged |= value ? dictionary->set(key, *value) : dictionary->remove(key);
    if (isChanged && !replace(dictionary->xml()))
        return std::nullopt;
    _lastReason = 0;
    return dictionary->values();
}

std::optional<PropertyListDictionary> PropertyListFile::readDictionary(Lock lock) {
    std::string contents;
    {
        const FileDescriptor file(_file, O_RDONLY);
        if (!file && (errno == ENOENT || errno == ENOTDIR))
            return PropertyListDictionary();
        const int failure = file ? readAll(file.get(), contents) : errno;
        if (failure != 0) {
            report("cannot be read", failure);
            return std::nullopt;
        }
    }
    std::optional<PropertyListDictionary> dictionary = PropertyListDictionary::parse(contents);
    if (dictionary)
        return dictionary;
    if (lock == Lock::Held)
        return moveAside() ? std::optional(PropertyListDictionary()) : std::nullopt;
    // Another process may be moving it aside at this moment: look again while nobody else does.
    const FileDescriptor lockFile(withSuffix(_file, ".lock"), O_RDWR | O_CREAT);
    if (!lockFile || !lockWithinReason(lockFile)) {
        report("are damaged and cannot be moved aside", errno);
        return std::nullopt;
    }
    return readDictionary(Lock::Held);
}

// Keeps a damaged file for whoever wants to save something from it. The lock keeps others from taking the same name.
bool PropertyListFile::moveAside() {
    const fs::path name = withSuffix(_file, ".damaged-" + dateAndTime());
    fs::path free = name;
    std::error_code error;
    for (int number = 2; fs::exists(fs::symlink_status(free, error)); ++number)
        free = withSuffix(name, "-" + std::to_string(number));
    if (std::rename(_file.c_str(), free.c_str()) != 0) {
        report("are damaged and cannot be moved aside", errno);
        return false;
    }
    logError(LogCategory::Settings,
        "the settings in " + _file.string() + " are damaged; they were moved to " + free.string());
    return true;
}

bool PropertyListFile::replace(const std::string& contents) {
    const fs::path temporary = withSuffix(_file, ".new");
    struct stat present = {};
    const bool isPresent = stat(_file.c_str(), &present) == 0;
    // The folder alone would let us put another file in its place, against the will of whoever protected it.
    if (isPresent && access(_file.c_str(), W_OK) != 0) {
        report("cannot be written", errno);
        return false;
    }

    FileDescriptor file(temporary, O_WRONLY | O_CREAT | O_TRUNC);
    const bool isWritten = file && !contents.empty() && writeAll(file.get(), contents)
        && (!isPresent || fchmod(file.get(), present.st_mode & 07777) == 0) && fsync(file.get()) == 0 && file.closeNow()
        && std::rename(temporary.c_str(), _file.c_str()) == 0;
    if (!isWritten) {
        report("cannot be written", errno);
        unlink(temporary.c_str());
        return false;
    }
    // The new name itself is on disk only when the folder is.
    const FileDescriptor folder(_file.parent_path(), O_RDONLY | O_DIRECTORY);
    if (!folder || fsync(folder.get()) != 0) {
        report("cannot be written for good", errno);
        return false;
    }
    return true;
}

void PropertyListFile::report(const std::string& what, int reason) {
    if (std::exchange(_lastReason, reason) == reason)
        return;
    logError(LogCategory::Settings,
        "the settings in " + _file.string() + ' ' + what + ": "
            + std::error_code(reason, std::generic_category()).message());
}

} // namespace tarragon
