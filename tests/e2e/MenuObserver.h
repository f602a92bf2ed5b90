#pragma once

#include "ChildProcess.h"
#include "Desktop.h"
#include "MenuRecord.h"

#include <fstream>
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
    std::size_t count();
    // The newest notice; there must have been one.
    Notice last();

private:
    // Takes over the whole lines that the reader has written since the last time.
    void update();

    std::unique_ptr<ChildProcess> _reader;
    std::ifstream _lines;
    std::size_t _count = 0;
    std::string _lastLine;
    std::string _begunLine;
};

} // namespace tarragon::e2e
