#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// What the environment says of the user's session.
namespace tarragon {

// Empty when it is not set.
std::string environmentVariable(const char* name);
// The parts of a list such as $PATH, without the empty ones.
std::vector<std::string> splitAtColons(std::string_view text);

// Names of the running desktop; a derived one names what it derives from as well.
std::vector<std::string> sessionDesktops();
// The user's locales ("de_DE.UTF-8"), most wanted first; none in the plain one.
std::vector<std::string> sessionLocales();
// As desktopLanguages gives them, most wanted first.
std::vector<std::string> sessionLanguages();
// Where programs without a path are looked for.
std::vector<std::filesystem::path> programFolders();
// A file that can be run.
bool isProgram(const std::filesystem::path& file);
// The program of that name or path, names being looked for in folders; nothing when there is none that can be run.
std::optional<std::string> programNamed(const std::string& name, const std::vector<std::filesystem::path>& folders);
// The folder of the user's settings; empty when the user has no home.
std::filesystem::path userConfigurationFolder();
// Folders of the settings that came with the system; the first one counts most.
std::vector<std::filesystem::path> systemConfigurationFolders();

// Folders of what programs bring along, the user's own first.
std::vector<std::filesystem::path> dataFolders();

// The text of a regular file of up to a megabyte. Anything else that stands under the name is not waited for, and gives
// nothing.
std::optional<std::string> contentsOfSmallFile(const std::filesystem::path& file);

} // namespace tarragon
