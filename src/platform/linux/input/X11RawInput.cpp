#include "platform/linux/input/X11RawInput.h"

#include "platform/Log.h"
#include "platform/RunLoop.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Reply.h"

#include <optional>
#include <utility>
#include <vector>

#include <xcb/xcb.h>
#include <xcb/xinput.h>

namespace tarragon {

namespace {

// Opcode of the input extension. Servers before version 2.1 tell raw events only to the client that has grabbed.
std::optional<std::uint8_t> inputExtension(xcb_connection_t* connection) {
    const xcb_query_extension_reply_t* extension = xcb_get_extension_data(connection, &xcb_input_id);
    if (!extension || !extension->present)
        return std::nullopt;
    const X11Reply<xcb_input_xi_query_version_reply_t> version(
        xcb_input_xi_query_version_reply(connection, xcb_input_xi_query_version(connection, 2, 2), nullptr));
    if (!version || std::pair<int, int>(version->major_version, version->minor_version) < std::pair(2, 1))
        return std::nullopt;
    return extension->major_opcode;
}

// What a button of a device counts as after the device's arrangement of buttons.
std::uint32_t arrangedButton(xcb_connection_t* connection, std::uint16_t device, std::uint32_t button) {
    const X11Reply<xcb_input_get_device_button_mapping_reply_t> reply(xcb_input_get_device_button_mapping_reply(
        connection, xcb_input_get_device_button_mapping(connection, static_cast<std::uint8_t>(device)), nullptr));
    if (!reply || button == 0 || button > reply->map_size)
        return button;
    return xcb_input_get_device_button_mapping_map(reply.get())[button - 1];
}

// Raw events tell of buttons as the hardware numbers them. Applications hear of them as the user has arranged them,
// first those of the device, as for left-handed use, and then those of the pointer that it moves.
std::uint32_t buttonForApplications(xcb_connection_t* connection, const xcb_input_raw_button_press_event_t& raw) {
    const std::uint32_t ofDevice = arrangedButton(connection, raw.sourceid, raw.detail);
    return raw.sourceid == raw.deviceid ? ofDevice : arrangedButton(connection, raw.deviceid, ofDevice);
}

std::optional<X11RawEvent> rawEvent(
    xcb_connection_t* connection, const xcb_generic_event_t& event, std::uint8_t extension) {
    if ((event.response_type & 0x7F) != XCB_GE_GENERIC)
        return std::nullopt;
    // All raw events of a pointer are of one form.
    const auto& raw = reinterpret_cast<const xcb_input_raw_button_press_event_t&>(event);
    if (raw.extension != extension)
        return std::nullopt;
    switch (raw.event_type) {
    case XCB_INPUT_RAW_BUTTON_PRESS:
        return X11RawEvent{X11RawEvent::Kind::ButtonPress, buttonForApplications(connection, raw)};
    case XCB_INPUT_RAW_BUTTON_RELEASE:
        return X11RawEvent{X11RawEvent::Kind::ButtonRelease, buttonForApplications(connection, raw)};
    case XCB_INPUT_RAW_MOTION:
        return X11RawEvent{};
    default:
        return std::nullopt;
    }
}

} // namespace

std::unique_ptr<X11RawInput> X11RawInput::create(const X11Connection& connection, RunLoop& runLoop, Handler handler) {
    std::unique_ptr<X11Connection> own = connection.connectAnother();
    const std::optional<std::uint8_t> extension = own ? inputExtension(own->get()) : std::nullopt;
    if (!extension) {
        log(LogCategory::X11, [] { return "the X server does not tell of input: no input extension 2.1"; });
        return nullptr;
    }
    std::unique_ptr<X11RawInput> input(new X11RawInput(std::move(own), runLoop, *extension, std::move(handler)));
    runLoop.watchDescriptor(input->_connection->descriptor(), [raw = input.get()] { raw->handleEvents(); });
    return input;
}

X11RawInput::X11RawInput(
    std::unique_ptr<X11Connection> connection, RunLoop& runLoop, std::uint8_t extension, Handler handler)
    : _connection(std::move(connection))
    , _runLoop(runLoop)
    , _extension(extension)
    , _handler(std::move(handler)) { }

X11RawInput::~X11RawInput() = default;

void X11RawInput::listen(bool toButtons, bool toMotion) {
    constexpr std::uint32_t Buttons =
        XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS | XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_RELEASE;
    const std::uint32_t mask = (toButtons ? Buttons : 0) | (toMotion ? XCB_INPUT_XI_EVENT_MASK_RAW_MOTION : 0);
    if (std::exchange(_mask, mask) == mask)
        return;
    struct {
        xcb_input_event_mask_t head;
        std::uint32_t mask;
    } selection = {{XCB_INPUT_DEVICE_ALL_MASTER, 1}, mask};
    const xcb_void_cookie_t cookie =
        xcb_input_xi_select_events_checked(_connection->get(), _connection->rootWindow(), 1, &selection.head);
    // Waits for the server, so that whatever is done from now on is heard.
    const X11Reply<xcb_generic_error_t> error(xcb_request_check(_connection->get(), cookie));
    // What was read meanwhile does not wake the run loop any more.
    _runLoop.post([this] { handleEvents(); });
}

// Everything is read before anybody is told: a handler may take its time, and a motion is worth telling only once.
void X11RawInput::handleEvents() {
    std::vector<X11RawEvent> events;
    while (const X11Reply<xcb_generic_event_t> event{xcb_poll_for_event(_connection->get())}) {
        const std::optional<X11RawEvent> raw = rawEvent(_connection->get(), *event, _extension);
        const bool repeatsMotion = raw && raw->kind == X11RawEvent::Kind::Motion && !events.empty()
            && events.back().kind == X11RawEvent::Kind::Motion;
        if (raw && !repeatsMotion)
            events.push_back(*raw);
    }
    for (const X11RawEvent& event : events)
        _handler(event);
}

} // namespace tarragon
