#pragma once

#include "platform/qt/EmbeddingTray.h"

#include <cstdint>
#include <vector>

#include <xcb/xcb.h>

namespace tarragon {

class RunLoop;
class X11Connection;
class X11EmbeddedIcon;

// The tray of an X server that takes windows in by the XEmbed protocol. By convention it owns a selection. Main thread
// only; the connection and the run loop outlive this object, and it outlives the run loop's work.
class X11EmbeddingTray : public EmbeddingTray {
public:
    X11EmbeddingTray(X11Connection& connection, RunLoop& runLoop);
    ~X11EmbeddingTray() override;
    X11EmbeddingTray(const X11EmbeddingTray&) = delete;
    X11EmbeddingTray& operator=(const X11EmbeddingTray&) = delete;

    bool isThere() const override { return _tray != XCB_WINDOW_NONE; }
    void setChangedHandler(std::function<void()> handler) override { _changed = std::move(handler); }
    std::unique_ptr<EmbeddedIcon> addIcon(EmbeddedIconContent content) override;

private:
    friend class X11EmbeddedIcon;

    void watchSelection();
    void takeEvents();
    void takeEvent(const xcb_generic_event_t& event);
    void useTray(xcb_window_t tray);
    xcb_window_t selectionOwner();

    X11Connection& _connection;
    std::unique_ptr<X11Connection> _events; // nullptr when the server does not answer
    xcb_atom_t _selection = XCB_ATOM_NONE;
    std::uint8_t _firstSelectionEvent = 0; // 0 when the server does not tell of selections
    xcb_window_t _tray = XCB_WINDOW_NONE;
    std::vector<X11EmbeddedIcon*> _icons;
    std::function<void()> _changed;
};

} // namespace tarragon
