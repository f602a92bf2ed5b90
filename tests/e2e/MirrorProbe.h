#pragma once

#include "ChildProcess.h"
#include "MenuRecord.h"

#include <nlohmann/json.hpp>

#include <fstream>
#include <memory>
#include <string>
#include <vector>

namespace tarragon::e2e {

class Desktop;

// The reader of the program under test by itself, in a process of its own on a desktop, which is asked and answers.
class MirrorProbe {
public:
    // An application must be in front. Throws std::runtime_error when the probe does not come up.
    explicit MirrorProbe(Desktop& desktop);
    ~MirrorProbe();
    MirrorProbe(const MirrorProbe&) = delete;
    MirrorProbe& operator=(const MirrorProbe&) = delete;

    // Sends one line, as told in the probe's own source, and gives its answer. Throws std::runtime_error without one.
    nlohmann::json ask(const std::string& line);

    // The titles of the rebuilt root menu, once all fillings that it starts are done.
    std::vector<std::string> update();
    struct Opening {
        bool cached = false;
        Menu items;
    };
    Opening open(const std::string& title);

private:
    std::unique_ptr<ChildProcess> _process;
    std::ofstream _questions;
    std::ifstream _answers;
};

} // namespace tarragon::e2e
