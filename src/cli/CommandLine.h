#pragma once

#include "platform/LogCategories.h"

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace tarragon {

// Which application a command is about: the one in front unless a name or a process is given.
struct ApplicationChoice {
    std::optional<std::string> name = std::nullopt;
    std::optional<std::int64_t> processIdentifier = std::nullopt;
};

// Runs in the background. With its preferences open: in the agent that runs already, if there is one.
struct RunAgent {
    bool showsPreferences = false;
};
struct ShowHelp { };
struct ShowVersion { };

struct ListMenus {
    ApplicationChoice application = {};
    std::size_t depth = 2; // 0 for all levels
    bool json = false;
};

struct PressItem {
    ApplicationChoice application = {};
    std::string itemKey;
};

struct InspectElement { };

// A command line that makes no sense, with the sentence that says why.
struct UsageError {
    std::string message;
};

using Command = std::variant<RunAgent, ShowHelp, ShowVersion, ListMenus, PressItem, InspectElement, UsageError>;

struct CommandLine {
    Command command;
    LogCategorySet log; // what is to be told on standard error while the command is carried out
};

// What the arguments (without the program's name) ask for. A command line that makes no sense switches no log on.
[[nodiscard]] CommandLine parseCommandLine(const std::vector<std::string>& arguments);

// The text that --help prints.
std::string helpText();

} // namespace tarragon
