#include "XDisplay.h"

#include "screens/Outputs.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string_view>

#include <sys/uio.h>
#include <xcb/randr.h>
#include <xcb/res.h>
#include <xcb/xcbext.h>

namespace tarragon::e2e {

namespace {

struct Freed {
    void operator()(void* reply) const { std::free(reply); }
};
template <typename T>
using Reply = std::unique_ptr<T, Freed>;

} // namespace

XDisplay::XDisplay(const std::string& name)
    : _connection(xcb_connect(name.c_str(), nullptr)) {
    if (xcb_connection_has_error(_connection)) {
        xcb_disconnect(_connection);
        throw std::runtime_error("no X server on " + name);
    }
    _screen = xcb_setup_roots_iterator(xcb_get_setup(_connection)).data;
    xcb_res_query_version_unchecked(_connection, 1, 2);
    xcb_randr_query_version_unchecked(_connection, 1, 5);
}

XDisplay::~XDisplay() {
    xcb_disconnect(_connection);
}

xcb_atom_t XDisplay::atom(const std::string& name) {
    auto [position, isNew] = _atoms.emplace(name, XCB_ATOM_NONE);
    if (isNew) {
        auto cookie = xcb_intern_atom(_connection, 0, static_cast<std::uint16_t>(name.size()), name.c_str());
        Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(_connection, cookie, nullptr));
        position->second = reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
    }
    return position->second;
}

std::vector<std::uint32_t> XDisplay::cardinals(xcb_window_t window, const std::string& property, xcb_atom_t type) {
    auto cookie = xcb_get_property(_connection, 0, window, atom(property), type, 0, 1024);
    Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(_connection, cookie, nullptr));
    if (!reply || reply->format != 32)
        return {};
    const auto* values = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    return {values, values + xcb_get_property_value_length(reply.get()) / 4};
}

bool XDisplay::hasWindowManager() {
    auto check = cardinals(root(), "_NET_SUPPORTING_WM_CHECK", XCB_ATOM_WINDOW);
    return !check.empty() && cardinals(check[0], "_NET_SUPPORTING_WM_CHECK", XCB_ATOM_WINDOW) == check;
}

bool XDisplay::hasCompositor() {
    Reply<xcb_get_selection_owner_reply_t> owner(xcb_get_selection_owner_reply(
        _connection, xcb_get_selection_owner(_connection, atom("_NET_WM_CM_S0")), nullptr));
    return owner && owner->owner != XCB_NONE;
}

xcb_window_t XDisplay::activeWindow() {
    auto window = cardinals(root(), "_NET_ACTIVE_WINDOW", XCB_ATOM_WINDOW);
    return window.empty() ? static_cast<xcb_window_t>(XCB_NONE) : window[0];
}

xcb_window_t XDisplay::focusedWindow() {
    Reply<xcb_get_input_focus_reply_t> focus(
        xcb_get_input_focus_reply(_connection, xcb_get_input_focus(_connection), nullptr));
    return focus ? focus->focus : static_cast<xcb_window_t>(XCB_NONE);
}

std::vector<xcb_window_t> XDisplay::managedWindows() {
    return cardinals(root(), "_NET_CLIENT_LIST", XCB_ATOM_WINDOW);
}

std::vector<xcb_window_t> XDisplay::managedWindowsOf(pid_t process) {
    auto windows = managedWindows();
    std::erase_if(windows, [&](xcb_window_t window) { return processOf(window) != process; });
    return windows;
}

pid_t XDisplay::processOf(xcb_window_t window) {
    auto property = cardinals(window, "_NET_WM_PID", XCB_ATOM_CARDINAL);
    if (!property.empty())
        return static_cast<pid_t>(property[0]);
    xcb_res_client_id_spec_t wanted{window, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
    auto cookie = xcb_res_query_client_ids(_connection, 1, &wanted);
    Reply<xcb_res_query_client_ids_reply_t> reply(xcb_res_query_client_ids_reply(_connection, cookie, nullptr));
    if (!reply)
        return 0;
    auto iterator = xcb_res_query_client_ids_ids_iterator(reply.get());
    for (; iterator.rem > 0; xcb_res_client_id_value_next(&iterator)) {
        if (xcb_res_client_id_value_value_length(iterator.data) > 0)
            return static_cast<pid_t>(*xcb_res_client_id_value_value(iterator.data));
    }
    return 0;
}

std::string XDisplay::titleOf(xcb_window_t window) {
    auto cookie = xcb_get_property(_connection, 0, window, atom("_NET_WM_NAME"), atom("UTF8_STRING"), 0, 65536);
    Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(_connection, cookie, nullptr));
    if (!reply)
        return {};
    return {static_cast<const char*>(xcb_get_property_value(reply.get())),
        static_cast<std::size_t>(xcb_get_property_value_length(reply.get()))};
}

