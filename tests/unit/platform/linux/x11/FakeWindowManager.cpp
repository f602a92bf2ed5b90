#include "FakeWindowManager.h"

#include "platform/linux/x11/X11Reply.h"

#include <array>
#include <sys/uio.h>
#include <utility>

#include <xcb/randr.h>
#include <xcb/xcbext.h>

namespace tarragon {

FakeWindowManager::FakeWindowManager(const std::string& displayName)
    : _connection(xcb_connect(displayName.c_str(), nullptr)) {
    if (xcb_connection_has_error(_connection) == 0)
        _root = xcb_setup_roots_iterator(xcb_get_setup(_connection)).data->root;
}

FakeWindowManager::~FakeWindowManager() {
    xcb_disconnect(_connection);
}

std::uint32_t FakeWindowManager::open(const FakeWindow& window) {
    return openAs(xcb_generate_id(_connection), window);
}

std::uint32_t FakeWindowManager::openAs(std::uint32_t identifier, const FakeWindow& window) {
    const X11Reply<xcb_generic_error_t> error(xcb_request_check(_connection,
        xcb_create_window_checked(_connection, XCB_COPY_FROM_PARENT, identifier, _root, 0, 0, 10, 10, 0,
            XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr)));
    if (error)
        return 0;
    if (window.process != 0)
        setProperty(identifier, "_NET_WM_PID", XCB_ATOM_CARDINAL, {static_cast<std::uint32_t>(window.process)});
    if (!window.type.empty())
        setProperty(identifier, "_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM, {atom(window.type)});
    if (window.transientFor != 0)
        setProperty(identifier, "WM_TRANSIENT_FOR", XCB_ATOM_WINDOW, {window.transientFor});
    if (!window.state.empty())
        setState(identifier, window.state);
    show(identifier);
    setManaged(identifier, true);
    return identifier;
}

void FakeWindowManager::close(std::uint32_t window) {
    xcb_destroy_window(_connection, window);
    setManaged(window, false);
}

void FakeWindowManager::hide(std::uint32_t window) {
    xcb_unmap_window(_connection, window);
}

void FakeWindowManager::show(std::uint32_t window) {
    xcb_map_window(_connection, window);
}

void FakeWindowManager::withdraw(std::uint32_t window) {
    hide(window);
    setManaged(window, false);
}

void FakeWindowManager::setState(std::uint32_t window, const std::string& state) {
    setProperty(window, "_NET_WM_STATE", XCB_ATOM_ATOM, {atom(state)});
}

void FakeWindowManager::putOnWorkspace(std::uint32_t window, std::uint32_t workspace) {
    setProperty(window, "_NET_WM_DESKTOP", XCB_ATOM_CARDINAL, {workspace});
}

void FakeWindowManager::showWorkspace(std::uint32_t workspace) {
    setProperty(_root, "_NET_CURRENT_DESKTOP", XCB_ATOM_CARDINAL, {workspace});
}

void FakeWindowManager::setTitle(std::uint32_t window, const std::string& title) {
    xcb_change_property(_connection, XCB_PROP_MODE_REPLACE, window, atom("_NET_WM_NAME"), atom("UTF8_STRING"), 8,
        static_cast<std::uint32_t>(title.size()), title.data());
}

std::uint32_t FakeWindowManager::frame(std::uint32_t window) {
    const std::uint32_t frame = xcb_generate_id(_connection);
    xcb_create_window(_connection, XCB_COPY_FROM_PARENT, frame, _root, 0, 0, 20, 20, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
        XCB_COPY_FROM_PARENT, 0, nullptr);
    xcb_map_window(_connection, frame);
    xcb_reparent_window(_connection, window, frame, 0, 0);
    return frame;
}

void FakeWindowManager::move(std::uint32_t window, int x, int y) {
    const std::array<std::int32_t, 2> position = {x, y};
    xcb_configure_window(_connection, window, XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y, position.data());
}

void FakeWindowManager::addPrimaryMonitor(int x, int y, int width, int height) {
    xcb_randr_monitor_info_t monitor = {};
    monitor.name = atom("primary");
    monitor.primary = 1;
    monitor.x = static_cast<std::int16_t>(x);
    monitor.y = static_cast<std::int16_t>(y);
    monitor.width = static_cast<std::uint16_t>(width);
    monitor.height = static_cast<std::uint16_t>(height);

    // The library's own function for this request gets its length wrong, so the request is put together here. The first
    // two parts are the library's.
    constexpr std::uint8_t SetMonitor = 43;
    xcb_randr_set_monitor_request_t request = {};
    request.window = _root;
    std::array<iovec, 4> parts = {};
    parts[2] = {&request, sizeof request};
    parts[3] = {&monitor, sizeof monitor};
    xcb_protocol_request_t description = {};
    description.count = 2;
    description.ext = &xcb_randr_id;
    description.opcode = SetMonitor;
    description.isvoid = 1;
    xcb_send_request(_connection, 0, &parts[2], &description);
}

void FakeWindowManager::activate(std::uint32_t window) {
    setProperty(_root, "_NET_ACTIVE_WINDOW", XCB_ATOM_WINDOW, {window});
}

void FakeWindowManager::focus(std::uint32_t window) {
    xcb_set_input_focus(_connection, XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
}

bool FakeWindowManager::grabKeyboard() {
    const X11Reply<xcb_grab_keyboard_reply_t> reply(xcb_grab_keyboard_reply(_connection,
        xcb_grab_keyboard(_connection, 0, _root, XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC), nullptr));
    return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
}

void FakeWindowManager::releaseKeyboard() {
    xcb_ungrab_keyboard(_connection, XCB_CURRENT_TIME);
}

void FakeWindowManager::synchronize() {
    for (int question = 0; question < 2; ++question)
        const X11Reply<xcb_get_input_focus_reply_t> reply(
            xcb_get_input_focus_reply(_connection, xcb_get_input_focus(_connection), nullptr));
}

std::uint32_t FakeWindowManager::atom(const std::string& name) {
    const X11Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        _connection, xcb_intern_atom(_connection, 0, static_cast<std::uint16_t>(name.size()), name.data()), nullptr));
    return reply ? reply->atom : 0;
}

void FakeWindowManager::setProperty(
    std::uint32_t window, const std::string& name, xcb_atom_t type, std::vector<std::uint32_t> values) {
    xcb_change_property(_connection, XCB_PROP_MODE_REPLACE, window, atom(name), type, 32,
        static_cast<std::uint32_t>(values.size()), values.data());
}

void FakeWindowManager::setManaged(std::uint32_t window, bool managed) {
    std::erase(_managed, window);
    if (managed)
        _managed.push_back(window);
    for (const char* list : {"_NET_CLIENT_LIST", "_NET_CLIENT_LIST_STACKING"})
        setProperty(_root, list, XCB_ATOM_WINDOW, _managed);
}

} // namespace tarragon
