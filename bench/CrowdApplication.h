#pragma once

#include "ChildProcess.h"
#include "Desktop.h"

#include <memory>
#include <string>

namespace tarragon {

enum class Toolkit { Gtk, Qt };

// A real application whose only menu has as many items as told, in front when the constructor returns.
class CrowdApplication {
public:
    // Throws std::runtime_error when it does not come up.
    CrowdApplication(e2e::Desktop& desktop, Toolkit toolkit, int items);
    ~CrowdApplication();
    CrowdApplication(const CrowdApplication&) = delete;
    CrowdApplication& operator=(const CrowdApplication&) = delete;

    pid_t identifier() const { return _process->identifier(); }

    static std::string nameOf(Toolkit toolkit);

private:
    e2e::Desktop& _desktop;
    std::unique_ptr<e2e::ChildProcess> _process;
};

} // namespace tarragon
