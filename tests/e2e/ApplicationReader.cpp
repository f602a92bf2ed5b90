#include "ApplicationReader.h"

#include "Desktop.h"

#include <nlohmann/json.hpp>

namespace tarragon::e2e {

namespace {

CommandResult run(const Desktop& desktop, const std::vector<std::string>& arguments) {
    std::vector<std::string> command{E2E_READER};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return desktop.run(command);
}

std::string joined(const std::vector<std::string>& titles) {
    std::string path;
    for (const std::string& title : titles)
        path += (path.empty() ? "" : "|") + title;
    return path;
}

std::optional<Menu> menuIn(const CommandResult& result) {
    if (result.status != 0)
        return std::nullopt;
    return menuFromJson(nlohmann::json::parse(result.output));
}

} // namespace

ApplicationReader::ApplicationReader(const Desktop& desktop)
    : _desktop(desktop) { }

bool ApplicationReader::enableAccessibility() const {
    return run(_desktop, {"enable"}).status == 0;
}

std::optional<Menu> ApplicationReader::menus(pid_t process, const std::string& windowTitle) const {
    std::vector<std::string> arguments{"menus", std::to_string(process)};
    if (!windowTitle.empty())
        arguments.push_back(windowTitle);
    return menuIn(run(_desktop, arguments));
}

std::optional<Menu> ApplicationReader::level(pid_t process, const std::vector<std::string>& path) const {
    return menuIn(run(_desktop, {"level", std::to_string(process), joined(path)}));
}

bool ApplicationReader::press(pid_t process, const std::vector<std::string>& path) const {
    return run(_desktop, {"press", std::to_string(process), joined(path)}).status == 0;
}

std::optional<std::string> ApplicationReader::text(pid_t process) const {
    CommandResult result = run(_desktop, {"text", std::to_string(process)});
    if (result.status != 0)
        return std::nullopt;
    return nlohmann::json::parse(result.output).get<std::string>();
}

int ApplicationReader::shownElements(pid_t process, const std::string& role) const {
    CommandResult result = run(_desktop, {"count", std::to_string(process), role});
    return result.status == 0 ? std::stoi(result.output) : -1;
}

} // namespace tarragon::e2e
