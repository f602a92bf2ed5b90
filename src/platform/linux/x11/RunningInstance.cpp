#include "platform/linux/x11/RunningInstance.h"

#include "platform/RunLoop.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Reply.h"

#include <xcb/xcb.h>

#include <utility>

namespace tarragon {

namespace {

xcb_window_t selectionOwner(xcb_connection_t* connection, xcb_atom_t selection) {
    const X11Reply<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(connection, xcb_get_selection_owner(connection, selection), nullptr));
    return reply ? reply->owner : xcb_window_t(XCB_WINDOW_NONE);
}

} // namespace

std::unique_ptr<RunningInstance> RunningInstance::connect(const std::string& displayName) {
    auto connection = X11Connection::connect(displayName);
    if (!connection)
        return nullptr;
    return std::unique_ptr<RunningInstance>(new RunningInstance(std::move(connection)));
}

RunningInstance::RunningInstance(std::unique_ptr<X11Connection> connection)
    : _connection(std::move(connection))
    , _selection(_connection->atom("_TARRAGON_AGENT")) { }

RunningInstance::~RunningInstance() = default;

bool RunningInstance::claimOrReopen() {
    xcb_connection_t* connection = _connection->get();
    // Between the question and the claim another process could claim the selection too, so the server is held.
    xcb_grab_server(connection);
    const xcb_window_t owner = selectionOwner(connection, _selection);
    if (owner == XCB_WINDOW_NONE) {
        _window = xcb_generate_id(connection);
        xcb_create_window(connection, 0, _window, _connection->rootWindow(), 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
            XCB_COPY_FROM_PARENT, 0, nullptr);
        xcb_set_selection_owner(connection, _window, _selection, XCB_CURRENT_TIME);
    } else {
        xcb_client_message_event_t message{};
        message.response_type = XCB_CLIENT_MESSAGE;
        message.format = 32;
        message.window = owner;
        message.type = _selection;
        xcb_send_event(connection, 0, owner, XCB_EVENT_MASK_NO_EVENT, reinterpret_cast<const char*>(&message));
    }
    xcb_ungrab_server(connection);
    // The answer to a question tells that the server has taken everything before it.
    return selectionOwner(connection, _selection) == _window && _window != XCB_WINDOW_NONE;
}

void RunningInstance::watchReopen(RunLoop& runLoop, std::function<void()> handler) {
    const auto handleAll = [this, handler = std::move(handler)] { handleEvents(handler); };
    runLoop.watchDescriptor(_connection->descriptor(), handleAll);
    // A message may have been read already, together with the answer to a question.
    runLoop.post(handleAll);
}

void RunningInstance::handleEvents(const std::function<void()>& handler) {
    while (auto* raw = xcb_poll_for_event(_connection->get())) {
        const X11Reply<xcb_generic_event_t> event(raw);
        if ((event->response_type & 0x7F) != XCB_CLIENT_MESSAGE)
            continue;
        const auto* message = reinterpret_cast<const xcb_client_message_event_t*>(event.get());
        if (message->type == _selection)
            handler();
    }
}

} // namespace tarragon
