#include "cli/CommandLine.h"

#include <charconv>
#include <limits>

namespace tarragon {

namespace {

template <typename Number>
std::optional<Number> parseNumber(const std::string& text) {
    Number number = 0;
    const char* end = text.data() + text.size();
    const auto [position, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || position != end)
        return std::nullopt;
    return number;
}

UsageError missingValue(const std::string& option) {
    return {"option '" + option + "' needs a value"};
}

UsageError unknownArgument(const std::string& argument) {
    return {"unknown argument '" + argument + "'"};
}

// Walks over the arguments of one command. An option's value is the next argument, or follows an equals sign. The
// option that switches the log on may stand anywhere, and is taken on the way.
class Arguments {
public:
    explicit Arguments(const std::vector<std::string>& arguments)
        : _arguments(arguments) { }

    bool next() {
        if (_position == _arguments.size())
            return false;
        _current = _arguments[_position++];
        _inlineValue.reset();
        if (_current == "--" && !_optionsEnded) {
            _optionsEnded = true;
            return next();
        }
        const std::size_t equals = _current.find('=');
        if (isOption() && equals != std::string::npos) {
            _inlineValue = _current.substr(equals + 1);
            _current.resize(equals);
        }
        if (isOption() && _current == "--log") {
            takeLogCategories();
            return next();
        }
        return true;
    }

    const std::string& current() const { return _current; }
    bool isOption() const { return !_optionsEnded && _current.size() > 1 && _current.front() == '-'; }
    const std::optional<std::string>& inlineValue() const { return _inlineValue; }

    std::optional<std::string> value() {
        if (_inlineValue)
            return _inlineValue;
        if (_position == _arguments.size())
            return std::nullopt;
        return _arguments[_position++];
    }

    const LogCategorySet& log() const { return _log; }
    // The first thing that was wrong with the categories of the log.
    const std::optional<UsageError>& logError() const { return _logError; }

private:
    void takeLogCategories() {
        const auto list = value();
        const LogCategoryList categories = list ? parseLogCategories(*list) : LogCategoryList();
        _log |= categories.categories;
        if (_logError)
            return;
        if (!list)
            _logError = missingValue("--log");
        else if (!categories.error.empty())
            _logError = UsageError{categories.error};
    }

    const std::vector<std::string>& _arguments;
    std::size_t _position = 0;
    std::string _current;
    std::optional<std::string> _inlineValue;
    bool _optionsEnded = false;
    LogCategorySet _log;
    std::optional<UsageError> _logError;
};

// Takes an option that chooses the application. Nothing when the current argument is another one.
std::optional<std::optional<UsageError>> parseApplicationChoice(Arguments& arguments, ApplicationChoice& choice) {
    const std::string option = arguments.current();
    if (!arguments.isOption() || (option != "--application" && option != "--pid"))
        return std::nullopt;
    const auto value = arguments.value();
    if (!value || value->empty())
        return missingValue(option);
    if (choice.name || choice.processIdentifier)
        return UsageError{"only one of --application and --pid can be given, once"};
    if (option == "--application") {
        choice.name = *value;
        return std::optional<UsageError>();
    }
    choice.processIdentifier = parseNumber<std::int64_t>(*value);
    if (!choice.processIdentifier || *choice.processIdentifier <= 0)
        return UsageError{"'" + *value + "' is not a process identifier"};
    return std::optional<UsageError>();
}

Command parseMenus(Arguments& arguments) {
    ListMenus command;
    while (arguments.next()) {
        if (const auto choice = parseApplicationChoice(arguments, command.application)) {
            if (*choice)
                return **choice;
            continue;
        }
        const std::string argument = arguments.current();
        if (!arguments.isOption())
            return unknownArgument(argument);
        if (argument == "--json" && !arguments.inlineValue()) {
            command.json = true;
        } else if (argument == "--depth") {
            const auto value = arguments.value();
            if (!value)
                return missingValue(argument);
            const auto depth = parseNumber<std::uint32_t>(*value);
            if (!depth)
                return UsageError{"'" + *value + "' is not a depth (0 for all levels)"};
            command.depth = *depth;
        } else {
            return unknownArgument(argument);
        }
    }
    return command;
}

Command parsePress(Arguments& arguments) {
    PressItem command;
    bool hasKey = false;
    while (arguments.next()) {
        if (const auto choice = parseApplicationChoice(arguments, command.application)) {
            if (*choice)
                return **choice;
            continue;
        }
        if (arguments.isOption() || hasKey)
            return unknownArgument(arguments.current());
        command.itemKey = arguments.current();
        hasKey = true;
    }
    if (!hasKey || command.itemKey.empty())
        return UsageError{"press needs the key of a menu item, as 'tarragon menus' prints it"};
    return command;
}

Command parseAlone(Arguments& arguments, Command command) {
    if (arguments.next())
        return unknownArgument(arguments.current());
    return command;
}

Command parseCommand(Arguments& arguments) {
    if (!arguments.next())
        return RunAgent();
    const std::string first = arguments.current();
    if (const auto value = arguments.inlineValue())
        return unknownArgument(first + '=' + *value);
    if (first == "--help" || first == "-h")
        return parseAlone(arguments, ShowHelp());
    if (first == "--version")
        return parseAlone(arguments, ShowVersion());
    if (first == "menus")
        return parseMenus(arguments);
    if (first == "press")
        return parsePress(arguments);
    if (first == "preferences")
        return parseAlone(arguments, RunAgent{.showsPreferences = true});
    if (first == "inspect")
        return parseAlone(arguments, InspectElement());
    return unknownArgument(first);
}

} // namespace

CommandLine parseCommandLine(const std::vector<std::string>& arguments) {
    Arguments remaining(arguments);
    Command command = parseCommand(remaining);
    if (std::holds_alternative<UsageError>(command))
        return {std::move(command), {}};
    if (remaining.logError())
        return {*remaining.logError(), {}};
    return {std::move(command), remaining.log()};
}

std::string helpText() {
    return R"(Usage: tarragon [COMMAND]

Shows the menu bar of the application in front where the pointer is. Without a command it runs in the background:
press the hot key (Alt+Space unless changed) to open the menus at the pointer.

Commands:
  menus                  print the menus of the application in front, each item with its key
      --depth N            as many levels (2 unless given, 0 for all)
      --json               as JSON: an array of objects with title, key, enabled, checked, separator, shortcut, items
  press KEY              choose the menu item with that key, as in: tarragon press "Mousepad|File|New"
  preferences            open the preferences; Tarragon is started when it does not run yet
  inspect                describe the element under the pointer, or else the window in front

Options of menus and press:
  --application NAME     another application than the one in front
  --pid N                the application of that process

  --log CATEGORY[,...]   before or after a command: tell on standard error why something did not come about.
                         Categories are front, menus, accessibility, x11, panel, settings, triggers, or all.
                         The environment variable TARRAGON_LOG takes the same list.
  --help                 print this text
  --version              print the version

Exit status: 0 on success, 1 when something could not be done, 2 when the command line makes no sense.
)";
}

} // namespace tarragon
