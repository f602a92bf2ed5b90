#include "VirtualServer.h"

#include <array>
#include <csignal>

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tarragon {

VirtualServer::VirtualServer() {
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0)
        return;
    _process = fork();
    if (_process == 0) {
        close(ends[0]);
        prctl(PR_SET_PDEATHSIG, SIGTERM); // also when the tests crash
        const std::string descriptor = std::to_string(ends[1]);
        execlp("Xvfb", "Xvfb", "-displayfd", descriptor.c_str(), "-screen", "0", "1000x800x24", "-nolisten", "tcp",
            "-noreset", nullptr);
        _exit(127);
    }
    close(ends[1]);
    // The server writes its number and a line break once it is ready, and closes the pipe when it cannot start.
    char byte = 0;
    std::string number;
    while (read(ends[0], &byte, 1) == 1 && byte != '\n')
        number += byte;
    close(ends[0]);
    if (!number.empty())
        _displayName = ":" + number;
}

VirtualServer::~VirtualServer() {
    if (_process <= 0)
        return;
    kill(_process, SIGTERM);
    waitpid(_process, nullptr, 0);
}

} // namespace tarragon
