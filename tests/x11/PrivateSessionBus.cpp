#include "PrivateSessionBus.h"

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <spawn.h>
#include <string_view>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ; // NOLINT(readability-redundant-declaration)

namespace tarragon {

namespace {

constexpr std::string_view Configuration = R"(<busconfig><type>session</type><listen>unix:tmpdir=/tmp</listen>
<auth>EXTERNAL</auth><policy context="default"><allow send_destination="*"/><allow receive_sender="*"/>
<allow own="*"/></policy></busconfig>)";

} // namespace

PrivateSessionBus::PrivateSessionBus()
    : _configuration("/tmp/tarragon-bus-XXXXXX") {
    const int file = ::mkstemp(_configuration.data());
    if (file < 0 || ::write(file, Configuration.data(), Configuration.size()) < 0)
        return;
    ::close(file);
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) < 0)
        return;
    const std::string option = "--config-file=" + _configuration;
    const char* arguments[] = {"dbus-daemon", option.c_str(), "--nofork", "--print-address=1", nullptr};
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    const int result =
        ::posix_spawnp(&_process, arguments[0], &actions, nullptr, const_cast<char* const*>(arguments), environ);
    posix_spawn_file_actions_destroy(&actions);
    ::close(ends[1]);
    char character = 0;
    while (result == 0 && ::read(ends[0], &character, 1) == 1 && character != '\n')
        _address += character;
    ::close(ends[0]);
}

PrivateSessionBus::~PrivateSessionBus() {
    ::unlink(_configuration.c_str());
    if (_process <= 0)
        return;
    ::kill(_process, SIGTERM);
    ::waitpid(_process, nullptr, 0);
}

} // namespace tarragon
