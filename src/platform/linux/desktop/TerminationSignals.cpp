#include "platform/linux/desktop/TerminationSignals.h"

#include "platform/RunLoop.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <utility>

namespace tarragon {

namespace {

constexpr std::array terminationSignals{SIGTERM, SIGINT, SIGHUP};

// All that a signal handler can reach. A handler rather than blocked signals: the programs that we start would inherit
// the blocking and could not be ended.
volatile int eventDescriptor = -1;

void handleSignal(int) {
    const int interruptedError = errno;
    const std::uint64_t one = 1;
    // A full counter means that the run loop has been told already.
    [[maybe_unused]] const ssize_t written = write(eventDescriptor, &one, sizeof one);
    errno = interruptedError;
}

void setHandlers(void (*handler)(int)) {
    struct sigaction action { };
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    for (const int signal : terminationSignals)
        sigaction(signal, &action, nullptr);
}

} // namespace

TerminationSignals::TerminationSignals(RunLoop& runLoop, std::function<void()> handler) {
    eventDescriptor = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    if (eventDescriptor < 0)
        return;
    runLoop.watchDescriptor(eventDescriptor, [handler = std::move(handler)] {
        std::uint64_t count = 0;
        if (read(eventDescriptor, &count, sizeof count) == sizeof count)
            handler();
    });
    // A program that is to end ends now, whatever it waits for.
    runLoop.endPausesFor(eventDescriptor);
    setHandlers(handleSignal);
}

TerminationSignals::~TerminationSignals() {
    setHandlers(SIG_DFL);
    if (eventDescriptor >= 0)
        close(eventDescriptor);
    eventDescriptor = -1;
}

} // namespace tarragon
