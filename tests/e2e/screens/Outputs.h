#pragma once

#include "screens/PixelRect.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include <xcb/randr.h>

namespace tarragon::e2e {

// The sockets for monitors of a graphics card. Window managers of every kind hear of those that are plugged in. The
// connection outlives this object.
class Outputs {
public:
    Outputs(xcb_connection_t* connection, xcb_window_t root);

    // The command of a server without hardware that has several, with one monitor of this size plugged in. Its
    // configuration and its log are written to the folder.
    static std::vector<std::string> server(const PixelRect& monitor, const std::filesystem::path& folder);

    // Whether monitors can be plugged in: there are outputs beside the one that every server has.
    [[nodiscard]] bool areSeveral() const { return _outputs.size() > 1; }
    // Plugs in a monitor for each of these frames, in the order of the outputs, and unplugs the others, at once for
    // everybody who looks. One whose output has had another before is moved.
    void plugIn(const std::vector<PixelRect>& frames, std::size_t primary);

private:
    xcb_randr_mode_t modeOfSize(std::uint16_t width, std::uint16_t height);
    xcb_randr_mode_t makeMode(std::uint16_t width, std::uint16_t height);
    void plugIn(std::size_t index, const PixelRect& frame);
    // Without a mode nothing is shown on the output.
    void configure(std::size_t index, const PixelRect& frame, xcb_randr_mode_t mode);

    xcb_connection_t* _connection;
    xcb_window_t _root;
    std::vector<xcb_randr_output_t> _outputs;
    std::vector<xcb_randr_crtc_t> _controllers; // one for each output
};

} // namespace tarragon::e2e
