#pragma once

#include "platform/Workspace.h"

namespace tarragon {

// The applications of a desktop in memory.
class FakeWorkspace : public Workspace {
public:
    void addRunningApplication(const RunningApplication& application);
    void removeRunningApplication(std::int64_t processIdentifier);
    // Without telling the handlers; nothing for no active window.
    void setActiveApplication(std::optional<RunningApplication> application);
    // Makes the application active and tells the handlers.
    void switchTo(const RunningApplication& application);
    void fireFrontSwitched();
    void fireSystemUIModeChanged();
    // Whether handlers can be installed and URLs opened.
    void setEventsAvailable(bool available) { _eventsAvailable = available; }
    void setOpensURLs(bool opens) { _opensURLs = opens; }
    const std::vector<std::string>& openedURLs() const { return _openedURLs; }

    // How often the active application was asked for.
    int activeApplicationQuestions() const { return _activeApplicationQuestions; }

    std::optional<RunningApplication> activeApplication() override {
        ++_activeApplicationQuestions;
        return _activeApplication;
    }
    std::vector<RunningApplication> runningApplications() override { return _runningApplications; }
    bool openURL(const std::string& url) override;
    bool installFrontSwitchedHandler(std::function<void()> handler) override;
    bool installSystemUIModeChangedHandler(std::function<void()> handler) override;

private:
    std::optional<RunningApplication> _activeApplication;
    std::vector<RunningApplication> _runningApplications;
    std::vector<std::function<void()>> _frontSwitchedHandlers;
    std::vector<std::function<void()>> _systemUIModeHandlers;
    std::vector<std::string> _openedURLs;
    int _activeApplicationQuestions = 0;
    bool _eventsAvailable = true;
    bool _opensURLs = true;
};

} // namespace tarragon