PixelRect XDisplay::frameOf(xcb_window_t window) {
    auto sizeCookie = xcb_get_geometry(_connection, window);
    auto positionCookie = xcb_translate_coordinates(_connection, window, root(), 0, 0);
    Reply<xcb_get_geometry_reply_t> size(xcb_get_geometry_reply(_connection, sizeCookie, nullptr));
    Reply<xcb_translate_coordinates_reply_t> position(
        xcb_translate_coordinates_reply(_connection, positionCookie, nullptr));
    if (!size || !position)
        return {};
    return {position->dst_x, position->dst_y, size->width, size->height};
}

PixelRect XDisplay::outerFrameOf(xcb_window_t window) {
    // A window manager puts every window into one of its own, which hangs in the root window.
    while (true) {
        Reply<xcb_query_tree_reply_t> tree(
            xcb_query_tree_reply(_connection, xcb_query_tree(_connection, window), nullptr));
        if (!tree)
            return {};
        if (tree->parent == root() || tree->parent == XCB_NONE)
            break;
        window = tree->parent;
    }
    Reply<xcb_get_geometry_reply_t> geometry(
        xcb_get_geometry_reply(_connection, xcb_get_geometry(_connection, window), nullptr));
    if (!geometry)
        return {};
    return {geometry->x, geometry->y, geometry->width + 2 * geometry->border_width,
        geometry->height + 2 * geometry->border_width};
}

bool XDisplay::isViewable(xcb_window_t window) {
    Reply<xcb_get_window_attributes_reply_t> attributes(
        xcb_get_window_attributes_reply(_connection, xcb_get_window_attributes(_connection, window), nullptr));
    return attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE;
}

bool XDisplay::hasState(xcb_window_t window, const std::string& state) {
    auto states = cardinals(window, "_NET_WM_STATE", XCB_ATOM_ATOM);
    return std::find(states.begin(), states.end(), atom(state)) != states.end();
}

void XDisplay::sendToWindowManager(
    xcb_window_t window, const std::string& message, const std::vector<std::uint32_t>& data) {
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = atom(message);
    std::copy(data.begin(), data.end(), event.data.data32);
    xcb_send_event(_connection, 0, root(), XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
        reinterpret_cast<const char*>(&event));
    xcb_flush(_connection);
}

void XDisplay::activate(xcb_window_t window) {
    sendToWindowManager(window, "_NET_ACTIVE_WINDOW", {2, 0, 0});
}

void XDisplay::close(xcb_window_t window) {
    sendToWindowManager(window, "_NET_CLOSE_WINDOW", {0, 2});
}

void XDisplay::lower(xcb_window_t window) {
    const std::uint32_t below = XCB_STACK_MODE_BELOW;
    xcb_configure_window(_connection, window, XCB_CONFIG_WINDOW_STACK_MODE, &below);
    xcb_flush(_connection);
}

void XDisplay::moveWindow(xcb_window_t window, int x, int y) {
    constexpr std::uint32_t xAndY = (1U << 8U) | (1U << 9U);
    constexpr std::uint32_t fromPager = 2U << 12U;
    // Some applications want to be placed by the corner of their own part otherwise.
    constexpr std::uint32_t byOuterCorner = XCB_GRAVITY_NORTH_WEST;
    sendToWindowManager(window, "_NET_MOVERESIZE_WINDOW",
        {xAndY | fromPager | byOuterCorner, static_cast<std::uint32_t>(x), static_cast<std::uint32_t>(y)});
}

void XDisplay::resizeWindow(xcb_window_t window, int width, int height) {
    constexpr std::uint32_t widthAndHeight = (1U << 10U) | (1U << 11U);
    constexpr std::uint32_t fromPager = 2U << 12U;
    sendToWindowManager(window, "_NET_MOVERESIZE_WINDOW",
        {widthAndHeight | fromPager, 0, 0, static_cast<std::uint32_t>(width), static_cast<std::uint32_t>(height)});
}

void XDisplay::setState(xcb_window_t window, const std::string& state, bool on) {
    constexpr std::uint32_t fromPager = 2;
    sendToWindowManager(window, "_NET_WM_STATE", {on ? 1U : 0U, atom(state), XCB_ATOM_NONE, fromPager});
}

void XDisplay::setMaximized(xcb_window_t window, bool on) {
    constexpr std::uint32_t fromPager = 2;
    sendToWindowManager(window, "_NET_WM_STATE",
        {on ? 1U : 0U, atom("_NET_WM_STATE_MAXIMIZED_VERT"), atom("_NET_WM_STATE_MAXIMIZED_HORZ"), fromPager});
}

void XDisplay::minimize(xcb_window_t window) {
    constexpr std::uint32_t iconic = 3;
    sendToWindowManager(window, "WM_CHANGE_STATE", {iconic});
}

