#pragma once

#include <array>
#include <string>
#include <thread>

#include <xcb/xcb.h>

namespace tarragon {

// A connection to an X server that has no input extension, which no server of today can be told to leave out: what the
// client asks passes through this object, which changes the name of the extension to one that no server knows.
class RelayedConnection {
public:
    // displayName as in ":7".
    explicit RelayedConnection(const std::string& displayName);
    ~RelayedConnection();
    RelayedConnection(const RelayedConnection&) = delete;
    RelayedConnection& operator=(const RelayedConnection&) = delete;

    xcb_connection_t* get() const { return _connection; }

private:
    void relay() const;

    std::array<int, 2> _clientEnds{-1, -1}; // the client's own and ours
    int _server = -1;
    xcb_connection_t* _connection = nullptr;
    std::thread _thread;
};

} // namespace tarragon
