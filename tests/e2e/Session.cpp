#include "Session.h"

#include "TestApplication.h"

#include <map>
#include <optional>

namespace tarragon::e2e {

namespace {

std::map<WindowManager, std::unique_ptr<Session>>& sharedSessions() {
    static std::map<WindowManager, std::unique_ptr<Session>> sessions;
    return sessions;
}

} // namespace

Session::Session(WindowManager windowManager)
    : _desktop(windowManager) {
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

Session& Session::shared(WindowManager windowManager) {
    std::unique_ptr<Session>& session = sharedSessions()[windowManager];
    if (session && !session->isAlive())
        session.reset();
    if (!session)
        session = std::make_unique<Session>(windowManager);
    return *session;
}

void Session::discard(WindowManager windowManager) {
    sharedSessions().erase(windowManager);
}

} // namespace tarragon::e2e
