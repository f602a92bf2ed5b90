#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <unordered_map>

struct xcb_connection_t;
struct xcb_screen_t;

namespace tarragon {

// Our own connection to the X server, apart from the user-interface toolkit's. May be used from any thread.
//
// Whoever wants to be woken by events calls connectAnother, and waits for no reply on that connection once the first
// event may come: whoever waits for a reply also reads the events that came before it, and the run loop, which watches
// the descriptor, is then not woken for them. Events of a connection that others use for requests are taken by
// X11ActiveWindowCache alone.
class X11Connection {
public:
    // nullptr when no server answers. An empty name stands for $DISPLAY.
    static std::unique_ptr<X11Connection> connect(const std::string& displayName = {});
    ~X11Connection();
    X11Connection(const X11Connection&) = delete;
    X11Connection& operator=(const X11Connection&) = delete;

    // A further connection to the same server; nullptr when it does not answer.
    std::unique_ptr<X11Connection> connectAnother() const;

    xcb_connection_t* get() const { return _connection; }
    const xcb_screen_t& screen() const { return *_screen; }
    std::uint32_t rootWindow() const;
    int descriptor() const;
    // False once the server has gone away.
    bool isAlive() const;

    // The server can tell of its monitors, which are not always as large as the root window.
    bool knowsMonitors() const { return _knowsMonitors; }

    // The atom of a name; names are asked for once. 0 when the server does not answer.
    std::uint32_t atom(std::string_view name);

private:
    X11Connection(xcb_connection_t* connection, const xcb_screen_t* screen, std::string displayName);

    xcb_connection_t* _connection;
    const xcb_screen_t* _screen;
    std::string _displayName;
    bool _knowsMonitors;
    std::mutex _atomMutex;
    std::unordered_map<std::string, std::uint32_t> _atoms;
};

} // namespace tarragon
