#include "support/X11Client.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <memory>

#include <sys/uio.h>
#include <xcb/randr.h>
#include <xcb/shape.h>
#include <xcb/xcbext.h>
#include <xcb/xinput.h>
#include <xcb/xtest.h>

namespace tarragon {

namespace {

template <typename T>
std::unique_ptr<T, decltype(&std::free)> owned(T* reply) {
    return {reply, &std::free};
}

} // namespace

X11Client::X11Client(const std::string& displayName)
    : _connection(xcb_connect(displayName.c_str(), nullptr))
    , _screen(xcb_setup_roots_iterator(xcb_get_setup(_connection)).data) { }

X11Client::~X11Client() {
    xcb_disconnect(_connection);
}

xcb_atom_t X11Client::atom(const std::string& name) {
    const auto reply = owned(xcb_intern_atom_reply(
        _connection, xcb_intern_atom(_connection, 0, static_cast<std::uint16_t>(name.size()), name.c_str()), nullptr));
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

xcb_window_t X11Client::makeWindow(const X11ClientWindow& window) {
    const xcb_window_t identifier = xcb_generate_id(_connection);
    const std::array<std::uint32_t, 3> values = {
        _screen->white_pixel, window.overrideRedirect ? 1U : 0U, window.events};
    xcb_create_window(_connection, XCB_COPY_FROM_PARENT, identifier, root(), window.x, window.y, window.width,
        window.height, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, _screen->root_visual,
        XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values.data());
    synchronize();
    return identifier;
}

void X11Client::map(xcb_window_t window) {
    xcb_map_window(_connection, window);
    synchronize();
}

void X11Client::unmap(xcb_window_t window) {
    xcb_unmap_window(_connection, window);
    synchronize();
}

void X11Client::destroy(xcb_window_t window) {
    xcb_destroy_window(_connection, window);
    synchronize();
}

void X11Client::move(xcb_window_t window, int x, int y) {
    const std::array<std::int32_t, 2> values = {x, y};
    xcb_configure_window(_connection, window, XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y, values.data());
    synchronize();
}

void X11Client::raise(xcb_window_t window) {
    const std::uint32_t above = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(_connection, window, XCB_CONFIG_WINDOW_STACK_MODE, &above);
    synchronize();
}

void X11Client::circulate() {
    xcb_circulate_window(_connection, XCB_CIRCULATE_RAISE_LOWEST, root());
    synchronize();
}

void X11Client::focus(xcb_window_t window) {
    xcb_set_input_focus(_connection, XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
    synchronize();
}

void X11Client::setNumbers(
    xcb_window_t window, const std::string& property, xcb_atom_t type, const std::vector<std::uint32_t>& values) {
    xcb_change_property(_connection, XCB_PROP_MODE_REPLACE, window, atom(property), type, 32,
        static_cast<std::uint32_t>(values.size()), values.data());
    synchronize();
}

void X11Client::setText(xcb_window_t window, const std::string& property, const std::string& text) {
    xcb_change_property(_connection, XCB_PROP_MODE_REPLACE, window, atom(property), atom("UTF8_STRING"), 8,
        static_cast<std::uint32_t>(text.size()), text.data());
    synchronize();
}

std::vector<std::uint32_t> X11Client::numbers(xcb_window_t window, const std::string& property) {
    const auto reply = owned(xcb_get_property_reply(_connection,
        xcb_get_property(_connection, 0, window, atom(property), XCB_GET_PROPERTY_TYPE_ANY, 0, 1024), nullptr));
    if (!reply || reply->format != 32)
        return {};
    const auto* values = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    return {values, values + reply->value_len};
}

xcb_window_t X11Client::focusedWindow() {
    const auto reply = owned(xcb_get_input_focus_reply(_connection, xcb_get_input_focus(_connection), nullptr));
    return reply ? reply->focus : xcb_window_t(XCB_WINDOW_NONE);
}

std::vector<xcb_window_t> X11Client::stacking() {
    const auto reply = owned(xcb_query_tree_reply(_connection, xcb_query_tree(_connection, root()), nullptr));
    if (!reply)
        return {};
    const xcb_window_t* children = xcb_query_tree_children(reply.get());
    return {children, children + xcb_query_tree_children_length(reply.get())};
}

bool X11Client::exists(xcb_window_t window) {
    return owned(xcb_get_window_attributes_reply(_connection, xcb_get_window_attributes(_connection, window), nullptr))
        != nullptr;
}

bool X11Client::isMapped(xcb_window_t window) {
    const auto reply =
        owned(xcb_get_window_attributes_reply(_connection, xcb_get_window_attributes(_connection, window), nullptr));
    return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
}

bool X11Client::isOverrideRedirect(xcb_window_t window) {
    const auto reply =
        owned(xcb_get_window_attributes_reply(_connection, xcb_get_window_attributes(_connection, window), nullptr));
    return reply && reply->override_redirect != 0;
}

int X11Client::shapeArea(xcb_window_t window) {
    const auto reply = owned(xcb_shape_get_rectangles_reply(
        _connection, xcb_shape_get_rectangles(_connection, window, XCB_SHAPE_SK_BOUNDING), nullptr));
    int area = 0;
    for (int index = 0; reply && index < xcb_shape_get_rectangles_rectangles_length(reply.get()); ++index) {
        const xcb_rectangle_t& rectangle = xcb_shape_get_rectangles_rectangles(reply.get())[index];
        area += rectangle.width * rectangle.height;
    }
    return area;
}

bool X11Client::grabPointer() {
    const auto reply = owned(xcb_grab_pointer_reply(_connection,
        xcb_grab_pointer(_connection, 0, root(), XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE,
            XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC, XCB_NONE, XCB_NONE, XCB_CURRENT_TIME),
        nullptr));
    return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
}

void X11Client::ungrabPointer() {
    xcb_ungrab_pointer(_connection, XCB_CURRENT_TIME);
    synchronize();
}

void X11Client::movePointer(int x, int y) {
    fake(XCB_MOTION_NOTIFY, 0, x, y);
}

void X11Client::press(std::uint8_t button) {
    fake(XCB_BUTTON_PRESS, button);
}

void X11Client::release(std::uint8_t button) {
    fake(XCB_BUTTON_RELEASE, button);
}

void X11Client::click(std::uint8_t button) {
    press(button);
    release(button);
}

void X11Client::pressKey(std::uint8_t keyCode) {
    fake(XCB_KEY_PRESS, keyCode);
}

void X11Client::releaseKey(std::uint8_t keyCode) {
    fake(XCB_KEY_RELEASE, keyCode);
}

void X11Client::typeKey(std::uint8_t keyCode) {
    pressKey(keyCode);
    releaseKey(keyCode);
}

bool X11Client::grabKeyboard() {
    const auto reply = owned(xcb_grab_keyboard_reply(_connection,
        xcb_grab_keyboard(_connection, 0, root(), XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC),
        nullptr));
    return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
}

void X11Client::ungrabKeyboard() {
    xcb_ungrab_keyboard(_connection, XCB_CURRENT_TIME);
    synchronize();
}

bool X11Client::grabKey(std::uint8_t keyCode, std::uint16_t modifiers) {
    const auto error = owned(xcb_request_check(_connection,
        xcb_grab_key_checked(_connection, 0, root(), modifiers, keyCode, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC)));
    return !error;
}

void X11Client::addAndRemoveMasterDevice() {
    const auto known = pointers();
    const std::string name = "second";
    std::vector<std::uint32_t> request(sizeof(xcb_input_add_master_t) / 4 + 2);
    xcb_input_add_master_t add{};
    add.type = XCB_INPUT_HIERARCHY_CHANGE_TYPE_ADD_MASTER;
    add.len = static_cast<std::uint16_t>(request.size());
    add.name_len = static_cast<std::uint16_t>(name.size());
    add.enable = 1;
    std::memcpy(request.data(), &add, sizeof add);
    std::memcpy(reinterpret_cast<char*>(request.data()) + sizeof add, name.data(), name.size());
    change(request);
    for (const std::uint16_t pointer : pointers()) {
        if (std::ranges::find(known, pointer) != known.end())
            continue;
        xcb_input_remove_master_t remove{};
        remove.type = XCB_INPUT_HIERARCHY_CHANGE_TYPE_REMOVE_MASTER;
        remove.len = sizeof remove / 4;
        remove.deviceid = pointer;
        remove.return_mode = XCB_INPUT_CHANGE_MODE_FLOAT;
        std::vector<std::uint32_t> removal(sizeof remove / 4);
        std::memcpy(removal.data(), &remove, sizeof remove);
        change(removal);
    }
}

void X11Client::change(const std::vector<std::uint32_t>& change) {
    xcb_input_xi_change_hierarchy(_connection, 1, reinterpret_cast<const xcb_input_hierarchy_change_t*>(change.data()));
    synchronize();
}

std::vector<std::uint16_t> X11Client::pointers() {
    const auto reply = owned(xcb_input_xi_query_device_reply(
        _connection, xcb_input_xi_query_device(_connection, XCB_INPUT_DEVICE_ALL_MASTER), nullptr));
    std::vector<std::uint16_t> result;
    for (auto devices = xcb_input_xi_query_device_infos_iterator(reply.get()); devices.rem > 0;
         xcb_input_xi_device_info_next(&devices)) {
        if (devices.data->type == XCB_INPUT_DEVICE_TYPE_MASTER_POINTER)
            result.push_back(devices.data->deviceid);
    }
    return result;
}

std::vector<int> X11Client::takeEvents() {
    synchronize();
    std::vector<int> kinds;
    while (const auto event = owned(xcb_poll_for_event(_connection)))
        kinds.push_back(event->response_type & 0x7F);
    return kinds;
}

int X11Client::countEvents(int kind) {
    const std::vector<int> kinds = takeEvents();
    return static_cast<int>(std::ranges::count(kinds, kind));
}

void X11Client::setMonitors(const std::vector<X11ClientMonitor>& monitors) {
    std::vector<xcb_atom_t> names;
    for (std::size_t index = 0; index < monitors.size(); ++index)
        names.push_back(atom("SUPPORT-" + std::to_string(++_countOfMonitors)));
    xcb_grab_server(_connection);
    for (const xcb_atom_t name : _monitors)
        xcb_randr_delete_monitor(_connection, root(), name);
    for (std::size_t index = 0; index < monitors.size(); ++index)
        setMonitor(names[index], monitors[index], index == 0);
    xcb_ungrab_server(_connection);
    _monitors = names;
    synchronize();
}

// The library's own function for this request gets its length wrong, so the request is put together here. The first two
// parts are the library's. The server's output is a monitor of its own unless one of ours claims it.
void X11Client::setMonitor(xcb_atom_t name, const X11ClientMonitor& monitor, bool claimOutput) {
    const auto resources = owned(xcb_randr_get_screen_resources_current_reply(
        _connection, xcb_randr_get_screen_resources_current(_connection, root()), nullptr));
    xcb_randr_output_t output = xcb_randr_get_screen_resources_current_outputs(resources.get())[0];
    xcb_randr_monitor_info_t info{};
    info.name = name;
    info.primary = monitor.primary;
    info.nOutput = claimOutput ? 1 : 0;
    info.x = monitor.x;
    info.y = monitor.y;
    info.width = monitor.width;
    info.height = monitor.height;
    info.width_in_millimeters = monitor.width / 4U;
    info.height_in_millimeters = monitor.height / 4U;

    constexpr std::uint8_t SetMonitor = 43;
    xcb_randr_set_monitor_request_t request{};
    request.window = root();
    std::array<iovec, 5> parts{};
    parts[2] = {&request, sizeof request};
    parts[3] = {&info, sizeof info};
    parts[4] = {&output, claimOutput ? sizeof output : 0};
    xcb_protocol_request_t description{};
    description.count = 3;
    description.ext = &xcb_randr_id;
    description.opcode = SetMonitor;
    description.isvoid = 1;
    xcb_send_request(_connection, 0, &parts[2], &description);
}

xcb_atom_t X11Client::addMonitor(const X11ClientMonitor& monitor) {
    const xcb_atom_t name = atom("SUPPORT-" + std::to_string(++_countOfMonitors));
    setMonitor(name, monitor, false);
    synchronize();
    return name;
}

void X11Client::changeMonitor(std::size_t index, const X11ClientMonitor& monitor) {
    // The server takes no second monitor of a name.
    xcb_grab_server(_connection);
    xcb_randr_delete_monitor(_connection, root(), _monitors.at(index));
    setMonitor(_monitors.at(index), monitor, index == 0);
    xcb_ungrab_server(_connection);
    synchronize();
}

void X11Client::removeMonitor(xcb_atom_t name) {
    xcb_randr_delete_monitor(_connection, root(), name);
    synchronize();
}

bool X11Client::setMode(std::uint16_t width, std::uint16_t height, std::int16_t x, std::int16_t y) {
    const xcb_randr_mode_t mode = modeOfSize(width, height);
    const auto resources = owned(xcb_randr_get_screen_resources_current_reply(
        _connection, xcb_randr_get_screen_resources_current(_connection, root()), nullptr));
    if (mode == XCB_NONE || !resources)
        return false;
    const xcb_randr_output_t output = xcb_randr_get_screen_resources_current_outputs(resources.get())[0];
    const xcb_randr_crtc_t crtc = xcb_randr_get_screen_resources_current_crtcs(resources.get())[0];
    xcb_randr_add_output_mode(_connection, output, mode);
    const auto reply = owned(xcb_randr_set_crtc_config_reply(_connection,
        xcb_randr_set_crtc_config(_connection, crtc, XCB_CURRENT_TIME, resources->config_timestamp, x, y, mode,
            XCB_RANDR_ROTATION_ROTATE_0, 1, &output),
        nullptr));
    return reply && reply->status == XCB_RANDR_SET_CONFIG_SUCCESS;
}

// The server takes no second mode of a name.
xcb_randr_mode_t X11Client::modeOfSize(std::uint16_t width, std::uint16_t height) {
    const auto resources = owned(xcb_randr_get_screen_resources_current_reply(
        _connection, xcb_randr_get_screen_resources_current(_connection, root()), nullptr));
    for (auto modes = xcb_randr_get_screen_resources_current_modes_iterator(resources.get()); modes.rem > 0;
         xcb_randr_mode_info_next(&modes)) {
        if (modes.data->width == width && modes.data->height == height)
            return modes.data->id;
    }
    const std::string name = std::to_string(width) + "x" + std::to_string(height) + "-support";
    xcb_randr_mode_info_t mode{};
    mode.width = width;
    mode.height = height;
    mode.name_len = static_cast<std::uint16_t>(name.size());
    const auto created = owned(xcb_randr_create_mode_reply(
        _connection, xcb_randr_create_mode(_connection, root(), mode, mode.name_len, name.c_str()), nullptr));
    return created ? created->mode : xcb_randr_mode_t(XCB_NONE);
}

void X11Client::synchronize() {
    owned(xcb_get_input_focus_reply(_connection, xcb_get_input_focus(_connection), nullptr));
}

void X11Client::fake(std::uint8_t type, std::uint8_t detail, int x, int y) {
    xcb_test_fake_input(_connection, type, detail, XCB_CURRENT_TIME, root(), static_cast<std::int16_t>(x),
        static_cast<std::int16_t>(y), 0);
    synchronize();
}

} // namespace tarragon
