#pragma once

#include "ChildProcess.h"
#include "Desktop.h"
#include "MenuRecord.h"

#include <memory>
#include <string>

namespace tarragon::e2e {

// What a screen reader would notice of a program's open menus: each item that gets the highlight, with its menu.
class MenuObserver {
public:
    struct Notice {
        std::string item; // title of the highlighted item
        Menu menu; // the menu that it belongs to
    };

    // Throws std::runtime_error when the observation cannot begin.
    MenuObserver(const Desktop& desktop, pid_t process);

    // How many notices there have been so far.
    std::size_t count() const;
    // The newest notice; there must have been one.
    Notice last() const;

private:
    std::unique_ptr<ChildProcess> _reader;
};

} // namespace tarragon::e2e
