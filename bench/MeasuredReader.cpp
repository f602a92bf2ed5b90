#include "MeasuredReader.h"

#include "mirror/FillingThreads.h"

#include <functional>
#include <stdexcept>
#include <utility>

namespace tarragon {

namespace {

class CalledFillings : public FillingThreads {
public:
    explicit CalledFillings(const bool& isCalledFor)
        : _isCalledFor(isCalledFor) { }
    void detachNewThread(std::function<void()> work) override {
        if (_isCalledFor)
            work();
    }

private:
    const bool& _isCalledFor;
};

std::unique_ptr<X11Connection> connected() {
    auto connection = X11Connection::connect();
    if (!connection)
        throw std::runtime_error("no X server");
    return connection;
}

} // namespace

MeasuredReader::MeasuredReader(const std::string& name, int process)
    : _connection(connected())
    , _windows(*_connection)
    , _linuxAccessibility(_windows, _desktopEntries)
    , _chosen(_linuxAccessibility, _linuxAccessibility.applicationElement(process)) {
    _fake.workspace.setActiveApplication(RunningApplication{name, process, {}, {}});
    const Platform platform{_chosen, _fake.workspace, _fake.displays, _fake.hotKeys, _fake.defaults, _fake.runLoop,
        _fake.notificationCenter, _fake.menuInput};
    _reader = AppAccessibility::initWithFocusedApp(platform, std::make_unique<CalledFillings>(_fills));
    if (!_reader)
        throw std::runtime_error(name + " cannot be reached");
    _reader->setShowAppleMenu(true);
    _reader->setKeyEquivalents(true);
    _reader->update();
}

} // namespace tarragon
