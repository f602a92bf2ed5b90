#include "Session.h"

#include "TestApplication.h"

#include <map>
#include <optional>
#include <tuple>

namespace tarragon::e2e {

namespace {

using KindOfDesktop = std::tuple<WindowManager, Compositor, Screens>;

std::map<KindOfDesktop, std::unique_ptr<Session>>& sharedSessions() {
    static std::map<KindOfDesktop, std::unique_ptr<Session>> sessions;
    return sessions;
}

} // namespace

Session::Session(WindowManager windowManager, Compositor compositor, Screens screens)
    : _desktop(windowManager, compositor, screens) {
    restartAgent();
}

bool Session::isAlive() {
    return _desktop.isAlive() && _agent && _agent->isRunning();
}

void Session::restartAgent(const HotKey& hotKey, const Environment& additions) {
    _observer.reset();
    _agent.reset();
    // The program takes up its work when an application is in front.
    std::optional<TestApplication> terminal;
    if (_desktop.display().managedWindows().empty())
        terminal.emplace(_desktop, ApplicationKind::Terminal);
    _agent = std::make_unique<Agent>(_desktop, hotKey, E2E_TARRAGON, additions);
    _observer = std::make_unique<MenuObserver>(_desktop, _agent->identifier());
}

Session& Session::shared(WindowManager windowManager, Compositor compositor, Screens screens) {
    std::unique_ptr<Session>& session = sharedSessions()[{windowManager, compositor, screens}];
    if (session && !session->isAlive())
        session.reset();
    if (!session)
        session = std::make_unique<Session>(windowManager, compositor, screens);
    return *session;
}

void Session::discard(WindowManager windowManager, Compositor compositor, Screens screens) {
    sharedSessions().erase({windowManager, compositor, screens});
}

void Session::discardAll() {
    sharedSessions().clear();
}

} // namespace tarragon::e2e
