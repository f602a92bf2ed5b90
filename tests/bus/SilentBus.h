#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace tarragon {

// The address of a bus that lets everybody connect and never says a word.
class SilentBus {
public:
    SilentBus();
    ~SilentBus();
    SilentBus(const SilentBus&) = delete;
    SilentBus& operator=(const SilentBus&) = delete;

    const std::string& address() const { return _address; }
    // How often somebody has connected so far.
    std::size_t connections();

private:
    int _listener;
    std::vector<int> _connections;
    std::string _path;
    std::string _address;
};

} // namespace tarragon
