// Writes the small ones of the sound and the hostile lists into a folder, as seeds for the fuzzer:
//
//   write_ignore_list_seeds FOLDER

#include "fuzz/HostileList.h"

#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <fstream>

int main(int count, char** arguments) {
    if (count != 2) {
        std::fprintf(stderr, "usage: write_ignore_list_seeds FOLDER\n");
        return 2;
    }
    const std::filesystem::path folder = arguments[1];
    constexpr std::size_t LargestSeed = 4096;
    std::vector<tarragon::HostileList> seeds = tarragon::hostileLists();
    for (const tarragon::HostileList& sound : tarragon::soundLists())
        seeds.push_back(sound);
    for (const tarragon::HostileList& seed : seeds) {
        if (seed.bytes.size() > LargestSeed)
            continue;
        std::ofstream stream(folder / seed.name, std::ios::binary);
        stream.write(reinterpret_cast<const char*>(seed.bytes.data()), static_cast<std::streamsize>(seed.bytes.size()));
        if (!stream.flush()) {
            std::fprintf(stderr, "cannot write %s\n", (folder / seed.name).c_str());
            return 1;
        }
    }
    return 0;
}
