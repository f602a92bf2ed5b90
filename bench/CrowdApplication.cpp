#include "CrowdApplication.h"

#include "Wait.h"

#include <csignal>
#include <stdexcept>

namespace tarragon {

using e2e::Duration;
using e2e::waitUntil;

CrowdApplication::CrowdApplication(e2e::Desktop& desktop, Toolkit toolkit, int items)
    : _desktop(desktop)
    , _process(desktop.start({toolkit == Toolkit::Gtk ? BENCH_CROWD_GTK : BENCH_CROWD_QT, std::to_string(items)})) {
    const bool ready = waitUntil(
        [&] {
            if (desktop.display().processOf(desktop.display().activeWindow()) != identifier())
                return false;
            // The titles alone: reading the crowd would warm it up.
            const auto titles = desktop.reader().level(identifier(), {});
            return titles && !titles->empty();
        },
        Duration(30000));
    if (!ready)
        throw std::runtime_error(nameOf(toolkit) + " does not come up: " + _process->standardError());
}

CrowdApplication::~CrowdApplication() {
    // One that is still busy with its crowd does not hear a polite request.
    _process->sendSignal(SIGKILL);
    _process->waitForExit();
    waitUntil([this] { return _desktop.display().managedWindowsOf(identifier()).empty(); });
}

std::string CrowdApplication::nameOf(Toolkit toolkit) {
    return toolkit == Toolkit::Gtk ? "crowd_gtk" : "crowd_qt";
}

} // namespace tarragon
