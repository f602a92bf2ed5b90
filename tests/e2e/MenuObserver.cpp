#include "MenuObserver.h"

#include <stdexcept>
#include <utility>

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
    _lines.open(_reader->outputFile());
    // The first line only says that the observation has begun.
    bool begun = waitUntil([this] { return count() > 0; });
    _count = 0;
    if (!begun)
        throw std::runtime_error("menus cannot be observed: " + _reader->standardError());
}

void MenuObserver::update() {
    _lines.clear();
    std::string part;
    while (std::getline(_lines, part)) {
        _begunLine += part;
        if (_lines.eof())
            return;
        _lastLine = std::exchange(_begunLine, {});
        ++_count;
    }
}

std::size_t MenuObserver::count() {
    update();
    return _count;
}

MenuObserver::Notice MenuObserver::last() {
    update();
    nlohmann::json notice = nlohmann::json::parse(_lastLine);
    std::string title = notice.at("focused").get<std::string>();
    return Notice{title.substr(0, title.find('	')), withShortcutsApart(menuFromJson(notice.at("menu")))};
}

} // namespace tarragon::e2e
