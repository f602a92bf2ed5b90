#include "platform/linux/tray/X11EmbeddedIcon.h"

#include "platform/Log.h"
#include "platform/linux/tray/X11EmbeddingTray.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Property.h"
#include "platform/linux/x11/X11Reply.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>
#include <vector>

#include <QGuiApplication>
#include <QPainter>
#include <QPalette>

namespace tarragon {

namespace {

constexpr std::uint8_t DepthWithAlpha = 32;
constexpr int BytesOfPixel = 4;
// A tray may make its windows as large as it likes.
constexpr int LargestImage = 256;

// 0 for a visual that the screen does not have.
std::uint8_t depthOfVisual(const xcb_screen_t& screen, xcb_visualid_t visual) {
    for (auto depths = xcb_screen_allowed_depths_iterator(&screen); depths.rem > 0; xcb_depth_next(&depths)) {
        for (auto visuals = xcb_depth_visuals_iterator(depths.data); visuals.rem > 0; xcb_visualtype_next(&visuals)) {
            if (visuals.data->visual_id == visual)
                return depths.data->depth;
        }
    }
    return 0;
}

ImageGround groundOfImage(const QImage& image) {
    // One pixel of all is their average.
    return groundOfColour(image.scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation).pixelColor(0, 0));
}

} // namespace

X11EmbeddedIcon::X11EmbeddedIcon(X11EmbeddingTray& owner, xcb_window_t tray, EmbeddedIconContent content)
    : _owner(owner)
    , _connection(owner._connection)
    , _tray(tray)
    , _content(std::move(content))
    , _visual(visualOfTray()) {
    _owner._icons.push_back(this);
    makeWindow();
    askForPlace();
}

X11EmbeddedIcon::~X11EmbeddedIcon() {
    std::erase(_owner._icons, this);
    xcb_free_gc(_connection.get(), _graphics);
    xcb_destroy_window(_connection.get(), _window);
    if (_colormap != 0)
        xcb_free_colormap(_connection.get(), _colormap);
    xcb_flush(_connection.get());
}

// Trays whose windows have an alpha channel say so.
X11EmbeddedIcon::Visual X11EmbeddedIcon::visualOfTray() {
    const xcb_screen_t& screen = _connection.screen();
    const auto wanted =
        X11Property(_connection.get(), _tray, _connection.atom("_NET_SYSTEM_TRAY_VISUAL")).number().value_or(0);
    if (depthOfVisual(screen, wanted) == DepthWithAlpha)
        return {wanted, DepthWithAlpha};
    return {screen.root_visual, screen.root_depth};
}

void X11EmbeddedIcon::makeWindow() {
    xcb_connection_t* const connection = _connection.get();
    _window = xcb_generate_id(connection);
    if (_visual.depth == DepthWithAlpha) {
        _colormap = xcb_generate_id(connection);
        xcb_create_colormap(
            connection, XCB_COLORMAP_ALLOC_NONE, _colormap, _connection.rootWindow(), _visual.identifier);
        const std::array<std::uint32_t, 3> values{0, 0, _colormap};
        xcb_create_window(connection, _visual.depth, _window, _connection.rootWindow(), 0, 0, _width, _height, 0,
            XCB_WINDOW_CLASS_INPUT_OUTPUT, _visual.identifier,
            XCB_CW_BACK_PIXEL | XCB_CW_BORDER_PIXEL | XCB_CW_COLORMAP, values.data());
    } else {
        const std::uint32_t background = XCB_BACK_PIXMAP_PARENT_RELATIVE;
        xcb_create_window(connection, _visual.depth, _window, _connection.rootWindow(), 0, 0, _width, _height, 0,
            XCB_WINDOW_CLASS_INPUT_OUTPUT, _visual.identifier, XCB_CW_BACK_PIXMAP, &background);
    }
    _graphics = xcb_generate_id(connection);
    xcb_create_gc(connection, _graphics, _window, 0, nullptr);
    // The version of the protocol, and that the tray is to map the window.
    constexpr std::array<std::uint32_t, 2> information{0, 1};
    const xcb_atom_t informationAtom = _connection.atom("_XEMBED_INFO");
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, _window, informationAtom, informationAtom, 32,
        information.size(), information.data());
    const std::string name = QGuiApplication::applicationDisplayName().toStdString();
    const xcb_void_cookie_t last =
        xcb_change_property_checked(connection, XCB_PROP_MODE_REPLACE, _window, _connection.atom("_NET_WM_NAME"),
            _connection.atom("UTF8_STRING"), 8, static_cast<std::uint32_t>(name.size()), name.data());
    // The window has to be there before the other connection speaks of it.
    const X11Reply<xcb_generic_error_t> error(xcb_request_check(connection, last));
}

