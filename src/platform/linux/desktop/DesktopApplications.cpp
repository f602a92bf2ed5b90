#include "platform/linux/desktop/DesktopApplications.h"

#include "platform/Log.h"
#include "platform/linux/desktop/DesktopEntries.h"
#include "platform/linux/desktop/DesktopEntryFile.h"
#include "platform/linux/desktop/DesktopEntryKeys.h"
#include "platform/linux/desktop/ProcessNames.h"
#include "platform/linux/desktop/SessionEnvironment.h"

#include <algorithm>
#include <map>
#include <system_error>
#include <utility>

namespace tarragon {

namespace fs = std::filesystem;

namespace {

constexpr const char* EntryExtension = ".desktop";

std::optional<std::string> unlessEmpty(std::string text) {
    return text.empty() ? std::nullopt : std::optional(std::move(text));
}

// The identifier of the windows of what an entry starts.
std::string identifierOfWindows(DesktopEntries& entries, const std::string& identifier, const DesktopEntryFile& file) {
    const std::string& name = file.startupWindowClass.empty() ? file.executable : file.startupWindowClass;
    const auto entry = entries.entryForProgram(name, file.isBusService ? identifier : std::string());
    return entry ? entry->identifier : identifier;
}

} // namespace

DesktopApplications::Session DesktopApplications::Session::current() {
    return {sessionDesktops(), sessionLanguages(), programFolders()};
}

DesktopApplications::DesktopApplications(DesktopEntries& entries, RunningWindows windows, Session session)
    : _entries(entries)
    , _windows(std::move(windows))
    , _session(std::move(session)) { }

std::vector<ApplicationBundle> DesktopApplications::installedApplications() {
    // By the identifier of their windows. The entry of that identifier speaks for the application, else the first one.
    std::map<std::string, ApplicationBundle> shown;
    for (const DesktopEntry& entry : _entries.allEntries()) {
        const std::optional<DesktopEntryFile> file = read(entry.path);
        if (!file || !isShown(*file))
            continue;
        ApplicationBundle bundle = bundleOf(entry, *file);
        const bool speaksForItself = bundle.bundleIdentifier == entry.identifier;
        const auto [known, isNew] = shown.try_emplace(bundle.bundleIdentifier, bundle);
        if (!isNew && speaksForItself)
            known->second = std::move(bundle);
    }
    std::vector<ApplicationBundle> bundles;
    for (auto& [identifier, bundle] : shown)
        bundles.push_back(std::move(bundle));
    return bundles;
}

std::optional<ApplicationBundle> DesktopApplications::bundleAtPath(const std::string& path) {
    std::error_code error;
    const fs::path chosen = fs::absolute(path, error).lexically_normal();
    const fs::path resolved = fs::canonical(chosen, error);
    if (error || !fs::is_regular_file(resolved, error)) {
        log(LogCategory::Settings, [&] { return "no application at " + path + ": it is no file that can be read"; });
        return std::nullopt;
    }
    const bool isEntry = chosen.extension() == EntryExtension || resolved.extension() == EntryExtension;
    auto bundle = isEntry ? bundleOfEntryAt(chosen, resolved) : bundleOfProgramAt(chosen, resolved);
    if (!bundle)
        log(LogCategory::Settings, [&] { return "neither an application nor a program: " + path; });
    return bundle;
}

// The user's own folder often exists with nothing but notes of the desktop in it.
std::string DesktopApplications::applicationsFolder() {
    const std::vector<DesktopEntry> entries = _entries.allEntries();
    for (const fs::path& folder : _entries.folders()) {
        const auto isInFolder = [&](const DesktopEntry& entry) { return fs::path(entry.path).parent_path() == folder; };
        if (std::ranges::any_of(entries, isInFolder))
            return folder.string();
    }
    return {};
}

std::optional<DesktopEntryFile> DesktopApplications::read(const fs::path& file) const {
    const std::optional<std::string> text = contentsOfSmallFile(file);
    auto entry = text ? DesktopEntryFile::parse(*text, _session.languages) : std::nullopt;
    return entry && !entry->isDeleted ? std::move(entry) : std::nullopt;
}

bool DesktopApplications::isShown(const DesktopEntryFile& file) const {
    return file.isDisplayed && isShownIn(_session.desktops, file.onlyShowIn, file.notShowIn)
        && (file.tryExecutable.empty() || programNamed(file.tryExecutable, _session.searchPath));
}

ApplicationBundle DesktopApplications::bundleOf(const DesktopEntry& entry, const DesktopEntryFile& file) {
    return {.path = entry.path,
        .bundleIdentifier = identifierOfWindows(_entries, entry.identifier, file),
        .displayName = unlessEmpty(file.name),
        .name = unlessEmpty(file.plainName),
        .executable = unlessEmpty(file.executable),
        .icon = file.icon};
}

std::optional<ApplicationBundle> DesktopApplications::bundleOfEntryAt(
    const fs::path& chosen, const fs::path& resolved) {
    const std::optional<DesktopEntryFile> file = read(resolved);
    if (!file)
        return std::nullopt;
    const std::vector<DesktopEntry> entries = _entries.allEntries();
    for (const fs::path& candidate : {chosen, resolved}) {
        const auto installed = std::ranges::find(entries, candidate.string(), &DesktopEntry::path);
        if (installed != entries.end())
            return bundleOf(*installed, *file);
    }
    ApplicationBundle bundle = bundleOf({resolved.stem().string(), resolved.string(), file->name}, *file);
    const bool isOfInstalledOne = std::ranges::any_of(
        entries, [&](const DesktopEntry& entry) { return entry.identifier == bundle.bundleIdentifier; });
    if (isOfInstalledOne)
        return bundle;
    // The windows know nothing of an entry that is not installed.
    if (!file->startupWindowClass.empty())
        bundle.bundleIdentifier = file->startupWindowClass;
    else if (!file->executable.empty())
        bundle.bundleIdentifier = identifierOfWindowsOf(file->executable);
    return bundle;
}

std::optional<ApplicationBundle> DesktopApplications::bundleOfProgramAt(
    const fs::path& chosen, const fs::path& resolved) {
    if (!isProgram(resolved))
        return std::nullopt;
    for (const fs::path& candidate : {chosen, resolved}) {
        const auto entry = _entries.entryForProgram(candidate.filename().string(), {});
        const auto file = entry ? read(entry->path) : std::nullopt;
        if (file)
            return bundleOf(*entry, *file);
    }
    ApplicationBundle bundle;
    bundle.path = resolved.string();
    bundle.executable = resolved.filename().string();
    bundle.bundleIdentifier = identifierOfWindowsOf(*bundle.executable);
    return bundle;
}

// Windows without an entry are told by their class. While the program runs they say themselves what it is; by
// convention it is its name with a capital.
std::string DesktopApplications::identifierOfWindowsOf(const std::string& programName) {
    for (const WindowDescription& window : _windows ? _windows() : std::vector<WindowDescription>()) {
        const std::vector<std::string> names = executableNames(window.processIdentifier);
        if (std::ranges::find(names, programName) != names.end() && !window.className.empty())
            return window.className;
    }
    std::string name = programName;
    if (!name.empty() && name.front() >= 'a' && name.front() <= 'z')
        name.front() = static_cast<char>(name.front() - 'a' + 'A');
    return name;
}

} // namespace tarragon
