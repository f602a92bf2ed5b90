#include "MenuObserver.h"

#include <algorithm>
#include <stdexcept>

#include <nlohmann/json.hpp>

namespace tarragon::e2e {

namespace {

// A menu shows an item's shortcut behind its title; here they are told apart again.
Menu withShortcutsApart(Menu menu) {
    for (MenuRecord& item : menu) {
        std::size_t tab = item.title.find('\t');
        if (tab != std::string::npos) {
            item.shortcut = item.title.substr(tab + 1);
            item.title.erase(tab);
        }
        item.items = withShortcutsApart(std::move(item.items));
    }
    return menu;
}

} // namespace

MenuObserver::MenuObserver(const Desktop& desktop, pid_t process)
    : _reader(desktop.start({E2E_READER, "watch", std::to_string(process)})) {
    if (!waitUntil([this] { return _reader->standardOutput().find('\n') != std::string::npos; }))
        throw std::runtime_error("menus cannot be observed: " + _reader->standardError());
}

std::size_t MenuObserver::count() const {
    // The first line only says that the observation has begun.
    std::string output = _reader->standardOutput();
    return static_cast<std::size_t>(std::count(output.begin(), output.end(), '\n')) - 1;
}

MenuObserver::Notice MenuObserver::last() const {
    std::string output = _reader->standardOutput();
    output.erase(output.rfind('\n'));
    std::size_t start = output.rfind('\n') + 1;
    nlohmann::json notice = nlohmann::json::parse(output.substr(start));
    std::string title = notice.at("focused").get<std::string>();
    return Notice{title.substr(0, title.find('	')), withShortcutsApart(menuFromJson(notice.at("menu")))};
}

} // namespace tarragon::e2e