void X11EmbeddedIcon::askForPlace() {
    xcb_connection_t* const events = _owner._events->get();
    const std::uint32_t mask = XCB_EVENT_MASK_EXPOSURE | XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_BUTTON_PRESS
        | XCB_EVENT_MASK_BUTTON_RELEASE;
    xcb_change_window_attributes(events, _window, XCB_CW_EVENT_MASK, &mask);
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = _tray;
    message.type = _connection.atom("_NET_SYSTEM_TRAY_OPCODE");
    constexpr std::uint32_t RequestDock = 0;
    message.data.data32[0] = XCB_CURRENT_TIME;
    message.data.data32[1] = RequestDock;
    message.data.data32[2] = _window;
    xcb_send_event(events, 0, _tray, XCB_EVENT_MASK_NO_EVENT, reinterpret_cast<const char*>(&message));
    xcb_flush(events);
}

void X11EmbeddedIcon::takeEvent(const xcb_generic_event_t& event) {
    switch (event.response_type & 0x7F) {
    case XCB_CONFIGURE_NOTIFY: {
        const auto& notify = reinterpret_cast<const xcb_configure_notify_event_t&>(event);
        if (notify.window != _window || (notify.width == _width && notify.height == _height))
            return;
        _width = notify.width;
        _height = notify.height;
        paint();
        return;
    }
    case XCB_EXPOSE: {
        const auto& expose = reinterpret_cast<const xcb_expose_event_t&>(event);
        if (expose.window == _window && expose.count == 0)
            paint();
        return;
    }
    case XCB_BUTTON_RELEASE: {
        // When a button is released nobody has the pointer for himself any more, and the menu can take it.
        constexpr xcb_button_t LastOfThree = 3;
        const auto& release = reinterpret_cast<const xcb_button_release_event_t&>(event);
        if (release.event == _window && release.detail <= LastOfThree)
            _content.clicked();
        return;
    }
    default:
        return;
    }
}

void X11EmbeddedIcon::paint() {
    const int side = std::min({static_cast<int>(_width), static_cast<int>(_height), LargestImage});
    const auto x = static_cast<std::int16_t>((_width - side) / 2);
    const auto y = static_cast<std::int16_t>((_height - side) / 2);
    xcb_clear_area(_connection.get(), 0, _window, 0, 0, 0, 0);

    const bool hasAlpha = _visual.depth == DepthWithAlpha;
    QImage picture;
    if (hasAlpha) {
        picture = QImage(side, side, QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::transparent);
    } else {
        picture = background(x, y, side);
    }
    const ImageGround ground = hasAlpha ? groundOfTray() : groundOfImage(picture);
    QPainter(&picture).drawImage(0, 0, _content.image(side, ground));
    const auto length = static_cast<std::uint32_t>(side * side * BytesOfPixel);
    xcb_put_image(_connection.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, _window, _graphics, static_cast<std::uint16_t>(side),
        static_cast<std::uint16_t>(side), x, y, 0, _visual.depth, length, picture.constBits());
    xcb_flush(_connection.get());
}

QImage X11EmbeddedIcon::background(std::int16_t x, std::int16_t y, int side) {
    QImage result(side, side, QImage::Format_RGB32);
    result.fill(QGuiApplication::palette().color(QPalette::Window));
    // Fails while the window cannot be seen.
    const X11Reply<xcb_get_image_reply_t> reply(xcb_get_image_reply(_connection.get(),
        xcb_get_image(_connection.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, _window, x, y, static_cast<std::uint16_t>(side),
            static_cast<std::uint16_t>(side), ~0U),
        nullptr));
    if (!reply) {
        log(LogCategory::Panel, [] { return "what the tray paints behind the status item is not told"; });
        return result;
    }
    const auto length = static_cast<std::size_t>(xcb_get_image_data_length(reply.get()));
    if (length == static_cast<std::size_t>(result.sizeInBytes()))
        std::memcpy(result.bits(), xcb_get_image_data(reply.get()), length);
    // The fourth byte of a pixel says nothing on the server, and has to be full here.
    return result.convertToFormat(QImage::Format_ARGB32).convertToFormat(QImage::Format_RGB32);
}

// Some trays tell which colours suit them, their text's first: three numbers of 16 bits each.
ImageGround X11EmbeddedIcon::groundOfTray() {
    const std::vector<std::uint32_t> colours =
        X11Property(_connection.get(), _tray, _connection.atom("_NET_SYSTEM_TRAY_COLORS")).numbers();
    if (colours.size() < 3)
        return groundOfColour(QGuiApplication::palette().color(QPalette::Window));
    const auto part = [&](std::size_t index) { return static_cast<int>((colours[index] >> 8U) & 0xFFU); };
    const bool textIsDark = groundOfColour(QColor(part(0), part(1), part(2))) == ImageGround::Dark;
    return textIsDark ? ImageGround::Light : ImageGround::Dark;
}

} // namespace tarragon
