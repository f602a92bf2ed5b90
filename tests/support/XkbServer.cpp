#include "support/XkbServer.h"

#include <array>
#include <cstdlib>

#include <csignal>
#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tarragon {

XkbServer::XkbServer() {
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0)
        return;
    const std::string descriptor = std::to_string(ends[1]);
    _process = fork();
    if (_process == 0) {
        // The server goes when the test does, however that ends.
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        close(ends[0]);
        const int nowhere = open("/dev/null", O_WRONLY);
        dup2(nowhere, STDERR_FILENO);
        execlp("Xvfb", "Xvfb", "-displayfd", descriptor.c_str(), "-screen", "0", "320x240x24", "-nolisten", "tcp",
            "-noreset", static_cast<char*>(nullptr));
        _exit(127);
    }
    close(ends[1]);
    // The server chooses a free number and tells it once it is ready; without a server the pipe is closed.
    std::string number;
    for (char character = 0; read(ends[0], &character, 1) == 1 && character != '\n';)
        number += character;
    close(ends[0]);
    if (!number.empty())
        _displayName = ":" + number;
}

XkbServer::~XkbServer() {
    if (_process <= 0)
        return;
    kill(_process, SIGTERM);
    waitpid(_process, nullptr, 0);
}

bool XkbServer::run(const std::string& command) const {
    return std::system(("DISPLAY=" + _displayName + " " + command).c_str()) == 0;
}

} // namespace tarragon
