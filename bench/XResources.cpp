#include "XResources.h"

#include <xcb/res.h>

#include <cstdlib>
#include <memory>

namespace tarragon {

namespace {

struct FreeMemory {
    void operator()(void* memory) const { std::free(memory); }
};
template <typename T>
using Reply = std::unique_ptr<T, FreeMemory>;

long countOf(xcb_connection_t* connection, std::uint32_t client) {
    const Reply<xcb_res_query_client_resources_reply_t> reply(
        xcb_res_query_client_resources_reply(connection, xcb_res_query_client_resources(connection, client), nullptr));
    long count = 0;
    if (!reply)
        return count;
    for (auto types = xcb_res_query_client_resources_types_iterator(reply.get()); types.rem > 0;
         xcb_res_type_next(&types))
        count += types.data->count;
    return count;
}

} // namespace

XResources xResourcesOf(e2e::XDisplay& display, pid_t process) {
    xcb_connection_t* connection = display.connection();
    const xcb_res_client_id_spec_t everyone{0, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
    const Reply<xcb_res_query_client_ids_reply_t> reply(
        xcb_res_query_client_ids_reply(connection, xcb_res_query_client_ids(connection, 1, &everyone), nullptr));
    XResources found;
    if (!reply)
        return found;
    for (auto clients = xcb_res_query_client_ids_ids_iterator(reply.get()); clients.rem > 0;
         xcb_res_client_id_value_next(&clients)) {
        const bool isOurs = xcb_res_client_id_value_value_length(clients.data) > 0
            && static_cast<pid_t>(*xcb_res_client_id_value_value(clients.data)) == process;
        if (!isOurs)
            continue;
        ++found.connections;
        found.resources += countOf(connection, clients.data->spec.client);
    }
    return found;
}

} // namespace tarragon
