#pragma once

#include "platform/Process.h"

#include <string>
#include <vector>

namespace tarragon {

// A program whose size tests choose. Keeps a log of the relaunches that were asked for.
class FakeProcess : public Process {
public:
    void setResidentSize(std::uint64_t bytes) { _residentSize = bytes; }
    // The relaunch tool cannot be started from now on.
    void setRefusesRelaunch(bool refuses) { _refusesRelaunch = refuses; }
    // How often the size was asked for.
    int residentSizeQueries() const { return _queries; }
    // The path of every relaunch that was asked for, the refused ones included.
    const std::vector<std::string>& relaunches() const { return _relaunches; }

    std::uint64_t residentSize() override {
        ++_queries;
        return _residentSize;
    }
    bool relaunchAfterEnd(const std::string& path) override {
        _relaunches.push_back(path);
        return !_refusesRelaunch;
    }

private:
    std::uint64_t _residentSize = 50'000'000;
    int _queries = 0;
    std::vector<std::string> _relaunches;
    bool _refusesRelaunch = false;
};

} // namespace tarragon
