#include "platform/linux/x11/X11Connection.h"

#include "platform/linux/x11/X11Reply.h"

#include <utility>

#include <xcb/randr.h>
#include <xcb/xcb.h>

namespace tarragon {

namespace {

const xcb_screen_t* screenOfNumber(const xcb_connection_t* connection, int number) {
    const xcb_setup_t* setup = xcb_get_setup(const_cast<xcb_connection_t*>(connection));
    xcb_screen_iterator_t screens = xcb_setup_roots_iterator(setup);
    for (; screens.rem > 0; xcb_screen_next(&screens)) {
        if (number-- == 0)
            return screens.data;
    }
    return nullptr;
}

bool serverKnowsMonitors(xcb_connection_t* connection) {
    const xcb_query_extension_reply_t* extension = xcb_get_extension_data(connection, &xcb_randr_id);
    if (!extension || !extension->present)
        return false;
    const X11Reply<xcb_randr_query_version_reply_t> version(
        xcb_randr_query_version_reply(connection, xcb_randr_query_version(connection, 1, 5), nullptr));
    return version && std::pair(version->major_version, version->minor_version) >= std::pair(1U, 5U);
}

} // namespace

std::unique_ptr<X11Connection> X11Connection::connect(const std::string& displayName) {
    int screenNumber = 0;
    xcb_connection_t* connection = xcb_connect(displayName.empty() ? nullptr : displayName.c_str(), &screenNumber);
    const xcb_screen_t* screen = nullptr;
    if (xcb_connection_has_error(connection) == 0)
        screen = screenOfNumber(connection, screenNumber);
    if (!screen) {
        xcb_disconnect(connection);
        return nullptr;
    }
    return std::unique_ptr<X11Connection>(new X11Connection(connection, screen, displayName));
}

X11Connection::X11Connection(xcb_connection_t* connection, const xcb_screen_t* screen, std::string displayName)
    : _connection(connection)
    , _screen(screen)
    , _displayName(std::move(displayName))
    , _knowsMonitors(serverKnowsMonitors(connection)) { }

X11Connection::~X11Connection() {
    xcb_disconnect(_connection);
}

std::unique_ptr<X11Connection> X11Connection::connectAnother() const {
    return connect(_displayName);
}

std::uint32_t X11Connection::rootWindow() const {
    return _screen->root;
}

int X11Connection::descriptor() const {
    return xcb_get_file_descriptor(_connection);
}

bool X11Connection::isAlive() const {
    return xcb_connection_has_error(_connection) == 0;
}

std::uint32_t X11Connection::atom(std::string_view name) {
    const std::lock_guard lock(_atomMutex);
    const std::string key(name);
    if (const auto known = _atoms.find(key); known != _atoms.end())
        return known->second;
    const xcb_intern_atom_cookie_t cookie =
        xcb_intern_atom(_connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
    const X11Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(_connection, cookie, nullptr));
    if (!reply)
        return XCB_ATOM_NONE;
    return _atoms[key] = reply->atom;
}

} // namespace tarragon
