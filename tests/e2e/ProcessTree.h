#pragma once

#include "Wait.h"

#include <chrono>
#include <string>
#include <vector>

#include <sys/types.h>

namespace tarragon::e2e {

// Makes the calling process the one to which processes are handed whose own parent has ended, so that none escapes.
void adoptOrphans();

// Every living descendant of the process, parents before their children.
std::vector<pid_t> descendantsOf(pid_t process);

// True when the process was started with this variable ("NAME=value") in its environment.
bool hasEnvironmentVariable(pid_t process, const std::string& assignment);

// Ends the descendants of the calling process that were started with the variable, or all of them when it is empty:
// politely at first, then not. All have ended and are reaped when it returns.
void endDescendants(const std::string& assignment);

// Reaps the children that have ended until the calling process has no living descendant, or the deadline has passed:
// then those that are left.
std::vector<pid_t> waitForDescendantsToEnd(Duration deadline);

// For a message: who it is, its command line, and its parent's.
std::string describeProcess(pid_t process);

// The names of its threads, the main thread's among them; none when the process is gone.
std::vector<std::string> threadNamesOf(pid_t process);

// The processor time that it has used, all threads; 0 when the process is gone.
std::chrono::milliseconds processorTimeOf(pid_t process);

// The resident size in bytes, 0 when the process is gone.
long residentSizeOf(pid_t process);

} // namespace tarragon::e2e