void XDisplay::showWorkspace(std::uint32_t workspace) {
    const auto count = cardinals(root(), "_NET_NUMBER_OF_DESKTOPS", XCB_ATOM_CARDINAL);
    if (count.empty() || count[0] <= workspace)
        sendToWindowManager(root(), "_NET_NUMBER_OF_DESKTOPS", {workspace + 1});
    sendToWindowManager(root(), "_NET_CURRENT_DESKTOP", {workspace, XCB_CURRENT_TIME});
}

std::uint32_t XDisplay::workspace() {
    const auto current = cardinals(root(), "_NET_CURRENT_DESKTOP", XCB_ATOM_CARDINAL);
    return current.empty() ? 0 : current[0];
}

void XDisplay::putOnWorkspace(xcb_window_t window, std::uint32_t workspace) {
    constexpr std::uint32_t fromPager = 2;
    sendToWindowManager(window, "_NET_WM_DESKTOP", {workspace, fromPager});
}

void XDisplay::setCardinals(xcb_window_t window, const std::string& property, const std::string& type,
    const std::vector<std::uint32_t>& values) {
    xcb_change_property(_connection, XCB_PROP_MODE_REPLACE, window, atom(property), atom(type), 32,
        static_cast<std::uint32_t>(values.size()), values.data());
}

