#include "screens/Outputs.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <sstream>
#include <utility>

namespace tarragon::e2e {

namespace {

struct Freed {
    void operator()(void* reply) const { std::free(reply); }
};
template <typename T>
using Reply = std::unique_ptr<T, Freed>;
using Resources = Reply<xcb_randr_get_screen_resources_current_reply_t>;

Resources resourcesOf(xcb_connection_t* connection, xcb_window_t root) {
    return Resources(xcb_randr_get_screen_resources_current_reply(
        connection, xcb_randr_get_screen_resources_current(connection, root), nullptr));
}

std::string nameOfMode(int width, int height) {
    return std::to_string(width) + "x" + std::to_string(height);
}

// It touches neither the consoles of the machine nor its input devices.
constexpr const char* Hardware = R"(
Section "ServerFlags"
    Option "AutoAddDevices" "false"
    Option "AutoAddGPU" "false"
    Option "DontVTSwitch" "true"
EndSection
Section "Device"
    Identifier "Card"
    Driver "dummy"
    VideoRam 65536
EndSection
)";

std::string monitorSection(const PixelRect& monitor) {
    std::ostringstream text;
    text << "Section \"Monitor\"\n    Identifier \"Monitor\"\n    HorizSync 1-1000\n    VertRefresh 1-1000\n    "
            "Modeline \""
         << nameOfMode(monitor.width, monitor.height) << "\" 160";
    for (const int size : {monitor.width, monitor.height})
        text << ' ' << size << ' ' << size + 10 << ' ' << size + 20 << ' ' << size + 30;
    text << "\nEndSection\n";
    return text.str();
}

std::string screenSection(const PixelRect& monitor) {
    std::ostringstream text;
    text << "Section \"Screen\"\n    Identifier \"Screen\"\n    Device \"Card\"\n    Monitor \"Monitor\"\n"
         << "    DefaultDepth 24\n    SubSection \"Display\"\n        Depth 24\n        Modes \""
         << nameOfMode(monitor.width, monitor.height) << "\"\n        Virtual " << monitor.width << ' '
         << monitor.height << "\n    EndSubSection\nEndSection\n";
    return text.str();
}

} // namespace

std::vector<std::string> Outputs::server(const PixelRect& monitor, const std::filesystem::path& folder) {
    const std::filesystem::path configuration = folder / "outputs.conf";
    std::ofstream(configuration) << Hardware << monitorSection(monitor) << screenSection(monitor);
    return {"Xorg", "-displayfd", "1", "-config", configuration, "-logfile", folder / "outputs.log", "-noreset",
        "-nolisten", "tcp"};
}

Outputs::Outputs(xcb_connection_t* connection, xcb_window_t root)
    : _connection(connection)
    , _root(root) {
    const Resources resources = resourcesOf(connection, root);
    if (!resources)
        return;
    const int count = std::min(xcb_randr_get_screen_resources_current_outputs_length(resources.get()),
        xcb_randr_get_screen_resources_current_crtcs_length(resources.get()));
    const auto* outputs = xcb_randr_get_screen_resources_current_outputs(resources.get());
    const auto* controllers = xcb_randr_get_screen_resources_current_crtcs(resources.get());
    _outputs.assign(outputs, outputs + count);
    _controllers.assign(controllers, controllers + count);
}

void Outputs::plugIn(const std::vector<PixelRect>& frames, std::size_t primary) {
    xcb_grab_server(_connection);
    for (std::size_t index = 0; index < _outputs.size(); ++index) {
        if (index < frames.size())
            plugIn(index, frames[index]);
        else
            configure(index, {}, XCB_NONE);
    }
    xcb_randr_set_output_primary(_connection, _root, _outputs.at(primary));
    // Only when it is asked to look does the server find that something hangs on an output.
    Reply<xcb_randr_get_screen_resources_reply_t>(
        xcb_randr_get_screen_resources_reply(_connection, xcb_randr_get_screen_resources(_connection, _root), nullptr));
    xcb_ungrab_server(_connection);
    xcb_flush(_connection);
}

void Outputs::plugIn(std::size_t index, const PixelRect& frame) {
    const xcb_randr_mode_t mode =
        modeOfSize(static_cast<std::uint16_t>(frame.width), static_cast<std::uint16_t>(frame.height));
    xcb_randr_add_output_mode(_connection, _outputs[index], mode);
    configure(index, frame, mode);
}

void Outputs::configure(std::size_t index, const PixelRect& frame, xcb_randr_mode_t mode) {
    const auto cookie = xcb_randr_set_crtc_config(_connection, _controllers[index], XCB_CURRENT_TIME, XCB_CURRENT_TIME,
        static_cast<std::int16_t>(frame.x), static_cast<std::int16_t>(frame.y), mode, XCB_RANDR_ROTATION_ROTATE_0,
        mode == XCB_NONE ? 0 : 1, &_outputs[index]);
    xcb_discard_reply(_connection, cookie.sequence);
}

xcb_randr_mode_t Outputs::modeOfSize(std::uint16_t width, std::uint16_t height) {
    const Resources resources = resourcesOf(_connection, _root);
    if (!resources)
        return XCB_NONE;
    const auto* begin = xcb_randr_get_screen_resources_current_modes(resources.get());
    const auto* end = begin + xcb_randr_get_screen_resources_current_modes_length(resources.get());
    const auto* mode = std::find_if(
        begin, end, [&](const auto& candidate) { return candidate.width == width && candidate.height == height; });
    return mode == end ? makeMode(width, height) : mode->id;
}

xcb_randr_mode_t Outputs::makeMode(std::uint16_t width, std::uint16_t height) {
    const std::string name = nameOfMode(width, height);
    xcb_randr_mode_info_t mode{};
    mode.width = width;
    mode.height = height;
    // No beam has to come back, but a server refuses a mode without the time for it.
    mode.hsync_start = static_cast<std::uint16_t>(width + 10);
    mode.hsync_end = static_cast<std::uint16_t>(width + 20);
    mode.htotal = static_cast<std::uint16_t>(width + 30);
    mode.vsync_start = static_cast<std::uint16_t>(height + 10);
    mode.vsync_end = static_cast<std::uint16_t>(height + 20);
    mode.vtotal = static_cast<std::uint16_t>(height + 30);
    mode.dot_clock = 60U * mode.htotal * mode.vtotal;
    mode.name_len = static_cast<std::uint16_t>(name.size());
    const Reply<xcb_randr_create_mode_reply_t> made(xcb_randr_create_mode_reply(_connection,
        xcb_randr_create_mode(_connection, _root, mode, static_cast<std::uint32_t>(name.size()), name.c_str()),
        nullptr));
    return made ? made->mode : static_cast<xcb_randr_mode_t>(XCB_NONE);
}

} // namespace tarragon::e2e
