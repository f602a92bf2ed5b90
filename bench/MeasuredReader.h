#pragma once

#include "cli/ChosenApplication.h"
#include "fake/FakePlatform.h"
#include "mirror/AppAccessibility.h"
#include "platform/linux/atspi/LinuxAccessibility.h"
#include "platform/linux/desktop/DesktopEntries.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Windows.h"

#include <memory>
#include <string>

namespace tarragon {

// The program's reader on one running application of the session. Everything but the accessibility interface is beside
// the point when reading is measured, and stands in memory.
class MeasuredReader {
public:
    // Throws std::runtime_error when the application cannot be reached.
    MeasuredReader(const std::string& name, int process);
    MeasuredReader(const MeasuredReader&) = delete;
    MeasuredReader& operator=(const MeasuredReader&) = delete;

    AppAccessibility& operator*() const { return *_reader; }
    AppAccessibility* operator->() const { return _reader.get(); }
    LinuxAccessibility& accessibility() { return _linuxAccessibility; }
    // The menu below a title of the menu bar. The reader has to be up to date.
    std::shared_ptr<Menu> menuAt(int position) const { return _reader->menu()->itemAtIndex(position)->submenu(); }

    // A filling in the background would read the same menus at the same time: fillings run when they are called for,
    // and at once.
    void setFills(bool fills) { _fills = fills; }

private:
    std::unique_ptr<X11Connection> _connection;
    X11Windows _windows;
    DesktopEntries _desktopEntries;
    LinuxAccessibility _linuxAccessibility;
    ChosenApplicationAccessibility _chosen;
    FakePlatform _fake;
    bool _fills = false;
    std::shared_ptr<AppAccessibility> _reader;
};

} // namespace tarragon
