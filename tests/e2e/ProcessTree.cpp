#include "ProcessTree.h"

#include "Wait.h"

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <sstream>

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tarragon::e2e {

namespace {

// The parent of a process that is alive; 0 for one that is gone or waits to be reaped.
pid_t parentOf(pid_t process) {
    std::ifstream file("/proc/" + std::to_string(process) + "/stat");
    std::string line;
    if (!std::getline(file, line))
        return 0;
    // The name stands in parentheses and may contain anything.
    std::istringstream rest(line.substr(line.rfind(')') + 1));
    char state = 0;
    pid_t parent = 0;
    rest >> state >> parent;
    return state == 'Z' ? 0 : parent;
}

std::vector<pid_t> livingProcesses() {
    std::vector<pid_t> processes;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator("/proc", error)) {
        std::string name = entry.path().filename();
        if (std::all_of(name.begin(), name.end(), [](unsigned char c) { return std::isdigit(c); }))
            processes.push_back(static_cast<pid_t>(std::stol(name)));
    }
    return processes;
}

std::vector<pid_t> descendantsWith(const std::string& assignment) {
    std::vector<pid_t> processes = descendantsOf(getpid());
    if (!assignment.empty())
        std::erase_if(processes, [&](pid_t process) { return !hasEnvironmentVariable(process, assignment); });
    return processes;
}

} // namespace

void adoptOrphans() {
    prctl(PR_SET_CHILD_SUBREAPER, 1, 0, 0, 0);
}

std::vector<pid_t> descendantsOf(pid_t process) {
    std::multimap<pid_t, pid_t> children;
    for (pid_t candidate : livingProcesses())
        children.emplace(parentOf(candidate), candidate);
    std::vector<pid_t> found{process};
    for (std::size_t index = 0; index < found.size(); ++index) {
        auto [first, last] = children.equal_range(found[index]);
        std::transform(first, last, std::back_inserter(found), [](const auto& pair) { return pair.second; });
    }
    found.erase(found.begin());
    return found;
}

bool hasEnvironmentVariable(pid_t process, const std::string& assignment) {
    std::ifstream file("/proc/" + std::to_string(process) + "/environ", std::ios::binary);
    std::string variable;
    while (std::getline(file, variable, '\0')) {
        if (variable == assignment)
            return true;
    }
    return false;
}

void endDescendants(const std::string& assignment) {
    for (int signal : {SIGTERM, SIGKILL}) {
        for (pid_t process : descendantsWith(assignment)) {
            kill(process, signal);
            kill(process, SIGCONT);
        }
        // A process that dies can leave children behind that come to us, so the look-out is renewed each time.
        bool gone = waitUntil(
            [&] {
                while (waitpid(-1, nullptr, WNOHANG) > 0) { }
                std::vector<pid_t> left = descendantsWith(assignment);
                if (signal == SIGKILL) {
                    for (pid_t process : left)
                        kill(process, SIGKILL);
                }
                return left.empty();
            },
            Duration(2000));
        if (gone)
            return;
    }
}

std::vector<std::string> threadNamesOf(pid_t process) {
    std::vector<std::string> names;
    std::error_code ignored;
    for (const auto& thread :
        std::filesystem::directory_iterator("/proc/" + std::to_string(process) + "/task", ignored)) {
        std::ifstream file(thread.path() / "comm");
        std::string name;
        if (std::getline(file, name))
            names.push_back(name);
    }
    return names;
}

std::chrono::milliseconds processorTimeOf(pid_t process) {
    std::ifstream file("/proc/" + std::to_string(process) + "/stat");
    std::string text;
    std::getline(file, text);
    // The name in brackets may have anything in it. User and system time are the twelfth and thirteenth field after.
    std::istringstream fields(text.substr(text.rfind(')') + 1));
    std::string skipped;
    for (int field = 1; field < 12; ++field)
        fields >> skipped;
    long long user = 0;
    long long system = 0;
    fields >> user >> system;
    return std::chrono::milliseconds((user + system) * 1000 / sysconf(_SC_CLK_TCK));
}

long residentSizeOf(pid_t process) {
    std::ifstream file("/proc/" + std::to_string(process) + "/statm");
    long total = 0;
    long resident = 0;
    file >> total >> resident;
    return resident * sysconf(_SC_PAGESIZE);
}

} // namespace tarragon::e2e
