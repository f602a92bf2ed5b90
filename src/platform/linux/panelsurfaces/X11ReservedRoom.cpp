#include "platform/linux/panelsurfaces/X11ReservedRoom.h"

#include "platform/linux/x11/X11Connection.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>

#include <unistd.h>
#include <xcb/shape.h>

namespace tarragon {

namespace {

constexpr std::size_t TopBegin = 8;
constexpr std::size_t EdgesAlone = 4;

} // namespace

X11ReservedRoom::X11ReservedRoom(X11Connection& connection)
    : _connection(connection) { }

X11ReservedRoom::~X11ReservedRoom() {
    reserve(std::nullopt);
}

void X11ReservedRoom::reserve(const std::optional<StrutNumbers>& strut) {
    if (std::exchange(_strut, strut) == strut)
        return;
    if (!strut) {
        xcb_destroy_window(_connection.get(), std::exchange(_window, XCB_WINDOW_NONE));
        xcb_flush(_connection.get());
        return;
    }
    const bool isNew = _window == XCB_WINDOW_NONE;
    if (isNew)
        makeWindow(*strut);
    // The second one is for window managers that do not know the first.
    setNumbers("_NET_WM_STRUT_PARTIAL", XCB_ATOM_CARDINAL, {strut->begin(), strut->end()});
    setNumbers("_NET_WM_STRUT", XCB_ATOM_CARDINAL, {strut->begin(), strut->begin() + EdgesAlone});
    if (isNew)
        xcb_map_window(_connection.get(), _window);
    xcb_flush(_connection.get());
}

// One pixel that is cut off, at the corner of the room.
void X11ReservedRoom::makeWindow(const StrutNumbers& strut) {
    _window = xcb_generate_id(_connection.get());
    const auto x = static_cast<std::int16_t>(strut[TopBegin]);
    xcb_create_window(_connection.get(), XCB_COPY_FROM_PARENT, _window, _connection.rootWindow(), x, 0, 1, 1, 0,
        XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    for (const std::uint8_t kind : {XCB_SHAPE_SK_BOUNDING, XCB_SHAPE_SK_INPUT}) {
        xcb_shape_rectangles(
            _connection.get(), XCB_SHAPE_SO_SET, kind, XCB_CLIP_ORDERING_UNSORTED, _window, 0, 0, 0, nullptr);
    }
    setNumbers("_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM, {_connection.atom("_NET_WM_WINDOW_TYPE_DOCK")});
    setNumbers("_NET_WM_STATE", XCB_ATOM_ATOM,
        {_connection.atom("_NET_WM_STATE_STICKY"), _connection.atom("_NET_WM_STATE_SKIP_TASKBAR"),
            _connection.atom("_NET_WM_STATE_SKIP_PAGER")});
    setNumbers("_NET_WM_DESKTOP", XCB_ATOM_CARDINAL, {0xFFFFFFFF});
    // A compositor draws no shadow either.
    setNumbers("_NET_WM_WINDOW_OPACITY", XCB_ATOM_CARDINAL, {0});
    setNumbers("_NET_WM_PID", XCB_ATOM_CARDINAL, {static_cast<std::uint32_t>(getpid())});
    constexpr std::uint32_t InputHint = 1;
    setNumbers("WM_HINTS", XCB_ATOM_WM_HINTS, {InputHint, 0, 0, 0, 0, 0, 0, 0, 0});
    // The place is meant as it is; window managers choose one themselves otherwise.
    constexpr std::uint32_t ChosenByUser = 1;
    std::vector<std::uint32_t> sizeHints(18);
    sizeHints[0] = ChosenByUser;
    setNumbers("WM_NORMAL_HINTS", XCB_ATOM_WM_SIZE_HINTS, sizeHints);
    const std::string name = "TarragonReservedRoom";
    xcb_change_property(_connection.get(), XCB_PROP_MODE_REPLACE, _window, XCB_ATOM_WM_NAME, XCB_ATOM_STRING, 8,
        static_cast<std::uint32_t>(name.size()), name.data());
    const std::string windowClass("tarragon\0tarragon\0", 18);
    xcb_change_property(_connection.get(), XCB_PROP_MODE_REPLACE, _window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 8,
        static_cast<std::uint32_t>(windowClass.size()), windowClass.data());
}

void X11ReservedRoom::setNumbers(const char* property, xcb_atom_t type, const std::vector<std::uint32_t>& numbers) {
    xcb_change_property(_connection.get(), XCB_PROP_MODE_REPLACE, _window, _connection.atom(property), type, 32,
        static_cast<std::uint32_t>(numbers.size()), numbers.data());
}

} // namespace tarragon
