#pragma once

#include "platform/Defaults.h"

#include <string>
#include <vector>

namespace tarragon {

// A stored list that somebody damaged or made up, with what is wrong with it.
struct HostileList {
    std::string name;
    Data bytes;
};

// A sound list: "org.example.Editor" with the title "Untitled 3".
Data soundList();

// Lists as the hostile ones are before anything is wrong with them.
std::vector<HostileList> soundLists();

// Lists that hold nothing that can be read.
std::vector<HostileList> hostileLists();

} // namespace tarragon