std::vector<XWindow> XDisplay::mappedChildrenOfRoot(bool menus) {
    std::vector<XWindow> found;
    Reply<xcb_query_tree_reply_t> tree(xcb_query_tree_reply(_connection, xcb_query_tree(_connection, root()), nullptr));
    if (!tree)
        return found;
    const xcb_window_t* children = xcb_query_tree_children(tree.get());
    for (int index = 0; index < xcb_query_tree_children_length(tree.get()); ++index) {
        xcb_window_t window = children[index];
        Reply<xcb_get_window_attributes_reply_t> attributes(
            xcb_get_window_attributes_reply(_connection, xcb_get_window_attributes(_connection, window), nullptr));
        if (!attributes || attributes->map_state != XCB_MAP_STATE_VIEWABLE || !attributes->override_redirect
            || attributes->_class == XCB_WINDOW_CLASS_INPUT_ONLY)
            continue;
        auto types = cardinals(window, "_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM);
        // Not every toolkit gives its menus the type for menus: some leave it at the usual one. Panels and tips say
        // what they are.
        bool isMenu = std::all_of(types.begin(), types.end(), [this](xcb_atom_t type) {
            return type == atom("_NET_WM_WINDOW_TYPE_POPUP_MENU") || type == atom("_NET_WM_WINDOW_TYPE_DROPDOWN_MENU")
                || type == atom("_NET_WM_WINDOW_TYPE_NORMAL");
        });
        if (isMenu == menus)
            found.push_back({window, processOf(window), frameOf(window)});
    }
    return found;
}

std::vector<XWindow> XDisplay::openMenus() {
    return mappedChildrenOfRoot(true);
}

std::vector<XWindow> XDisplay::unmanagedWindowsOf(pid_t process) {
    auto windows = mappedChildrenOfRoot(false);
    std::erase_if(windows, [&](const XWindow& window) { return window.process != process; });
    return windows;
}

bool XDisplay::keyboardIsGrabbed() {
    // Nobody else may come between the trial and taking it back.
    xcb_grab_server(_connection);
    auto cookie = xcb_grab_keyboard(_connection, 1, root(), XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    xcb_ungrab_keyboard(_connection, XCB_CURRENT_TIME);
    xcb_ungrab_server(_connection);
    Reply<xcb_grab_keyboard_reply_t> reply(xcb_grab_keyboard_reply(_connection, cookie, nullptr));
    return reply && reply->status == XCB_GRAB_STATUS_ALREADY_GRABBED;
}

bool XDisplay::pointerIsGrabbed() {
    xcb_grab_server(_connection);
    auto cookie = xcb_grab_pointer(_connection, 1, root(), 0, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC, XCB_WINDOW_NONE,
        XCB_CURSOR_NONE, XCB_CURRENT_TIME);
    xcb_ungrab_pointer(_connection, XCB_CURRENT_TIME);
    xcb_ungrab_server(_connection);
    Reply<xcb_grab_pointer_reply_t> reply(xcb_grab_pointer_reply(_connection, cookie, nullptr));
    return reply && reply->status == XCB_GRAB_STATUS_ALREADY_GRABBED;
}

bool XDisplay::keyIsGrabbed(xcb_keycode_t keyCode, std::uint16_t modifiers) {
    xcb_grab_server(_connection);
    auto cookie =
        xcb_grab_key_checked(_connection, 0, root(), modifiers, keyCode, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    Reply<xcb_generic_error_t> refusal(xcb_request_check(_connection, cookie));
    if (!refusal)
        xcb_ungrab_key(_connection, keyCode, root(), modifiers);
    xcb_ungrab_server(_connection);
    xcb_flush(_connection);
    return refusal && refusal->error_code == XCB_ACCESS;
}

void XDisplay::setMonitor(const std::string& name, const PixelRect& frame, bool primary, bool claimOutput) {
    Reply<xcb_randr_get_screen_resources_current_reply_t> resources(xcb_randr_get_screen_resources_current_reply(
        _connection, xcb_randr_get_screen_resources_current(_connection, root()), nullptr));
    bool hasOutput =
        claimOutput && resources && xcb_randr_get_screen_resources_current_outputs_length(resources.get()) > 0;
    xcb_randr_monitor_info_t monitor{};
    monitor.name = atom(name);
    monitor.primary = primary;
    monitor.nOutput = hasOutput ? 1 : 0;
    monitor.x = static_cast<std::int16_t>(frame.x);
    monitor.y = static_cast<std::int16_t>(frame.y);
    monitor.width = static_cast<std::uint16_t>(frame.width);
    monitor.height = static_cast<std::uint16_t>(frame.height);
    monitor.width_in_millimeters = static_cast<std::uint32_t>(frame.width * 254 / 960);
    monitor.height_in_millimeters = static_cast<std::uint32_t>(frame.height * 254 / 960);
    xcb_randr_output_t output = hasOutput ? xcb_randr_get_screen_resources_current_outputs(resources.get())[0] : 0;

    // The library's own function for this request gets its length wrong, so the request is put together here. The first
    // two parts are the library's.
    constexpr std::uint8_t setMonitor = 43;
    xcb_randr_set_monitor_request_t request{};
    request.window = root();
    std::array<iovec, 5> parts{};
    parts[2] = {&request, sizeof request};
    parts[3] = {&monitor, sizeof monitor};
    parts[4] = {&output, hasOutput ? sizeof output : 0};
    xcb_protocol_request_t description{};
    description.count = 3;
    description.ext = &xcb_randr_id;
    description.opcode = setMonitor;
    description.isvoid = 1;
    xcb_send_request(_connection, 0, &parts[2], &description);
}

void XDisplay::deleteMonitor(const std::string& name) {
    xcb_randr_delete_monitor(_connection, root(), atom(name));
}

bool XDisplay::hasOutputs() {
    return Outputs(_connection, root()).areSeveral();
}

void XDisplay::setMonitors(const std::vector<PixelRect>& frames, std::size_t primary) {
    Outputs outputs(_connection, root());
    if (outputs.areSeveral()) {
        outputs.plugIn(frames.empty() ? std::vector{bounds()} : frames, primary);
        return;
    }
    // In one go, so that nobody sees the desktop with half of its monitors. All are new ones: not every toolkit notices
    // that one of the same name has moved.
    xcb_grab_server(_connection);
    for (const std::string& name : _monitors)
        deleteMonitor(name);
    _monitors.clear();
    for (std::size_t index = 0; index < frames.size(); ++index) {
        _monitors.push_back("MONITOR-" + std::to_string(++_countOfMonitors));
        // The first one stands for the real output, which would be a monitor of its own otherwise.
        setMonitor(_monitors.back(), frames[index], index == primary, index == 0);
    }
    xcb_ungrab_server(_connection);
    xcb_flush(_connection);
}

void XDisplay::setTwoMonitors() {
    PixelRect whole = bounds();
    int half = whole.width / 2;
    setMonitors({{0, 0, half, whole.height}, {half, 0, whole.width - half, whole.height}}, 0);
}

void XDisplay::setOneMonitor() {
    setMonitors({}, 0);
}

bool XDisplay::screenshot(const std::filesystem::path& file) {
    PixelRect whole = bounds();
    auto cookie = xcb_get_image(_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, root(), 0, 0,
        static_cast<std::uint16_t>(whole.width), static_cast<std::uint16_t>(whole.height), ~0U);
    Reply<xcb_get_image_reply_t> image(xcb_get_image_reply(_connection, cookie, nullptr));
    if (!image)
        return false;
    const std::uint8_t* pixels = xcb_get_image_data(image.get());
    std::string data;
    data.reserve(static_cast<std::size_t>(whole.width) * static_cast<std::size_t>(whole.height) * 3);
    for (int index = 0; index < whole.width * whole.height; ++index) {
        for (int channel : {2, 1, 0})
            data.push_back(static_cast<char>(pixels[index * 4 + channel]));
    }
    std::ofstream output(file, std::ios::binary);
    output << "P6\n" << whole.width << ' ' << whole.height << "\n255\n" << data;
    return static_cast<bool>(output);
}

} // namespace tarragon::e2e
