#pragma once

#include "cli/CommandLine.h"
#include "platform/Platform.h"

#include <iosfwd>

namespace tarragon {

// Carries out the commands that print something or press an item and end. Each works beside a running agent. The
// answer is the exit status; what went wrong is said on errors.
class Commands {
public:
    // Everything outlives this object.
    Commands(const Platform& platform, std::ostream& output, std::ostream& errors);

    int listMenus(const ListMenus& command);
    int pressItem(const PressItem& command);
    int inspect();

private:
    int fail(const std::string& message);
    std::optional<RunningApplication> chooseApplication(const ApplicationChoice& choice);
    // Calls work with a reader of the chosen application, whose root menu is up to date.
    template <typename Work>
    int withReader(const ApplicationChoice& choice, ReadBatchDepth depth, Work work);

    Platform _platform;
    std::ostream& _output;
    std::ostream& _errors;
};

} // namespace tarragon
