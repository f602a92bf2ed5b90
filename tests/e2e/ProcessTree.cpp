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

// The variables as they were when the process was started, "NAME=value". A process that is ending has none any more,
// though it is still there, and one that is just becoming another program has none for a moment.
std::vector<std::string> environmentOf(pid_t process) {
    std::ifstream file("/proc/" + std::to_string(process) + "/environ", std::ios::binary);
    std::vector<std::string> variables;
    for (std::string variable; std::getline(file, variable, '\0');)
        variables.push_back(variable);
    return variables;
}

// Those started with the variable, or all when it is empty, and those that do not tell at the moment.
std::vector<pid_t> descendantsThatMayHave(const std::string& assignment) {
    std::vector<pid_t> processes = descendantsOf(getpid());
    std::erase_if(processes, [&](pid_t process) {
        const std::vector<std::string> variables = environmentOf(process);
        return !assignment.empty() && !variables.empty() && std::ranges::find(variables, assignment) == variables.end();
    });
    return processes;
}

void endThoseWith(const std::string& assignment, int signal) {
    for (pid_t process : descendantsOf(getpid())) {
        if (!assignment.empty() && !hasEnvironmentVariable(process, assignment))
            continue;
        kill(process, signal);
        kill(process, SIGCONT);
    }
}

void reapChildren() {
    while (waitpid(-1, nullptr, WNOHANG) > 0) { }
}

std::string commandLineOf(pid_t process) {
    std::ifstream file("/proc/" + std::to_string(process) + "/cmdline", std::ios::binary);
    std::string line{std::istreambuf_iterator<char>(file), {}};
    std::ranges::replace(line, '\0', ' ');
    return line;
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
    const std::vector<std::string> variables = environmentOf(process);
    return std::ranges::find(variables, assignment) != variables.end();
}

void endDescendants(const std::string& assignment) {
    for (int signal : {SIGTERM, SIGKILL}) {
        endThoseWith(assignment, signal);
        // A process that dies can leave children behind that come to us, so the look-out is renewed each time.
        const bool gone = waitUntil(
            [&] {
                reapChildren();
                if (signal == SIGKILL)
                    endThoseWith(assignment, signal);
                return descendantsThatMayHave(assignment).empty();
            },
            Duration(2000));
        if (gone)
            return;
    }
}

std::vector<pid_t> waitForDescendantsToEnd(Duration deadline) {
    std::vector<pid_t> left;
    waitUntil(
        [&] {
            reapChildren();
            left = descendantsOf(getpid());
            return left.empty();
        },
        deadline);
    return left;
}

std::string describeProcess(pid_t process) {
    std::string description = std::to_string(process);
    const std::vector<std::string> names = threadNamesOf(process);
    description += " (" + (names.empty() ? std::string("gone") : names.front()) + "): " + commandLineOf(process);
    const pid_t parent = parentOf(process);
    description += "; its parent is " + std::to_string(parent) + ": " + commandLineOf(parent);
    return description;
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
