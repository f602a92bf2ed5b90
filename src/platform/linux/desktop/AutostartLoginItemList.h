#pragma once

#include "platform/LoginItemList.h"
#include "platform/linux/desktop/AutostartEntry.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarragon {

// Where a session looks for what it starts, and what it is.
struct AutostartFolders {
    std::filesystem::path user; // empty when the user has no home
    std::vector<std::filesystem::path> system; // the first one counts most
    std::vector<std::string> desktops; // names of the running desktop
    std::vector<std::string> languages; // as from desktopLanguages
    std::vector<std::filesystem::path> searchPath; // for programs without a path

    static AutostartFolders ofSession();
};

// The login items of a desktop session: the .desktop files of the autostart folders that are in effect in it. A file of
// the user stands for those of the same name that came with the system. The user's are listed last, in the order in
// which they were written.
//
// Files are replaced in one step, and only the user's are touched: what came with the system is taken away by a file of
// the user's that says so.
class AutostartLoginItemList : public LoginItemList {
public:
    explicit AutostartLoginItemList(AutostartFolders folders = AutostartFolders::ofSession());

    bool isAvailable() const override { return !_folders.user.empty(); }
    std::optional<std::vector<LoginItem>> copySnapshot() override;
    [[nodiscard]] bool insertItem(const std::string& path, bool isHidden) override;
    [[nodiscard]] bool removeItem(const LoginItem& item) override;

private:
    std::vector<std::string> fileNames() const;
    // The file that counts among those of that name; empty when there is none.
    std::filesystem::path effectiveFile(const std::string& fileName) const;
    bool isOfSystem(const std::string& fileName) const;
    std::optional<AutostartEntry> read(const std::filesystem::path& file) const;
    bool isInEffect(const AutostartEntry& entry) const;
    // The program of that name or path; nothing when there is none that can be run.
    std::optional<std::string> resolve(const std::string& executable) const;
    // A name for a new file: one that is free, or that stands for a dead entry of ours.
    std::optional<std::string> fileNameForNewItem(const std::string& path) const;
    [[nodiscard]] bool write(const std::string& fileName, std::string_view text) const;
    // Puts a file of the user's at the end of the list.
    void makeNewest(const std::string& fileName) const;

    AutostartFolders _folders;
};

} // namespace tarragon
