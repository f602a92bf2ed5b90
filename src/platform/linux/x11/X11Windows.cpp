#include "platform/linux/x11/X11Windows.h"

#include "platform/Log.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11FrameExtents.h"
#include "platform/linux/x11/X11PrimaryMonitor.h"
#include "platform/linux/x11/X11Property.h"
#include "platform/linux/x11/X11Reply.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <poll.h>
#include <string_view>
#include <tuple>
#include <unistd.h>
#include <utility>

#include <xcb/res.h>
#include <xcb/xcb.h>

namespace tarragon {

struct X11WindowAtoms {
    explicit X11WindowAtoms(X11Connection& connection);

    xcb_atom_t activeWindow, clientList, clientListStacking, currentDesktop;
    xcb_atom_t processIdentifier, name, desktop, state, windowType, frameExtents;
    xcb_atom_t gtkApplicationIdentifier, gtkFrameExtents;
    xcb_atom_t fullScreen, hidden, modal;
    xcb_atom_t typeNormal, typeDialog, typeDesktop;
    std::vector<xcb_atom_t> floatingTypes;
    xcb_atom_t moveResizeWindow;
    xcb_atom_t requestFrameExtents;
    xcb_atom_t maximizedSideways;
    xcb_atom_t maximizedUpright;
    // The server can tell the process of a client that does not do so itself.
    bool knowsClientProcesses = false;
    std::string hostName;
};

namespace {

bool serverKnowsClientProcesses(xcb_connection_t* connection) {
    const xcb_query_extension_reply_t* extension = xcb_get_extension_data(connection, &xcb_res_id);
    if (!extension || !extension->present)
        return false;
    const X11Reply<xcb_res_query_version_reply_t> version(
        xcb_res_query_version_reply(connection, xcb_res_query_version(connection, 1, 2), nullptr));
    return version && std::pair<int, int>(version->server_major, version->server_minor) >= std::pair(1, 2);
}

std::string ownHostName() {
    std::array<char, 256> buffer = {};
    return gethostname(buffer.data(), buffer.size() - 1) == 0 ? buffer.data() : "";
}

} // namespace

X11WindowAtoms::X11WindowAtoms(X11Connection& connection)
    : activeWindow(connection.atom("_NET_ACTIVE_WINDOW"))
    , clientList(connection.atom("_NET_CLIENT_LIST"))
    , clientListStacking(connection.atom("_NET_CLIENT_LIST_STACKING"))
    , currentDesktop(connection.atom("_NET_CURRENT_DESKTOP"))
    , processIdentifier(connection.atom("_NET_WM_PID"))
    , name(connection.atom("_NET_WM_NAME"))
    , desktop(connection.atom("_NET_WM_DESKTOP"))
    , state(connection.atom("_NET_WM_STATE"))
    , windowType(connection.atom("_NET_WM_WINDOW_TYPE"))
    , frameExtents(connection.atom("_NET_FRAME_EXTENTS"))
    , gtkApplicationIdentifier(connection.atom("_GTK_APPLICATION_ID"))
    , gtkFrameExtents(connection.atom("_GTK_FRAME_EXTENTS"))
    , fullScreen(connection.atom("_NET_WM_STATE_FULLSCREEN"))
    , hidden(connection.atom("_NET_WM_STATE_HIDDEN"))
    , modal(connection.atom("_NET_WM_STATE_MODAL"))
    , typeNormal(connection.atom("_NET_WM_WINDOW_TYPE_NORMAL"))
    , typeDialog(connection.atom("_NET_WM_WINDOW_TYPE_DIALOG"))
    , typeDesktop(connection.atom("_NET_WM_WINDOW_TYPE_DESKTOP"))
    , moveResizeWindow(connection.atom("_NET_MOVERESIZE_WINDOW"))
    , requestFrameExtents(connection.atom("_NET_REQUEST_FRAME_EXTENTS"))
    , maximizedSideways(connection.atom("_NET_WM_STATE_MAXIMIZED_HORZ"))
    , maximizedUpright(connection.atom("_NET_WM_STATE_MAXIMIZED_VERT"))
    , knowsClientProcesses(serverKnowsClientProcesses(connection.get()))
    , hostName(ownHostName()) {
    for (const std::string_view type : {"UTILITY", "TOOLBAR", "DOCK", "MENU", "SPLASH", "NOTIFICATION", "DROPDOWN_MENU",
             "POPUP_MENU", "TOOLTIP", "COMBO", "DND"})
        floatingTypes.push_back(connection.atom("_NET_WM_WINDOW_TYPE_" + std::string(type)));
}

namespace {

bool holds(const std::vector<std::uint32_t>& numbers, std::uint32_t number) {
    return std::find(numbers.begin(), numbers.end(), number) != numbers.end();
}

WindowType windowType(const std::vector<xcb_atom_t>& types, const X11WindowAtoms& atoms) {
    // The application lists its types in order of preference and unknown ones are to be passed over.
    for (const xcb_atom_t type : types) {
        if (type == atoms.typeNormal)
            return WindowType::Normal;
        if (type == atoms.typeDialog)
            return WindowType::Dialog;
        if (type == atoms.typeDesktop)
            return WindowType::Desktop;
        if (holds(atoms.floatingTypes, type))
            return WindowType::Floating;
    }
    return WindowType::Unspecified;
}

// The two strings of WM_CLASS.
std::pair<std::string, std::string> classStrings(const std::string& bytes) {
    const std::size_t end = std::min(bytes.find('\0'), bytes.size());
    const std::string instance = bytes.substr(0, end);
    const std::string rest = end < bytes.size() ? bytes.substr(end + 1) : std::string();
    return {instance, rest.substr(0, rest.find('\0'))};
}

// Everything that a description needs, of one window, asked for at once.
class DescriptionRequests {
public:
    DescriptionRequests(
        xcb_connection_t* connection, xcb_window_t root, xcb_window_t window, const X11WindowAtoms& atoms)
        : _connection(connection)
        , _root(root)
        , _window(window)
        , _atoms(atoms)
        , _geometry(xcb_get_geometry(connection, window))
        , _origin(xcb_translate_coordinates(connection, window, root, 0, 0))
        , _processIdentifier(connection, window, atoms.processIdentifier)
        , _machine(connection, window, XCB_ATOM_WM_CLIENT_MACHINE)
        , _name(connection, window, atoms.name)
        , _plainName(connection, window, XCB_ATOM_WM_NAME)
        , _class(connection, window, XCB_ATOM_WM_CLASS)
        , _gtkApplicationIdentifier(connection, window, atoms.gtkApplicationIdentifier)
        , _frameExtents(connection, window, atoms.frameExtents)
        , _gtkFrameExtents(connection, window, atoms.gtkFrameExtents)
        , _state(connection, window, atoms.state)
        , _desktop(connection, window, atoms.desktop)
        , _type(connection, window, atoms.windowType)
        , _transientFor(connection, window, XCB_ATOM_WM_TRANSIENT_FOR) {
        if (atoms.knowsClientProcesses) {
            const xcb_res_client_id_spec_t specification = {window, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
            _clientIdentifiers = xcb_res_query_client_ids(connection, 1, &specification);
        }
    }

    // Reads all replies; to be called exactly once. frameCG is in pixels still.
    // screenOrigin is the corner of screen space in the root window.
    std::optional<WindowDescription> description(const Point& screenOrigin) {
        const X11Reply<xcb_get_geometry_reply_t> geometry(xcb_get_geometry_reply(_connection, _geometry, nullptr));
        const X11Reply<xcb_translate_coordinates_reply_t> origin(
            xcb_translate_coordinates_reply(_connection, _origin, nullptr));
        const std::int64_t clientProcess = clientProcessIdentifier();
        if (!geometry || !origin) {
            log(LogCategory::X11,
                [&] { return "window " + std::to_string(_window) + " cannot be described: it is gone"; });
            return std::nullopt;
        }

        WindowDescription description;
        description.identifier = _window;
        description.processIdentifier = processIdentifier(clientProcess);
        description.title = _name.text();
        if (description.title.empty())
            description.title = _plainName.text();
        std::tie(description.instanceName, description.className) = classStrings(_class.bytes());
        description.gtkApplicationIdentifier = _gtkApplicationIdentifier.text();

        const std::vector<xcb_atom_t> state = _state.numbers();
        description.fullScreen = holds(state, _atoms.fullScreen);
        description.hidden = holds(state, _atoms.hidden);
        constexpr std::uint32_t EveryDesktop = 0xFFFFFFFF;
        if (const auto desktop = _desktop.number(); desktop && *desktop != EveryDesktop)
            description.workspace = desktop;
        const std::optional<xcb_window_t> transientFor = _transientFor.number();
        const bool hasOwner = transientFor && *transientFor != XCB_NONE && *transientFor != _root;
        description.transientFor = hasOwner ? *transientFor : 0;
        description.kind = kindOfWindow({.type = windowType(_type.numbers(), _atoms),
            .modal = holds(state, _atoms.modal),
            .transient = transientFor.has_value(),
            .transientForWindow = hasOwner});

        const Rect client = {
            {double(origin->dst_x), double(origin->dst_y)}, {double(geometry->width), double(geometry->height)}};
        description.frame = frameOfClient(client,
            visibleFrameExtents(
                frameExtentsOfProperty(_frameExtents.numbers()), frameExtentsOfProperty(_gtkFrameExtents.numbers())));
        description.screenOrigin = screenOrigin;
        description.frameCG = description.frame;
        description.frameCG.origin.x -= screenOrigin.x;
        description.frameCG.origin.y -= screenOrigin.y;
        return description;
    }

private:
    // The process of the connection that made the window, as the server sees it; 0 when it is not known.
    std::int64_t clientProcessIdentifier() const {
        if (!_atoms.knowsClientProcesses)
            return 0;
        const X11Reply<xcb_res_query_client_ids_reply_t> reply(
            xcb_res_query_client_ids_reply(_connection, _clientIdentifiers, nullptr));
        if (!reply)
            return 0;
        auto identifiers = xcb_res_query_client_ids_ids_iterator(reply.get());
        for (; identifiers.rem > 0; xcb_res_client_id_value_next(&identifiers)) {
            const bool isProcess = (identifiers.data->spec.mask & XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID) != 0;
            if (isProcess && xcb_res_client_id_value_value_length(identifiers.data) > 0)
                return *xcb_res_client_id_value_value(identifiers.data);
        }
        return 0;
    }

    // A process of another machine means nothing here; the server then names the local process that carries its
    // connection.
    std::int64_t processIdentifier(std::int64_t clientProcess) {
        const std::string machine = _machine.text();
        const bool isOurMachine = machine.empty() || machine == _atoms.hostName;
        const std::uint32_t stated = _processIdentifier.number().value_or(0);
        return isOurMachine && stated != 0 ? std::int64_t(stated) : clientProcess;
    }

    xcb_connection_t* _connection;
    xcb_window_t _root;
    xcb_window_t _window;
    const X11WindowAtoms& _atoms;
    xcb_get_geometry_cookie_t _geometry;
    xcb_translate_coordinates_cookie_t _origin;
    X11Property _processIdentifier;
    X11Property _machine;
    X11Property _name;
    X11Property _plainName;
    X11Property _class;
    X11Property _gtkApplicationIdentifier;
    X11Property _frameExtents;
    X11Property _gtkFrameExtents;
    X11Property _state;
    X11Property _desktop;
    X11Property _type;
    X11Property _transientFor;
    xcb_res_query_client_ids_cookie_t _clientIdentifiers = {};
};

struct WindowExtents {
    X11FrameExtents decorations;
    X11FrameExtents shadow;
};

// Nothing when the window is gone.
std::optional<WindowExtents> extentsOfWindow(
    xcb_connection_t* connection, xcb_window_t window, const X11WindowAtoms& atoms) {
    X11Property decorations(connection, window, atoms.frameExtents);
    X11Property shadow(connection, window, atoms.gtkFrameExtents);
    const X11Reply<xcb_get_geometry_reply_t> geometry(
        xcb_get_geometry_reply(connection, xcb_get_geometry(connection, window), nullptr));
    if (!geometry)
        return std::nullopt;
    return WindowExtents{frameExtentsOfProperty(decorations.numbers()), frameExtentsOfProperty(shadow.numbers())};
}

using MessageData = std::array<std::uint32_t, 5>;

bool sendToWindowManager(X11Connection& connection, xcb_window_t window, xcb_atom_t type, const MessageData& data) {
    xcb_client_message_event_t message = {};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = type;
    std::copy(data.begin(), data.end(), message.data.data32);
    constexpr std::uint32_t Mask = XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    const xcb_void_cookie_t cookie = xcb_send_event_checked(
        connection.get(), 0, connection.rootWindow(), Mask, reinterpret_cast<const char*>(&message));
    const X11Reply<xcb_generic_error_t> error(xcb_request_check(connection.get(), cookie));
    const bool isSent = !error && connection.isAlive();
    if (!isSent)
        log(LogCategory::X11, [&] {
            return "a request to the window manager about window " + std::to_string(window)
                + (error ? " is refused" : " is lost: the server is gone");
        });
    return isSent;
}

// Flags of _NET_MOVERESIZE_WINDOW. With north-west gravity the position is that of the window manager's frame. Static
// gravity would name the client window's position, but some window managers then add the border that the client once
// asked for and never got.
constexpr std::uint32_t Gravity = XCB_GRAVITY_NORTH_WEST;
constexpr std::uint32_t HasPosition = 0x300;
constexpr std::uint32_t HasSize = 0xC00;
// We act for the user, like a pager, and not for the application that owns the window.
constexpr std::uint32_t SourceIsPager = 2;
constexpr std::uint32_t MoveResizeSource = SourceIsPager << 12;

std::uint32_t pixels(double value) {
    return static_cast<std::uint32_t>(static_cast<std::int32_t>(std::lround(std::clamp(value, -32768.0, 32767.0))));
}

WindowDescription inPoints(WindowDescription description, const PixelScale& scale) {
    if (scale.isOne())
        return description;
    description.frameCG = scale.pointsFromPixels(description.frame);
    description.frameCG.origin.x -= description.screenOrigin.x;
    description.frameCG.origin.y -= description.screenOrigin.y;
    return description;
}

} // namespace

X11Windows::X11Windows(X11Connection& connection, const CurrentPixelScale* scale)
    : _connection(connection)
    , _scale(scale)
    , _atoms(std::make_unique<X11WindowAtoms>(connection))
    , _cache(connection,
          {.activeWindow = [this] { return readActiveWindow(); },
              .description = [this](std::uint32_t window) { return readDescription(window); }}) { }

X11Windows::~X11Windows() = default;

std::optional<std::uint32_t> X11Windows::activeWindow() {
    const std::optional<std::uint32_t> window = _cache.activeWindow();
    if (window)
        noteTold(*window);
    return window;
}

PixelScale X11Windows::scale() const {
    return _scale ? _scale->get() : PixelScale();
}

// The cache holds pixels, for the scale may change without the server telling of it.
std::optional<WindowDescription> X11Windows::describe(std::uint32_t window) {
    std::optional<WindowDescription> description = _cache.describe(window);
    if (description)
        description = inPoints(std::move(*description), scale());
    return description;
}

std::optional<WindowDescription> X11Windows::describeActiveWindow() {
    std::optional<WindowDescription> description = _cache.describeActiveWindow();
    if (description) {
        noteTold(description->identifier);
        description = inPoints(std::move(*description), scale());
    }
    return description;
}

std::vector<std::uint32_t> X11Windows::takeToldWindows() {
    const std::lock_guard guard(_toldMutex);
    return std::exchange(_toldWindows, {});
}

void X11Windows::noteTold(std::uint32_t window) {
    const std::lock_guard guard(_toldMutex);
    if (std::ranges::find(_toldWindows, window) == _toldWindows.end())
        _toldWindows.push_back(window);
}

std::optional<std::uint32_t> X11Windows::readActiveWindow() {
    X11Property active(_connection.get(), _connection.rootWindow(), _atoms->activeWindow);
    const std::uint32_t window = active.number().value_or(XCB_NONE);
    // Some window managers name the root window when they mean none.
    return window == XCB_NONE || window == _connection.rootWindow() ? std::nullopt : std::optional(window);
}

std::optional<WindowDescription> X11Windows::readDescription(std::uint32_t window) {
    X11PrimaryMonitor primary(_connection);
    DescriptionRequests requests(_connection.get(), _connection.rootWindow(), window, *_atoms);
    return requests.description(primary.origin());
}

std::vector<WindowDescription> X11Windows::describe(const std::vector<std::uint32_t>& windows) {
    std::vector<WindowDescription> descriptions = describeInPixels(windows);
    const PixelScale current = scale();
    for (WindowDescription& description : descriptions)
        description = inPoints(std::move(description), current);
    return descriptions;
}

std::vector<WindowDescription> X11Windows::describeInPixels(const std::vector<std::uint32_t>& windows) {
    X11PrimaryMonitor primary(_connection);
    std::vector<DescriptionRequests> requests;
    requests.reserve(windows.size());
    for (const std::uint32_t window : windows)
        requests.emplace_back(_connection.get(), _connection.rootWindow(), window, *_atoms);
    std::vector<WindowDescription> descriptions;
    for (DescriptionRequests& request : requests) {
        if (auto description = request.description(primary.origin()))
            descriptions.push_back(std::move(*description));
    }
    return descriptions;
}

std::optional<std::uint32_t> X11Windows::shownWorkspace() {
    return X11Property(_connection.get(), _connection.rootWindow(), _atoms->currentDesktop).number();
}

std::vector<std::uint32_t> X11Windows::managedWindows() {
    X11Property stacked(_connection.get(), _connection.rootWindow(), _atoms->clientListStacking);
    X11Property listed(_connection.get(), _connection.rootWindow(), _atoms->clientList);
    std::vector<std::uint32_t> windows = stacked.numbers();
    // Some window managers drop the stacking order with the last window and give it again only when two are to be put
    // in order. The other list, oldest first, is always there.
    return windows.empty() ? listed.numbers() : windows;
}

std::vector<std::uint32_t> X11Windows::windowsByActivation() {
    return _activationOrder.ordered(managedWindows());
}

std::optional<std::uint32_t> X11Windows::windowAtPosition(const Point& pointCG) {
    const std::optional<std::uint32_t> workspace = shownWorkspace();
    X11PrimaryMonitor primary(_connection);
    std::vector<WindowDescription> topmostFirst = describeInPixels(managedWindows());
    std::ranges::reverse(topmostFirst);
    const Point screenOrigin = primary.origin();
    const Point pixel = scale().pixelFromPoint({pointCG.x + screenOrigin.x, pointCG.y + screenOrigin.y});

    for (const WindowDescription& window : topmostFirst) {
        if (window.hidden || !window.isOn(workspace) || !contains(window.frame, pixel))
            continue;
        return window.kind == WindowKind::Desktop ? std::nullopt : std::optional(window.identifier);
    }
    return std::nullopt;
}

bool X11Windows::setPosition(std::uint32_t window, const Point& topLeftCG) {
    X11PrimaryMonitor primary(_connection);
    const std::optional<WindowExtents> extents = extentsOfWindow(_connection.get(), window, *_atoms);
    if (!extents)
        return false;
    const Point screenOrigin = primary.origin();
    Rect frame{{topLeftCG.x + screenOrigin.x, topLeftCG.y + screenOrigin.y}, {}};
    // Where the window lies then depends on its size.
    if (const PixelScale current = scale(); !current.isOne()) {
        if (const auto description = describe(window))
            frame.size = description->frameCG.size;
        frame = current.pixelsFromPoints(frame);
    }
    const Point outer = outerOriginOfFrame(frame.origin, extents->shadow);
    return sendToWindowManager(_connection, window, _atoms->moveResizeWindow,
        {Gravity | HasPosition | MoveResizeSource, pixels(outer.x), pixels(outer.y), 0, 0});
}

bool X11Windows::setSize(std::uint32_t window, const Size& frameSize) {
    // First, because the window manager draws something else around a maximised window.
    unmaximize(window);
    const std::optional<WindowExtents> extents = extentsOfWindow(_connection.get(), window, *_atoms);
    if (!extents)
        return false;
    double pixelsPerPoint = 1;
    if (const PixelScale current = scale(); !current.isOne()) {
        if (const auto description = describe(window))
            pixelsPerPoint = current.scaleOfPixels(description->frame);
    }
    const Size framePixels{frameSize.width * pixelsPerPoint, frameSize.height * pixelsPerPoint};
    const Size size = clientSizeOfFrame(framePixels, visibleFrameExtents(extents->decorations, extents->shadow));
    return sendToWindowManager(_connection, window, _atoms->moveResizeWindow,
        {Gravity | HasSize | MoveResizeSource, 0, 0, pixels(size.width), pixels(size.height)});
}

bool X11Windows::isMaximized(std::uint32_t window) {
    X11Property property(_connection.get(), window, _atoms->state);
    const std::vector<std::uint32_t> states = property.numbers();
    return holds(states, _atoms->maximizedSideways) || holds(states, _atoms->maximizedUpright);
}

// Window managers leave a maximised window as large as it is. What one draws around the window is another thing
// afterwards: it is asked to tell of that, too, which it does when all is done. One that does not answer is not waited
// for long.
void X11Windows::unmaximize(std::uint32_t window) {
    if (!isMaximized(window))
        return;
    const std::unique_ptr<X11Connection> events = _connection.connectAnother();
    if (!events)
        return;
    const std::uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
    const xcb_void_cookie_t cookie =
        xcb_change_window_attributes_checked(events->get(), window, XCB_CW_EVENT_MASK, &mask);
    const X11Reply<xcb_generic_error_t> error(xcb_request_check(events->get(), cookie));
    constexpr std::uint32_t Remove = 0;
    sendToWindowManager(_connection, window, _atoms->state,
        {Remove, _atoms->maximizedSideways, _atoms->maximizedUpright, SourceIsPager, 0});
    sendToWindowManager(_connection, window, _atoms->requestFrameExtents, {});
    constexpr int Patience = 100; // milliseconds
    pollfd descriptor{events->descriptor(), POLLIN, 0};
    while (poll(&descriptor, 1, Patience) > 0 && events->isAlive()) {
        while (const X11Reply<xcb_generic_event_t> event{xcb_poll_for_event(events->get())}) {
            const bool isProperty = (event->response_type & 0x7F) == XCB_PROPERTY_NOTIFY;
            if (isProperty && reinterpret_cast<const xcb_property_notify_event_t&>(*event).atom == _atoms->frameExtents)
                return;
        }
    }
}

bool X11Windows::raise(std::uint32_t window) {
    if (!extentsOfWindow(_connection.get(), window, *_atoms))
        return false;
    return sendToWindowManager(
        _connection, window, _atoms->activeWindow, {SourceIsPager, XCB_CURRENT_TIME, XCB_NONE, 0, 0});
}

} // namespace tarragon
