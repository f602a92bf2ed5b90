#pragma once

#include "platform/qt/EmbeddingTray.h"

#include <cstdint>

#include <xcb/xcb.h>

namespace tarragon {

class X11Connection;
class X11EmbeddingTray;

// A window of ours within an XEmbed tray, which gives it place and size. Where the tray's windows have an alpha channel
// the image lies on the tray itself, elsewhere on what the tray paints behind it.
class X11EmbeddedIcon : public EmbeddedIcon {
public:
    X11EmbeddedIcon(X11EmbeddingTray& owner, xcb_window_t tray, EmbeddedIconContent content);
    ~X11EmbeddedIcon() override;
    X11EmbeddedIcon(const X11EmbeddedIcon&) = delete;
    X11EmbeddedIcon& operator=(const X11EmbeddedIcon&) = delete;

    void takeEvent(const xcb_generic_event_t& event);

private:
    struct Visual {
        xcb_visualid_t identifier = 0;
        std::uint8_t depth = 0;
    };

    Visual visualOfTray();
    void makeWindow();
    void askForPlace();
    void paint();
    // What the tray paints behind a square of the window.
    QImage background(std::int16_t x, std::int16_t y, int side);
    ImageGround groundOfTray();

    X11EmbeddingTray& _owner;
    X11Connection& _connection;
    const xcb_window_t _tray;
    const EmbeddedIconContent _content;
    Visual _visual;
    xcb_colormap_t _colormap = 0;
    xcb_window_t _window = 0;
    xcb_gcontext_t _graphics = 0;
    std::uint16_t _width = 22;
    std::uint16_t _height = 22;
};

} // namespace tarragon
