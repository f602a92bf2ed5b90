#pragma once

#include "platform/Platform.h"

#include <functional>
#include <memory>
#include <string>
#include <variant>

namespace tarragon {

// What a back end needs to know of the program that it serves.
struct Program {
    std::string path; // as it was started, the first of its arguments
    std::string name;
    std::string version;
};

// Why the desktop cannot be used, as a user may read it: one line without an end.
struct DesktopError {
    std::string message;
};

enum class DesktopAgent { ThisProcess, AnotherProcess };

// The user's desktop for as long as this program runs on it: owner of the services that a back end offers, and of what
// exists once in a process. Each back end has one function that makes one. Main thread only; handlers are called from
// run.
class DesktopSession {
public:
    virtual ~DesktopSession() = default;

    // The services belong to the session and live as long as it does.
    virtual Platform& platform() = 0;

    // Handles events until the run loop is stopped, and answers the exit status.
    [[nodiscard]] virtual int run() = 0;

    // At most one process is a desktop's agent; the desktop is free for another one as soon as that process has ended,
    // however it ended. Makes this process the agent if there is none; the one that there is learns that the program
    // was started again.
    [[nodiscard]] virtual std::variant<DesktopAgent, DesktopError> claimOrReopen() = 0;
    // The handler is called when the program is started again while this process is the agent. Once, after the claim.
    virtual void watchReopen(std::function<void()> handler) = 0;
    // The handler is called when the system asks the program to end. Once.
    virtual void watchTermination(std::function<void()> handler) = 0;

    // Makes applications show their elements, on a desktop where assistive programs are expected to see to that when
    // they start; elsewhere nothing happens.
    virtual void prepareAccessibility() = 0;
};

using DesktopSessionOrError = std::variant<std::unique_ptr<DesktopSession>, DesktopError>;

} // namespace tarragon
