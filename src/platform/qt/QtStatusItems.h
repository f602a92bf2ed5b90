#pragma once

#include "platform/StatusItems.h"

namespace tarragon {

class RunLoop;

// Status items as tray icons of Qt. Images are looked for as ":/images/NAME.svg" and ":/images/NAME.png" in Qt's
// resources. Needs the QApplication; the run loop is not owned.
class QtStatusItems : public StatusItems {
public:
    explicit QtStatusItems(RunLoop& runLoop)
        : _runLoop(runLoop) { }

    std::unique_ptr<StatusItem> addItem(StatusItemDescription description) override;

private:
    RunLoop& _runLoop;
};

} // namespace tarragon
